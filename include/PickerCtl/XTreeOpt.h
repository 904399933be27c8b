#pragma once

#include <PickerCtl/pickerctl_export.h>

#include <QTreeView>
#include <memory>

namespace PickerCtl {

/**
 * The option tree: a tree of nodes with tri-state check boxes.
 *
 * Every node has a key (unique in the tree, exact comparison), a caption, a string tag, an image
 * state and a check value: 0 unchecked, 1 checked, any other value partly checked (read back as 2).
 *
 * Propagation: setting a node to 0 or 1 sets all of its descendants to the same value; any change
 * of a node makes each ancestor recompute its value from its children (all 1 gives 1, all 0 gives
 * 0, anything else 2). A node without children keeps the value it was given; asking a node with
 * children to be partly checked changes nothing, since its value follows its children.
 *
 * Nodes are addressed by key or by index: the 1-based position of the node in pre-order over the
 * whole tree (index 1 is the first root). Indices move when nodes are inserted before them.
 * Operations given an unknown key or an index out of range do nothing and read as 0 or empty;
 * Find() tells whether a node exists.
 *
 * The user toggles a node with a click on its check box or the Space key: partly or unchecked
 * becomes checked, checked becomes unchecked. While Locked() the ticks show but the user cannot
 * change them; the set operations still work.
 *
 * The widget's object name is left to its owner (`tvw`, `tvwOpt`).
 */
class PICKERCTL_EXPORT XTreeOpt : public QTreeView
{
    Q_OBJECT
    Q_PROPERTY(bool Locked READ Locked WRITE setLocked)

public:
    /// Check values as the tree reports them.
    enum CheckValueCode : int { Unchecked = 0, Checked = 1, PartlyChecked = 2 };

    explicit XTreeOpt(QWidget *parent = nullptr);
    ~XTreeOpt() override;

    /// Removes all nodes.
    void Clear();

    /**
     * Adds a node: a root when parentKey is empty, else the last child of the node parentKey.
     * The node starts unchecked; expanded asks for the node to be shown open. imageState is kept
     * with the node for its owner (the tree draws check boxes from the check values).
     * Returns the new node's index, or 0 when the key is already used or the parent is unknown.
     */
    int AddNode(const QString &key, const QString &parentKey, const QString &caption,
                int imageState = 0, bool expanded = false);

    /**
     * Adds the last child of the node parentKey with that check value (propagated as by
     * setCheckValue, without raising CheckChanged). Returns the new node's index, or 0 when the key
     * is already used or the parent is unknown.
     */
    int AddChild(const QString &key, const QString &parentKey, const QString &caption,
                 int checkValue = Unchecked);

    /// Index of the node with that key, or 0 when there is none. Same as Index().
    int Find(const QString &key) const;
    /// Index of the node with that key, or 0 when there is none.
    int Index(const QString &key) const;
    /// Key of the node at that index, or empty.
    QString Key(int index) const;
    /// Number of nodes in the whole tree.
    int Count() const;

    QString Caption(const QString &key) const;

    /// Check value of a node: 0, 1 or 2 (partly).
    int CheckValue(const QString &key) const;
    /// Sets a node's check value and propagates it; raises CheckChanged(key) once when anything changed.
    void setCheckValue(const QString &key, int value);
    int CheckValueAt(int index) const;
    void setCheckValueAt(int index, int value);

    QString Tag(const QString &key) const;
    void setTag(const QString &key, const QString &tag);
    QString TagAt(int index) const;
    void setTagAt(int index, const QString &tag);

    int ImageState(const QString &key) const;

    /// Expands the node's ancestors and scrolls it into view.
    void EnsureVisible(int index);
    /// Ends a rebuild: opens the roots and the nodes added as expanded, so that all values show.
    void FinishRebuild();
    /// Repaints the tree.
    void Refresh();

    /// True: ticks are shown but the user cannot change them.
    bool Locked() const;
    void setLocked(bool locked);

Q_SIGNALS:
    /**
     * A node's check value changed, by the user or by a call. Raised once per user toggle or per
     * set call, with the key of the node that was toggled or set, after the propagation to its
     * descendants and ancestors is complete; a call that changes nothing raises nothing.
     */
    void CheckChanged(const QString &key);
    /// The user clicked a node (anywhere on its row).
    void NodeClicked(const QString &key);

private:
    class Private;
    std::unique_ptr<Private> d;
};

} // namespace PickerCtl
