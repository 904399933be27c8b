#include "exptemplate_helpers.h"

#include "exptemplate/templatelayout.h"

#include <QComboBox>
#include <QLabel>
#include <QPushButton>
#include <QToolButton>

using namespace PickerCtl;
using namespace PickerCtl::ExpTemplate;

namespace {

LayoutInput input(float width, float height)
{
    LayoutInput in;
    in.width = width;
    in.height = height;
    in.entityLabelHeight = 195;
    in.applyWidth = 1000;
    in.buttonWidth = 360;
    in.buttonHeight = 360;
    in.listLabelTop = 720;
    in.listLabelHeight = 195;
    return in;
}

} // namespace

class TemplateLayoutTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void shouldPlaceTheSearchBandInFourColumns_data()
    {
        QTest::addColumn<float>("width");
        QTest::addColumn<float>("column");
        QTest::addColumn<QList<float>>("lefts");
        QTest::addColumn<float>("applyLeft");
        QTest::addColumn<float>("boxWidth");

        // C = (W - 4 x 105 - Find) / 4; every column starts C + 105 after the last.
        QTest::newRow("normal") << 9000.f << 1895.f << QList<float>{0, 2000, 4000, 6000} << 8000.f << 1895.f;
        QTest::newRow("narrow") << 2000.f << 145.f << QList<float>{0, 250, 500, 750} << 1000.f << 145.f;
        // Narrower than four gaps and Find: the columns step backwards and the boxes shrink to nothing.
        QTest::newRow("negative column width") << 400.f << -255.f << QList<float>{0, -150, -300, -450} << -600.f << 0.f;
        QTest::newRow("no width at all") << 0.f << -355.f << QList<float>{0, -250, -500, -750} << -1000.f << 0.f;
    }

    void shouldPlaceTheSearchBandInFourColumns()
    {
        QFETCH(float, width);
        QFETCH(float, column);
        QFETCH(QList<float>, lefts);
        QFETCH(float, applyLeft);
        QFETCH(float, boxWidth);

        // Given a control of that width, when it is laid out
        const Layout out = computeLayout(input(width, 6000));

        // Then labels and boxes share their column's left, the boxes stand below the entity label
        QCOMPARE(out.columnWidth, column);
        for (int i = 0; i < 4; ++i) {
            QCOMPARE(out.criterionLabelLeft[i], lefts.at(i));
            QCOMPARE(out.criterionBox[i], (TwipsBox{lefts.at(i), 195, boxWidth, 0}));
        }
        QCOMPARE(out.applyLeft, applyLeft);
    }

    void shouldPlaceTheListsBesideTheButtonColumnCentredButNeverAboveThem_data()
    {
        QTest::addColumn<float>("width");
        QTest::addColumn<float>("height");
        QTest::addColumn<TwipsBox>("availableList");
        QTest::addColumn<TwipsBox>("selectedList");
        QTest::addColumn<float>("buttonLeft");
        QTest::addColumn<float>("firstButtonTop");

        // B = 360 + 2 x 105 = 570; L = (W - B) / 2; the lists start below their labels (720 + 195).
        // S = 360 + 105; first button top = (Hl - 4 x S + 105) / 2 + Y, at least Y = 915.
        QTest::newRow("normal") << 9000.f << 6000.f << TwipsBox{0, 915, 4215, 5085} << TwipsBox{4785, 915, 4215, 5085}
                                << 4320.f << 2580.f;
        QTest::newRow("just tall enough for the buttons") << 9000.f << 915.f + 1755.f << TwipsBox{0, 915, 4215, 1755}
                                                          << TwipsBox{4785, 915, 4215, 1755} << 4320.f << 915.f;
        QTest::newRow("narrow and short: buttons raised to the lists' top")
            << 2000.f << 1500.f << TwipsBox{0, 915, 715, 585} << TwipsBox{1285, 915, 715, 585} << 820.f << 915.f;
        QTest::newRow("narrower than the buttons, no height for the lists")
            << 400.f << 600.f << TwipsBox{0, 915, 0, 0} << TwipsBox{485, 915, 0, 0} << 20.f << 915.f;
    }

    void shouldPlaceTheListsBesideTheButtonColumnCentredButNeverAboveThem()
    {
        QFETCH(float, width);
        QFETCH(float, height);
        QFETCH(TwipsBox, availableList);
        QFETCH(TwipsBox, selectedList);
        QFETCH(float, buttonLeft);
        QFETCH(float, firstButtonTop);

        const Layout out = computeLayout(input(width, height));

        QCOMPARE(out.frame, (TwipsBox{0, 0, width, height}));
        QCOMPARE(out.availableList, availableList);
        QCOMPARE(out.selectedList, selectedList);
        QCOMPARE(out.availableLabel, (TwipsBox{0, 720, availableList.width, 0}));
        QCOMPARE(out.selectedLabel, (TwipsBox{selectedList.left, 720, selectedList.width, 0}));
        QCOMPARE(out.buttonLeft, buttonLeft);
        for (int i = 0; i < 4; ++i)
            QCOMPARE(out.buttonTop[i], firstButtonTop + float(i) * 465);
    }

    void shouldFillTheControlWithTheRealWidgets()
    {
        // Given a shown editor
        TemplateTest::Services services;
        XExpTemplate editor;
        editor.resize(900, 600);
        editor.show();
        QVERIFY(QTest::qWaitForWindowExposed(&editor));

        // Then the lists reach the right and bottom edges with the buttons between them
        auto *availableList = TemplateTest::available(editor);
        auto *selectedList = TemplateTest::selected(editor);
        auto *add = TemplateTest::child<QToolButton>(editor, "cmdAdd");
        auto *down = TemplateTest::child<QToolButton>(editor, "cmdMoveDown");
        auto *apply = TemplateTest::child<QPushButton>(editor, "cmdApply");
        QCOMPARE(availableList->x(), 0);
        QVERIFY(qAbs(selectedList->geometry().right() + 1 - editor.width()) <= 1);
        QVERIFY(qAbs(selectedList->geometry().bottom() + 1 - editor.height()) <= 1);
        QVERIFY(add->x() > availableList->geometry().right());
        QVERIFY(add->geometry().right() < selectedList->x());
        QVERIFY(down->y() > add->y());
        QVERIFY(qAbs(apply->geometry().right() + 1 - editor.width()) <= 1);
        QCOMPARE(TemplateTest::child<QComboBox>(editor, "cboEntityTypes")->y(),
                 TemplateTest::child<QLabel>(editor, "lblEntity")->height());
        QVERIFY(editor.sizeHint().width() > 0 && editor.sizeHint().height() > selectedList->y());
        // and at sizes smaller than its buttons no widget gets a negative size
        for (const QSize size : {QSize(10, 10), QSize(0, 0), QSize(60, 400), QSize(800, 20)}) {
            editor.resize(size);
            QCoreApplication::processEvents();
            QVERIFY(TemplateTest::child<QComboBox>(editor, "cboTechTypes")->width() >= 0);
            QVERIFY(selectedList->width() >= 0);
        }
    }
};

QTEST_MAIN(TemplateLayoutTest)
#include "tst_templatelayout.moc"
