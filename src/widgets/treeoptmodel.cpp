#include "widgets/treeoptmodel.h"

#include "widgets/subtreesizes.h"

namespace PickerCtl {

struct TreeOptModel::Node
{
    QString key;
    QString caption;
    QString tag;
    int imageState = 0;
    bool expanded = false;
    int check = 0;
    Node *parent = nullptr;
    int row = 0;
    SubtreeSizes childSizes;
    int checkedChildren = 0;
    int uncheckedChildren = 0;
    std::vector<std::unique_ptr<Node>> children;

    int derivedValue() const
    {
        const int count = int(children.size());
        if (checkedChildren == count)
            return 1;
        if (uncheckedChildren == count)
            return 0;
        return 2;
    }

    void countChild(int value, int delta)
    {
        if (value == 1)
            checkedChildren += delta;
        else if (value == 0)
            uncheckedChildren += delta;
    }
};

namespace {

const QList<int> CheckRoles = {Qt::CheckStateRole, TreeOptModel::CheckValueRole};

Qt::CheckState toCheckState(int value)
{
    switch (value) {
    case 0:
        return Qt::Unchecked;
    case 1:
        return Qt::Checked;
    default:
        return Qt::PartiallyChecked;
    }
}

int fromCheckState(Qt::CheckState state)
{
    switch (state) {
    case Qt::Unchecked:
        return 0;
    case Qt::Checked:
        return 1;
    default:
        return 2;
    }
}

} // namespace

TreeOptModel::TreeOptModel(QObject *parent)
    : QAbstractItemModel(parent)
    , m_root(std::make_unique<Node>())
{
}

TreeOptModel::~TreeOptModel() = default;

int TreeOptModel::normalizedCheckValue(int value)
{
    return (value == 0 || value == 1) ? value : 2;
}

void TreeOptModel::clear()
{
    beginResetModel();
    m_root = std::make_unique<Node>();
    m_byKey.clear();
    endResetModel();
}

QModelIndex TreeOptModel::addNode(const QString &key, const QString &parentKey,
                                  const QString &caption, int imageState, bool expanded,
                                  int checkValue)
{
    if (key.isEmpty() || m_byKey.contains(key))
        return {};
    Node *parentNode = m_root.get();
    if (!parentKey.isEmpty()) {
        parentNode = m_byKey.value(parentKey);
        if (!parentNode)
            return {};
    }

    auto node = std::make_unique<Node>();
    node->key = key;
    node->caption = caption;
    node->imageState = imageState;
    node->expanded = expanded;
    node->check = normalizedCheckValue(checkValue);
    node->parent = parentNode;
    node->row = int(parentNode->children.size());
    Node *added = node.get();

    beginInsertRows(indexOf(parentNode), added->row, added->row);
    parentNode->children.push_back(std::move(node));
    m_byKey.insert(key, added);
    parentNode->childSizes.append(1);
    for (Node *ancestor = parentNode; ancestor != m_root.get(); ancestor = ancestor->parent)
        ancestor->parent->childSizes.grow(ancestor->row, 1);
    endInsertRows();

    if (parentNode != m_root.get()) {
        parentNode->countChild(added->check, +1);
        const int oldParentValue = parentNode->check;
        const int newParentValue = parentNode->derivedValue();
        if (oldParentValue != newParentValue) {
            parentNode->check = newParentValue;
            const QModelIndex parentIndex = indexOf(parentNode);
            Q_EMIT dataChanged(parentIndex, parentIndex, CheckRoles);
            childValueChanged(parentNode->parent, oldParentValue, newParentValue);
        }
    }
    return indexOf(added);
}

QModelIndex TreeOptModel::indexOfKey(const QString &key) const
{
    return indexOf(m_byKey.value(key));
}

int TreeOptModel::preorderIndex(const QModelIndex &index) const
{
    // A node comes after its parent and after the whole subtrees of its earlier siblings.
    int position = 0;
    for (const Node *node = nodeOf(index); node; node = node->parent) {
        if (node == m_root.get())
            break;
        position += 1 + node->parent->childSizes.sumBefore(node->row);
    }
    return position;
}

QModelIndex TreeOptModel::indexAtPreorder(int position) const
{
    if (position < 1 || position > nodeCount())
        return {};
    const Node *node = m_root.get();
    int remaining = position;
    for (;;) {
        const auto [row, within] = node->childSizes.find(remaining);
        node = node->children[size_t(row)].get();
        if (within == 1)
            return indexOf(node);
        remaining = within - 1;
    }
}

int TreeOptModel::nodeCount() const
{
    return int(m_byKey.size());
}

int TreeOptModel::checkValue(const QModelIndex &index) const
{
    const Node *node = nodeOf(index);
    return node ? node->check : 0;
}

bool TreeOptModel::setCheckValue(const QModelIndex &index, int value)
{
    Node *node = nodeOf(index);
    if (!node || !applyCheckValue(node, normalizedCheckValue(value)))
        return false;
    Q_EMIT checkChanged(node->key);
    return true;
}

bool TreeOptModel::applyCheckValue(Node *node, int value)
{
    const int oldValue = node->check;
    if (!node->children.empty()) {
        // A parent's partial state only ever comes from its children.
        if (value == 2 || !setSubtree(node, value))
            return false;
        emitSubtreeChanged(node);
    } else {
        if (oldValue == value)
            return false;
        node->check = value;
        const QModelIndex nodeIndex = indexOf(node);
        Q_EMIT dataChanged(nodeIndex, nodeIndex, CheckRoles);
    }
    if (oldValue != node->check)
        childValueChanged(node->parent, oldValue, node->check);
    return true;
}

bool TreeOptModel::setSubtree(Node *node, int value)
{
    bool changed = node->check != value;
    node->check = value;
    const int count = int(node->children.size());
    node->checkedChildren = value == 1 ? count : 0;
    node->uncheckedChildren = value == 0 ? count : 0;
    for (const auto &child : node->children)
        changed = setSubtree(child.get(), value) || changed;
    return changed;
}

void TreeOptModel::emitSubtreeChanged(Node *node)
{
    const QModelIndex nodeIndex = indexOf(node);
    Q_EMIT dataChanged(nodeIndex, nodeIndex, CheckRoles);
    std::vector<Node *> pending{node};
    while (!pending.empty()) {
        Node *parentNode = pending.back();
        pending.pop_back();
        if (parentNode->children.empty())
            continue;
        Q_EMIT dataChanged(indexOf(parentNode->children.front().get()),
                           indexOf(parentNode->children.back().get()), CheckRoles);
        for (const auto &child : parentNode->children)
            pending.push_back(child.get());
    }
}

void TreeOptModel::childValueChanged(Node *parentNode, int oldValue, int newValue)
{
    while (parentNode && parentNode != m_root.get()) {
        parentNode->countChild(oldValue, -1);
        parentNode->countChild(newValue, +1);
        const int oldParentValue = parentNode->check;
        const int newParentValue = parentNode->derivedValue();
        if (oldParentValue == newParentValue)
            return;
        parentNode->check = newParentValue;
        const QModelIndex parentIndex = indexOf(parentNode);
        Q_EMIT dataChanged(parentIndex, parentIndex, CheckRoles);
        oldValue = oldParentValue;
        newValue = newParentValue;
        parentNode = parentNode->parent;
    }
}

QString TreeOptModel::key(const QModelIndex &index) const
{
    const Node *node = nodeOf(index);
    return node ? node->key : QString();
}

QString TreeOptModel::caption(const QModelIndex &index) const
{
    const Node *node = nodeOf(index);
    return node ? node->caption : QString();
}

QString TreeOptModel::tag(const QModelIndex &index) const
{
    const Node *node = nodeOf(index);
    return node ? node->tag : QString();
}

void TreeOptModel::setTag(const QModelIndex &index, const QString &tag)
{
    Node *node = nodeOf(index);
    if (!node || node->tag == tag)
        return;
    node->tag = tag;
    Q_EMIT dataChanged(index, index, {TagRole});
}

int TreeOptModel::imageState(const QModelIndex &index) const
{
    const Node *node = nodeOf(index);
    return node ? node->imageState : 0;
}

bool TreeOptModel::wantsExpanded(const QModelIndex &index) const
{
    const Node *node = nodeOf(index);
    return node && node->expanded;
}

bool TreeOptModel::isUserCheckable() const
{
    return m_userCheckable;
}

void TreeOptModel::setUserCheckable(bool checkable)
{
    m_userCheckable = checkable;
}

TreeOptModel::Node *TreeOptModel::nodeOf(const QModelIndex &index) const
{
    if (!index.isValid() || index.model() != this)
        return nullptr;
    return static_cast<Node *>(index.internalPointer());
}

QModelIndex TreeOptModel::indexOf(const Node *node) const
{
    if (!node || node == m_root.get())
        return {};
    return createIndex(node->row, 0, const_cast<Node *>(node));
}

QModelIndex TreeOptModel::index(int row, int column, const QModelIndex &parent) const
{
    if (column != 0 || row < 0 || (parent.isValid() && parent.column() != 0))
        return {};
    const Node *parentNode = parent.isValid() ? nodeOf(parent) : m_root.get();
    if (!parentNode || row >= int(parentNode->children.size()))
        return {};
    return createIndex(row, 0, parentNode->children[size_t(row)].get());
}

QModelIndex TreeOptModel::parent(const QModelIndex &child) const
{
    const Node *node = nodeOf(child);
    return node ? indexOf(node->parent) : QModelIndex();
}

int TreeOptModel::rowCount(const QModelIndex &parent) const
{
    if (parent.isValid() && parent.column() != 0)
        return 0;
    const Node *parentNode = parent.isValid() ? nodeOf(parent) : m_root.get();
    return parentNode ? int(parentNode->children.size()) : 0;
}

int TreeOptModel::columnCount(const QModelIndex &) const
{
    return 1;
}

bool TreeOptModel::hasChildren(const QModelIndex &parent) const
{
    return rowCount(parent) > 0;
}

QVariant TreeOptModel::data(const QModelIndex &index, int role) const
{
    const Node *node = nodeOf(index);
    if (!node)
        return {};
    switch (role) {
    case Qt::DisplayRole:
        return node->caption;
    case Qt::CheckStateRole:
        return toCheckState(node->check);
    case KeyRole:
        return node->key;
    case TagRole:
        return node->tag;
    case ImageStateRole:
        return node->imageState;
    case CheckValueRole:
        return node->check;
    case ExpandedRole:
        return node->expanded;
    default:
        return {};
    }
}

bool TreeOptModel::setData(const QModelIndex &index, const QVariant &value, int role)
{
    if (role != Qt::CheckStateRole || !m_userCheckable || !nodeOf(index))
        return false;
    setCheckValue(index, fromCheckState(static_cast<Qt::CheckState>(value.toInt())));
    return true;
}

Qt::ItemFlags TreeOptModel::flags(const QModelIndex &index) const
{
    if (!nodeOf(index))
        return Qt::NoItemFlags;
    Qt::ItemFlags result = Qt::ItemIsEnabled | Qt::ItemIsSelectable;
    if (m_userCheckable)
        result |= Qt::ItemIsUserCheckable;
    return result;
}

} // namespace PickerCtl
