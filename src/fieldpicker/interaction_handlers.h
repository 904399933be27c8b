#pragma once

#include "fieldpicker/interaction_drag.h"
#include "fieldpicker/interaction_keys.h"
#include "fieldpicker/interaction_menus.h"

#include <PickerCtl/Fields.h>

#include <QModelIndex>
#include <QObject>
#include <QPoint>

#include <functional>

class QTreeView;

namespace PickerCtl {
class XFieldPicker;
class XStaticList;
}

namespace PickerCtl::fieldpicker {

class CategoryTreeModel;

/// The children of the field browser that the interaction works on.
struct InteractionParts
{
    XFieldPicker *picker = nullptr;
    QTreeView *tvw = nullptr;
    XStaticList *stl = nullptr;
    CategoryTreeModel *treeModel = nullptr;
    QCursor singleFieldDragCursor;
    QCursor multipleFieldsDragCursor;
};

/// What the interaction asks of the control itself.
struct InteractionHooks
{
    /// The selected fields, in list order; never null.
    std::function<FieldsPtr()> selection;
    /// The control's own field collection: the fields of the current view before filtering.
    std::function<FieldsPtr()> viewFields;
    /// Makes the category of a tree node current, as a click on the node does.
    std::function<void(const QModelIndex &node)> makeCurrent;
    std::function<void()> copy;
    std::function<void()> selectAll;
};

/**
 * What the user does to the field browser beyond plain clicks: the context menus of the tree and
 * the list and the events their entries raise, the keyboard, the node images on expanding and
 * collapsing, and dragging fields out of the list.
 */
class Interaction : public QObject
{
    Q_OBJECT
public:
    Interaction(InteractionParts parts, InteractionHooks hooks);
    ~Interaction() override;

    ContextMenus &menus() { return *m_menus; }
    const FieldDrag &drag() const { return m_drag; }

    /// The tree's right button (or its context-menu key): a menu once the control holds data.
    void requestTreeMenu(const QPoint &globalPos);
    /// The list's context-menu request.
    void requestListMenu(const QPoint &globalPos);

    /// The rules' view of the control and its user now.
    MenuRequest menuRequest() const;

private:
    void showContextMenu(const QPoint &globalPos);
    void onEntryChosen(MenuEntry entry);
    bool onListKey(KeyAction action);
    bool onTreeKey(KeyAction action);
    void onExpanded(const QModelIndex &node);
    void onCollapsed(const QModelIndex &node);
    QPoint keyboardMenuPosition(QWidget *view) const;
    void connectTree();
    void connectList();

    InteractionParts m_parts;
    InteractionHooks m_hooks;
    ContextMenus *m_menus;
    FieldDrag m_drag;
};

} // namespace PickerCtl::fieldpicker
