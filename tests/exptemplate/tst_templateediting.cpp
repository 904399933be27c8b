#include "exptemplate_helpers.h"

#include <QHeaderView>
#include <QToolButton>
#include <QTreeView>

using namespace PickerCtl;
using namespace TemplateTest;

namespace {

QString selectedNames(const XStaticList &list)
{
    const FieldsPtr picked = list.SelectedItems();
    QStringList result;
    if (picked) {
        for (const FieldPtr &f : *picked)
            result.append(f->Name());
    }
    return result.join(QLatin1Char('|'));
}

QToolButton *toolButton(const Fixture &f, const char *name)
{
    return child<QToolButton>(f.editor, name);
}

void doubleClickRow(XStaticList &list, int row)
{
    QTreeView *view = list.reportView();
    const QRect rect = view->visualRect(view->model()->index(row, 0));
    // A double click follows the press and release of its first click.
    QTest::mouseClick(view->viewport(), Qt::LeftButton, Qt::NoModifier, rect.center());
    QTest::mouseDClick(view->viewport(), Qt::LeftButton, Qt::NoModifier, rect.center());
}

} // namespace

class TemplateEditingTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void shouldEditTheTemplateWithItsButtons_data()
    {
        QTest::addColumn<QString>("button");  // or the key pressed in the template, or the list double-clicked
        QTest::addColumn<QString>("before");
        QTest::addColumn<QString>("picked");  // in the available list for Add, in the template otherwise
        QTest::addColumn<QString>("after");
        QTest::addColumn<QString>("highlighted");  // in the available list for Remove, in the template otherwise
        QTest::addColumn<int>("changes");

        QTest::newRow("Add: new fields go to the end in the order of the selection")
            << "cmdAdd" << "Traffic Volume" << "Cell Drops|Drop Rate|Handover"
            << "Traffic Volume|Cell Drops|Drop Rate|Handover" << "Cell Drops|Drop Rate|Handover" << 1;
        QTest::newRow("Add: a field already there is skipped but highlighted")
            << "cmdAdd" << "Drop Rate" << "Cell Drops|Drop Rate" << "Drop Rate|Cell Drops" << "Drop Rate|Cell Drops" << 1;
        QTest::newRow("Add: nothing new still raises Changed")
            << "cmdAdd" << "Drop Rate" << "Drop Rate" << "Drop Rate" << "Drop Rate" << 1;
        QTest::newRow("Add: no selection, nothing happens") << "cmdAdd" << "Drop Rate" << "" << "Drop Rate" << "" << 0;
        QTest::newRow("Remove: removed fields are highlighted where the search found them")
            << "cmdRemove" << "Cell Drops|Traffic Volume|Drop Rate" << "Cell Drops|Traffic Volume" << "Drop Rate"
            << "Cell Drops" << 1;
        QTest::newRow("Remove: scattered fields go in one step")
            << "cmdRemove" << "Cell Attempts|Cell Drops|Cell Load|Drop Rate|Bad Rate" << "Cell Attempts|Cell Load|Bad Rate"
            << "Cell Drops|Drop Rate" << "Cell Attempts|Cell Load|Bad Rate" << 1;
        QTest::newRow("Remove: the whole template")
            << "cmdRemove" << "Cell Drops|Drop Rate" << "Cell Drops|Drop Rate" << "" << "Cell Drops|Drop Rate" << 1;
        QTest::newRow("Remove: no selection, nothing happens") << "cmdRemove" << "Cell Drops" << "" << "Cell Drops" << "" << 0;

        const QString tpl = QStringLiteral("Cell Attempts|Cell Drops|Cell Load|Drop Rate|Bad Rate");
        QTest::newRow("Move: one up") << "cmdMoveUp" << tpl << "Cell Load"
                                      << "Cell Attempts|Cell Load|Cell Drops|Drop Rate|Bad Rate" << "Cell Load" << 1;
        QTest::newRow("Move: one down") << "cmdMoveDown" << tpl << "Cell Load"
                                        << "Cell Attempts|Cell Drops|Drop Rate|Cell Load|Bad Rate" << "Cell Load" << 1;
        QTest::newRow("Move: a block up") << "cmdMoveUp" << tpl << "Cell Load|Drop Rate"
                                          << "Cell Attempts|Cell Load|Drop Rate|Cell Drops|Bad Rate" << "Cell Load|Drop Rate" << 1;
        QTest::newRow("Move: the top block stays, the other moves")
            << "cmdMoveUp" << tpl << "Cell Attempts|Drop Rate" << "Cell Attempts|Cell Drops|Drop Rate|Cell Load|Bad Rate"
            << "Cell Attempts|Drop Rate" << 1;
        QTest::newRow("Move: the bottom block stays, the other moves")
            << "cmdMoveDown" << tpl << "Cell Drops|Bad Rate" << "Cell Attempts|Cell Load|Cell Drops|Drop Rate|Bad Rate"
            << "Cell Drops|Bad Rate" << 1;

        const QString three = QStringLiteral("Cell Attempts|Cell Drops|Drop Rate");
        QTest::newRow("Delete removes") << "Delete" << three << "Cell Drops" << "Cell Attempts|Drop Rate" << "Cell Drops" << 1;
        QTest::newRow("Delete without a selection does nothing") << "Delete" << three << "" << three << "" << 0;
        QTest::newRow("Ctrl+Up moves up") << "Ctrl+Up" << three << "Drop Rate" << "Cell Attempts|Drop Rate|Cell Drops"
                                          << "Drop Rate" << 1;
        QTest::newRow("Ctrl+Down moves down") << "Ctrl+Down" << three << "Cell Attempts"
                                              << "Cell Drops|Cell Attempts|Drop Rate" << "Cell Attempts" << 1;
        QTest::newRow("double click adds") << "double-click available" << "Traffic Volume" << "Cell Drops"
                                           << "Traffic Volume|Cell Drops" << "Cell Drops" << 1;
        QTest::newRow("double click removes") << "double-click template" << "Traffic Volume|Cell Drops" << "Traffic Volume"
                                              << "Cell Drops" << "" << 1;
        QTest::newRow("Ctrl+Up at the top does nothing") << "Ctrl+Up" << three << "Cell Attempts" << three
                                                         << "Cell Attempts" << 0;
    }

    void shouldEditTheTemplateWithItsButtons()
    {
        QFETCH(QString, button);
        QFETCH(QString, before);
        QFETCH(QString, picked);
        QFETCH(QString, after);
        QFETCH(QString, highlighted);
        QFETCH(int, changes);

        // Given a template and a selection in the list the button acts on
        Fixture f(before);
        const bool adding = button == QLatin1String("cmdAdd") || button == QLatin1String("double-click available");
        XStaticList &source = adding ? *available(f.editor) : *selected(f.editor);
        selectByName(source, split(picked));
        QSignalSpy changed(&f.editor, &XExpTemplate::Changed);

        // When the button is pressed, the key in the template, or the picked row double-clicked
        if (button.startsWith(QLatin1String("double-click"))) {
            QVERIFY(showEditor(f.editor));
            doubleClickRow(source, split(names(source)).indexOf(picked));
        } else if (button == QLatin1String("Delete"))
            QTest::keyClick(selected(f.editor)->view(), Qt::Key_Delete);
        else if (button.startsWith(QLatin1String("Ctrl+")))
            QTest::keyClick(selected(f.editor)->view(), button.endsWith(QLatin1String("Up")) ? Qt::Key_Up : Qt::Key_Down,
                            Qt::ControlModifier);
        else
            toolButton(f, button.toLatin1().constData())->click();

        // Then the template is edited, the fields acted on are highlighted, and the search result keeps them all
        QCOMPARE(names(*selected(f.editor)), after);
        const bool removing = !adding && (button == QLatin1String("cmdRemove") || button == QLatin1String("Delete")
                                          || button.startsWith(QLatin1String("double-click")));
        const XStaticList &shown = removing ? *available(f.editor) : *selected(f.editor);
        QStringList highlightedNow = split(selectedNames(shown));
        QStringList expected = split(highlighted);
        if (!adding && !removing) {
            // A moved block is compared as a set: its rows are highlighted wherever it went
            highlightedNow.sort();
            expected.sort();
        }
        QCOMPARE(highlightedNow, expected);
        QCOMPARE(available(f.editor)->Count(), 6);
        QCOMPARE(changed.count(), changes);
    }

    void shouldEnableTheButtonsFromBothSelections_data()
    {
        QTest::addColumn<QString>("inAvailable");
        QTest::addColumn<QString>("inTemplate");
        QTest::addColumn<bool>("add");
        QTest::addColumn<bool>("remove");
        QTest::addColumn<bool>("up");
        QTest::addColumn<bool>("down");

        QTest::newRow("nothing selected") << "" << "" << false << false << false << false;
        QTest::newRow("available only") << "Cell Drops" << "" << true << false << false << false;
        QTest::newRow("template top") << "" << "Cell Attempts" << false << true << false << true;
        QTest::newRow("template bottom") << "" << "Drop Rate" << false << true << true << false;
        QTest::newRow("template middle") << "" << "Cell Drops" << false << true << true << true;
        QTest::newRow("whole template") << "" << "Cell Attempts|Cell Drops|Drop Rate" << false << true << false << false;
        QTest::newRow("top and bottom apart") << "Handover" << "Cell Attempts|Drop Rate" << true << true << true << true;
    }

    void shouldEnableTheButtonsFromBothSelections()
    {
        QFETCH(QString, inAvailable);
        QFETCH(QString, inTemplate);
        QFETCH(bool, add);
        QFETCH(bool, remove);
        QFETCH(bool, up);
        QFETCH(bool, down);

        Fixture f(QStringLiteral("Cell Attempts|Cell Drops|Drop Rate"));
        selectByName(*available(f.editor), split(inAvailable));
        selectByName(*selected(f.editor), split(inTemplate));

        QCOMPARE(toolButton(f, "cmdAdd")->isEnabled(), add);
        QCOMPARE(toolButton(f, "cmdRemove")->isEnabled(), remove);
        QCOMPARE(toolButton(f, "cmdMoveUp")->isEnabled(), up);
        QCOMPARE(toolButton(f, "cmdMoveDown")->isEnabled(), down);
    }

    void shouldNeverSortTheTemplateByItsHeader()
    {
        Fixture f(QStringLiteral("Drop Rate|Cell Attempts|Bad Rate"));
        QVERIFY(showEditor(f.editor));
        QHeaderView *header = selected(f.editor)->reportView()->header();

        const int x = header->sectionViewportPosition(0) + header->sectionSize(0) / 2;
        QTest::mouseClick(header->viewport(), Qt::LeftButton, Qt::NoModifier, QPoint(x, header->height() / 2));

        QCOMPARE(names(*selected(f.editor)), QStringLiteral("Drop Rate|Cell Attempts|Bad Rate"));
        QCOMPARE(selected(f.editor)->SortColumn(), QString());
        QVERIFY(!selected(f.editor)->SortByColumn(QStringLiteral("name")));
        QVERIFY(available(f.editor)->SortingEnabled());
    }

    void shouldNameAndDescribeTheButtons()
    {
        Fixture f{QString()};
        const QList<QPair<const char *, QString>> buttons{
            {"cmdAdd", QStringLiteral("Move selected fields to template")},
            {"cmdRemove", QStringLiteral("Remove selected fields from template")},
            {"cmdMoveUp", QStringLiteral("Move selected fields up in order")},
            {"cmdMoveDown", QStringLiteral("Move selected fields down in order")}};
        for (const auto &[name, tip] : buttons) {
            QToolButton *button = toolButton(f, name);
            QVERIFY2(button, name);
            QCOMPARE(button->toolTip(), tip);
            QVERIFY(!button->icon().isNull());
            QVERIFY(!button->accessibleName().isEmpty());
        }
        for (const char *name : {"frmExpress", "lblEntity", "lblTechTypes", "lblFieldTypes", "lblNameFilter",
                                 "lblAvailable", "lblSelected"})
            QVERIFY2(f.editor.findChild<QWidget *>(QLatin1String(name)), name);
        QCOMPARE(available(f.editor)->Caption(), QStringLiteral("Available Fields"));
        QCOMPARE(selected(f.editor)->Caption(), QStringLiteral("Selected Fields"));
    }
};

QTEST_MAIN(TemplateEditingTest)
#include "tst_templateediting.moc"
