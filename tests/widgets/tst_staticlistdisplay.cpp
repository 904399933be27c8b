#include "staticlist_testfields.h"
#include "widgets/staticlistdelegate.h"

#include <PickerCtl/XStaticList.h>

#include <QListView>
#include <QTest>
#include <QTreeView>

using namespace PickerCtl;

namespace {

void selectRows(XStaticList &list, const QList<int> &rows)
{
    auto wanted = Fields::create();
    for (int row : rows)
        wanted->Add(list.Items()->at(row));
    list.SelectItems(wanted);
}

QList<int> selectedRows(const XStaticList &list)
{
    QList<int> rows;
    for (int row = 0; row < list.Count(); ++row) {
        if (list.view()->selectionModel()->isRowSelected(row))
            rows << row;
    }
    return rows;
}

QListView *iconView(const XStaticList &list)
{
    return list.findChild<QListView *>(QStringLiteral("lvwIcons"));
}

} // namespace

class TestStaticListDisplay : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void shouldKeepModelAndSelectionAcrossStyles_data()
    {
        QTest::addColumn<int>("from");
        QTest::addColumn<int>("to");
        QTest::addColumn<bool>("showsReport");
        QTest::newRow("report to list") << int(XStaticList::stlReport) << int(XStaticList::stlList) << false;
        QTest::newRow("list to small icons") << int(XStaticList::stlList) << int(XStaticList::stlSmallIcons) << false;
        QTest::newRow("small to large icons")
            << int(XStaticList::stlSmallIcons) << int(XStaticList::stlLargeIcons) << false;
        QTest::newRow("large icons to report") << int(XStaticList::stlLargeIcons) << int(XStaticList::stlReport) << true;
    }

    void shouldKeepModelAndSelectionAcrossStyles()
    {
        QFETCH(int, from);
        QFETCH(int, to);
        QFETCH(bool, showsReport);

        // Given a list in one style with two rows selected and one current
        XStaticList list;
        list.setItems(testFields("ABCDE"));
        list.setListStyle(XStaticList::EListStyle(from));
        selectRows(list, {1, 3});

        // When the style changes
        list.setListStyle(XStaticList::EListStyle(to));

        // Then both views still share one model and one selection, and the right one is shown
        QCOMPARE(int(list.ListStyle()), to);
        QCOMPARE(selectedRows(list), (QList<int>{1, 3}));
        QCOMPARE(list.SelectedCount(), 2);
        QCOMPARE(iconView(list)->model(), list.reportView()->model());
        QCOMPARE(iconView(list)->selectionModel(), list.reportView()->selectionModel());
        QCOMPARE(list.view() == list.reportView(), showsReport);
    }

    void shouldLayOutIconsAsArranged_data()
    {
        QTest::addColumn<int>("arrange");
        QTest::addColumn<QListView::Flow>("flow");
        QTest::addColumn<QListView::Movement>("movement");
        QTest::newRow("none") << int(XStaticList::stlArrangeNone) << QListView::LeftToRight << QListView::Free;
        QTest::newRow("left") << int(XStaticList::stlArrangeLeft) << QListView::TopToBottom << QListView::Static;
        QTest::newRow("top") << int(XStaticList::stlArrangeTop) << QListView::LeftToRight << QListView::Static;
    }

    void shouldLayOutIconsAsArranged()
    {
        QFETCH(int, arrange);
        QFETCH(QListView::Flow, flow);
        QFETCH(QListView::Movement, movement);
        XStaticList list;
        list.setItems(testFields("ABC"));
        list.setListStyle(XStaticList::stlLargeIcons);

        list.setArrangeIcons(XStaticList::EArrangeIcons(arrange));

        QCOMPARE(int(list.ArrangeIcons()), arrange);
        QCOMPARE(iconView(list)->viewMode(), QListView::IconMode);
        QCOMPARE(iconView(list)->flow(), flow);
        QCOMPARE(iconView(list)->movement(), movement);
    }

    void shouldDrawSelectionAsConfigured_data()
    {
        QTest::addColumn<bool>("fullRowSelect");
        QTest::addColumn<bool>("hideSelection");
        QTest::addColumn<bool>("focused");
        QTest::addColumn<bool>("nameDrawn");
        QTest::addColumn<bool>("otherColumnDrawn");
        QTest::newRow("name only") << false << false << true << true << false;
        QTest::newRow("full row") << true << false << true << true << true;
        QTest::newRow("hidden without focus") << true << true << false << false << false;
        QTest::newRow("hidden but focused") << false << true << true << true << false;
        QTest::newRow("shown inactive") << true << false << false << true << true;
    }

    void shouldDrawSelectionAsConfigured()
    {
        QFETCH(bool, fullRowSelect);
        QFETCH(bool, hideSelection);
        QFETCH(bool, focused);
        QFETCH(bool, nameDrawn);
        QFETCH(bool, otherColumnDrawn);
        XStaticList list;
        list.setItems(testFields("AB"));

        list.setFullRowSelect(fullRowSelect);
        list.setHideSelection(hideSelection);

        auto *delegate = qobject_cast<StaticListDelegate *>(list.reportView()->itemDelegate());
        QVERIFY(delegate);
        QCOMPARE(list.FullRowSelect(), fullRowSelect);
        QCOMPARE(list.HideSelection(), hideSelection);
        QCOMPARE(delegate->drawsSelected(0, focused), nameDrawn);
        QCOMPARE(delegate->drawsSelected(2, focused), otherColumnDrawn);
    }

    void shouldKeepOneItemWhenMultiSelectGoesOff_data()
    {
        QTest::addColumn<QList<int>>("selected");
        QTest::addColumn<QList<int>>("kept");
        QTest::newRow("several") << QList<int>{0, 2, 3} << QList<int>{};
        QTest::newRow("one") << QList<int>{2} << QList<int>{2};
        QTest::newRow("none") << QList<int>{} << QList<int>{};
    }

    void shouldKeepOneItemWhenMultiSelectGoesOff()
    {
        QFETCH(QList<int>, selected);
        QFETCH(QList<int>, kept);
        XStaticList list;
        list.setItems(testFields("ABCD"));
        selectRows(list, selected);

        list.setMultiSelect(false);

        QVERIFY(!list.MultiSelect());
        QCOMPARE(list.reportView()->selectionMode(), QAbstractItemView::SingleSelection);
        QCOMPARE(iconView(list)->selectionMode(), QAbstractItemView::SingleSelection);
        QCOMPARE(list.SelectedCount(), selected.isEmpty() ? 0 : 1);
        if (!kept.isEmpty())
            QCOMPARE(selectedRows(list), kept);
        else if (!selected.isEmpty())
            QVERIFY(selected.contains(selectedRows(list).value(0, -1)));
    }
};

QTEST_MAIN(TestStaticListDisplay)
#include "tst_staticlistdisplay.moc"
