#include "fieldpicker_helpers.h"

#include "fieldpicker/fieldpicker_layout.h"

#include <PickerCtl/XFieldPicker.h>

#include <QFrame>
#include <QLabel>
#include <QSignalSpy>
#include <QTest>
#include <QTreeView>

using namespace PickerCtl;
using namespace PickerCtl::testsupport;
using PickerCtl::fieldpicker::TwipsRect;

Q_DECLARE_METATYPE(PickerCtl::fieldpicker::LayoutResult)

namespace {

constexpr double TwipsPerInch = 1440.0;
// The geometry rows are whole pixels at the offscreen screen's 96 DPI (15 twips a pixel).
constexpr int RowDpi = 96;
constexpr int RowY = 60;

struct Pieces
{
    QWidget *tree;
    QWidget *list;
    QWidget *bar;
    QWidget *headerLeft;
    QWidget *headerRight;

    explicit Pieces(const XFieldPicker &picker)
        : tree(picker.findChild<QTreeView *>(QStringLiteral("tvw")))
        , list(picker.findChild<XStaticList *>(QStringLiteral("stl")))
        , bar(picker.findChild<QFrame *>(QStringLiteral("lblSplitter")))
        , headerLeft(picker.findChild<QLabel *>(QStringLiteral("lblHeaderLeft")))
        , headerRight(picker.findChild<QLabel *>(QStringLiteral("lblHeaderRight")))
    {
    }

    QList<QWidget *> inTableOrder() const { return {tree, list, bar, headerLeft, headerRight}; }
};

// Each edge is rounded on its own, so pieces that meet in twips meet in pixels.
QRect toPixels(const TwipsRect &twips, const QWidget &widget)
{
    const double sx = widget.logicalDpiX() / TwipsPerInch;
    const double sy = widget.logicalDpiY() / TwipsPerInch;
    const int left = qRound(twips.left * sx);
    const int top = qRound(twips.top * sy);
    return QRect(left, top, qRound((twips.left + twips.width) * sx) - left,
                 qRound((twips.top + twips.height) * sy) - top);
}

void showAndWait(XFieldPicker &picker, const QSize &size)
{
    picker.resize(size);
    picker.show();
    QVERIFY(QTest::qWaitForWindowExposed(&picker));
}

} // namespace

class TestFieldPickerWidget : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void shouldShowAndHideThePiecesAsTheViewPutsSay_data();
    void shouldShowAndHideThePiecesAsTheViewPutsSay();
    void shouldNeverShowTheListAgainAfterTreeOnly();
    void shouldPlaceTheChildWidgetsAtTheTwipsLayout_data();
    void shouldPlaceTheChildWidgetsAtTheTwipsLayout();
    void shouldReportEachCompletedDragOfTheBarOnceAfterTheRelayout_data();
    void shouldReportEachCompletedDragOfTheBarOnceAfterTheRelayout();
};

void TestFieldPickerWidget::shouldShowAndHideThePiecesAsTheViewPutsSay_data()
{
    QTest::addColumn<int>("startView");
    QTest::addColumn<bool>("startCaptions");
    QTest::addColumn<QString>("put");
    QTest::addColumn<int>("value");
    // Tree, list, splitter bar, left header, right header: S shown, H hidden, - left as it was.
    QTest::addColumn<QString>("expected");

    const QString view = QStringLiteral("TemplateView");
    const QString captions = QStringLiteral("CaptionVisible");
    QTest::newRow("tree and list, captions shown") << int(tplListOnly) << true << view << int(tplTreeAndList)
                                                   << "S-SS-";
    QTest::newRow("tree and list, captions hidden") << int(tplListOnly) << false << view << int(tplTreeAndList)
                                                    << "S-SH-";
    QTest::newRow("list only") << int(tplTreeAndList) << true << view << int(tplListOnly) << "H-HH-";
    QTest::newRow("tree only") << int(tplTreeAndList) << true << view << int(tplTreeOnly) << "SH-SH";
    QTest::newRow("tree only shows its header even with captions hidden")
        << int(tplTreeAndList) << false << view << int(tplTreeOnly) << "SH-SH";
    QTest::newRow("captions on, tree and list") << int(tplTreeAndList) << false << captions << 1 << "---SS";
    QTest::newRow("captions off, tree and list") << int(tplTreeAndList) << true << captions << 0 << "---HH";
    QTest::newRow("captions on, list only") << int(tplListOnly) << false << captions << 1 << "----S";
    QTest::newRow("captions off, list only") << int(tplListOnly) << true << captions << 0 << "----H";
    QTest::newRow("captions on, tree only") << int(tplTreeOnly) << false << captions << 1 << "---SH";
    QTest::newRow("captions off, tree only") << int(tplTreeOnly) << true << captions << 0 << "---HH";
}

