#pragma once

#include <PickerCtl/pickerctl_export.h>

#include "fieldpicker/interaction_menustate.h"

#include <QObject>
#include <QPoint>

#include <functional>

class QAction;
class QMenu;
class QWidget;

namespace PickerCtl::fieldpicker {

/**
 * The two context menus of the field browser: the list menu "mnuPopupList" (Open, Delete, the
 * open-editor entry) and the tree menu "mnuPopupTree" (New, the open-editor entry). Each menu and
 * entry carries its member name as object name. A plan from planContextMenu() is applied to the
 * entries and its menu popped up; the entry the user picks is reported by entryChosen().
 */
class PICKERCTL_AUTOTEST_EXPORT ContextMenus : public QObject
{
    Q_OBJECT
public:
    /// Shows a menu at a global position and returns once it has closed; a chosen entry triggers
    /// its action before that.
    using PopupExecutor = std::function<void(QMenu *menu, const QPoint &globalPos)>;

    /// The menus are children of `owner`, so they share its lifetime, font and palette.
    explicit ContextMenus(QWidget *owner);

    QMenu *listMenu() const { return m_listMenu; }
    QMenu *treeMenu() const { return m_treeMenu; }
    QAction *entry(MenuEntry entry) const { return m_entries[size_t(entry)]; }

    /// True while the list menu is shown.
    bool isListMenuUp() const;

    /// Applies the plan's entry changes; entries it leaves unset keep their state.
    void apply(const MenuPlan &plan);
    /// Applies the plan and pops up its menu at globalPos; nothing pops up for MenuPopup::None.
    void show(const MenuPlan &plan, const QPoint &globalPos);

    /// Replaces the modal QMenu::exec (null restores it): a test that must not block picks the
    /// entry itself.
    void setPopupExecutor(PopupExecutor executor);

Q_SIGNALS:
    void entryChosen(PickerCtl::fieldpicker::MenuEntry entry);

private:
    QAction *addEntry(QMenu *menu, MenuEntry entry, const QString &text);
    QAction *addSeparator(QMenu *menu, MenuEntry entry);

    QMenu *m_listMenu;
    QMenu *m_treeMenu;
    std::array<QAction *, MenuEntryCount> m_entries{};
    PopupExecutor m_executor;
};

} // namespace PickerCtl::fieldpicker
