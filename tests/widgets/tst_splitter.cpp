#include <PickerCtl/Splitter.h>

#include "widgets/twips.h"

#include <QSignalSpy>
#include <QTest>
#include <QWidget>

using namespace PickerCtl;

namespace {

constexpr int BarStart = 200;
constexpr int BarWidth = 6;
constexpr int RowY = 50;

struct Surface
{
    QWidget form;
    QWidget *bar = new QWidget(&form);
    QWidget *scratch = new QWidget(&form);

    Surface()
    {
        form.resize(600, 200);
        bar->setGeometry(BarStart, 0, BarWidth, 200);
        scratch->hide();
        form.show();
    }

    // Drags the bar from its centre to x (in the form's coordinates), mapping each point to where
    // the bar is at that moment, as the mouse would.
    void drag(const QList<int> &path)
    {
        const int grab = bar->x() + BarWidth / 2;
        QTest::mousePress(bar, Qt::LeftButton, {}, QPoint(BarWidth / 2, RowY));
        for (int x : path)
            QTest::mouseMove(bar, bar->mapFrom(&form, QPoint(x, RowY)));
        const int last = path.isEmpty() ? grab : path.last();
        QTest::mouseRelease(bar, Qt::LeftButton, {}, bar->mapFrom(&form, QPoint(last, RowY)));
    }
};

int pixels(float twips, const QWidget *widget)
{
    return qRound(twipsToPixels(twips, logicalDpiX(widget)));
}

} // namespace

class SplitterTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void shouldMoveTheBarAndReportTheSplit_data()
    {
        QTest::addColumn<bool>("live");
        QTest::newRow("live") << true;
        QTest::newRow("ghost on the scratch surface") << false;
    }

    void shouldMoveTheBarAndReportTheSplit()
    {
        QFETCH(bool, live);
        Surface surface;
        QVERIFY(QTest::qWaitForWindowExposed(&surface.form));
        Splitter splitter;
        splitter.Attach(surface.bar, surface.scratch, live, Splitter::NoLimit, Splitter::NoLimit);
        QCOMPARE(surface.bar->cursor().shape(), Qt::SplitHCursor);
        QSignalSpy split(&splitter, &Splitter::Split);

        // When the user drags the bar 100 pixels to the right, pausing half way
        const int grab = BarStart + BarWidth / 2;
        QTest::mousePress(surface.bar, Qt::LeftButton, {}, QPoint(BarWidth / 2, RowY));
        QTest::mouseMove(surface.bar, surface.bar->mapFrom(&surface.form, QPoint(grab + 50, RowY)));
        // Then, half way, the bar (or its ghost) follows the mouse and nothing is reported yet
        QCOMPARE((live ? surface.bar : surface.scratch)->x(), BarStart + 50);
        QCOMPARE(surface.scratch->isVisible(), !live);
        QCOMPARE(split.count(), 0);
        QTest::mouseMove(surface.bar, surface.bar->mapFrom(&surface.form, QPoint(grab + 100, RowY)));
        QTest::mouseRelease(surface.bar, Qt::LeftButton, {},
                            surface.bar->mapFrom(&surface.form, QPoint(grab + 100, RowY)));

        // Then the bar stands in its new place and the split is reported once
        QCOMPARE(surface.bar->x(), BarStart + 100);
        QVERIFY(!surface.scratch->isVisible());
        QCOMPARE(split.count(), 1);
    }

    void shouldNotMoveOrReportTheBar_data()
    {
        QTest::addColumn<QList<int>>("path");
        QTest::addColumn<bool>("detached");
        QTest::newRow("click without movement") << QList<int>{} << false;
        QTest::newRow("there and back") << QList<int>{BarStart + 80, BarStart + BarWidth / 2} << false;
        QTest::newRow("dragged after the splitter let go") << QList<int>{BarStart + 120} << true;
    }

    void shouldNotMoveOrReportTheBar()
    {
        QFETCH(QList<int>, path);
        QFETCH(bool, detached);
        Surface surface;
        QVERIFY(QTest::qWaitForWindowExposed(&surface.form));
        Splitter splitter;
        splitter.Attach(surface.bar, surface.scratch, true);
        QSignalSpy split(&splitter, &Splitter::Split);
        if (detached)
            splitter.Detach();
        QCOMPARE(splitter.IsAttached(), !detached);
        surface.drag(path);
        QCOMPARE(surface.bar->x(), BarStart);
        QCOMPARE(split.count(), 0);
    }

    void shouldClampTheBarToItsLimits_data()
    {
        QTest::addColumn<float>("minimum");
        QTest::addColumn<float>("maximum");
        QTest::addColumn<int>("target");
        QTest::addColumn<int>("expectedLeft"); // -1: the minimum, -2: the maximum, -3: parent edge
        QTest::newRow("below the minimum") << 1500.0f << 4500.0f << 10 << -1;
        QTest::newRow("above the maximum") << 1500.0f << 4500.0f << 590 << -2;
        QTest::newRow("within the limits") << 1500.0f << 4500.0f << 250 << 250 - BarWidth / 2;
        QTest::newRow("no limit stops at the left edge") << -1.0f << -1.0f << -100 << 0;
        QTest::newRow("no limit stops at the right edge") << -1.0f << -1.0f << 900 << -3;
    }

    void shouldClampTheBarToItsLimits()
    {
        QFETCH(float, minimum);
        QFETCH(float, maximum);
        QFETCH(int, target);
        QFETCH(int, expectedLeft);
        Surface surface;
        QVERIFY(QTest::qWaitForWindowExposed(&surface.form));
        Splitter splitter;
        splitter.Attach(surface.bar, surface.scratch, true, minimum, maximum);
        surface.drag({target});
        if (expectedLeft == -1)
            expectedLeft = pixels(minimum, surface.bar);
        else if (expectedLeft == -2)
            expectedLeft = pixels(maximum, surface.bar);
        else if (expectedLeft == -3)
            expectedLeft = surface.form.width() - BarWidth;
        QCOMPARE(surface.bar->x(), expectedLeft);
    }
};

QTEST_MAIN(SplitterTest)
#include "tst_splitter.moc"