void TestFieldPickerWidget::shouldShowAndHideThePiecesAsTheViewPutsSay()
{
    QFETCH(int, startView);
    QFETCH(bool, startCaptions);
    QFETCH(QString, put);
    QFETCH(int, value);
    QFETCH(QString, expected);

    ServicesScope scope(makeSampleCatalog());
    // A dash must hold whatever the piece showed before, so try both.
    for (const bool before : {true, false}) {
        // Given a control in the starting mode whose pieces all show (or all hide)
        XFieldPicker picker;
        picker.InitProperties();
        picker.setTemplateView(ETPLTemplateView(startView));
        picker.setCaptionVisible(startCaptions);
        const Pieces pieces(picker);
        for (QWidget *piece : pieces.inTableOrder())
            piece->setVisible(before);

        // When
        if (put == QLatin1String("TemplateView"))
            picker.setTemplateView(ETPLTemplateView(value));
        else
            picker.setCaptionVisible(value != 0);

        // Then
        const QList<QWidget *> order = pieces.inTableOrder();
        for (int i = 0; i < order.size(); ++i) {
            const QChar want = expected.at(i);
            const bool shown = want == QLatin1Char('-') ? before : want == QLatin1Char('S');
            if (order.at(i)->isVisibleTo(&picker) != shown)
                QFAIL(qPrintable(QStringLiteral("%1 is %2 (pieces %3 before)")
                                     .arg(order.at(i)->objectName(),
                                          shown ? QStringLiteral("hidden") : QStringLiteral("shown"),
                                          before ? QStringLiteral("shown") : QStringLiteral("hidden"))));
        }
    }
}

void TestFieldPickerWidget::shouldNeverShowTheListAgainAfterTreeOnly()
{
    // Given a shown control in tree-only mode
    ServicesScope scope(makeSampleCatalog());
    XFieldPicker picker;
    picker.InitProperties();
    showAndWait(picker, QSize(400, 266));
    const Pieces pieces(picker);
    picker.setTemplateView(tplTreeOnly);
    QVERIFY(!pieces.list->isVisible());

    // When the host goes back to two panes and does everything else that shows or moves things
    picker.setTemplateView(tplTreeAndList);
    picker.setCaptionVisible(true);
    picker.setSplitterLeft(2400);
    picker.resize(500, 300);
    QVERIFY(picker.Load(QLatin1String(ReportsApp), QStringLiteral("Cell")));
    picker.setSelectedCategory(QStringLiteral("Site"));
    picker.setTemplateView(tplListOnly);
    picker.setTemplateView(tplTreeAndList);

    // Then the list stays hidden, though it was filled and placed
    QVERIFY(!pieces.list->isVisible());
    QCOMPARE(picker.ListCount(), 2);
    QVERIFY(pieces.tree->isVisible());
    QVERIFY(pieces.bar->isVisible());
    QVERIFY(pieces.headerRight->isVisible());
}

