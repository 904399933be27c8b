#include "fieldpicker/interaction_handlers.h"

#include "fieldpicker/categorytreemodel.h"
#include "fieldpicker/interaction_nodeimages.h"

#include <PickerCtl/AppServices.h>
#include <PickerCtl/FieldClipboard.h>
#include <PickerCtl/UserContext.h>
#include <PickerCtl/XFieldPicker.h>
#include <PickerCtl/XStaticList.h>

#include <QAbstractItemView>
#include <QMimeData>
#include <QSignalBlocker>
#include <QTreeView>

#include <exception>

namespace PickerCtl::fieldpicker {

namespace {

// Qt calls every handler here; what fails inside one (a catalogue that cannot answer, a host's
// slot) ends that handler and goes no further.
template<typename Operation>
void guarded(Operation &&operation)
{
    try {
        operation();
    } catch (const std::exception &error) {
        qWarning("PickerCtl: a field browser handler failed: %s", error.what());
    } catch (...) {
        qWarning("PickerCtl: a field browser handler failed with an unknown exception");
    }
}

} // namespace

Interaction::Interaction(InteractionParts parts, InteractionHooks hooks)
    : m_parts(std::move(parts))
    , m_hooks(std::move(hooks))
    , m_menus(new ContextMenus(m_parts.picker))
    , m_drag(m_parts.singleFieldDragCursor, m_parts.multipleFieldsDragCursor)
{
    connect(m_menus, &ContextMenus::entryChosen, this, [this](MenuEntry entry) { guarded([&] { onEntryChosen(entry); }); });
    connectTree();
    connectList();
}

Interaction::~Interaction() = default;

void Interaction::connectTree()
{
    QTreeView *tvw = m_parts.tvw;
    tvw->setContextMenuPolicy(Qt::CustomContextMenu);
    connect(tvw, &QWidget::customContextMenuRequested, this,
            [this, tvw](QPoint pos) { requestTreeMenu(tvw->viewport()->mapToGlobal(pos)); });
    connect(tvw, &QTreeView::expanded, this, [this](const QModelIndex &node) { guarded([&] { onExpanded(node); }); });
    connect(tvw, &QTreeView::collapsed, this, [this](const QModelIndex &node) { guarded([&] { onCollapsed(node); }); });
    auto *keys = new KeyFilter(KeyTarget::Tree, [this](KeyAction action) { return onTreeKey(action); }, this);
    keys->watch(tvw);
}

void Interaction::connectList()
{
    XStaticList *stl = m_parts.stl;
    connect(stl, &XStaticList::ContextMenuRequested, this, &Interaction::requestListMenu);
    connect(stl, &XStaticList::DragStarted, this, [this](QMimeData *data, Qt::DropActions) {
        guarded([&] {
            m_drag.start(data, m_parts.picker->ClipBoardData(), m_parts.picker->ClipBoardFormatId(), m_hooks.selection());
        });
    });
    connect(stl, &XStaticList::DragDataRequested, this,
            [this](QMimeData *data, const QString &format) { m_drag.fill(data, format); });
    connect(stl, &XStaticList::DragCompleted, this, [this] { m_drag.complete(); });
    auto *keys = new KeyFilter(KeyTarget::List, [this](KeyAction action) { return onListKey(action); }, this);
    for (const char *view : {"lvw", "lvwIcons"}) {
        if (auto *itemView = stl->findChild<QAbstractItemView *>(QLatin1String(view)))
            keys->watch(itemView);
    }
}

MenuRequest Interaction::menuRequest() const
{
    const XFieldPicker &picker = *m_parts.picker;
    const std::shared_ptr<AppServices> services = AppServices::instance();
    const CurrentUserPtr user = UserContext::instance()->CurrentUser();
    MenuRequest request;
    request.useEntityView = services && services->UseEntityView();
    request.fieldTypeFilter = picker.FieldTypeFilter();
    // Without a known user nothing may be edited.
    request.canModifyFields = user && user->CanModifyFields();
    request.isReadOnly = !user || user->IsReadOnly();
    request.selectionEmpty = picker.IsSelectionEmpty();
    request.treeActive = picker.IsTreeViewActive();
    request.isAtRoot = picker.IsAtRoot();
    request.allowOpenMenu = picker.AllowOpenMenu();
    request.openMenuCaption = picker.OpenMenuCaption();
    request.listMenuUp = m_menus->isListMenuUp();
    return request;
}

void Interaction::requestTreeMenu(const QPoint &globalPos)
{
    if (m_parts.picker->IsDataValid())
        showContextMenu(globalPos);
}

void Interaction::requestListMenu(const QPoint &globalPos)
{
    showContextMenu(globalPos);
}

void Interaction::showContextMenu(const QPoint &globalPos)
{
    guarded([&] {
        if (!m_parts.picker->AllowContextMenu()) {
            Q_EMIT m_parts.picker->HandleContextMenu();
            return;
        }
        m_menus->show(planContextMenu(menuRequest()), globalPos);
    });
}

void Interaction::onEntryChosen(MenuEntry entry)
{
    XFieldPicker *picker = m_parts.picker;
    switch (entry) {
    case MenuEntry::PopupOpen:
        Q_EMIT picker->Edit(m_hooks.selection());
        break;
    case MenuEntry::PopupDelete:
        Q_EMIT picker->Delete(m_hooks.selection());
        break;
    case MenuEntry::PopupOpenEditor:
        Q_EMIT picker->OpenEditor(m_hooks.selection(), picker->SelectedCategory());
        break;
    case MenuEntry::PopupNew:
        Q_EMIT picker->NewExpression(picker->SelectedCategory());
        break;
    case MenuEntry::PopupTreeOpenEditor:
        Q_EMIT picker->OpenEditor(m_hooks.viewFields(), picker->SelectedCategory());
        break;
    case MenuEntry::PopupBar1:
    case MenuEntry::PopupBar2:
    case MenuEntry::PopupTreeBar1:
        break;
    }
}

bool Interaction::onListKey(KeyAction action)
{
    XStaticList *stl = m_parts.stl;
    // A frozen list takes no input; the list itself swallows the key.
    if (stl->Frozen())
        return false;
    bool acted = false;
    guarded([&] {
        switch (action) {
        case KeyAction::Activate:
            if (const FieldPtr field = stl->FocusItem()) {
                Q_EMIT m_parts.picker->DblClick(field, m_parts.picker->SelectedCategory());
                acted = true;
            }
            break;
        case KeyAction::Delete: {
            MenuRequest request = menuRequest();
            request.treeActive = false;
            request.listMenuUp = false;
            if (planContextMenu(request)[MenuEntry::PopupDelete].enabled.value_or(false)) {
                Q_EMIT m_parts.picker->Delete(m_hooks.selection());
                acted = true;
            }
            break;
        }
        case KeyAction::ContextMenu:
            requestListMenu(keyboardMenuPosition(stl->view()));
            acted = true;
            break;
        case KeyAction::Copy:
            m_hooks.copy();
            acted = true;
            break;
        case KeyAction::SelectAll:
            m_hooks.selectAll();
            acted = true;
            break;
        case KeyAction::None:
            break;
        }
    });
    return acted;
}

bool Interaction::onTreeKey(KeyAction action)
{
    if (action != KeyAction::ContextMenu)
        return false;
    requestTreeMenu(keyboardMenuPosition(m_parts.tvw));
    return true;
}

QPoint Interaction::keyboardMenuPosition(QWidget *view) const
{
    // Beside the current item, as a keyboard-raised menu usually opens; else mid-widget.
    auto *itemView = qobject_cast<QAbstractItemView *>(view);
    if (itemView && itemView->currentIndex().isValid()) {
        const QRect item = itemView->visualRect(itemView->currentIndex());
        if (itemView->viewport()->rect().intersects(item))
            return itemView->viewport()->mapToGlobal(item.bottomLeft());
    }
    return view->mapToGlobal(view->rect().center());
}

void Interaction::onExpanded(const QModelIndex &node)
{
    const CategoryTreeModel &model = *m_parts.treeModel;
    const std::shared_ptr<AppServices> services = AppServices::instance();
    const std::optional<QString> image =
        expandedNodeImage(services && services->UseEntityView(), model.text(node), model.text(node.parent()));
    if (image)
        m_parts.treeModel->setImage(node, *image);
}

void Interaction::onCollapsed(const QModelIndex &node)
{
    const QPersistentModelIndex collapsed(node);
    m_hooks.makeCurrent(collapsed);
    // Making the category current expands its node again; the user asked for it closed.
    if (collapsed.isValid() && m_parts.tvw->isExpanded(collapsed)) {
        const QSignalBlocker blocker(m_parts.tvw);
        m_parts.tvw->collapse(collapsed);
    }
    if (collapsed.isValid())
        m_parts.treeModel->setImage(collapsed, collapsedNodeImage());
}

} // namespace PickerCtl::fieldpicker
