#include "fieldpicker/categorytreemodel.h"

#include "fieldpicker/fieldpicker_icons.h"

#include <PickerCtl/CatalogError.h>

#include <QCoreApplication>

#include <algorithm>

namespace PickerCtl::fieldpicker {

namespace {

constexpr auto DuplicateKeyMessage =
    QT_TRANSLATE_NOOP("PickerCtl::XFieldPicker", "The category tree holds the key \"%1\" twice.");
constexpr auto UnknownParentMessage =
    QT_TRANSLATE_NOOP("PickerCtl::XFieldPicker", "The category tree holds no node \"%1\" to add \"%2\" under.");

char16_t foldAscii(char16_t c)
{
    return c >= u'A' && c <= u'Z' ? char16_t(c + (u'a' - u'A')) : c;
}

// Node texts are mostly plain ASCII: fold those characters in place and hand anything else to
// Qt's full case folding, which orders exactly as QString::compare without case would.
bool textBefore(QStringView a, QStringView b)
{
    const qsizetype common = std::min(a.size(), b.size());
    for (qsizetype i = 0; i < common; ++i) {
        const char16_t x = a[i].unicode();
        const char16_t y = b[i].unicode();
        if (x == y)
            continue;
        if (x >= 0x80 || y >= 0x80)
            return a.sliced(i).compare(b.sliced(i), Qt::CaseInsensitive) < 0;
        const char16_t fx = foldAscii(x);
        const char16_t fy = foldAscii(y);
        if (fx != fy)
            return fx < fy;
    }
    return a.size() < b.size();
}

} // namespace

CategoryTreeModel::Batch::Batch(CategoryTreeModel &model)
    : m_model(model)
{
    if (m_model.m_batchDepth++ == 0)
        m_model.beginResetModel();
}

CategoryTreeModel::Batch::~Batch()
{
    if (--m_model.m_batchDepth == 0)
        m_model.endResetModel();
}

CategoryTreeModel::CategoryTreeModel(const ImageList *images, QObject *parent)
    : QAbstractItemModel(parent)
    , m_images(images)
{
}

CategoryTreeModel::~CategoryTreeModel() = default;

void CategoryTreeModel::clear()
{
    Batch batch(*this);
    m_nodes.clear();
    m_topNodes.clear();
    m_byKey.clear();
}

std::vector<qsizetype> &CategoryTreeModel::childrenOf(qsizetype node)
{
    return node == NoNode ? m_topNodes : m_nodes[size_t(node)].children;
}

void CategoryTreeModel::addTopNode(const QString &key, const QString &text, const QString &image,
                                   const QString &selectedImage, const FieldCategoryPtr &tag)
{
    insertNode(NoNode, key, text, image, selectedImage, tag);
}

void CategoryTreeModel::addNode(const QString &parentKey, const QString &key, const QString &text,
                                const QString &image, const QString &selectedImage,
                                const FieldCategoryPtr &tag)
{
    const auto it = m_byKey.constFind(parentKey);
    if (it == m_byKey.constEnd())
        throw CatalogError(QCoreApplication::translate("PickerCtl::XFieldPicker", UnknownParentMessage).arg(parentKey, key));
    insertNode(it.value(), key, text, image, selectedImage, tag);
}

void CategoryTreeModel::addBranch(const QString &parentKey, const std::vector<BranchNode> &branch,
                                  const QString &image, const QString &selectedImage)
{
    if (branch.empty())
        return;
    const auto it = m_byKey.constFind(parentKey);
    if (it == m_byKey.constEnd())
        throw CatalogError(QCoreApplication::translate("PickerCtl::XFieldPicker", UnknownParentMessage).arg(parentKey, branch.front().category->Key()));
    const qsizetype top = it.value();
    m_nodes.reserve(m_nodes.size() + branch.size());
    m_byKey.reserve(m_byKey.size() + qsizetype(branch.size()));
    std::vector<qsizetype> ids;
    ids.reserve(branch.size());
    for (const BranchNode &entry : branch) {
        const qsizetype parent = entry.parent == BranchNode::NoParent ? top : ids[size_t(entry.parent)];
        ids.push_back(insertNode(parent, entry.category->Key(), entry.category->Caption(), image, selectedImage,
                                 entry.category));
    }
}

qsizetype CategoryTreeModel::insertNode(qsizetype parent, const QString &key, const QString &text,
                                        const QString &image, const QString &selectedImage,
                                        const FieldCategoryPtr &tag)
{
    // One probe both finds a duplicate and makes the entry.
    const qsizetype before = m_byKey.size();
    qsizetype &slot = m_byKey[key];
    if (m_byKey.size() == before)
        throw CatalogError(QCoreApplication::translate("PickerCtl::XFieldPicker", DuplicateKeyMessage).arg(key));

    auto &siblings = childrenOf(parent);
    const bool sorted = parent != NoNode && m_nodes[size_t(parent)].sorted;
    auto position = siblings.end();
    if (sorted) {
        position = std::upper_bound(siblings.begin(), siblings.end(), text,
                                    [this](const QString &t, qsizetype n) {
                                        return textBefore(t, m_nodes[size_t(n)].text);
                                    });
    }
    const int row = int(position - siblings.begin());
    const qsizetype id = nodeCount();

    const bool announce = m_batchDepth == 0;
    if (announce) {
        const QModelIndex parentIndex =
            parent == NoNode ? QModelIndex() : createIndex(m_nodes[size_t(parent)].row, 0, quintptr(parent));
        beginInsertRows(parentIndex, row, row);
    }
    m_nodes.push_back(Node{key, text, image, selectedImage, tag, parent, row, false, {}});
    slot = id;
    auto &children = childrenOf(parent); // push_back may have moved the parent's vector
    children.insert(children.begin() + row, id);
    for (size_t i = size_t(row) + 1; i < children.size(); ++i)
        m_nodes[size_t(children[i])].row = int(i);
    if (announce)
        endInsertRows();
    return id;
}

QString CategoryTreeModel::keyAt(qsizetype order) const
{
    if (order < 0 || order >= nodeCount())
        return QString();
    return m_nodes[size_t(order)].key;
}

QModelIndex CategoryTreeModel::indexForKey(const QString &key) const
{
    const auto it = m_byKey.constFind(key);
    if (it == m_byKey.constEnd())
        return QModelIndex();
    return createIndex(m_nodes[size_t(it.value())].row, 0, quintptr(it.value()));
}

const CategoryTreeModel::Node *CategoryTreeModel::nodeOf(const QModelIndex &index) const
{
    if (!index.isValid() || index.model() != this)
        return nullptr;
    const auto id = qsizetype(index.internalId());
    return id < nodeCount() ? &m_nodes[size_t(id)] : nullptr;
}

QString CategoryTreeModel::key(const QModelIndex &index) const
{
    const Node *node = nodeOf(index);
    return node ? node->key : QString();
}

FieldCategoryPtr CategoryTreeModel::tag(const QModelIndex &index) const
{
    const Node *node = nodeOf(index);
    return node ? node->tag : nullptr;
}

QString CategoryTreeModel::text(const QModelIndex &index) const
{
    const Node *node = nodeOf(index);
    return node ? node->text : QString();
}

QString CategoryTreeModel::image(const QModelIndex &index) const
{
    const Node *node = nodeOf(index);
    return node ? node->image : QString();
}

void CategoryTreeModel::setImage(const QModelIndex &index, const QString &image)
{
    if (!nodeOf(index) || m_nodes[size_t(index.internalId())].image == image)
        return;
    m_nodes[size_t(index.internalId())].image = image;
    Q_EMIT dataChanged(index, index, {Qt::DecorationRole, ImageRole});
}

void CategoryTreeModel::sortChildren(qsizetype node)
{
    auto &children = m_nodes[size_t(node)].children;
    std::stable_sort(children.begin(), children.end(), [this](qsizetype a, qsizetype b) {
        return textBefore(m_nodes[size_t(a)].text, m_nodes[size_t(b)].text);
    });
    for (size_t i = 0; i < children.size(); ++i)
        m_nodes[size_t(children[i])].row = int(i);
}

bool CategoryTreeModel::needsSorting(qsizetype node) const
{
    const Node &n = m_nodes[size_t(node)];
    const bool several = n.children.size() >= 2;
    if (n.sorted != several)
        return true;
    return several && !std::is_sorted(n.children.begin(), n.children.end(), [this](qsizetype a, qsizetype b) {
        return textBefore(m_nodes[size_t(a)].text, m_nodes[size_t(b)].text);
    });
}

void CategoryTreeModel::sortNodesWithSeveralChildren()
{
    // A tree sorted before stays as it is, without a reset that would lose the view's state.
    bool changes = false;
    for (qsizetype id = 0; id < nodeCount() && !changes; ++id)
        changes = needsSorting(id);
    if (!changes)
        return;
    Batch batch(*this);
    for (qsizetype id = 0; id < nodeCount(); ++id) {
        Node &node = m_nodes[size_t(id)];
        node.sorted = node.children.size() >= 2;
        if (node.sorted)
            sortChildren(id);
    }
}

bool CategoryTreeModel::isSorted(const QModelIndex &index) const
{
    const Node *node = nodeOf(index);
    return node && node->sorted;
}

QModelIndex CategoryTreeModel::index(int row, int column, const QModelIndex &parent) const
{
    if (column != 0 || row < 0)
        return QModelIndex();
    const std::vector<qsizetype> *children = &m_topNodes;
    if (parent.isValid()) {
        const Node *node = nodeOf(parent);
        if (!node)
            return QModelIndex();
        children = &node->children;
    }
    if (size_t(row) >= children->size())
        return QModelIndex();
    return createIndex(row, 0, quintptr((*children)[size_t(row)]));
}

QModelIndex CategoryTreeModel::parent(const QModelIndex &child) const
{
    const Node *node = nodeOf(child);
    if (!node || node->parent == NoNode)
        return QModelIndex();
    return createIndex(m_nodes[size_t(node->parent)].row, 0, quintptr(node->parent));
}

int CategoryTreeModel::rowCount(const QModelIndex &parent) const
{
    if (!parent.isValid())
        return int(m_topNodes.size());
    if (parent.column() != 0)
        return 0;
    const Node *node = nodeOf(parent);
    return node ? int(node->children.size()) : 0;
}

int CategoryTreeModel::columnCount(const QModelIndex &) const
{
    return 1;
}

QIcon CategoryTreeModel::iconFor(const Node &node) const
{
    if (!m_images)
        return QIcon();
    const QString cacheKey = node.image + QLatin1Char('\n') + node.selectedImage;
    auto it = m_iconCache.constFind(cacheKey);
    if (it == m_iconCache.constEnd())
        it = m_iconCache.insert(cacheKey, m_images->icon(node.image, node.selectedImage));
    return it.value();
}

QVariant CategoryTreeModel::data(const QModelIndex &index, int role) const
{
    const Node *node = nodeOf(index);
    if (!node)
        return QVariant();
    switch (role) {
    case Qt::DisplayRole:
    case Qt::ToolTipRole:
        return node->text;
    case Qt::DecorationRole:
        return iconFor(*node);
    case KeyRole:
        return node->key;
    case ImageRole:
        return node->image;
    case SelectedImageRole:
        return node->selectedImage;
    case SortedRole:
        return node->sorted;
    default:
        return QVariant();
    }
}

} // namespace PickerCtl::fieldpicker