void TestFieldPickerWidget::shouldPlaceTheChildWidgetsAtTheTwipsLayout_data()
{
    QTest::addColumn<int>("view");
    QTest::addColumn<bool>("captions");
    QTest::addColumn<float>("left");
    QTest::addColumn<float>("width");
    QTest::addColumn<QSize>("surface");
    QTest::addColumn<fieldpicker::LayoutResult>("twips");

    const std::nullopt_t untouched = std::nullopt;
    // 400 x 266 pixels are 6000 x 3990 twips. Rows: bar, left header, tree, right header, list.
    QTest::newRow("two panes, captions shown")
        << int(tplTreeAndList) << true << 3000.0f << 64.0f << QSize(400, 266)
        << fieldpicker::LayoutResult{TwipsRect{3000, 0, 64, 3990}, TwipsRect{0, 0, 3000, 255},
                                     TwipsRect{0, 285, 3000, 3705}, TwipsRect{3064, 0, 2936, 255},
                                     TwipsRect{3064, 285, 2936, 3705}};
    QTest::newRow("two panes, captions hidden")
        << int(tplTreeAndList) << false << 3000.0f << 64.0f << QSize(400, 266)
        << fieldpicker::LayoutResult{TwipsRect{3000, 0, 64, 3990}, TwipsRect{0, 0, 3000, 255},
                                     TwipsRect{0, 0, 3000, 3990}, TwipsRect{3064, 0, 2936, 255},
                                     TwipsRect{3064, 0, 2936, 3990}};
    QTest::newRow("bar between pixels: the panes still meet the bar")
        << int(tplTreeAndList) << true << 3010.0f << 100.0f << QSize(400, 266)
        << fieldpicker::LayoutResult{TwipsRect{3010, 0, 100, 3990}, TwipsRect{0, 0, 3010, 255},
                                     TwipsRect{0, 285, 3010, 3705}, TwipsRect{3110, 0, 2890, 255},
                                     TwipsRect{3110, 285, 2890, 3705}};
    QTest::newRow("bar past the right edge")
        << int(tplTreeAndList) << true << 7000.0f << 64.0f << QSize(400, 266)
        << fieldpicker::LayoutResult{TwipsRect{7000, 0, 64, 3990}, TwipsRect{0, 0, 6000, 255},
                                     TwipsRect{0, 285, 6000, 3705}, TwipsRect{7064, 0, 0, 255},
                                     TwipsRect{7064, 285, 0, 3705}};
    QTest::newRow("list only") << int(tplListOnly) << true << 3000.0f << 64.0f << QSize(400, 266)
                               << fieldpicker::LayoutResult{untouched, untouched, untouched,
                                                            TwipsRect{0, 0, 6000, 255},
                                                            TwipsRect{0, 285, 6000, 3705}};
    QTest::newRow("tree only, captions hidden")
        << int(tplTreeOnly) << false << 3000.0f << 64.0f << QSize(400, 266)
        << fieldpicker::LayoutResult{untouched, TwipsRect{0, 0, 6000, 255}, TwipsRect{0, 285, 6000, 3705},
                                     untouched, untouched};
    QTest::newRow("a short surface: panes of height 0")
        << int(tplTreeAndList) << true << 3000.0f << 64.0f << QSize(400, 12)
        << fieldpicker::LayoutResult{TwipsRect{3000, 0, 64, 180}, TwipsRect{0, 0, 3000, 255},
                                     TwipsRect{0, 285, 3000, 0}, TwipsRect{3064, 0, 2936, 255},
                                     TwipsRect{3064, 285, 2936, 0}};
}

