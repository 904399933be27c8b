#include "fieldpicker/interaction_menus.h"

#include <QAction>
#include <QMenu>

namespace PickerCtl::fieldpicker {

namespace {

QMenu *makeMenu(const char *name, const QString &title, const QString &accessibleName, QWidget *owner)
{
    auto *menu = new QMenu(title, owner);
    menu->setObjectName(QLatin1String(name));
    menu->setAccessibleName(accessibleName);
    return menu;
}

} // namespace

ContextMenus::ContextMenus(QWidget *owner)
    : QObject(owner)
    , m_listMenu(makeMenu("mnuPopupList", tr("Popup1"), tr("Field menu"), owner))
    , m_treeMenu(makeMenu("mnuPopupTree", tr("Popup2"), tr("Category menu"), owner))
{
    addEntry(m_listMenu, MenuEntry::PopupOpen, tr("&Open"));
    addSeparator(m_listMenu, MenuEntry::PopupBar1);
    addEntry(m_listMenu, MenuEntry::PopupDelete, tr("&Delete"));
    addSeparator(m_listMenu, MenuEntry::PopupBar2);
    addEntry(m_listMenu, MenuEntry::PopupOpenEditor, tr("&Edit Field Equivalences"));

    addEntry(m_treeMenu, MenuEntry::PopupNew, tr("&New"));
    addSeparator(m_treeMenu, MenuEntry::PopupTreeBar1);
    addEntry(m_treeMenu, MenuEntry::PopupTreeOpenEditor, tr("&Edit Field Equivalences"));
}

QAction *ContextMenus::addEntry(QMenu *menu, MenuEntry entry, const QString &text)
{
    QAction *action = menu->addAction(text);
    action->setObjectName(QLatin1String(menuEntryName(entry)));
    connect(action, &QAction::triggered, this, [this, entry] { Q_EMIT entryChosen(entry); });
    m_entries[size_t(entry)] = action;
    return action;
}

QAction *ContextMenus::addSeparator(QMenu *menu, MenuEntry entry)
{
    QAction *separator = menu->addSeparator();
    separator->setObjectName(QLatin1String(menuEntryName(entry)));
    m_entries[size_t(entry)] = separator;
    return separator;
}

bool ContextMenus::isListMenuUp() const
{
    return m_listMenu->isVisible();
}

void ContextMenus::apply(const MenuPlan &plan)
{
    for (size_t i = 0; i < plan.entries.size(); ++i) {
        const MenuEntryState &state = plan.entries[i];
        QAction *action = m_entries[i];
        if (state.caption)
            action->setText(*state.caption);
        if (state.enabled)
            action->setEnabled(*state.enabled);
        if (state.visible)
            action->setVisible(*state.visible);
    }
}

void ContextMenus::show(const MenuPlan &plan, const QPoint &globalPos)
{
    apply(plan);
    QMenu *menu = plan.popup == MenuPopup::List ? m_listMenu : plan.popup == MenuPopup::Tree ? m_treeMenu : nullptr;
    if (!menu)
        return;
    if (m_executor)
        m_executor(menu, globalPos);
    else
        menu->exec(globalPos);
}

void ContextMenus::setPopupExecutor(PopupExecutor executor)
{
    m_executor = std::move(executor);
}

} // namespace PickerCtl::fieldpicker
