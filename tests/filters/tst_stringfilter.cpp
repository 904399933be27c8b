#include "filter_helpers.h"

#include "filters/expressionlayout.h"

#include <PickerCtl/HostSite.h>
#include <PickerCtl/PropertyBag.h>
#include <PickerCtl/XStringFilter.h>

#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QSignalSpy>
#include <QTest>

using namespace PickerCtl;
using FilterTest::child;

namespace {

StringFilterValuePtr match(const QString &expression, bool pattern, bool whole, bool matchCase)
{
    auto value = std::make_shared<StringFilterValue>();
    value->setExpression(expression);
    value->setUsePatternMatching(pattern);
    value->setMatchWholeName(whole);
    value->setMatchCase(matchCase);
    return value;
}

} // namespace

class StringFilterTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void shouldLoadAndHandBackTheMatch_data();
    void shouldLoadAndHandBackTheMatch();
    void shouldLoadAnAbsentValueAsEmpty();
    void shouldRaiseChangedOnUserEditsButNotOnLoading();
    void shouldClearAllOnlyThroughWidgetChanges();
    void shouldKeepHiddenOptionsInTheValue();
    void shouldStoreOnlyPropertiesThatDifferFromTheirDefaults();
    void shouldReportPropertyChangesToTheHost();
    void shouldPlaceTheExpressionAfterTheCaption_data();
    void shouldPlaceTheExpressionAfterTheCaption();
    void shouldStretchTheExpressionToTheRightEdge();
    void shouldFocusAndSelectTheExpressionByItsAccessKey();
};

void StringFilterTest::shouldLoadAndHandBackTheMatch_data()
{
    QTest::addColumn<QString>("expression");
    QTest::addColumn<bool>("pattern");
    QTest::addColumn<bool>("whole");
    QTest::addColumn<bool>("matchCase");
    QTest::addColumn<QString>("handedBack");

    QTest::newRow("plain text") << "cell" << false << false << false << "cell";
    QTest::newRow("all options") << "^BSC.*$" << true << true << true << "^BSC.*$";
    QTest::newRow("case only") << "Erl" << false << false << true << "Erl";
    QTest::newRow("surrounding spaces dropped") << "  drop rate " << false << true << false << "drop rate";
    QTest::newRow("only spaces") << "   " << true << false << false << "";
}

void StringFilterTest::shouldLoadAndHandBackTheMatch()
{
    QFETCH(QString, expression);
    QFETCH(bool, pattern);
    QFETCH(bool, whole);
    QFETCH(bool, matchCase);
    QFETCH(QString, handedBack);

    const auto loaded = match(expression, pattern, whole, matchCase);
    XStringFilter editor;
    editor.SetFilter(loaded);

    QCOMPARE(child<QLineEdit>(&editor, "txtExpression")->text(), expression);
    QCOMPARE(child<QLineEdit>(&editor, "txtExpression")->toolTip(), QStringLiteral("string regular expression"));
    QString errorText = QStringLiteral("kept");
    QVERIFY(editor.IsValid(errorText));
    QCOMPARE(errorText, QStringLiteral("kept"));

    const auto value = editor.GetFilter();
    QVERIFY(value != loaded);
    QCOMPARE(value->Expression(), handedBack);
    QCOMPARE(value->UsePatternMatching(), pattern);
    QCOMPARE(value->MatchWholeName(), whole);
    QCOMPARE(value->MatchCase(), matchCase);
    QCOMPARE(loaded->Expression(), expression);
}

void StringFilterTest::shouldLoadAnAbsentValueAsEmpty()
{
    // Given an editor showing a full match
    XStringFilter editor;
    editor.SetFilter(match(QStringLiteral("abc"), true, true, true));
    QSignalSpy changed(&editor, &XStringFilter::Changed);

    // When the host loads nothing
    editor.SetFilter(nullptr);

    // Then the editor empties completely, without a word
    QVERIFY(child<QLineEdit>(&editor, "txtExpression")->text().isEmpty());
    for (const char *name : {"chkMatchCase", "chkMatchWholeName", "chkUsePatternMatching"})
        QVERIFY2(!child<QCheckBox>(&editor, name)->isChecked(), name);
    QVERIFY(!editor.IsModified());
    QCOMPARE(changed.count(), 0);
}

