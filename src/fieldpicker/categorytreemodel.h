#pragma once

#include <PickerCtl/pickerctl_export.h>

#include <PickerCtl/FieldCategory.h>

#include <QAbstractItemModel>
#include <QHash>
#include <QIcon>

#include <vector>

namespace PickerCtl::fieldpicker {

class ImageList;

/**
 * The category tree of the field browser: keyed nodes with a text, an image and a selected image
 * from the tree's image list, and the category as each node's tag. Keys are unique.
 *
 * A whole catalogue is built inside one Batch, which resets the model once at its end instead of
 * announcing every node, so tens of thousands of categories build in a few milliseconds.
 */
class PICKERCTL_AUTOTEST_EXPORT CategoryTreeModel : public QAbstractItemModel
{
    Q_OBJECT
public:
    enum Role {
        KeyRole = Qt::UserRole + 1,
        ImageRole,
        SelectedImageRole,
        SortedRole,
    };

    /// Bundles node additions and removals into a single model reset.
    class Batch
    {
    public:
        explicit Batch(CategoryTreeModel &model);
        ~Batch();
        Batch(const Batch &) = delete;
        Batch &operator=(const Batch &) = delete;

    private:
        CategoryTreeModel &m_model;
    };

    explicit CategoryTreeModel(const ImageList *images, QObject *parent = nullptr);
    ~CategoryTreeModel() override;

    /// Removes every node.
    void clear();
    /// Adds a node at the top of the tree; throws CatalogError for a key that is in the tree already.
    void addTopNode(const QString &key, const QString &text, const QString &image,
                    const QString &selectedImage, const FieldCategoryPtr &tag);
    /// Adds a node under the node keyed parentKey; throws CatalogError for a key that is in the
    /// tree already or a parent that is not.
    void addNode(const QString &parentKey, const QString &key, const QString &text, const QString &image,
                 const QString &selectedImage, const FieldCategoryPtr &tag);

    /// One node of a whole branch added at once: parent is the position of an earlier entry of the
    /// same batch, or NoParent for the node the branch hangs under.
    struct BranchNode
    {
        static constexpr qsizetype NoParent = -1;
        qsizetype parent = NoParent;
        FieldCategoryPtr category;
    };
    /// Adds a pre-order list of category nodes (key, caption, the given images, the category as tag)
    /// under the node keyed parentKey, reserving room for all of them first; throws CatalogError
    /// like addNode. Nodes added before a failure stay in the tree.
    void addBranch(const QString &parentKey, const std::vector<BranchNode> &branch, const QString &image,
                   const QString &selectedImage);

    /// Number of nodes in the whole tree.
    qsizetype nodeCount() const { return qsizetype(m_nodes.size()); }
    /// Key of the node added at that position (0: the first node added).
    QString keyAt(qsizetype order) const;
    bool containsKey(const QString &key) const { return m_byKey.contains(key); }
    QModelIndex indexForKey(const QString &key) const;
    QString key(const QModelIndex &index) const;
    FieldCategoryPtr tag(const QModelIndex &index) const;
    QString text(const QModelIndex &index) const;
    QString image(const QModelIndex &index) const;
    void setImage(const QModelIndex &index, const QString &image);

    /// Switches on the sorting of children by text exactly on the nodes that have two or more children.
    void sortNodesWithSeveralChildren();
    bool isSorted(const QModelIndex &index) const;

    // QAbstractItemModel
    QModelIndex index(int row, int column, const QModelIndex &parent = QModelIndex()) const override;
    QModelIndex parent(const QModelIndex &child) const override;
    int rowCount(const QModelIndex &parent = QModelIndex()) const override;
    int columnCount(const QModelIndex &parent = QModelIndex()) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;

private:
    static constexpr qsizetype NoNode = -1;

    struct Node
    {
        QString key;
        QString text;
        QString image;
        QString selectedImage;
        FieldCategoryPtr tag;
        qsizetype parent = NoNode;
        int row = 0;
        bool sorted = false;
        std::vector<qsizetype> children;
    };

    qsizetype insertNode(qsizetype parent, const QString &key, const QString &text, const QString &image,
                         const QString &selectedImage, const FieldCategoryPtr &tag);
    const Node *nodeOf(const QModelIndex &index) const;
    std::vector<qsizetype> &childrenOf(qsizetype node);
    void sortChildren(qsizetype node);
    bool needsSorting(qsizetype node) const;
    QIcon iconFor(const Node &node) const;

    const ImageList *m_images;
    std::vector<Node> m_nodes;
    std::vector<qsizetype> m_topNodes;
    QHash<QString, qsizetype> m_byKey;
    int m_batchDepth = 0;
    mutable QHash<QString, QIcon> m_iconCache;
};

} // namespace PickerCtl::fieldpicker
