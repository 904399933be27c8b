#include "fieldpicker/fieldpicker_layout.h"

#include <PickerCtl/Enums.h>

#include <QTest>

using namespace PickerCtl;
using namespace PickerCtl::fieldpicker;

Q_DECLARE_METATYPE(PickerCtl::fieldpicker::LayoutInput)
Q_DECLARE_METATYPE(PickerCtl::fieldpicker::LayoutResult)

namespace {

using Rect = std::optional<TwipsRect>;
constexpr std::nullopt_t untouched = std::nullopt;

QString describe(const Rect &r)
{
    if (!r)
        return QStringLiteral("untouched");
    return QStringLiteral("(%1, %2, %3, %4)").arg(r->left).arg(r->top).arg(r->width).arg(r->height);
}

LayoutInput input(qint32 mode, bool captions, float left, float width, float sw, float sh,
                  float headerHeight = HeaderHeight)
{
    return LayoutInput{mode, captions, left, width, sw, sh, headerHeight};
}

} // namespace

class TestFieldPickerLayout : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void shouldPlaceEveryPieceExactly_data();
    void shouldPlaceEveryPieceExactly();
    void shouldPlaceNothingForAnUnknownMode();
    void shouldGrowTheHeaderOnlyForALargeFont_data();
    void shouldGrowTheHeaderOnlyForALargeFont();
};

void TestFieldPickerLayout::shouldPlaceEveryPieceExactly_data()
{
    QTest::addColumn<LayoutInput>("in");
    QTest::addColumn<LayoutResult>("expected");

    // Rows: bar, left header, tree, right header, list.
    QTest::newRow("two panes, captions shown")
        << input(tplTreeAndList, true, 3000, 64, 6000, 4000)
        << LayoutResult{TwipsRect{3000, 0, 64, 4000}, TwipsRect{0, 0, 3000, 255},
                        TwipsRect{0, 285, 3000, 3715}, TwipsRect{3064, 0, 2936, 255},
                        TwipsRect{3064, 285, 2936, 3715}};
    QTest::newRow("two panes, captions hidden: panes start at the top")
        << input(tplTreeAndList, false, 3000, 64, 6000, 4000)
        << LayoutResult{TwipsRect{3000, 0, 64, 4000}, TwipsRect{0, 0, 3000, 255},
                        TwipsRect{0, 0, 3000, 4000}, TwipsRect{3064, 0, 2936, 255},
                        TwipsRect{3064, 0, 2936, 4000}};
    QTest::newRow("bar past the right edge: tree fills the width, list gets nothing")
        << input(tplTreeAndList, true, 7000, 64, 6000, 4000)
        << LayoutResult{TwipsRect{7000, 0, 64, 4000}, TwipsRect{0, 0, 6000, 255},
                        TwipsRect{0, 285, 6000, 3715}, TwipsRect{7064, 0, 0, 255},
                        TwipsRect{7064, 285, 0, 3715}};
    QTest::newRow("bar exactly at the right edge counts as pushed out")
        << input(tplTreeAndList, false, 6000, 64, 6000, 4000)
        << LayoutResult{TwipsRect{6000, 0, 64, 4000}, TwipsRect{0, 0, 6000, 255},
                        TwipsRect{0, 285, 6000, 3715}, TwipsRect{6064, 0, 0, 255},
                        TwipsRect{6064, 0, 0, 4000}};
    QTest::newRow("bar overlapping the right edge: list width clamps to 0")
        << input(tplTreeAndList, true, 5990, 64, 6000, 4000)
        << LayoutResult{TwipsRect{5990, 0, 64, 4000}, TwipsRect{0, 0, 5990, 255},
                        TwipsRect{0, 285, 5990, 3715}, TwipsRect{6054, 0, 0, 255},
                        TwipsRect{6054, 285, 0, 3715}};
    QTest::newRow("surface 200 high: pane height 0, bar keeps the full height")
        << input(tplTreeAndList, true, 3000, 64, 6000, 200)
        << LayoutResult{TwipsRect{3000, 0, 64, 200}, TwipsRect{0, 0, 3000, 255},
                        TwipsRect{0, 285, 3000, 0}, TwipsRect{3064, 0, 2936, 255},
                        TwipsRect{3064, 285, 2936, 0}};
    QTest::newRow("list only, captions shown")
        << input(tplListOnly, true, 3000, 64, 6000, 4000)
        << LayoutResult{untouched, untouched, untouched, TwipsRect{0, 0, 6000, 255},
                        TwipsRect{0, 285, 6000, 3715}};
    QTest::newRow("list only, captions hidden")
        << input(tplListOnly, false, 3000, 64, 6000, 4000)
        << LayoutResult{untouched, untouched, untouched, TwipsRect{0, 0, 6000, 255},
                        TwipsRect{0, 0, 6000, 4000}};
    QTest::newRow("list only, surface 200 high")
        << input(tplListOnly, true, 3000, 64, 6000, 200)
        << LayoutResult{untouched, untouched, untouched, TwipsRect{0, 0, 6000, 255},
                        TwipsRect{0, 285, 6000, 0}};
    QTest::newRow("tree only keeps the header room with captions hidden")
        << input(tplTreeOnly, false, 3000, 64, 6000, 4000)
        << LayoutResult{untouched, TwipsRect{0, 0, 6000, 255}, TwipsRect{0, 285, 6000, 3715},
                        untouched, untouched};
    QTest::newRow("tree only, surface 200 high")
        << input(tplTreeOnly, true, 3000, 64, 6000, 200)
        << LayoutResult{untouched, TwipsRect{0, 0, 6000, 255}, TwipsRect{0, 285, 6000, 0},
                        untouched, untouched};

    // A header grown for a large font pushes the panes down by as much; the gap stays 30.
    QTest::newRow("two panes, taller header: panes start under it")
        << input(tplTreeAndList, true, 3000, 64, 6000, 4000, 420)
        << LayoutResult{TwipsRect{3000, 0, 64, 4000}, TwipsRect{0, 0, 3000, 420},
                        TwipsRect{0, 450, 3000, 3550}, TwipsRect{3064, 0, 2936, 420},
                        TwipsRect{3064, 450, 2936, 3550}};
    QTest::newRow("two panes, taller header, captions hidden: panes still at the top")
        << input(tplTreeAndList, false, 3000, 64, 6000, 4000, 420)
        << LayoutResult{TwipsRect{3000, 0, 64, 4000}, TwipsRect{0, 0, 3000, 420},
                        TwipsRect{0, 0, 3000, 4000}, TwipsRect{3064, 0, 2936, 420},
                        TwipsRect{3064, 0, 2936, 4000}};
    QTest::newRow("bar pushed out, taller header: the lone tree keeps the taller room")
        << input(tplTreeAndList, false, 7000, 64, 6000, 4000, 420)
        << LayoutResult{TwipsRect{7000, 0, 64, 4000}, TwipsRect{0, 0, 6000, 420},
                        TwipsRect{0, 450, 6000, 3550}, TwipsRect{7064, 0, 0, 420},
                        TwipsRect{7064, 0, 0, 4000}};
    QTest::newRow("list only, taller header")
        << input(tplListOnly, true, 3000, 64, 6000, 4000, 420)
        << LayoutResult{untouched, untouched, untouched, TwipsRect{0, 0, 6000, 420},
                        TwipsRect{0, 450, 6000, 3550}};
    QTest::newRow("tree only, taller header, surface lower than the header room")
        << input(tplTreeOnly, true, 3000, 64, 6000, 400, 420)
        << LayoutResult{untouched, TwipsRect{0, 0, 6000, 420}, TwipsRect{0, 450, 6000, 0},
                        untouched, untouched};
}

