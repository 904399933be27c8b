#pragma once

#include <PickerCtl/pickerctl_export.h>

#include <QString>

#include <array>
#include <optional>

namespace PickerCtl::fieldpicker {

/// The entries of the two context menus, separators included.
enum class MenuEntry {
    PopupOpen,           ///< list menu: "&Open"
    PopupBar1,           ///< list menu: separator
    PopupDelete,         ///< list menu: "&Delete"
    PopupBar2,           ///< list menu: separator
    PopupOpenEditor,     ///< list menu: the open-editor entry
    PopupNew,            ///< tree menu: "&New"
    PopupTreeBar1,       ///< tree menu: separator
    PopupTreeOpenEditor, ///< tree menu: the open-editor entry
};
inline constexpr int MenuEntryCount = 8;

/// The member name of an entry ("mnuPopupDelete"), its object name.
PICKERCTL_AUTOTEST_EXPORT const char *menuEntryName(MenuEntry entry);

/// Which menu a request pops up.
enum class MenuPopup { None, List, Tree };

/// What preparing a menu does to one entry. An unset member leaves that side of the entry as the
/// last showing left it: the rules deliberately touch only some entries on each path.
struct MenuEntryState
{
    std::optional<bool> enabled;
    std::optional<bool> visible;
    std::optional<QString> caption;
    friend bool operator==(const MenuEntryState &, const MenuEntryState &) = default;
};

/// Everything the menu rules look at when a context menu is requested.
struct MenuRequest
{
    bool useEntityView = false;
    QString fieldTypeFilter;
    bool canModifyFields = false;
    bool isReadOnly = false;
    bool selectionEmpty = true;
    bool treeActive = false;
    bool isAtRoot = true;
    bool allowOpenMenu = false;
    QString openMenuCaption;
    /// The list menu is up already (a second request while it shows).
    bool listMenuUp = false;
};

/// The prepared menus: the entry changes and the menu to pop up.
struct MenuPlan
{
    MenuPopup popup = MenuPopup::None;
    std::array<MenuEntryState, MenuEntryCount> entries;

    const MenuEntryState &operator[](MenuEntry entry) const { return entries[size_t(entry)]; }
    MenuEntryState &operator[](MenuEntry entry) { return entries[size_t(entry)]; }
};

/// The editing permission: in the entity view a "UDC" field-type filter (exactly) always allows
/// editing and otherwise the user's field-modification right decides; outside it only a
/// read-only user is refused.
PICKERCTL_AUTOTEST_EXPORT bool editingPermission(bool useEntityView, const QString &fieldTypeFilter, bool canModifyFields, bool isReadOnly);

/// Prepares the tree menu when the tree is the active child, else the list menu (unless that one
/// is up already, when nothing is prepared and nothing pops up).
PICKERCTL_AUTOTEST_EXPORT MenuPlan planContextMenu(const MenuRequest &request);

} // namespace PickerCtl::fieldpicker
