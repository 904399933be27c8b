// The field list operations the template relies on: removing many fields at once, inserting at a
// row, and their model signals, checked by QAbstractItemModelTester.
#include "../widgets/staticlist_testfields.h"

#include <PickerCtl/XStaticList.h>

#include <QAbstractItemModelTester>
#include <QSignalSpy>
#include <QTest>
#include <QTreeView>

using namespace PickerCtl;

namespace {

QString letters(const XStaticList &list)
{
    QString text;
    for (int row = 0; row < list.Count(); ++row)
        text += list.reportView()->model()->index(row, 0).data().toString();
    return text;
}

/// The list's items at these positions of its collection, in the given order.
FieldsPtr pick(const XStaticList &list, const QList<int> &positions)
{
    FieldsPtr picked = Fields::create();
    for (int position : positions)
        picked->Add(list.Items()->at(position));
    return picked;
}

/// Every other item of a list of `count` single-letter names: as many runs as items picked.
QList<int> everyOther(int count)
{
    QList<int> positions;
    for (int i = 0; i < count; i += 2)
        positions.append(i);
    return positions;
}

} // namespace

class TemplateListTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void shouldRemoveManyItemsAtOnce_data()
    {
        QTest::addColumn<QString>("items");
        QTest::addColumn<QList<int>>("removed");
        QTest::addColumn<QString>("after");
        QTest::addColumn<int>("count");
        QTest::addColumn<bool>("sorted");  // by name before the removal; the sort must stay

        QTest::newRow("one item") << "ABCDE" << QList<int>{2} << "ABDE" << 1 << false;
        QTest::newRow("one run") << "ABCDE" << QList<int>{1, 2, 3} << "AE" << 3 << false;
        QTest::newRow("scattered, given out of order") << "ABCDE" << QList<int>{4, 0, 2} << "BD" << 3 << false;
        QTest::newRow("everything") << "ABCDE" << QList<int>{0, 1, 2, 3, 4} << "" << 5 << false;
        QTest::newRow("a repeated object goes as often as given") << "ABAB" << QList<int>{0, 0} << "BB" << 2 << false;
        // Collection positions 1 and 4 are B and A; the others show sorted as C, D, E
        QTest::newRow("sorted by name") << "DBECA" << QList<int>{1, 4} << "CDE" << 2 << true;
    }

    void shouldRemoveManyItemsAtOnce()
    {
        QFETCH(QString, items);
        QFETCH(QList<int>, removed);
        QFETCH(QString, after);
        QFETCH(int, count);
        QFETCH(bool, sorted);

        XStaticList list;
        QAbstractItemModelTester tester(list.reportView()->model(), QAbstractItemModelTester::FailureReportingMode::QtTest);
        list.setItems(testFields(items));
        if (sorted)
            QVERIFY(list.SortByColumn(QStringLiteral("name")));

        QCOMPARE(list.RemoveItems(pick(list, removed)), count);

        QCOMPARE(letters(list), after);
        QCOMPARE(list.SortColumn(), sorted ? QStringLiteral("name") : QString());
    }

    void shouldRemoveScatteredItemsBeyondTheRunLimit()
    {
        // Given 1,000 items and every other one to go: 500 runs, more than are shifted one by one
        XStaticList list;
        QAbstractItemModelTester tester(list.reportView()->model(), QAbstractItemModelTester::FailureReportingMode::QtTest);
        FieldsPtr fields = Fields::create();
        for (int i = 0; i < 1000; ++i)
            fields->Add(std::make_shared<StaticListTestField>(i + 1, QString::number(i)));
        list.setItems(fields);
        QList<int> odd;
        for (int i = 1; i < 1000; i += 2)
            odd.append(i);
        const FieldsPtr kept = pick(list, odd);

        QCOMPARE(list.RemoveItems(pick(list, everyOther(1000))), 500);

        // Then the other half stays, in order, in the same collection, and its keys are found
        QCOMPARE(list.Count(), 500);
        QCOMPARE(list.Items(), fields);
        for (int i = 0; i < 500; ++i)
            QCOMPARE(list.Items()->at(i), kept->at(i));
        QVERIFY(list.Contains(QStringLiteral("F2")));
        QVERIFY(!list.Contains(QStringLiteral("F1")));
    }

    void shouldInsertBeforeTheRow_data()
    {
        QTest::addColumn<int>("row");
        QTest::addColumn<QString>("after");

        QTest::newRow("at the top") << 0 << "XYABC";
        QTest::newRow("between") << 2 << "ABXYC";
        QTest::newRow("at the end") << 3 << "ABCXY";
        QTest::newRow("past the end appends") << 99 << "ABCXY";
        QTest::newRow("a negative row appends") << -1 << "ABCXY";
    }

    void shouldInsertBeforeTheRow()
    {
        QFETCH(int, row);
        QFETCH(QString, after);

        XStaticList list;
        QAbstractItemModelTester tester(list.reportView()->model(), QAbstractItemModelTester::FailureReportingMode::QtTest);
        list.setItems(testFields("ABC"));
        FieldsPtr added = Fields::create();
        added->Add(std::make_shared<StaticListTestField>(24, QStringLiteral("X")));
        added->Add(std::make_shared<StaticListTestField>(25, QStringLiteral("Y")));
        QSignalSpy inserted(list.reportView()->model(), &QAbstractItemModel::rowsInserted);

        list.InsertItems(row, added);

        QCOMPARE(letters(list), after);
        QCOMPARE(inserted.count(), 1);
        QVERIFY(list.Contains(QStringLiteral("F24")));
    }
};

QTEST_MAIN(TemplateListTest)
#include "tst_templatelist.moc"