void StringFilterTest::shouldRaiseChangedOnUserEditsButNotOnLoading()
{
    XStringFilter editor;
    QVERIFY(FilterTest::showActive(&editor));
    QVERIFY(!editor.IsModified());
    editor.SetFilter(match(QStringLiteral("x"), false, false, false));
    QSignalSpy changed(&editor, &XStringFilter::Changed);

    QTest::keyClicks(child<QLineEdit>(&editor, "txtExpression"), QStringLiteral("yz"));
    QCOMPARE(changed.count(), 2);
    child<QCheckBox>(&editor, "chkMatchCase")->click();
    QCOMPARE(changed.count(), 3);
    QVERIFY(editor.IsModified());
    QVERIFY(editor.GetFilter()->MatchCase());

    editor.SetFilter(match(QStringLiteral("other"), true, true, true));
    QCOMPARE(changed.count(), 3);
    QVERIFY(!editor.IsModified());
}

void StringFilterTest::shouldClearAllOnlyThroughWidgetChanges()
{
    // An editor that is already empty stays clean
    XStringFilter editor;
    editor.SetFilter(nullptr);
    QSignalSpy changed(&editor, &XStringFilter::Changed);
    editor.ClearAll();
    QCOMPARE(changed.count(), 0);
    QVERIFY(!editor.IsModified());

    // A loaded match is cleared through its widgets, each change reported
    editor.SetFilter(match(QStringLiteral("abc"), true, false, true));
    editor.ClearAll();
    QCOMPARE(changed.count(), 3);
    QVERIFY(editor.IsModified());
    const auto value = editor.GetFilter();
    QVERIFY(value->Expression().isEmpty());
    QVERIFY(!value->UsePatternMatching() && !value->MatchWholeName() && !value->MatchCase());
}

void StringFilterTest::shouldKeepHiddenOptionsInTheValue()
{
    XStringFilter editor;
    editor.SetFilter(match(QStringLiteral("a"), true, false, true));
    editor.setExtraControls(false);

    QVERIFY(child<QCheckBox>(&editor, "chkMatchCase")->isHidden());
    QVERIFY(child<QCheckBox>(&editor, "chkUsePatternMatching")->isHidden());
    const auto value = editor.GetFilter();
    QVERIFY(value->UsePatternMatching());
    QVERIFY(value->MatchCase());
}

void StringFilterTest::shouldStoreOnlyPropertiesThatDifferFromTheirDefaults()
{
    // A newly placed control stores nothing
    XStringFilter placed;
    placed.InitProperties();
    QCOMPARE(placed.Label(), QStringLiteral("&Matches Expression"));
    QVERIFY(placed.ExtraControls());
    MemoryPropertyBag bag;
    placed.WriteProperties(bag);
    QCOMPARE(bag.keys(), QStringList());

    // Changed properties survive a save and restore
    placed.setLabel(QStringLiteral("&Name matches:"));
    placed.setExtraControls(false);
    placed.WriteProperties(bag);
    XStringFilter restored;
    restored.ReadProperties(bag);
    QCOMPARE(restored.Label(), QStringLiteral("&Name matches:"));
    QVERIFY(!restored.ExtraControls());
    QVERIFY(child<QCheckBox>(&restored, "chkMatchWholeName")->isHidden());

    // Setting them back to the defaults empties the bag again
    restored.setLabel(QStringLiteral("&Matches Expression"));
    restored.setExtraControls(true);
    restored.WriteProperties(bag);
    QCOMPARE(bag.keys(), QStringList());

    // An unreadable value keeps its default
    MemoryPropertyBag broken;
    broken.setStoredValue(QStringLiteral("ExtraControls"), QStringLiteral("perhaps"));
    XStringFilter fromBroken;
    fromBroken.ReadProperties(broken);
    QVERIFY(fromBroken.ExtraControls());
    QCOMPARE(fromBroken.Label(), QStringLiteral("&Matches Expression"));
}

