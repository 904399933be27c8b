#include "catalog/core/memorytree.h"

#include <PickerCtl/CatalogError.h>

#include <QSet>

namespace PickerCtl {

namespace {
const QString kDuplicateKey = QStringLiteral("The category key \"%1\" is used twice in the tree.");
const QString kSecondRoot = QStringLiteral("The category \"%1\" cannot be a second top of the tree.");
const QString kUnknownParent = QStringLiteral("The parent \"%1\" of the category \"%2\" is not in the tree.");
const QString kNoCategory = QStringLiteral("A tree node needs a category.");
} // namespace

MemoryNode::MemoryNode(const QString &key, FieldCategoryPtr category,
                       const std::shared_ptr<MemoryNode> &parent)
    : m_key(key), m_category(std::move(category)), m_parent(parent)
{
}

CategoryNodePtr MemoryNode::FirstChild() const
{
    return m_children.empty() ? nullptr : m_children.front();
}

CategoryNodePtr MemoryNode::NextSibling() const
{
    const std::shared_ptr<MemoryNode> parent = m_parent.lock();
    if (!parent || m_position + 1 >= parent->m_children.size())
        return nullptr;
    return parent->m_children[m_position + 1];
}

QString MemoryNode::parentKey() const
{
    const std::shared_ptr<MemoryNode> parent = m_parent.lock();
    return parent ? parent->m_key : QString();
}

void MemoryNode::appendChild(const std::shared_ptr<MemoryNode> &child)
{
    child->m_position = m_children.size();
    m_children.push_back(child);
}

CategoryNodePtr MemoryNodes::Find(const QString &key, const QString &parentKey) const
{
    const std::shared_ptr<MemoryNode> found = m_nodes.value(key);
    if (found && !parentKey.isEmpty() && found->parentKey() != parentKey)
        return nullptr;
    return found;
}

FieldCategoryPtr MemoryNodes::CategoryByKey(const QVariant &key) const
{
    return m_categories.value(key.toString());
}

std::shared_ptr<MemoryNode> MemoryNodes::add(const QString &nodeKey, const FieldCategoryPtr &category,
                                             const QString &parentKey)
{
    if (!category)
        throw CatalogError(kNoCategory);
    if (m_nodes.contains(nodeKey) || m_categories.contains(category->Key()))
        throw CatalogError(kDuplicateKey.arg(m_nodes.contains(nodeKey) ? nodeKey : category->Key()));
    std::shared_ptr<MemoryNode> parent;
    if (parentKey.isEmpty()) {
        if (m_root)
            throw CatalogError(kSecondRoot.arg(category->Name()));
    } else {
        parent = m_nodes.value(parentKey);
        if (!parent)
            throw CatalogError(kUnknownParent.arg(parentKey, category->Name()));
    }
    auto node = std::make_shared<MemoryNode>(nodeKey, category, parent);
    if (parent)
        parent->appendChild(node);
    else
        m_root = node;
    m_nodes.insert(nodeKey, node);
    m_categories.insert(category->Key(), category);
    m_nodeKeys.insert(category->Key(), nodeKey);
    return node;
}

QList<FieldCategoryPtr> MemoryNodes::categoriesInOrder() const
{
    QList<FieldCategoryPtr> ordered;
    ordered.reserve(m_categories.size());
    if (!m_root)
        return ordered;
    std::vector<const MemoryNode *> pending{m_root.get()};
    while (!pending.empty()) {
        const MemoryNode *node = pending.back();
        pending.pop_back();
        if (node->Category())
            ordered.append(node->Category());
        const auto &children = node->children();
        for (auto it = children.rbegin(); it != children.rend(); ++it)
            pending.push_back(it->get());
    }
    return ordered;
}

ApplicationData::ApplicationData(const QString &name)
    : m_name(name), m_nodes(std::make_shared<MemoryNodes>())
{
}

QList<FieldCategoryPtr> ApplicationData::categories() const
{
    if (!m_categoriesValid) {
        m_categories = m_nodes->categoriesInOrder();
        m_categoriesValid = true;
    }
    return m_categories;
}

FieldsPtr ApplicationData::allFields() const
{
    if (!m_allFields) {
        const QList<FieldCategoryPtr> ordered = categories();
        qsizetype count = 0;
        for (const FieldCategoryPtr &category : ordered)
            count += category->Fields()->size();
        auto all = Fields::create();
        all->reserve(count);
        for (const FieldCategoryPtr &category : ordered) {
            for (const FieldPtr &field : *category->Fields())
                all->Add(field);
        }
        m_allFields = all;
    }
    return m_allFields;
}

void ApplicationData::invalidate()
{
    m_categoriesValid = false;
    m_categories.clear();
    m_allFields.reset();
}

void ApplicationData::removeFields(const QSet<const Field *> &removed)
{
    if (m_allFields)
        removeFieldsInPlace(*m_allFields, removed);
}

MemoryTree::MemoryTree(std::shared_ptr<MemoryNodes> nodes, std::shared_ptr<ApplicationData> application)
    : m_nodes(std::move(nodes)), m_application(std::move(application))
{
}

FieldsPtr MemoryTree::AllFields(qint32 /*which*/) const
{
    return m_application ? m_application->allFields() : Fields::create();
}

// A branch keeps the node keys of the application's own tree, so that the nodes which start the
// entity and generic branches ("Entities", the generic label) can still be found in it.
CategoryNodePtr MemoryTree::Add(const FieldCategoryPtr &category, const QString &parentKey)
{
    const QString categoryKey = category ? category->Key() : QString();
    QString nodeKey = m_application ? m_application->nodes()->nodeKeyOf(categoryKey) : QString();
    if (nodeKey.isEmpty())
        nodeKey = categoryKey;
    QString parentNodeKey = m_nodes->nodeKeyOf(parentKey);
    if (parentNodeKey.isEmpty())
        parentNodeKey = parentKey;
    return m_nodes->add(nodeKey, category, parentNodeKey);
}

void removeFieldsInPlace(Fields &fields, const QSet<const Field *> &removed)
{
    std::vector<FieldPtr> kept;
    kept.reserve(size_t(fields.size()));
    for (const FieldPtr &field : fields) {
        if (!removed.contains(field.get()))
            kept.push_back(field);
    }
    if (qsizetype(kept.size()) == fields.size())
        return;
    fields.clear();
    fields.reserve(qsizetype(kept.size()));
    for (const FieldPtr &field : kept)
        fields.Add(field);
}

} // namespace PickerCtl
