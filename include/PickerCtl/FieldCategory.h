#pragma once

#include <PickerCtl/Fields.h>

namespace PickerCtl {

/// One category (folder) of fields.
class PICKERCTL_EXPORT FieldCategory
{
public:
    virtual ~FieldCategory();

    /// Unique key of the category; the key of its node in a category tree view.
    virtual QString Key() const = 0;
    /// The entity the category belongs to (0 for categories outside the entity hierarchy).
    virtual qint32 EntityId() const = 0;
    /// The category's own name.
    virtual QString Name() const = 0;
    /// The category's path name.
    virtual QString FullName() const = 0;
    /// Name of the RCV form the category stands for (may be empty).
    virtual QString RcvFormName() const = 0;
    /// Text of the category's tree node and of the list header.
    virtual QString Caption() const = 0;
    /// Key of the enclosing category; empty at the top.
    virtual QString ParentKey() const = 0;
    /// The enclosing category; null at the top.
    virtual std::shared_ptr<FieldCategory> Parent() const = 0;
    /// The fields of the category.
    virtual FieldsPtr Fields() const = 0;
    /// Re-reads the category's fields from the catalogue.
    virtual void Reload() = 0;
};

using FieldCategoryPtr = std::shared_ptr<FieldCategory>;

} // namespace PickerCtl
