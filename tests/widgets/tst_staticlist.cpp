#include "staticlist_testfields.h"
#include "widgets/staticliststatus.h"

#include <PickerCtl/MemoryPropertyStore.h>
#include <PickerCtl/XStaticList.h>

#include <QDialog>
#include <QHeaderView>
#include <QListWidget>
#include <QComboBox>
#include <QRadioButton>
#include <QSignalSpy>
#include <QTest>
#include <QTreeView>

using namespace PickerCtl;

class TestStaticList : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void shouldSelectByKeysOnlyWhatItShows_data()
    {
        QTest::addColumn<QString>("items");
        QTest::addColumn<QStringList>("keys");
        QTest::addColumn<QString>("expected");
        QTest::newRow("two of four") << "ABCD" << QStringList{"F2", "F4"} << ".x.x";
        QTest::newRow("keys not shown are skipped") << "ABCD" << QStringList{"F9", "F3"} << "..x.";
        QTest::newRow("repeated key selects its first row") << "ABAC" << QStringList{"F1"} << "x...";
        QTest::newRow("nothing") << "ABC" << QStringList{} << "...";
    }

    void shouldSelectByKeysOnlyWhatItShows()
    {
        QFETCH(QString, items);
        QFETCH(QStringList, keys);
        XStaticList list;
        list.setItems(testFields(items));
        selectPattern(list, QStringLiteral("xxxx").left(items.size()));
        auto wanted = Fields::create();
        for (const QString &key : keys)
            wanted->Add(std::make_shared<StaticListTestField>(0, QStringLiteral("?"), key));

        list.SelectItems(wanted);

        QTEST(selectionPattern(list), "expected");
    }

    void shouldSelectAllClearAndInvertAcrossGaps()
    {
        XStaticList list;
        list.setItems(testFields("ABCDEF"));
        selectPattern(list, QStringLiteral("x.xx.."));
        QSignalSpy changes(&list, &XStaticList::SelectionChange);

        list.InvertSelection();
        QCOMPARE(selectionPattern(list), QStringLiteral(".x..xx"));
        QCOMPARE(namesOf(list.SelectedItems()), QStringLiteral("BEF"));
        list.SelectAll();
        QCOMPARE(list.SelectedCount(), 6);
        list.InvertSelection();
        QCOMPARE(list.SelectedCount(), 0);
        QVERIFY(!list.SelectedItems());
        list.InvertSelection();
        list.ClearSelection();
        QCOMPARE(list.SelectedCount(), 0);
        QCOMPARE(changes.count(), 5);
    }

    void shouldKeepSelectionThroughSortsAndReportItInDisplayOrder()
    {
        // Given a sorted list whose selection was made in another order
        XStaticList list;
        list.setItems(testFields("DBCA"));
        QVERIFY(list.SortByColumn(QStringLiteral("name")));
        selectPattern(list, QStringLiteral("x..x"));  // D and A, by the collection's rows

        // Then the selection reads top to bottom as shown, the collection keeps its order
        QCOMPARE(namesOf(list.SelectedItems()), QStringLiteral("AD"));
        QCOMPARE(namesOf(list.Items()), QStringLiteral("DBCA"));

        // When the sort turns round and is then cleared, the same items stay selected
        QVERIFY(list.SortByColumn(QStringLiteral("name"), Qt::DescendingOrder));
        QCOMPARE(namesOf(list.SelectedItems()), QStringLiteral("DA"));
        list.ClearHeaderIcon();
        QCOMPARE(list.SortColumn(), QString());
        QCOMPARE(selectionPattern(list), QStringLiteral("x..x"));
    }

    void shouldMoveSelectionOnePlace_data()
    {
        QTest::addColumn<QString>("selection");
        QTest::addColumn<int>("direction");
        QTest::addColumn<QString>("order");
        QTest::addColumn<QString>("selectionAfter");
        QTest::addColumn<bool>("canMoveUp");
        QTest::addColumn<bool>("canMoveDown");
        QTest::addColumn<bool>("sorted");
        QTest::newRow("middle up") << "..x.." << -1 << "ACBDE" << ".x..." << true << true << false;
        QTest::newRow("top stays") << "x...." << -1 << "ABCDE" << "x...." << false << true << false;
        QTest::newRow("top block stays, gap closes") << "xx.x." << -1 << "ABDCE" << "xxx.." << false << true << false;
        QTest::newRow("gaps kept") << ".x.x." << -1 << "BADCE" << "x.x.." << true << true << false;
        QTest::newRow("bottom stays") << "....x" << 1 << "ABCDE" << "....x" << true << false << false;
        QTest::newRow("bottom block stays") << ".x.xx" << 1 << "ACBDE" << "..xxx" << true << false << false;
        QTest::newRow("block down") << "xx..." << 1 << "CABDE" << ".xx.." << true << true << false;
        QTest::newRow("nothing selected") << "....." << 1 << "ABCDE" << "....." << false << false << false;
        QTest::newRow("sorted list never moves") << ".x..." << -1 << "ABCDE" << ".x..." << false << false << true;
    }

    void shouldMoveSelectionOnePlace()
    {
        QFETCH(QString, selection);
        QFETCH(int, direction);
        QFETCH(bool, sorted);
        XStaticList list;
        auto items = testFields("ABCDE");
        list.setItems(items);
        if (sorted)
            QVERIFY(list.SortByColumn(QStringLiteral("name")));
        selectPattern(list, selection);

        if (direction < 0)
            list.MoveSelectionUp();
        else
            list.MoveSelectionDown();

        QTEST(namesOf(items), "order");
        QTEST(selectionPattern(list), "selectionAfter");
        QTEST(list.CanMoveUp(), "canMoveUp");
        QTEST(list.CanMoveDown(), "canMoveDown");
    }

    void shouldAddAndRemoveByObjectThenKey()
    {
        // Given a template holding the key F1 twice (repeated fields are shown as given)
        XStaticList list;
        auto items = testFields("ABA");
        list.setItems(items);
        const FieldPtr secondA = items->at(2);
        QVERIFY(list.Contains(QStringLiteral("F1")));
        QVERIFY(!list.Contains(QStringLiteral("F9")));

        // When the second A itself is removed, the first stays
        QVERIFY(list.RemoveItem(secondA));
        QCOMPARE(namesOf(items), QStringLiteral("AB"));
        QVERIFY(items->at(0) != secondA);

        // When an equal-keyed stranger is removed, the first with that key goes
        QVERIFY(list.RemoveItem(std::make_shared<StaticListTestField>(5, QStringLiteral("x"), QStringLiteral("F2"))));
        QCOMPARE(namesOf(items), QStringLiteral("A"));
        QVERIFY(list.RemoveItem(secondA));
        QVERIFY(!list.RemoveItem(secondA));
        QCOMPARE(list.Count(), 0);

        list.AppendItem(secondA);
        list.AppendItems(testFields("CD"));
        QCOMPARE(namesOf(list.Items()), QStringLiteral("ACD"));
        QCOMPARE(list.Count(), 3);
    }

    void shouldShowNullItemsAsEmptyAndKeepTheEmptyTextFlag()
    {
        // Given a host that asked for the empty text, when new items and then none are set
        XStaticList list;
        list.setShowEmptyText(true);
        list.setItems(testFields("AB"));
        list.setItems(nullptr);
        // Then the list is empty, not missing, and the flag is as the host set it
        QVERIFY(list.Items());
        QCOMPARE(list.Count(), 0);
        QCOMPARE(list.StatusText(), QStringLiteral("No fields"));
        QVERIFY(list.ShowEmptyText());
    }

    void shouldWriteStatusText_data()
    {
        QTest::addColumn<qint64>("count");
        QTest::addColumn<qint64>("selected");
        QTest::addColumn<QString>("expected");
        QTest::newRow("empty") << qint64(0) << qint64(0) << "No fields";
        QTest::newRow("one") << qint64(1) << qint64(0) << "1 field";
        QTest::newRow("one selected") << qint64(1) << qint64(1) << "1 of 1 field selected";
        QTest::newRow("many") << qint64(1204) << qint64(0) << "1,204 fields";
        QTest::newRow("some selected") << qint64(1204) << qint64(3) << "3 of 1,204 fields selected";
        QTest::newRow("million") << qint64(1000000) << qint64(1000000) << "1,000,000 of 1,000,000 fields selected";
    }

    void shouldWriteStatusText()
    {
        QFETCH(qint64, count);
        QFETCH(qint64, selected);
        QTEST(staticListStatusText(count, selected, QLocale(QLocale::English)), "expected");
    }

    void shouldSortByTheClickedHeaderAndTurnTheOrderOnTheNextClick()
    {
        // Given a shown list in the collection's order
        XStaticList list;
        list.resize(400, 200);
        list.show();
        QVERIFY(QTest::qWaitForWindowExposed(&list));
        list.setItems(testFields("CBA"));
        QHeaderView *header = list.reportView()->header();
        const QPoint nameHeader(header->sectionViewportPosition(0) + 5, header->height() / 2);
        const auto first = [&list] { return list.reportView()->model()->index(0, 0).data().toString(); };

        // When the name header is clicked, then clicked again
        QTest::mouseClick(header->viewport(), Qt::LeftButton, {}, nameHeader);
        QCOMPARE(list.SortColumn(), QStringLiteral("name"));
        QCOMPARE(first(), QStringLiteral("A"));
        QTest::mouseClick(header->viewport(), Qt::LeftButton, {}, nameHeader);
        QCOMPARE(list.SortOrder(), Qt::DescendingOrder);
        QCOMPARE(first(), QStringLiteral("C"));
    }

    void shouldSaveAndLoadColumnsUnderCaptionKey()
    {
        // Given a list whose layout was changed and saved
        auto store = std::make_shared<MemoryPropertyStore>();
        XStaticList saved;
        saved.setCaption(QStringLiteral("Selected Fields"));
        saved.setProperties(store);
        QVERIFY(saved.setColumnVisible(QStringLiteral("unit"), true));
        QVERIFY(saved.setColumnVisible(QStringLiteral("owner"), false));
        QVERIFY(saved.SortByColumn(QStringLiteral("type"), Qt::DescendingOrder));
        saved.SaveProperties();
        QVERIFY(store->Contains(QStringLiteral("Selected Fields Columns")));

        // When another list with the same caption loads it
        XStaticList loaded;
        loaded.setCaption(QStringLiteral("Selected Fields"));
        loaded.setProperties(store);
        loaded.LoadProperties();

        // Then it shows the same columns and sort
        QCOMPARE(loaded.VisibleColumns(), saved.VisibleColumns());
        QVERIFY(!loaded.VisibleColumns().contains(QStringLiteral("owner")));
        QCOMPARE(loaded.SortColumn(), QStringLiteral("type"));
        QCOMPARE(loaded.SortOrder(), Qt::DescendingOrder);
        QCOMPARE(loaded.ListProperties()->Serialise(), saved.ListProperties()->Serialise());

        // When the stored entry is later damaged, loading it keeps the layout shown
        store->SetItem(QStringLiteral("Selected Fields Columns"), QStringLiteral("PCLV1;sort=;cols=name:1:abc"));
        loaded.LoadProperties();
        QCOMPARE(loaded.VisibleColumns(), saved.VisibleColumns());
        QCOMPARE(loaded.SortColumn(), QStringLiteral("type"));
    }

    void shouldNeverHideTheNameColumn()
    {
        XStaticList list;
        QVERIFY(!list.setColumnVisible(QStringLiteral("name"), false));
        QVERIFY(list.ListProperties()->Apply(QStringLiteral("PCLV1;sort=;cols=name:0:50,type:1:90")));
        QCOMPARE(list.VisibleColumns().first(), QStringLiteral("name"));
        QVERIFY(list.VisibleColumns().contains(QStringLiteral("category")));  // not named: default
    }

    void shouldApplyColumnDialogChoices()
    {
        XStaticList list;
        std::unique_ptr<QDialog> dialog(list.createColumnsDialog());
        auto *columns = dialog->findChild<QListWidget *>(QStringLiteral("lstColumns"));
        QVERIFY(columns);
        QCOMPARE(columns->item(0)->flags() & Qt::ItemIsUserCheckable, Qt::ItemFlags());
        // Move "Category" above "Name" and hide "Type"
        columns->setCurrentRow(1);
        QTest::mouseClick(dialog->findChild<QWidget *>(QStringLiteral("cmdMoveUp")), Qt::LeftButton);
        columns->item(2)->setCheckState(Qt::Unchecked);

        dialog->accept();

        QCOMPARE(list.VisibleColumns().mid(0, 3), (QStringList{"category", "name", "technology"}));
    }

    void shouldApplySortDialogChoice()
    {
        XStaticList list;
        list.setItems(testFields("BCA"));
        std::unique_ptr<QDialog> dialog(list.createSortDialog());
        auto *column = dialog->findChild<QComboBox *>(QStringLiteral("cboColumn"));
        column->setCurrentIndex(column->findData(QStringLiteral("name")));
        dialog->findChild<QRadioButton *>(QStringLiteral("optDescending"))->setChecked(true);
        dialog->accept();
        QCOMPARE(list.SortColumn(), QStringLiteral("name"));
        QCOMPARE(list.SortOrder(), Qt::DescendingOrder);
    }

    void shouldRefuseIconProviderWhileFrozen()
    {
        XStaticList list;
        auto manager = std::make_shared<ListStyleManager>();
        list.setFrozen(true);
        QVERIFY(!list.setIconProvider(manager));
        list.setFrozen(false);
        QVERIFY(list.setIconProvider(manager));
    }
};

QTEST_MAIN(TestStaticList)
#include "tst_staticlist.moc"
