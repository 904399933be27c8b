#include "widgets/columnlayout.h"
#include "widgets/fieldlistmodel.h"

#include <PickerCtl/ListViewProperties.h>

#include <QTest>

using namespace PickerCtl;

namespace {

const QString kLayout = QStringLiteral("PCLV1;sort=category:desc;cols=name:1:180,category:1:120,unit:0:75");

} // namespace

class TestListViewProperties : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void shouldRoundTripExactly_data()
    {
        QTest::addColumn<QString>("text");
        QTest::newRow("sorted") << kLayout;
        QTest::newRow("unsorted") << "PCLV1;sort=;cols=name:1:0,type:0:10000";
        QTest::newRow("no columns") << "PCLV1;sort=;cols=";
        QTest::newRow("foreign ids kept") << "PCLV1;sort=x.y-z_1:asc;cols=x.y-z_1:1:5";
    }

    void shouldRoundTripExactly()
    {
        QFETCH(QString, text);
        ListViewProperties properties;
        QVERIFY(properties.Apply(text));
        QCOMPARE(properties.Serialise(), text);
        ListViewProperties copy;
        QVERIFY(copy.Apply(properties.Serialise()));
        QCOMPARE(copy.Columns(), properties.Columns());
        QCOMPARE(copy.SortColumn(), properties.SortColumn());
    }

    void shouldRefuseDamagedOrForeignText_data()
    {
        QTest::addColumn<QString>("text");
        QTest::newRow("empty") << "";
        QTest::newRow("other version") << "PCLV2;sort=;cols=name:1:100";
        QTest::newRow("foreign") << "Name=180;Category=120";
        QTest::newRow("missing part") << "PCLV1;cols=name:1:100";
        QTest::newRow("extra part") << "PCLV1;sort=;cols=name:1:100;x=1";
        QTest::newRow("bad width") << "PCLV1;sort=;cols=name:1:abc";
        QTest::newRow("signed width") << "PCLV1;sort=;cols=name:1:-5";
        QTest::newRow("absurd width") << "PCLV1;sort=;cols=name:1:99999";
        QTest::newRow("bad visibility") << "PCLV1;sort=;cols=name:yes:100";
        QTest::newRow("duplicate id") << "PCLV1;sort=;cols=name:1:100,name:0:50";
        QTest::newRow("empty id") << "PCLV1;sort=;cols=:1:100";
        QTest::newRow("id with blank") << "PCLV1;sort=;cols=na me:1:100";
        QTest::newRow("sort column not listed") << "PCLV1;sort=type:asc;cols=name:1:100";
        QTest::newRow("bad direction") << "PCLV1;sort=name:up;cols=name:1:100";
        QTest::newRow("trailing comma") << "PCLV1;sort=;cols=name:1:100,";
        QTest::newRow("over-long") << "PCLV1;sort=;cols=" + QString(70000, u'a') + ":1:1";
        QTest::newRow("too many columns") << [] {
            QStringList columns;
            for (int i = 0; i <= ListViewProperties::MaxColumns; ++i)
                columns.append(QStringLiteral("c%1:1:1").arg(i));
            return "PCLV1;sort=;cols=" + columns.join(u',');
        }();
    }

    void shouldRefuseDamagedOrForeignText()
    {
        QFETCH(QString, text);
        ListViewProperties properties;
        QVERIFY(properties.Apply(kLayout));
        int notifications = 0;
        properties.addObserver([&notifications] { ++notifications; });

        QVERIFY(!properties.Apply(text));

        QCOMPARE(properties.Serialise(), kLayout);
        QCOMPARE(notifications, 0);
    }

    void shouldNotifyObserversOfLayoutChangesOnly()
    {
        ListViewProperties properties;
        int notifications = 0;
        const int ticket = properties.addObserver([&notifications] { ++notifications; });
        properties.setTitle(QStringLiteral("Priority"));
        QVERIFY(properties.Apply(kLayout));
        QVERIFY(properties.Apply(kLayout));
        QCOMPARE(notifications, 1);
        properties.removeObserver(ticket);
        QVERIFY(properties.setSort(QString()));
        QCOMPARE(notifications, 1);
        QCOMPARE(properties.Title(), QStringLiteral("Priority"));
    }

    void shouldPlaceColumnsFromSavedLayout()
    {
        // Given a layout written by another version: an unknown id, the name hidden, and only
        // three of the list's columns named
        QList<ListColumnState> saved{{QStringLiteral("unit"), true, 60},
                                     {QStringLiteral("gone"), true, 90},
                                     {QStringLiteral("name"), false, 0},
                                     {QStringLiteral("type"), false, 80}};

        const auto placement = resolveColumnLayout(saved, [](int column) { return 100 + column; });

        // Then the named ones lead, the name is shown with its default width, the rest follow
        // in their own order with their defaults, and the unknown id is gone
        QStringList placed;  // id:visible:width in display order
        for (const ColumnPlacement &place : placement)
            placed << QStringLiteral("%1:%2:%3").arg(FieldListModel::columnId(place.column)).arg(int(place.visible)).arg(place.width);
        QCOMPARE(placed.join(u','), QStringLiteral("unit:1:60,name:1:100,type:0:80,category:1:101,technology:1:103,"
                                                   "owner:1:104,id:0:105,description:0:106,status:0:108"));
    }
};

QTEST_MAIN(TestListViewProperties)
#include "tst_listviewproperties.moc"