void StringFilterTest::shouldReportPropertyChangesToTheHost()
{
    XStringFilter editor;
    QSignalSpy reported(editor.hostSite(), &HostSite::PropertyChanged);

    editor.setLabel(QStringLiteral("Text:"));
    editor.setExtraControls(false);

    QCOMPARE(reported.count(), 2);
    QCOMPARE(reported.at(0).at(0).toString(), QStringLiteral("Label"));
    QCOMPARE(reported.at(1).at(0).toString(), QStringLiteral("ExtraControls"));
}

void StringFilterTest::shouldPlaceTheExpressionAfterTheCaption_data()
{
    QTest::addColumn<double>("captionWidth");
    QTest::addColumn<double>("innerWidth");
    QTest::addColumn<double>("left");
    QTest::addColumn<double>("width");  // -1: the box keeps its width

    QTest::newRow("wide control") << 1500.0 << 6000.0 << 1620.0 << 4380.0;
    QTest::newRow("exactly fits") << 1500.0 << 1620.0 << 1620.0 << 0.0;
    QTest::newRow("narrower than the caption") << 1500.0 << 1000.0 << 1620.0 << -1.0;
    QTest::newRow("no caption") << 0.0 << 3000.0 << 120.0 << 2880.0;
}

void StringFilterTest::shouldPlaceTheExpressionAfterTheCaption()
{
    QFETCH(double, captionWidth);
    QFETCH(double, innerWidth);
    QFETCH(double, left);
    QFETCH(double, width);

    const auto column = PickerCtl::Filters::expressionColumn(captionWidth, innerWidth);
    QCOMPARE(column.left, left);
    QCOMPARE(column.width.value_or(-1.0), width);
}

void StringFilterTest::shouldStretchTheExpressionToTheRightEdge()
{
    XStringFilter editor;
    editor.InitProperties();
    editor.show();
    auto *txtExpression = child<QLineEdit>(&editor, "txtExpression");
    for (int width : {300, 520}) {
        editor.resize(width, editor.sizeHint().height());
        QCOMPARE(txtExpression->geometry().right(), editor.contentsRect().right());
        QCOMPARE(child<QCheckBox>(&editor, "chkUsePatternMatching")->x(), txtExpression->x());
        QVERIFY(txtExpression->x() > child<QLabel>(&editor, "lblString")->geometry().right());
    }

    // A longer caption pushes the column to the right
    const int before = txtExpression->x();
    editor.setLabel(QStringLiteral("&Matches the whole expression below"));
    QVERIFY(txtExpression->x() > before);
}

void StringFilterTest::shouldFocusAndSelectTheExpressionByItsAccessKey()
{
    XStringFilter editor;
    editor.InitProperties();
    QVERIFY(FilterTest::showActive(&editor));
    editor.SetFilter(match(QStringLiteral("busy hour"), false, false, false));
    auto *chkMatchCase = child<QCheckBox>(&editor, "chkMatchCase");
    auto *txtExpression = child<QLineEdit>(&editor, "txtExpression");
    chkMatchCase->setFocus();

    QTest::keyClick(chkMatchCase, Qt::Key_M, Qt::AltModifier);
    QCOMPARE(QApplication::focusWidget(), txtExpression);
    QVERIFY(FilterTest::wholeTextSelected(txtExpression));

    chkMatchCase->setFocus();
    QTest::mouseClick(txtExpression, Qt::LeftButton, Qt::NoModifier, QPoint(5, txtExpression->height() / 2));
    QCOMPARE(QApplication::focusWidget(), txtExpression);
    QVERIFY(!txtExpression->hasSelectedText());
}

QTEST_MAIN(StringFilterTest)
#include "tst_stringfilter.moc"
