#include "fieldpicker_helpers.h"

#include "fieldpicker/categorytreemodel.h"
#include "fieldpicker/interaction_drag.h"
#include "fieldpicker/interaction_keys.h"
#include "fieldpicker/interaction_menus.h"
#include "fieldpicker/interaction_menustate.h"
#include "fieldpicker/interaction_nodeimages.h"

#include <PickerCtl/FieldClipboard.h>
#include <PickerCtl/FixedUserContext.h>
#include <PickerCtl/XFieldPicker.h>

#include <QAbstractItemModelTester>
#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QMenu>
#include <QMimeData>
#include <QSignalSpy>
#include <QTest>
#include <QTreeView>

using namespace PickerCtl;
using namespace PickerCtl::testsupport;
using PickerCtl::fieldpicker::ContextMenus;
using PickerCtl::fieldpicker::KeyAction;
using PickerCtl::fieldpicker::KeyTarget;
using PickerCtl::fieldpicker::MenuEntry;
using PickerCtl::fieldpicker::MenuPopup;
using PickerCtl::fieldpicker::MenuRequest;

Q_DECLARE_METATYPE(PickerCtl::fieldpicker::KeyAction)
Q_DECLARE_METATYPE(PickerCtl::fieldpicker::KeyTarget)
Q_DECLARE_METATYPE(PickerCtl::fieldpicker::MenuPopup)

namespace {

constexpr auto ShownCategory = "Region";

// Each entry of a plan as two letters, in entry order (Open, Bar1, Delete, Bar2, OpenEditor,
// New, TreeBar1, TreeOpenEditor): enabled E / disabled D / untouched -, then visible V /
// hidden H / untouched -.
QString planCode(const fieldpicker::MenuPlan &plan)
{
    QStringList codes;
    for (const fieldpicker::MenuEntryState &state : plan.entries) {
        const QChar enabled = !state.enabled ? u'-' : *state.enabled ? u'E' : u'D';
        const QChar visible = !state.visible ? u'-' : *state.visible ? u'V' : u'H';
        codes.append(QString(enabled) + visible);
    }
    return codes.join(u' ');
}

void useUser(bool canModifyFields, bool readOnly)
{
    UserSpec spec;
    spec.id = 7;
    spec.name = QStringLiteral("analyst");
    spec.canModifyFields = canModifyFields;
    spec.readOnly = readOnly;
    UserContext::setInstance(std::make_shared<FixedUserContext>(std::make_shared<FixedUser>(spec)));
}

QAbstractItemView *listViewOf(const XFieldPicker &picker)
{
    return listOf(picker)->view();
}

ContextMenus *menusOf(const XFieldPicker &picker)
{
    return picker.findChild<ContextMenus *>();
}

// Loads the sample catalogue's "Region" (three fields) into a shown, active control.
void showLoaded(XFieldPicker &picker)
{
    picker.InitProperties();
    QVERIFY(picker.Load(QLatin1String(ReportsApp), QLatin1String(ShownCategory)));
    picker.resize(600, 400);
    picker.show();
    picker.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&picker));
}

void focus(QWidget *widget)
{
    widget->setFocus(Qt::OtherFocusReason);
    QTRY_VERIFY(widget->hasFocus());
}

// What a right click on an item view delivers: a mouse context-menu event on its viewport.
void rightClick(QAbstractItemView *view)
{
    const QPoint pos(5, 5);
    QContextMenuEvent event(QContextMenuEvent::Mouse, pos, view->viewport()->mapToGlobal(pos));
    QApplication::sendEvent(view->viewport(), &event);
}

// Records each menu popped up and triggers the named entry of it, as a user's pick does.
struct MenuRecorder
{
    QStringList shown;
    QString pick;

    void install(ContextMenus &menus)
    {
        menus.setPopupExecutor([this](QMenu *menu, const QPoint &) {
            shown.append(menu->objectName());
            if (pick.isEmpty())
                return;
            if (auto *entry = menu->findChild<QAction *>(pick))
                entry->trigger();
        });
    }
};

// A cursor stack that keeps the pointer pushed with each push, so that a test can tell which of
// the two drag pointers went on.
class PointerLog : public WaitCursor
{
public:
    void Push(qint16 pointer, const QVariant &icon) override
    {
        pushes.append({pointer, icon.value<QCursor>().shape()});
        ++depth;
    }
    void Pop() override { --depth; }
    int Depth() const override { return depth; }

    QList<QPair<qint16, Qt::CursorShape>> pushes;
    int depth = 0;
};

