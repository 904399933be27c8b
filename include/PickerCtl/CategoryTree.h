#pragma once

#include <PickerCtl/FieldCategory.h>

namespace PickerCtl {

/// One node of a category hierarchy. A pure grouping node carries no category.
class PICKERCTL_EXPORT CategoryNode
{
public:
    virtual ~CategoryNode();

    /// The category at this node, or null for a grouping node.
    virtual FieldCategoryPtr Category() const = 0;
    virtual qint32 ChildCount() const = 0;
    virtual std::shared_ptr<CategoryNode> FirstChild() const = 0;
    virtual std::shared_ptr<CategoryNode> NextSibling() const = 0;
    /// The node's key in its tree: the category key, or a fixed label ("Entities", the generic label)
    /// for the nodes that start the entity and generic branches.
    virtual QString Key() const = 0;
};

using CategoryNodePtr = std::shared_ptr<CategoryNode>;

/// The index of a tree's nodes.
class PICKERCTL_EXPORT CategoryNodes
{
public:
    virtual ~CategoryNodes();

    virtual CategoryNodePtr Root() const = 0;
    /// The node with that key, or null. The controls pass "" as the parent key (any parent).
    virtual CategoryNodePtr Find(const QString &key, const QString &parentKey = QString()) const = 0;
    /// The category with that key (a string in the variant), or null.
    virtual FieldCategoryPtr CategoryByKey(const QVariant &key) const = 0;
};

/// The category hierarchy of one application.
class PICKERCTL_EXPORT CategoryTree
{
public:
    virtual ~CategoryTree();

    virtual std::shared_ptr<CategoryNodes> Nodes() const = 0;
    /// Every field of the application; the controls pass 0.
    virtual FieldsPtr AllFields(qint32 which = 0) const = 0;
    /// Adds a node for the category under the node of the category keyed parentKey (or the node keyed
    /// so; empty: as the root) and returns it. The node keeps the key it has in the application's
    /// own tree. Used to build a tree that holds a single branch of the catalogue.
    virtual CategoryNodePtr Add(const FieldCategoryPtr &category, const QString &parentKey) = 0;
};

using CategoryTreePtr = std::shared_ptr<CategoryTree>;

} // namespace PickerCtl
