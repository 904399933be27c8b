#include "widgets/splitterlimits.h"
#include "widgets/twips.h"

#include <QTest>

using namespace PickerCtl;

static_assert(twipsToPixels(1440, 96) == 96);
static_assert(pixelsToTwips(96, 96) == 1440);

class TwipsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void shouldConvertRectanglesEdgeByEdge_data()
    {
        QTest::addColumn<QRectF>("twips");
        QTest::addColumn<double>("dpi");
        QTest::addColumn<QRect>("pixels");
        // The field browser's two-pane layout at 96 and 120 DPI.
        QTest::newRow("tree at 96") << QRectF(0, 285, 3000, 3715) << 96.0 << QRect(0, 19, 200, 248);
        QTest::newRow("bar at 96") << QRectF(3000, 0, 64, 4000) << 96.0 << QRect(200, 0, 4, 267);
        QTest::newRow("list at 96") << QRectF(3064, 285, 2936, 3715) << 96.0 << QRect(204, 19, 196, 248);
        QTest::newRow("tree at 120") << QRectF(0, 285, 3000, 3715) << 120.0 << QRect(0, 24, 250, 309);
        QTest::newRow("bar at 120") << QRectF(3000, 0, 64, 4000) << 120.0 << QRect(250, 0, 5, 333);
        QTest::newRow("list at 120") << QRectF(3064, 285, 2936, 3715) << 120.0 << QRect(255, 24, 245, 309);
        QTest::newRow("negative size") << QRectF(100, 100, -50, -50) << 96.0 << QRect(7, 7, 0, 0);
    }

    void shouldConvertRectanglesEdgeByEdge()
    {
        QFETCH(QRectF, twips);
        QFETCH(double, dpi);
        QFETCH(QRect, pixels);
        QCOMPARE(twipsRectToPixels(twips, dpi, dpi), pixels);
    }

    void shouldKeepTheSplitterWithinLimitsAndParent_data()
    {
        QTest::addColumn<float>("minimum");
        QTest::addColumn<float>("maximum");
        QTest::addColumn<int>("lowest");
        QTest::addColumn<int>("highest");
        QTest::newRow("no limits") << -1.0f << -1.0f << 0 << 394;
        QTest::newRow("both limits") << 1440.0f << 2880.0f << 96 << 192;
        QTest::newRow("maximum beyond the parent") << -1.0f << 99999.0f << 0 << 394;
        QTest::newRow("contradicting limits keep the minimum") << 2880.0f << 1440.0f << 192 << 192;
    }

    void shouldKeepTheSplitterWithinLimitsAndParent()
    {
        QFETCH(float, minimum);
        QFETCH(float, maximum);
        QFETCH(int, lowest);
        QFETCH(int, highest);
        const SplitterRange range = splitterRange(minimum, maximum, 96, 400, 6);
        QCOMPARE(range.lowest, lowest);
        QCOMPARE(range.highest, highest);
    }
};

QTEST_GUILESS_MAIN(TwipsTest)
#include "tst_twips.moc"
