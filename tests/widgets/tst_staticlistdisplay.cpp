#include "staticlist_testfields.h"
#include "widgets/staticlistdelegate.h"

#include <PickerCtl/XStaticList.h>

#include <QListView>
#include <QTest>
#include <QTreeView>

using namespace PickerCtl;

namespace {

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
        selectPattern(list, QStringLiteral(".x.x."));

        // When the style changes
        list.setListStyle(XStaticList::EListStyle(to));

        // Then both views still share one model and one selection, and the right one is shown
        QCOMPARE(selectionPattern(list), QStringLiteral(".x.x."));
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
        QCOMPARE(delegate->drawsSelected(0, focused), nameDrawn);
        QCOMPARE(delegate->drawsSelected(2, focused), otherColumnDrawn);
    }

    void shouldKeepOneItemWhenMultiSelectGoesOff_data()
    {
        QTest::addColumn<QString>("selected");
        QTest::addColumn<QString>("kept");  // "?": any one of the selected rows
        QTest::newRow("several") << "x.xx" << "?";
        QTest::newRow("one") << "..x." << "..x.";
        QTest::newRow("none") << "...." << "....";
    }

    void shouldKeepOneItemWhenMultiSelectGoesOff()
    {
        QFETCH(QString, selected);
        QFETCH(QString, kept);
        XStaticList list;
        list.setItems(testFields("ABCD"));
        selectPattern(list, selected);

        list.setMultiSelect(false);

        QCOMPARE(list.reportView()->selectionMode(), QAbstractItemView::SingleSelection);
        QCOMPARE(iconView(list)->selectionMode(), QAbstractItemView::SingleSelection);
        QCOMPARE(list.SelectedCount(), selected.contains(u'x') ? 1 : 0);
        if (kept != u"?")
            QCOMPARE(selectionPattern(list), kept);
        else
            QVERIFY(selected.at(selectionPattern(list).indexOf(u'x')) == u'x');

        // Then asking for several rows or all of them still leaves one
        selectPattern(list, QStringLiteral("x.x."));
        QCOMPARE(list.SelectedCount(), 1);
        list.SelectAll();
        QCOMPARE(list.SelectedCount(), 1);
    }
};

QTEST_MAIN(TestStaticListDisplay)
#include "tst_staticlistdisplay.moc"