void TestFieldPickerLayout::shouldPlaceEveryPieceExactly()
{
    QFETCH(LayoutInput, in);
    QFETCH(LayoutResult, expected);

    // When
    const LayoutResult got = computeLayout(in);

    // Then
    QCOMPARE(describe(got.bar), describe(expected.bar));
    QCOMPARE(describe(got.headerLeft), describe(expected.headerLeft));
    QCOMPARE(describe(got.tree), describe(expected.tree));
    QCOMPARE(describe(got.headerRight), describe(expected.headerRight));
    QCOMPARE(describe(got.list), describe(expected.list));
}

void TestFieldPickerLayout::shouldPlaceNothingForAnUnknownMode()
{
    const LayoutResult got = computeLayout(input(7, true, 3000, 64, 6000, 4000));
    QVERIFY(!got.bar && !got.headerLeft && !got.tree && !got.headerRight && !got.list);
}

void TestFieldPickerLayout::shouldGrowTheHeaderOnlyForALargeFont_data()
{
    QTest::addColumn<float>("lineHeight");
    QTest::addColumn<float>("expected");

    QTest::newRow("small font keeps the designed 255") << 150.0f << 255.0f;
    QTest::newRow("normal font keeps the designed 255") << 225.0f << 255.0f;
    QTest::newRow("line plus margin exactly 255 keeps 255") << 240.0f << 255.0f;
    QTest::newRow("one twip more than fits grows by one twip") << 241.0f << 256.0f;
    QTest::newRow("15 pt line gets the line and the margin") << 390.0f << 405.0f;
}

void TestFieldPickerLayout::shouldGrowTheHeaderOnlyForALargeFont()
{
    QFETCH(float, lineHeight);
    QFETCH(float, expected);
    QCOMPARE(headerHeightFor(lineHeight), expected);
}

QTEST_GUILESS_MAIN(TestFieldPickerLayout)
#include "tst_fieldpickerlayout.moc"
