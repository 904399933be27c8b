#pragma once

#include "catalog/core/textmap.h"

#include <PickerCtl/CategoryTree.h>

#include <QHash>
#include <QList>
#include <QSet>
#include <vector>

namespace PickerCtl {

/// A node of an in-memory category tree; it owns its children and knows its parent weakly.
class MemoryNode final : public CategoryNode
{
public:
    MemoryNode(const QString &key, FieldCategoryPtr category, const std::shared_ptr<MemoryNode> &parent);

    FieldCategoryPtr Category() const override { return m_category; }
    qint32 ChildCount() const override { return qint32(m_children.size()); }
    CategoryNodePtr FirstChild() const override;
    CategoryNodePtr NextSibling() const override;
    QString Key() const override { return m_key; }

    QString parentKey() const;
    const std::vector<std::shared_ptr<MemoryNode>> &children() const { return m_children; }
    void appendChild(const std::shared_ptr<MemoryNode> &child);

private:
    QString m_key;
    FieldCategoryPtr m_category;
    std::weak_ptr<MemoryNode> m_parent;
    std::vector<std::shared_ptr<MemoryNode>> m_children;
    size_t m_position = 0; ///< among the parent's children
};

/// The node index of one tree: nodes by node key, categories by category key.
class MemoryNodes final : public CategoryNodes
{
public:
    CategoryNodePtr Root() const override { return m_root; }
    CategoryNodePtr Find(const QString &key, const QString &parentKey = QString()) const override;
    FieldCategoryPtr CategoryByKey(const QVariant &key) const override;

    /// Adds a node keyed nodeKey under the node keyed parentKey (empty: as the root);
    /// throws CatalogError on a duplicate key, a second root or an unknown parent.
    std::shared_ptr<MemoryNode> add(const QString &nodeKey, const FieldCategoryPtr &category,
                                    const QString &parentKey);
    std::shared_ptr<MemoryNode> node(const QString &key) const { return m_nodes.value(key); }
    /// Key of the node that carries the category, or "" when the tree does not hold it.
    QString nodeKeyOf(const QString &categoryKey) const { return m_nodeKeys.value(categoryKey); }
    /// The categories of the tree in pre-order.
    QList<FieldCategoryPtr> categoriesInOrder() const;

private:
    std::shared_ptr<MemoryNode> m_root;
    TextMap<std::shared_ptr<MemoryNode>> m_nodes;
    TextMap<FieldCategoryPtr> m_categories;
    TextMap<QString> m_nodeKeys; ///< category key -> node key
};

/**
 * One application of the in-memory catalogue: its tree's node index and the lists in catalogue
 * order (pre-order of categories, fields in insertion order inside), built on first use and kept
 * until the catalogue changes.
 */
class ApplicationData
{
public:
    explicit ApplicationData(const QString &name);

    const QString &name() const { return m_name; }
    const std::shared_ptr<MemoryNodes> &nodes() const { return m_nodes; }
    QList<FieldCategoryPtr> categories() const;
    FieldsPtr allFields() const;
    /// Drops the cached lists after categories or fields were added.
    void invalidate();
    /// Removes fields from the cached list in place, so holders of it see the change.
    void removeFields(const QSet<const Field *> &removed);

    TextMap<FieldCategoryPtr> byFullName;
    TextMap<FieldCategoryPtr> byName;

private:
    QString m_name;
    std::shared_ptr<MemoryNodes> m_nodes;
    mutable QList<FieldCategoryPtr> m_categories;
    mutable bool m_categoriesValid = false;
    mutable FieldsPtr m_allFields;
};

/// A category tree of the in-memory catalogue: the application's own tree, or a new one a control
/// builds with Add. Either answers AllFields with every field of the application.
class MemoryTree final : public CategoryTree
{
public:
    MemoryTree(std::shared_ptr<MemoryNodes> nodes, std::shared_ptr<ApplicationData> application);

    std::shared_ptr<CategoryNodes> Nodes() const override { return m_nodes; }
    FieldsPtr AllFields(qint32 which = 0) const override;
    CategoryNodePtr Add(const FieldCategoryPtr &category, const QString &parentKey) override;

private:
    std::shared_ptr<MemoryNodes> m_nodes;
    std::shared_ptr<ApplicationData> m_application;
};

/// Removes the fields in `removed` from the collection without replacing it.
void removeFieldsInPlace(Fields &fields, const QSet<const Field *> &removed);

} // namespace PickerCtl
