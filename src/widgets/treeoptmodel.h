#pragma once

#include <PickerCtl/pickerctl_export.h>

#include <QAbstractItemModel>
#include <QHash>
#include <memory>
#include <vector>

namespace PickerCtl {

/**
 * The nodes of the option tree and their tri-state check values.
 *
 * A parent's value always follows its children (all 1 -> 1, all 0 -> 0, else 2); setting a node to
 * 0 or 1 sets its whole subtree. Each node counts its checked and unchecked children, so a change
 * costs the depth of the tree, not the number of siblings: a root with thousands of children stays
 * fast. Nodes are only ever appended to their parent or all cleared, which keeps rows stable; each
 * node keeps the sizes of its children's subtrees, so adding a node anywhere, the pre-order number
 * of a node and the node at a number all cost O(depth x log children), never a renumbering.
 */
class PICKERCTL_AUTOTEST_EXPORT TreeOptModel : public QAbstractItemModel
{
    Q_OBJECT

public:
    enum Role {
        KeyRole = Qt::UserRole + 1,
        TagRole,
        ImageStateRole,
        CheckValueRole,
        ExpandedRole,
    };

    explicit TreeOptModel(QObject *parent = nullptr);
    ~TreeOptModel() override;

    void clear();
    /// Appends a node under parentKey (a root when empty). Invalid index when the key is taken,
    /// the parent unknown or the key empty.
    QModelIndex addNode(const QString &key, const QString &parentKey, const QString &caption,
                        int imageState, bool expanded, int checkValue);

    QModelIndex indexOfKey(const QString &key) const;
    /// 1-based pre-order position of a node, 0 for an invalid index.
    int preorderIndex(const QModelIndex &index) const;
    /// Node at a 1-based pre-order position; invalid when out of range.
    QModelIndex indexAtPreorder(int position) const;
    int nodeCount() const;

    int checkValue(const QModelIndex &index) const;
    /// Sets and propagates; emits checkChanged(key) once when any node changed. Returns that.
    bool setCheckValue(const QModelIndex &index, int value);

    QString key(const QModelIndex &index) const;
    QString caption(const QModelIndex &index) const;
    QString tag(const QModelIndex &index) const;
    void setTag(const QModelIndex &index, const QString &tag);
    int imageState(const QModelIndex &index) const;
    bool wantsExpanded(const QModelIndex &index) const;

    /// False stops check changes through setData (a locked tree); setCheckValue still works.
    bool isUserCheckable() const;
    void setUserCheckable(bool checkable);

    QModelIndex index(int row, int column, const QModelIndex &parent = QModelIndex()) const override;
    QModelIndex parent(const QModelIndex &child) const override;
    int rowCount(const QModelIndex &parent = QModelIndex()) const override;
    int columnCount(const QModelIndex &parent = QModelIndex()) const override;
    bool hasChildren(const QModelIndex &parent = QModelIndex()) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    bool setData(const QModelIndex &index, const QVariant &value, int role = Qt::EditRole) override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;

    /// 0 and 1 stay, every other value reads as partly checked (2).
    static int normalizedCheckValue(int value);

Q_SIGNALS:
    void checkChanged(const QString &key);

private:
    struct Node;

    Node *nodeOf(const QModelIndex &index) const;
    QModelIndex indexOf(const Node *node) const;
    bool applyCheckValue(Node *node, int value);
    bool setSubtree(Node *node, int value);
    void childValueChanged(Node *parent, int oldValue, int newValue);
    void emitSubtreeChanged(Node *node);

    std::unique_ptr<Node> m_root;
    QHash<QString, Node *> m_byKey;
    bool m_userCheckable = true;
};

} // namespace PickerCtl
