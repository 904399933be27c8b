#pragma once

#include <PickerCtl/CategoryTree.h>
#include <PickerCtl/Enums.h>

namespace PickerCtl {
class FieldCatalog;
}

namespace PickerCtl::fieldpicker {

class CategoryTreeModel;

/// Name (entity view) or full name of a category, as the control names categories.
QString displayName(const FieldCategory &category);

/// True when the application's services browse by entity.
bool useEntityView();

/// A new tree holding only the path from the top down to the named category (and with
/// tplSinglechildren that category's children). The walk ends at a category without a parent or
/// at the built-in "SYSTEM" category. Null when the catalogue gives no tree to read or to fill, or
/// knows no such category.
CategoryTreePtr singleBranchTree(FieldCatalog &catalog, ETPLSingleBranch mode, const QString &appName,
                                 const QString &categoryName);

/// Adds the root node and the category nodes of `tree` (null: the root alone) to an empty model:
/// from the entity or generic branch in the entity view, from the catalogue root otherwise.
void buildTreeNodes(CategoryTreeModel &model, const CategoryTreePtr &tree, const QString &rootLabel,
                    ETPLRootLbl rootLbl);

} // namespace PickerCtl::fieldpicker
