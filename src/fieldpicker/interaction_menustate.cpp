#include "fieldpicker/interaction_menustate.h"

namespace PickerCtl::fieldpicker {

namespace {

constexpr auto UdcFieldType = "UDC";

void prepareTreeMenu(const MenuRequest &request, bool permission, MenuPlan &plan)
{
    plan[MenuEntry::PopupNew].enabled = !request.isAtRoot && permission;
    plan[MenuEntry::PopupTreeBar1].enabled = request.allowOpenMenu;
    plan[MenuEntry::PopupTreeBar1].visible = request.allowOpenMenu;
    MenuEntryState &openEditor = plan[MenuEntry::PopupTreeOpenEditor];
    if (request.allowOpenMenu)
        openEditor.caption = request.openMenuCaption;
    openEditor.enabled = request.allowOpenMenu;
    openEditor.visible = request.allowOpenMenu;
    plan.popup = MenuPopup::Tree;
}

void prepareListMenu(const MenuRequest &request, bool permission, MenuPlan &plan)
{
    plan[MenuEntry::PopupDelete].enabled = !request.selectionEmpty && permission;
    plan[MenuEntry::PopupOpen].enabled = !request.selectionEmpty;
    // Its enabled state would follow AllowOpenMenu only while the tree is active, never here.
    plan[MenuEntry::PopupBar2].visible = request.allowOpenMenu;
    MenuEntryState &openEditor = plan[MenuEntry::PopupOpenEditor];
    if (request.allowOpenMenu)
        openEditor.caption = request.openMenuCaption;
    openEditor.enabled = request.allowOpenMenu;
    openEditor.visible = request.allowOpenMenu;
    plan.popup = MenuPopup::List;
}

} // namespace

const char *menuEntryName(MenuEntry entry)
{
    switch (entry) {
    case MenuEntry::PopupOpen: return "mnuPopupOpen";
    case MenuEntry::PopupBar1: return "mnuPopupBar1";
    case MenuEntry::PopupDelete: return "mnuPopupDelete";
    case MenuEntry::PopupBar2: return "mnuPopupBar2";
    case MenuEntry::PopupOpenEditor: return "mnuPopupOpenEditor";
    case MenuEntry::PopupNew: return "mnuPopupNew";
    case MenuEntry::PopupTreeBar1: return "mnuPopupTreeBar1";
    case MenuEntry::PopupTreeOpenEditor: return "mnuPopupTreeOpenEditor";
    }
    return "";
}

bool editingPermission(bool useEntityView, const QString &fieldTypeFilter, bool canModifyFields, bool isReadOnly)
{
    if (useEntityView)
        return fieldTypeFilter == QLatin1String(UdcFieldType) || canModifyFields;
    return !isReadOnly;
}

MenuPlan planContextMenu(const MenuRequest &request)
{
    MenuPlan plan;
    const bool permission = editingPermission(request.useEntityView, request.fieldTypeFilter,
                                              request.canModifyFields, request.isReadOnly);
    if (request.treeActive)
        prepareTreeMenu(request, permission, plan);
    else if (!request.listMenuUp)
        prepareListMenu(request, permission, plan);
    else
        return plan;
    // Without the permission no editing entry is offered, whichever menu shows; Open included.
    if (!permission) {
        plan[MenuEntry::PopupDelete].enabled = false;
        plan[MenuEntry::PopupOpen].enabled = false;
        plan[MenuEntry::PopupNew].enabled = false;
    }
    return plan;
}

} // namespace PickerCtl::fieldpicker
