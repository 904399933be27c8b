#include "widgets/splitterlimits.h"
#include "widgets/twips.h"

#include <QTest>

#include <cfloat>
#include <limits>

using namespace PickerCtl;

namespace {
constexpr double NaN = std::numeric_limits<double>::quiet_NaN();
constexpr double Inf = std::numeric_limits<double>::infinity();
constexpr int MaxPixels = 16777215;
} // namespace

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

    // A restored bag can hold any float for SplitterLeft and SplitterWidth.
    void shouldSaturateHostileTwipsInsteadOfOverflowing_data()
    {
        QTest::addColumn<QRectF>("twips");
        QTest::addColumn<QRect>("pixels");
        QTest::newRow("left of 1e10") << QRectF(1e10, 0, 3000, 1440) << QRect(MaxPixels, 0, 0, 96);
        QTest::newRow("width of 1e10") << QRectF(0, 0, 1e10, 1440) << QRect(0, 0, MaxPixels, 96);
        QTest::newRow("left of -1e10") << QRectF(-1e10, 0, 3000, 1440) << QRect(-MaxPixels, 0, 0, 96);
        QTest::newRow("left of -1e10 reaching back") << QRectF(-1e10, 0, 1e10, 1440) << QRect(-MaxPixels, 0, MaxPixels, 96);
        QTest::newRow("width of -1e10") << QRectF(1440, 0, -1e10, 1440) << QRect(96, 0, 0, 96);
        QTest::newRow("NaN left") << QRectF(NaN, 0, 3000, 1440) << QRect(0, 0, 0, 96);
        QTest::newRow("NaN width") << QRectF(1440, 0, NaN, 1440) << QRect(96, 0, 0, 96);
        QTest::newRow("infinite width") << QRectF(0, 0, Inf, 1440) << QRect(0, 0, MaxPixels, 96);
        QTest::newRow("infinite left") << QRectF(Inf, 0, 3000, 1440) << QRect(MaxPixels, 0, 0, 96);
        QTest::newRow("infinities cancelling") << QRectF(-Inf, 0, Inf, 1440) << QRect(-MaxPixels, 0, MaxPixels, 96);
        QTest::newRow("FLT_MAX left and width") << QRectF(FLT_MAX, 0, FLT_MAX, 1440) << QRect(MaxPixels, 0, 0, 96);
        QTest::newRow("FLT_MAX height") << QRectF(0, 0, 1440, FLT_MAX) << QRect(0, 0, 96, MaxPixels);
        QTest::newRow("-FLT_MAX top and FLT_MAX height") << QRectF(0, -FLT_MAX, 1440, FLT_MAX) << QRect(0, -MaxPixels, 96, MaxPixels);
    }

    void shouldSaturateHostileTwipsInsteadOfOverflowing()
    {
        QFETCH(QRectF, twips);
        QFETCH(QRect, pixels);
        const QRect result = twipsRectToPixels(twips, 96, 96);
        QCOMPARE(result, pixels);
        // The far edge stays representable, so callers can add to it.
        QVERIFY(qint64(result.right()) + 1 <= qint64(MaxPixels) * 2);
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
