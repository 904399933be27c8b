#include "staticlist_testfields.h"
#include "widgets/fieldlistmodelsort.h"
#include "widgets/textgroups.h"

#include <PickerCtl/XStaticList.h>
#include <PickerCtl/testing/CursorLog.h>

#include <QTest>

#include <algorithm>
#include <numeric>

using namespace PickerCtl;

namespace {

// The order the list promises: case-insensitive by code point, equal texts in collection order.
std::vector<int> referenceOrder(const std::vector<QString> &texts, bool ascending)
{
    std::vector<int> rows(texts.size());
    std::iota(rows.begin(), rows.end(), 0);
    std::stable_sort(rows.begin(), rows.end(), [&texts, ascending](int a, int b) {
        const int order = FieldListSort::compareText(texts[size_t(a)], texts[size_t(b)]);
        return ascending ? order < 0 : order > 0;
    });
    return rows;
}

// A reproducible shuffle of `count` texts drawn from `pool`.
std::vector<QString> drawn(const QStringList &pool, int count)
{
    std::vector<QString> texts;
    quint32 state = 2463534242u;
    for (int i = 0; i < count; ++i) {
        state ^= state << 13;
        state ^= state >> 17;
        state ^= state << 5;
        texts.push_back(pool.at(int(state % quint32(pool.size()))));
    }
    return texts;
}

QStringList numbered(const QString &pattern, int count)
{
    QStringList texts;
    for (int i = 0; i < count; ++i)
        texts.append(pattern.arg(i * 7919 % count));
    return texts;
}

} // namespace

class TestFieldListSort : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void shouldOrderLikeAStableSort_data()
    {
        QTest::addColumn<QStringList>("pool");
        QTest::addColumn<int>("count");
        const QStringList counters{u"RRC Setup Success Rate"_qs, u"rrc setup success rate"_qs, u"RRC Setup Attempts"_qs,
                                   u"Mobile Data Volume"_qs, u"MOBILE DATA VOLUME"_qs, u"Mobile Data Volume #2"_qs,
                                   u"DRB.IPThpDl.QCI"_qs, u"DRB.IPThpUl.QCI"_qs, u"\u00c9nergie"_qs, u""_qs};
        // Few distinct names over many rows: the rows are dealt out by the rank of their name,
        // and names that differ only in case must still keep their rows in collection order.
        QTest::newRow("many rows, few names, case variants") << counters << 6000;
        // Too many distinct names to group them all, but one head shared by thousands of equal
        // names: the run of that head is grouped on its own.
        QTest::newRow("a large run of equal names among distinct ones")
            << numbered(u"Cell %1 drops"_qs, 3000) + QStringList(2500, u"Traffic Channel Drops"_qs)
                   + QStringList(500, u"TRAFFIC CHANNEL DROPS"_qs)
            << 9000;
        QTest::newRow("distinct names") << numbered(u"Field %1"_qs, 5000) << 5000;
        QTest::newRow("below the grouping size") << counters << 200;
    }

    void shouldOrderLikeAStableSort()
    {
        QFETCH(QStringList, pool);
        QFETCH(int, count);
        const std::vector<QString> texts = pool.size() == count ? std::vector<QString>(pool.begin(), pool.end())
                                                                : drawn(pool, count);

        QCOMPARE(FieldListSort::textOrder(texts, true), referenceOrder(texts, true));
        QCOMPARE(FieldListSort::textOrder(texts, false), referenceOrder(texts, false));
    }

    void shouldGroupExactlyEqualTexts()
    {
        TextGroups groups(2);
        const QStringList texts{u"Drops"_qs, u"drops"_qs, u"Drops"_qs, u""_qs, u"Drops "_qs, u""_qs};
        QList<int> numbers;
        for (const QString &text : texts)
            numbers.append(groups.add(text));
        // Case counts here: grouping is exact, the sort's ranks treat case variants as equal.
        QCOMPARE(numbers, (QList<int>{0, 1, 0, 2, 3, 2}));
        QCOMPARE(groups.count(), 4);
        QCOMPARE(groups.text(3), u"Drops "_qs);
    }

    void shouldGiveUpGroupingWhenTextsAreMostlyDistinct()
    {
        const QStringList distinct = numbered(u"Cell %1"_qs, 100);
        const std::vector<QString> texts(distinct.begin(), distinct.end());
        QVERIFY(!groupTexts(texts, 50).has_value());
        const std::optional<TextGrouping> grouping = groupTexts(texts, 100);
        QVERIFY(grouping.has_value());
        QCOMPARE(grouping->groups.count(), 100);
    }

    void shouldSortUnderTheWaitCursor_data()
    {
        QTest::addColumn<QString>("column");
        QTest::addColumn<Qt::SortOrder>("order");
        QTest::addColumn<int>("pushes");
        QTest::newRow("a new sort waits") << u"name"_qs << Qt::DescendingOrder << 1;
        QTest::newRow("the sort in force does not") << u"name"_qs << Qt::AscendingOrder << 0;
        QTest::newRow("clearing the sort waits") << QString() << Qt::AscendingOrder << 1;
    }

    void shouldSortUnderTheWaitCursor()
    {
        QFETCH(QString, column);
        QFETCH(Qt::SortOrder, order);
        QFETCH(int, pushes);
        auto services = std::make_shared<CursorLogServices>();
        AppServices::setInstance(services);
        XStaticList list;
        list.setItems(testFields("DBCA"));
        QVERIFY(list.SortByColumn(u"name"_qs));
        services->log()->clear();

        if (column.isEmpty())
            list.ClearHeaderIcon();
        else
            QVERIFY(list.SortByColumn(column, order));

        QCOMPARE(services->log()->pushCount(), pushes);
        QCOMPARE(services->log()->popCount(), pushes);
        QCOMPARE(services->log()->pushed(), QList<qint16>(pushes, WaitCursor::Hourglass));
        AppServices::setInstance(nullptr);
    }
};

QTEST_MAIN(TestFieldListSort)
#include "tst_fieldlistsort.moc"