void TestFieldPickerWidget::shouldPlaceTheChildWidgetsAtTheTwipsLayout()
{
    QFETCH(int, view);
    QFETCH(bool, captions);
    QFETCH(float, left);
    QFETCH(float, width);
    QFETCH(QSize, surface);
    QFETCH(fieldpicker::LayoutResult, twips);

    // Given a shown control of the row's size
    ServicesScope scope(makeSampleCatalog());
    XFieldPicker picker;
    picker.InitProperties();
    showAndWait(picker, surface);
    if (picker.logicalDpiX() != RowDpi || picker.logicalDpiY() != RowDpi)
        QSKIP("the rows are whole pixels at 96 DPI only");

    // When the view is set up through the puts
    picker.setTemplateView(ETPLTemplateView(view));
    picker.setCaptionVisible(captions);
    picker.setSplitterWidth(width);
    picker.setSplitterLeft(left);

    // Then each placed piece stands at its twips converted by the control's DPI
    const Pieces pieces(picker);
    const std::pair<QWidget *, std::optional<TwipsRect>> placed[] = {
        {pieces.bar, twips.bar},           {pieces.headerLeft, twips.headerLeft}, {pieces.tree, twips.tree},
        {pieces.headerRight, twips.headerRight}, {pieces.list, twips.list}};
    for (const auto &[piece, rect] : placed) {
        if (!rect)
            continue;
        if (piece->geometry() != toPixels(*rect, picker))
            QFAIL(qPrintable(QStringLiteral("%1 stands at %2,%3 %4x%5")
                                 .arg(piece->objectName())
                                 .arg(piece->x())
                                 .arg(piece->y())
                                 .arg(piece->width())
                                 .arg(piece->height())));
    }
}

void TestFieldPickerWidget::shouldReportEachCompletedDragOfTheBarOnceAfterTheRelayout_data()
{
    QTest::addColumn<QList<int>>("path"); // mouse x offsets from the grab point, in pixels
    QTest::addColumn<int>("reports");

    QTest::newRow("to the right") << QList<int>{30, 60} << 1;
    QTest::newRow("to the left") << QList<int>{-50} << 1;
    QTest::newRow("click without a move") << QList<int>{} << 0;
    QTest::newRow("there and back") << QList<int>{40, 0} << 0;
}

void TestFieldPickerWidget::shouldReportEachCompletedDragOfTheBarOnceAfterTheRelayout()
{
    QFETCH(QList<int>, path);
    QFETCH(int, reports);

    // Given a shown control in two-pane mode
    ServicesScope scope(makeSampleCatalog());
    XFieldPicker picker;
    picker.InitProperties();
    showAndWait(picker, QSize(400, 266));
    const Pieces pieces(picker);
    const double twipsPerPixel = TwipsPerInch / picker.logicalDpiX();

    // What the host sees when the adjustment is reported
    struct Seen
    {
        int barX;
        int barRight;
        int treeWidth;
        int listX;
        int headerRightX;
        float splitterLeft;
    };
    QList<Seen> seen;
    connect(&picker, &XFieldPicker::SplitterAdjustment, this, [&] {
        seen.append({pieces.bar->x(), pieces.bar->geometry().right() + 1, pieces.tree->width(),
                     pieces.list->x(), pieces.headerRight->x(), picker.SplitterLeft()});
    });

    // When the user drags the bar along the path twice, following the bar as the mouse would
    for (int drag = 1; drag <= 2; ++drag) {
        const int startX = pieces.bar->x();
        const int grab = startX + pieces.bar->width() / 2;
        QTest::mousePress(pieces.bar, Qt::LeftButton, {}, QPoint(pieces.bar->width() / 2, RowY));
        for (int dx : path)
            QTest::mouseMove(pieces.bar, pieces.bar->mapFrom(&picker, QPoint(grab + dx, RowY)));
        const int last = grab + (path.isEmpty() ? 0 : path.last());
        QTest::mouseRelease(pieces.bar, Qt::LeftButton, {}, pieces.bar->mapFrom(&picker, QPoint(last, RowY)));

        // Then each completed drag is reported once, with the panes already beside the new bar
        QCOMPARE(seen.size(), drag * reports);
        QCOMPARE(pieces.bar->x(), startX + (path.isEmpty() ? 0 : path.last()));
        if (reports == 0)
            continue;
        const Seen &at = seen.last();
        QCOMPARE(at.barX, pieces.bar->x());
        QCOMPARE(at.treeWidth, at.barX);
        QCOMPARE(at.listX, at.barRight);
        QCOMPARE(at.headerRightX, at.barRight);
        QCOMPARE(at.splitterLeft, float(at.barX * twipsPerPixel));
    }
}

QTEST_MAIN(TestFieldPickerWidget)
#include "tst_fieldpickerwidget.moc"