class PointerLogServices : public CursorLogServices
{
public:
    std::shared_ptr<WaitCursor> Cursor() override { return pointers; }
    std::shared_ptr<PointerLog> pointers = std::make_shared<PointerLog>();
};

} // namespace

class TestFieldPickerMenus : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { UserContext::setInstance(nullptr); }

    // --- The rules, as a pure function ---------------------------------------------------------

    void shouldPrepareTheMenusByTheRules_data()
    {
        QTest::addColumn<bool>("entityView");
        QTest::addColumn<QString>("typeFilter");
        QTest::addColumn<bool>("canModify");
        QTest::addColumn<bool>("readOnly");
        QTest::addColumn<bool>("selectionEmpty");
        QTest::addColumn<bool>("treeActive");
        QTest::addColumn<bool>("atRoot");
        QTest::addColumn<bool>("openMenu");
        QTest::addColumn<bool>("listMenuUp");
        QTest::addColumn<MenuPopup>("popup");
        QTest::addColumn<QString>("entries");

        const QString udc = QStringLiteral("UDC");
        const QString none;
        //                                                             entity udc  modify ro     empty  tree   root   open   up
        QTest::newRow("list, selection, P: Open and Delete enabled")
            << true << none << true << false << false << false << false << false << false << MenuPopup::List
            << "E- -- E- -H DH -- -- --";
        QTest::newRow("list, empty selection: Open and Delete disabled")
            << true << none << true << false << true << false << false << false << false << MenuPopup::List
            << "D- -- D- -H DH -- -- --";
        QTest::newRow("list, entity view without the modify right: P false disables Open too")
            << true << none << false << false << false << false << false << false << false << MenuPopup::List
            << "D- -- D- -H DH D- -- --";
        QTest::newRow("list, entity view, UDC filter: P stays true without the modify right")
            << true << udc << false << false << false << false << false << false << false << MenuPopup::List
            << "E- -- E- -H DH -- -- --";
        QTest::newRow("list, entity view, filter udc in lower case is not UDC")
            << true << QStringLiteral("udc") << false << false << false << false << false << false << false
            << MenuPopup::List << "D- -- D- -H DH D- -- --";
        QTest::newRow("list, entity view ignores read-only")
            << true << none << true << true << false << false << false << false << false << MenuPopup::List
            << "E- -- E- -H DH -- -- --";
        QTest::newRow("list, classic view, read-only user: P false")
            << false << none << true << true << false << false << false << false << false << MenuPopup::List
            << "D- -- D- -H DH D- -- --";
        QTest::newRow("list, classic view ignores the modify right and the UDC filter")
            << false << udc << false << false << false << false << false << false << false << MenuPopup::List
            << "E- -- E- -H DH -- -- --";
        QTest::newRow("list, AllowOpenMenu: open editor and its separator shown")
            << true << none << true << false << false << false << false << true << false << MenuPopup::List
            << "E- -- E- -V EV -- -- --";
        QTest::newRow("list menu up already: nothing is prepared and nothing pops up")
            << true << none << true << false << false << false << false << true << true << MenuPopup::None
            << "-- -- -- -- -- -- -- --";
        QTest::newRow("tree, not at root, P: New enabled")
            << true << none << true << false << true << true << false << false << false << MenuPopup::Tree
            << "-- -- -- -- -- E- DH DH";
        QTest::newRow("tree at root: New disabled")
            << true << none << true << false << false << true << true << false << false << MenuPopup::Tree
            << "-- -- -- -- -- D- DH DH";
        QTest::newRow("tree, P false: New, Open and Delete disabled")
            << true << none << false << false << false << true << false << true << false << MenuPopup::Tree
            << "D- -- D- -- -- D- EV EV";
        QTest::newRow("tree ignores the list menu probe")
            << true << none << true << false << false << true << false << true << true << MenuPopup::Tree
            << "-- -- -- -- -- E- EV EV";
    }

    void shouldPrepareTheMenusByTheRules()
    {
        QFETCH(bool, entityView);
        QFETCH(QString, typeFilter);
        QFETCH(bool, canModify);
        QFETCH(bool, readOnly);
        QFETCH(bool, selectionEmpty);
        QFETCH(bool, treeActive);
        QFETCH(bool, atRoot);
        QFETCH(bool, openMenu);
        QFETCH(bool, listMenuUp);
        QFETCH(MenuPopup, popup);
        QFETCH(QString, entries);

        MenuRequest request{entityView, typeFilter, canModify, readOnly, selectionEmpty, treeActive,
                            atRoot, openMenu, QStringLiteral("Open Editor"), listMenuUp};
        const fieldpicker::MenuPlan plan = fieldpicker::planContextMenu(request);

        QCOMPARE(plan.popup, popup);
        QCOMPARE(planCode(plan), entries);
        const MenuEntry openEditor = treeActive ? MenuEntry::PopupTreeOpenEditor : MenuEntry::PopupOpenEditor;
        // The designer caption stands until a menu is shown with AllowOpenMenu.
        QCOMPARE(plan[openEditor].caption, openMenu && popup != MenuPopup::None
                                               ? std::optional<QString>(QStringLiteral("Open Editor"))
                                               : std::nullopt);
    }

    // --- The menus on the real control -----------------------------------------------------------

    void shouldBuildBothMenusWithTheirMembersAndCaptions()
    {
        ServicesScope scope(makeSampleCatalog());
        XFieldPicker picker;

        const auto *list = picker.findChild<QMenu *>(QStringLiteral("mnuPopupList"));
        const auto *tree = picker.findChild<QMenu *>(QStringLiteral("mnuPopupTree"));
        QVERIFY(list && tree);
        QCOMPARE(list->title(), QStringLiteral("Popup1"));
        QCOMPARE(tree->title(), QStringLiteral("Popup2"));
        const auto entries = [](const QMenu *menu) {
            QStringList shown;
            for (const QAction *action : menu->actions())
                shown.append(action->objectName() + u'=' + (action->isSeparator() ? QStringLiteral("|") : action->text()));
            return shown;
        };
        QCOMPARE(entries(list), (QStringList{u"mnuPopupOpen=&Open"_qs, u"mnuPopupBar1=|"_qs, u"mnuPopupDelete=&Delete"_qs,
                                             u"mnuPopupBar2=|"_qs, u"mnuPopupOpenEditor=&Edit Field Equivalences"_qs}));
        QCOMPARE(entries(tree), (QStringList{u"mnuPopupNew=&New"_qs, u"mnuPopupTreeBar1=|"_qs,
                                             u"mnuPopupTreeOpenEditor=&Edit Field Equivalences"_qs}));
    }

    void shouldEnableAndShowTheEntriesOfTheRealMenus_data()
    {
        QTest::addColumn<bool>("tree");
        QTest::addColumn<bool>("permission");
        QTest::addColumn<bool>("selection");
        QTest::addColumn<bool>("openMenu");
        // Each entry of the menu that pops up, "name=EV" (enabled, visible) or "name=DH" ...
        QTest::addColumn<QStringList>("expected");

        for (const bool tree : {false, true}) {
            for (const bool permission : {true, false}) {
                for (const bool selection : {true, false}) {
                    for (const bool openMenu : {true, false}) {
                        const QString name = QStringLiteral("%1, %2, %3, %4")
                                                 .arg(tree ? u"tree"_qs : u"list"_qs,
                                                      permission ? u"P"_qs : u"no P"_qs,
                                                      selection ? u"selection"_qs : u"no selection"_qs,
                                                      openMenu ? u"open menu"_qs : u"no open menu"_qs);
                        const auto code = [](bool enabled, bool visible) {
                            return QString(enabled ? u'E' : u'D') + (visible ? u'V' : u'H');
                        };
                        QStringList expected;
                        if (tree) {
                            // The tree is never at its root here: Region is current.
                            expected << u"mnuPopupNew="_qs + code(permission, true)
                                     << u"mnuPopupTreeBar1="_qs + code(openMenu, openMenu)
                                     << u"mnuPopupTreeOpenEditor="_qs + code(openMenu, openMenu);
                        } else {
                            expected << u"mnuPopupOpen="_qs + code(selection && permission, true)
                                     << u"mnuPopupBar1=EV"_qs
                                     << u"mnuPopupDelete="_qs + code(selection && permission, true)
                                     // Qt reports a hidden entry as disabled as well.
                                     << u"mnuPopupBar2="_qs + code(openMenu, openMenu)
                                     << u"mnuPopupOpenEditor="_qs + code(openMenu, openMenu);
                        }
                        QTest::newRow(qPrintable(name)) << tree << permission << selection << openMenu << expected;
                    }
                }
            }
        }
    }

    void shouldEnableAndShowTheEntriesOfTheRealMenus()
    {
        QFETCH(bool, tree);
        QFETCH(bool, permission);
        QFETCH(bool, selection);
        QFETCH(bool, openMenu);
        QFETCH(QStringList, expected);

        // Given a loaded control whose user may (or may not) modify fields, in the entity view
        ServicesScope scope(makeSampleCatalog());
        useUser(permission, false);
        XFieldPicker picker;
        showLoaded(picker);
        picker.setAllowContextMenu(true);
        picker.setAllowOpenMenu(openMenu);
        picker.setOpenMenuCaption(QStringLiteral("Equivalences..."));
        if (selection)
            listOf(picker)->SelectAll();
        QStringList seen;
        menusOf(picker)->setPopupExecutor([&seen](QMenu *menu, const QPoint &) {
            for (const QAction *action : menu->actions())
                seen.append(action->objectName() + u'=' + (action->isEnabled() ? u'E' : u'D')
                            + (action->isVisible() ? u'V' : u'H'));
        });

        // When the user right-clicks the tree or the list
        QAbstractItemView *view = tree ? static_cast<QAbstractItemView *>(treeOf(picker)) : listViewOf(picker);
        focus(view);
        rightClick(view);

        // Then the menu of that widget shows with the entries as the rules set them
        QCOMPARE(seen, expected);
        const QString editorEntry = tree ? u"mnuPopupTreeOpenEditor"_qs : u"mnuPopupOpenEditor"_qs;
        QCOMPARE(picker.findChild<QAction *>(editorEntry)->text(),
                 openMenu ? u"Equivalences..."_qs : u"&Edit Field Equivalences"_qs);
    }

    void shouldRaiseTheEventOfTheChosenEntry_data()
    {
        QTest::addColumn<bool>("tree");
        QTest::addColumn<QString>("entry");
        QTest::addColumn<QString>("event");
        QTest::addColumn<QList<qint32>>("ids");
        QTest::addColumn<QString>("category");

        const QList<qint32> selected{200, 202};
        const QList<qint32> allOfRegion{200, 201, 202};
        QTest::newRow("Open raises Edit with the selection")
            << false << u"mnuPopupOpen"_qs << u"Edit"_qs << selected << QString();
        QTest::newRow("Delete raises Delete with the selection")
            << false << u"mnuPopupDelete"_qs << u"Delete"_qs << selected << QString();
        QTest::newRow("the list's open editor raises OpenEditor with the selection and category")
            << false << u"mnuPopupOpenEditor"_qs << u"OpenEditor"_qs << selected << u"Region"_qs;
        QTest::newRow("New raises NewExpression with the category")
            << true << u"mnuPopupNew"_qs << u"NewExpression"_qs << QList<qint32>() << u"Region"_qs;
        QTest::newRow("the tree's open editor hands over the view's fields, not the selection")
            << true << u"mnuPopupTreeOpenEditor"_qs << u"OpenEditor"_qs << allOfRegion << u"Region"_qs;
    }

    void shouldRaiseTheEventOfTheChosenEntry()
    {
        QFETCH(bool, tree);
        QFETCH(QString, entry);
        QFETCH(QString, event);
        QFETCH(QList<qint32>, ids);
        QFETCH(QString, category);

        // Given a loaded control with two of the three fields selected and every entry on offer
        ServicesScope scope(makeSampleCatalog());
        useUser(true, false);
        XFieldPicker picker;
        showLoaded(picker);
        picker.setAllowContextMenu(true);
        picker.setAllowOpenMenu(true);
        auto pick = Fields::create();
        pick->Add(picker.Fields()->at(0));
        pick->Add(picker.Fields()->at(2));
        listOf(picker)->SelectItems(pick);
        MenuRecorder recorder;
        recorder.pick = entry;
        recorder.install(*menusOf(picker));
        QSignalSpy edit(&picker, &XFieldPicker::Edit);
        QSignalSpy remove(&picker, &XFieldPicker::Delete);
        QSignalSpy openEditor(&picker, &XFieldPicker::OpenEditor);
        QSignalSpy newExpression(&picker, &XFieldPicker::NewExpression);

        // When the user picks the entry from the menu of the tree or the list
        QAbstractItemView *view = tree ? static_cast<QAbstractItemView *>(treeOf(picker)) : listViewOf(picker);
        focus(view);
        rightClick(view);

        // Then exactly that entry's event is raised, once, with its arguments
        QCOMPARE(recorder.shown.size(), 1);
        QCOMPARE(edit.count() + remove.count() + openEditor.count() + newExpression.count(), 1);
        QSignalSpy &raised = event == u"Edit"_qs         ? edit
                             : event == u"Delete"_qs     ? remove
                             : event == u"OpenEditor"_qs ? openEditor
                                                         : newExpression;
        QCOMPARE(raised.count(), 1);
        const QList<QVariant> arguments = raised.takeFirst();
        if (event == u"NewExpression"_qs) {
            QCOMPARE(arguments.at(0).toString(), category);
            return;
        }
        QCOMPARE(idsOf(arguments.at(0).value<FieldsPtr>()), ids);
        if (event == u"OpenEditor"_qs)
            QCOMPARE(arguments.at(1).toString(), category);
    }

    void shouldShowNoMenuWhenOffOrBeforeASuccessfulLoad_data()
    {
        QTest::addColumn<bool>("tree");
        QTest::addColumn<bool>("contextMenus");
        QTest::addColumn<QString>("load");  // "good", "never" or "failed"
        QTest::addColumn<int>("handed");    // HandleContextMenu raised for the host

        QTest::newRow("menus off: a right click on the tree goes to the host") << true << false << "good" << 1;
        QTest::newRow("menus off: a right click on the list goes to the host") << false << false << "good" << 1;
        QTest::newRow("tree, menus on, never loaded") << true << true << "never" << 0;
        QTest::newRow("tree, menus off, never loaded: no HandleContextMenu either") << true << false << "never" << 0;
        QTest::newRow("tree, menus on, the load failed") << true << true << "failed" << 0;
    }

    void shouldShowNoMenuWhenOffOrBeforeASuccessfulLoad()
    {
        QFETCH(bool, tree);
        QFETCH(bool, contextMenus);
        QFETCH(QString, load);
        QFETCH(int, handed);
        auto catalog = std::make_shared<FailingCatalog>();
        fillSampleCatalog(*catalog);
        ServicesScope scope(catalog);
        XFieldPicker picker;
        if (load == u"good"_qs) {
            showLoaded(picker);
        } else {
            picker.InitProperties();
            if (load == u"failed"_qs) {
                catalog->failTree = true;
                QVERIFY(!picker.Load(QLatin1String(ReportsApp), QLatin1String(ShownCategory)));
            }
            picker.show();
            QVERIFY(QTest::qWaitForWindowExposed(&picker));
        }
        picker.setAllowContextMenu(contextMenus);
        MenuRecorder recorder;
        recorder.install(*menusOf(picker));
        QSignalSpy handle(&picker, &XFieldPicker::HandleContextMenu);

        QAbstractItemView *view = tree ? static_cast<QAbstractItemView *>(treeOf(picker)) : listViewOf(picker);
        focus(view);
        rightClick(view);

        QVERIFY(recorder.shown.isEmpty());
        QCOMPARE(handle.count(), handed);
    }

    void shouldNotShowTheListMenuAgainWhileItIsUp()
    {
        ServicesScope scope(makeSampleCatalog());
        XFieldPicker picker;
        showLoaded(picker);
        picker.setAllowContextMenu(true);
        int shown = 0;
        bool upInside = false;
        menusOf(picker)->setPopupExecutor([&](QMenu *menu, const QPoint &pos) {
            ++shown;
            if (shown > 1)
                return;
            // While the menu is up, a second request arrives (a second right click).
            menu->popup(pos);
            upInside = menu->isVisible();
            rightClick(listViewOf(picker));
            menu->hide();
        });

        focus(listViewOf(picker));
        rightClick(listViewOf(picker));

        QVERIFY(upInside);
        QCOMPARE(shown, 1);
    }

    // --- Keyboard ----------------------------------------------------------------------------------

    void shouldMapKeysToActions_data()
    {
        QTest::addColumn<KeyTarget>("target");
        QTest::addColumn<int>("key");
        QTest::addColumn<int>("modifiers");
        QTest::addColumn<KeyAction>("action");

        const int none = Qt::NoModifier;
        QTest::newRow("Return activates") << KeyTarget::List << int(Qt::Key_Return) << none << KeyAction::Activate;
        QTest::newRow("the keypad's Enter activates")
            << KeyTarget::List << int(Qt::Key_Enter) << int(Qt::KeypadModifier) << KeyAction::Activate;
        QTest::newRow("Delete deletes") << KeyTarget::List << int(Qt::Key_Delete) << none << KeyAction::Delete;
        QTest::newRow("Shift+Delete is not Delete")
            << KeyTarget::List << int(Qt::Key_Delete) << int(Qt::ShiftModifier) << KeyAction::None;
        QTest::newRow("Ctrl+C copies") << KeyTarget::List << int(Qt::Key_C) << int(Qt::ControlModifier) << KeyAction::Copy;
        QTest::newRow("Ctrl+Shift+C does not copy")
            << KeyTarget::List << int(Qt::Key_C) << int(Qt::ControlModifier | Qt::ShiftModifier) << KeyAction::None;
        QTest::newRow("Ctrl+A selects all")
            << KeyTarget::List << int(Qt::Key_A) << int(Qt::ControlModifier) << KeyAction::SelectAll;
        QTest::newRow("a plain A is type-ahead, left to the list")
            << KeyTarget::List << int(Qt::Key_A) << none << KeyAction::None;
        QTest::newRow("the Menu key on the list") << KeyTarget::List << int(Qt::Key_Menu) << none << KeyAction::ContextMenu;
        QTest::newRow("Shift+F10 on the list")
            << KeyTarget::List << int(Qt::Key_F10) << int(Qt::ShiftModifier) << KeyAction::ContextMenu;
        QTest::newRow("F10 alone is not a menu") << KeyTarget::List << int(Qt::Key_F10) << none << KeyAction::None;
        QTest::newRow("the Menu key on the tree") << KeyTarget::Tree << int(Qt::Key_Menu) << none << KeyAction::ContextMenu;
        QTest::newRow("Shift+F10 on the tree")
            << KeyTarget::Tree << int(Qt::Key_F10) << int(Qt::ShiftModifier) << KeyAction::ContextMenu;
        QTest::newRow("Return on the tree stays the tree's")
            << KeyTarget::Tree << int(Qt::Key_Return) << none << KeyAction::None;
        QTest::newRow("Delete on the tree deletes nothing")
            << KeyTarget::Tree << int(Qt::Key_Delete) << none << KeyAction::None;
        QTest::newRow("Ctrl+A on the tree selects no fields")
            << KeyTarget::Tree << int(Qt::Key_A) << int(Qt::ControlModifier) << KeyAction::None;
    }

    void shouldMapKeysToActions()
    {
        QFETCH(KeyTarget, target);
        QFETCH(int, key);
        QFETCH(int, modifiers);
        QFETCH(KeyAction, action);
        QCOMPARE(fieldpicker::keyAction(target, key, Qt::KeyboardModifiers(modifiers)), action);
    }

    void shouldActOnTheListKeys_data()
    {
        QTest::addColumn<int>("key");
        QTest::addColumn<int>("modifiers");
        QTest::addColumn<bool>("permission");
        QTest::addColumn<QString>("outcome");

        QTest::newRow("Return raises DblClick on the focused field")
            << int(Qt::Key_Return) << int(Qt::NoModifier) << true << u"DblClick 201 Region"_qs;
        QTest::newRow("Delete raises Delete with the selection")
            << int(Qt::Key_Delete) << int(Qt::NoModifier) << true << u"Delete 200 201"_qs;
        QTest::newRow("Delete does nothing where the menu entry would be disabled")
            << int(Qt::Key_Delete) << int(Qt::NoModifier) << false << u""_qs;
        QTest::newRow("Ctrl+A selects every field")
            << int(Qt::Key_A) << int(Qt::ControlModifier) << true << u"selected 3"_qs;
        QTest::newRow("Ctrl+C copies the selection to the clipboard")
            << int(Qt::Key_C) << int(Qt::ControlModifier) << true << u"clipboard 200 201"_qs;
        QTest::newRow("the Menu key shows the list menu")
            << int(Qt::Key_Menu) << int(Qt::NoModifier) << true << u"menu mnuPopupList"_qs;
        QTest::newRow("Shift+F10 shows the list menu")
            << int(Qt::Key_F10) << int(Qt::ShiftModifier) << true << u"menu mnuPopupList"_qs;
    }

    void shouldActOnTheListKeys()
    {
        QFETCH(int, key);
        QFETCH(int, modifiers);
        QFETCH(bool, permission);
        QFETCH(QString, outcome);

        // Given a loaded control with the first two fields selected and the second focused
        ServicesScope scope(makeSampleCatalog());
        useUser(permission, false);
        XFieldPicker picker;
        showLoaded(picker);
        picker.setAllowContextMenu(true);
        XStaticList *list = listOf(picker);
        auto pick = Fields::create();
        pick->Add(picker.Fields()->at(0));
        pick->Add(picker.Fields()->at(1));
        list->SelectItems(pick);
        list->EnsureVisible(picker.Fields()->at(1));
        QApplication::clipboard()->clear();
        MenuRecorder recorder;
        recorder.install(*menusOf(picker));
        QStringList seen;
        connect(&picker, &XFieldPicker::DblClick, this, [&seen](const FieldPtr &field, const QString &category) {
            seen.append(QStringLiteral("DblClick %1 %2").arg(field->Id()).arg(category));
        });
        connect(&picker, &XFieldPicker::Delete, this, [&seen](const FieldsPtr &fields) {
            QStringList ids;
            for (const qint32 id : idsOf(fields))
                ids.append(QString::number(id));
            seen.append(u"Delete "_qs + ids.join(u' '));
        });

        // When the key is pressed in the focused list
        focus(listViewOf(picker));
        QTest::keyClick(listViewOf(picker), Qt::Key(key), Qt::KeyboardModifiers(modifiers));

        // Then the key does what its action says, and nothing else
        if (outcome.startsWith(u"selected"_qs)) {
            QCOMPARE(list->SelectionCount(), 3);
        } else if (outcome.startsWith(u"clipboard"_qs)) {
            const QMimeData *mime = QApplication::clipboard()->mimeData();
            const QString format = ClipboardFormats::Name(picker.ClipBoardFormatId());
            QCOMPARE(decodeFieldIds(mime, format), std::optional<QList<qint32>>(QList<qint32>{200, 201}));
        } else if (outcome.startsWith(u"menu"_qs)) {
            QCOMPARE(recorder.shown, QStringList{outcome.mid(5)});
        } else {
            QCOMPARE(seen.join(u';'), outcome);
        }
        if (!outcome.startsWith(u"menu"_qs))
            QVERIFY(recorder.shown.isEmpty());
    }

    void shouldShowTheTreeMenuFromTheKeyboard()
    {
        ServicesScope scope(makeSampleCatalog());
        XFieldPicker picker;
        showLoaded(picker);
        picker.setAllowContextMenu(true);
        MenuRecorder recorder;
        recorder.install(*menusOf(picker));

        focus(treeOf(picker));
        QTest::keyClick(treeOf(picker), Qt::Key_F10, Qt::ShiftModifier);

        QCOMPARE(recorder.shown, QStringList{u"mnuPopupTree"_qs});
    }

    // --- Node images ------------------------------------------------------------------------------

    void shouldChooseTheExpandedImage_data()
    {
        QTest::addColumn<bool>("entityView");
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("parent");
        QTest::addColumn<QString>("image");

        QTest::newRow("a category opens") << true << u"Region"_qs << u"Entities"_qs << u"Open"_qs;
        QTest::newRow("Entities keeps its image in the entity view") << true << u"Entities"_qs << QString() << QString();
        QTest::newRow("Generic keeps its image in the entity view") << true << u"Generic"_qs << u"Entities"_qs << QString();
        QTest::newRow("a child of Generic keeps its image") << true << u"Traffic"_qs << u"Generic"_qs << QString();
        QTest::newRow("a grandchild of Generic opens") << true << u"Performance"_qs << u"SYSTEM"_qs << u"Open"_qs;
        QTest::newRow("the text must match exactly") << true << u"generic"_qs << u"GENERIC"_qs << u"Open"_qs;
        QTest::newRow("outside the entity view Entities opens") << false << u"Entities"_qs << QString() << u"Open"_qs;
        QTest::newRow("outside the entity view a child of Generic opens")
            << false << u"Traffic"_qs << u"Generic"_qs << u"Open"_qs;
    }

    void shouldChooseTheExpandedImage()
    {
        QFETCH(bool, entityView);
        QFETCH(QString, text);
        QFETCH(QString, parent);
        QFETCH(QString, image);
        const std::optional<QString> expected = image.isEmpty() ? std::nullopt : std::optional<QString>(image);
        QCOMPARE(fieldpicker::expandedNodeImage(entityView, text, parent), expected);
        // Collapsing knows no exceptions.
        QCOMPARE(fieldpicker::collapsedNodeImage(), u"Closed"_qs);
    }

    void shouldSwitchTheNodeImagesOfTheRealTree()
    {
        // Given a loaded tree whose root "Entities" is drawn as a node that takes no fields
        ServicesScope scope(makeSampleCatalog());
        XFieldPicker picker;
        showLoaded(picker);
        QTreeView *tree = treeOf(picker);
        auto *model = qobject_cast<fieldpicker::CategoryTreeModel *>(tree->model());
        QAbstractItemModelTester tester(model, QAbstractItemModelTester::FailureReportingMode::QtTest);
        const QModelIndex root = model->indexForKey(u"Entities"_qs);
        const QModelIndex region = model->indexForKey(u"region"_qs);
        tree->collapse(region);
        QSignalSpy categoryClick(&picker, &XFieldPicker::CategoryClick);

        // When the user expands Region and the root
        tree->expand(region);
        tree->expand(root);
        // Then Region opens and the root keeps its image in the entity view
        QCOMPARE(model->image(region), u"Open"_qs);
        QCOMPARE(model->image(root), u"XClosed"_qs);

        // When the user collapses the root
        tree->collapse(root);
        // Then its category (none) becomes current, the node stays collapsed and is drawn "Closed"
        QCOMPARE(categoryClick.count(), 1);
        QVERIFY(!categoryClick.first().at(0).value<FieldCategoryPtr>());
        QVERIFY(picker.IsAtRoot());
        QVERIFY(!tree->isExpanded(root));
        QCOMPARE(model->image(root), u"Closed"_qs);
    }

    // --- Dragging -----------------------------------------------------------------------------------

    void shouldDragTheSelectionAsARealPayload_data()
    {
        QTest::addColumn<QList<int>>("rows");
        QTest::addColumn<int>("pointer");
        QTest::newRow("one field drags the single-field pointer") << QList<int>{1} << int(Qt::CrossCursor);
        QTest::newRow("several fields drag the multiple-field pointer") << QList<int>{0, 2} << int(Qt::SizeAllCursor);
    }

    void shouldDragTheSelectionAsARealPayload()
    {
        QFETCH(QList<int>, rows);
        QFETCH(int, pointer);
        // Given a drag of the fields taken from the real list, with pointers told apart by shape
        ServicesScope scope(makeSampleCatalog());
        XFieldPicker picker;
        showLoaded(picker);
        auto services = std::make_shared<PointerLogServices>();
        AppServices::setInstance(services);
        fieldpicker::FieldDrag drag(QCursor(Qt::CrossCursor), QCursor(Qt::SizeAllCursor));
        auto selection = Fields::create();
        for (const int row : rows)
            selection->Add(picker.Fields()->at(row));
        const FieldClipDataPtr payload = picker.ClipBoardData();
        QMimeData data;

        // When the drag starts and the drop target asks for every format
        drag.start(&data, payload, picker.ClipBoardFormatId(), selection);
        const QStringList declared = data.formats();
        for (const QString &format : declared)
            drag.fill(&data, format);

        // Then the payload holds the selection, the pointer is on the stack, and the data decodes
        // back to the very fields
        const QString format = ClipboardFormats::Name(picker.ClipBoardFormatId());
        QCOMPARE(declared.size(), 3);
        QCOMPARE(idsOf(payload->Fields()), idsOf(selection));
        QCOMPARE(services->pointers->pushes.size(), 1);
        QCOMPARE(services->pointers->pushes.first().first, fieldpicker::FieldDrag::CustomPointer);
        QCOMPARE(int(services->pointers->pushes.first().second), pointer);
        QCOMPARE(decodeFieldIds(&data, format), std::optional<QList<qint32>>(idsOf(selection)));
        QStringList names;
        for (const FieldPtr &field : *selection)
            names.append(field->Name());
        QCOMPARE(QString::fromUtf8(data.data(u"text/plain"_qs)), names.join(u'\n'));

        // When the drag ends, the payload is empty and the pointer popped
        drag.complete();
        QVERIFY(payload->IsEmpty());
        QCOMPARE(services->pointers->depth, 0);
    }

    void shouldDragOutOfTheRealListWithBalancedCursors()
    {
        // Given a loaded control with two fields selected and a drag that the test carries out
        ServicesScope scope(makeSampleCatalog());
        XFieldPicker picker;
        showLoaded(picker);
        XStaticList *list = listOf(picker);
        auto pick = Fields::create();
        pick->Add(picker.Fields()->at(0));
        pick->Add(picker.Fields()->at(2));
        list->SelectItems(pick);
        std::optional<QList<qint32>> dropped;
        QStringList offered;
        int depthDuringDrag = -1;
        const QString format = ClipboardFormats::Name(picker.ClipBoardFormatId());
        list->setDragExecutor([&](std::unique_ptr<QMimeData> data, Qt::DropActions) {
            offered = data->formats();
            dropped = decodeFieldIds(data.get(), format);
            depthDuringDrag = scope.cursor()->Depth();
            return Qt::CopyAction;
        });
        scope.cursor()->clear();

        // When the user drags the selection out of the list
        list->startDrag(Qt::CopyAction);

        // Then the drop target got the fields under the registered format and as text, one drag
        // pointer was on the stack during the drag, and the payload is empty afterwards
        QCOMPARE(dropped, std::optional<QList<qint32>>(QList<qint32>{200, 202}));
        QVERIFY(offered.contains(fieldMimeType(format)));
        QVERIFY(offered.contains(u"text/plain"_qs));
        QVERIFY(offered.contains(u"text/csv"_qs));
        QCOMPARE(depthDuringDrag, 1);
        QCOMPARE(scope.cursor()->pushed(), QList<qint16>{fieldpicker::FieldDrag::CustomPointer});
        QCOMPARE(scope.cursor()->popCount(), 1);
        QCOMPARE(scope.cursor()->unbalancedPops(), 0);
        QVERIFY(picker.ClipBoardData()->IsEmpty());
    }
};

QTEST_MAIN(TestFieldPickerMenus)
#include "tst_fieldpickermenus.moc"
