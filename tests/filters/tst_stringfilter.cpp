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
using FilterTest::match;

class StringFilterTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void shouldLoadAndHandBackTheMatch_data()
    {
        QTest::addColumn<QString>("expression");
        QTest::addColumn<bool>("pattern");
        QTest::addColumn<bool>("whole");
        QTest::addColumn<bool>("matchCase");
        QTest::addColumn<QString>("handedBack");

        const QString nbsp(QChar(0x00A0));
        const QString longText = QString(99999, QLatin1Char('9')) + QLatin1Char('z');
        QTest::newRow("plain text") << "cell" << false << false << false << "cell";
        QTest::newRow("all options") << "^BSC.*$" << true << true << true << "^BSC.*$";
        QTest::newRow("case only") << "Erl" << false << false << true << "Erl";
        QTest::newRow("surrounding spaces dropped") << "  drop rate " << false << true << false << "drop rate";
        QTest::newRow("only spaces is empty") << "   " << true << false << false << "";
        // Hostile input: only spaces are trimmed, and no length cap cuts the text
        QTest::newRow("tab is kept") << "\tName" << false << false << false << "\tName";
        QTest::newRow("line break is kept") << "Name\n" << false << false << false << "Name\n";
        QTest::newRow("spaces outside a tab go") << "  \tName\t  " << false << false << false << "\tName\t";
        QTest::newRow("no-break space is kept") << nbsp + "Name" << false << false << false << nbsp + "Name";
        QTest::newRow("inner spaces are kept") << " a  b " << false << false << false << "a  b";
        QTest::newRow("100,000 characters are kept") << longText << false << false << false << longText;
    }

    void shouldLoadAndHandBackTheMatch()
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

    void shouldRaiseChangedOnUserEditsButNotOnLoading()
    {
        // Given an editor that showed a full match and was then loaded with nothing
        XStringFilter editor;
        QVERIFY(FilterTest::showActive(&editor));
        QVERIFY(!editor.IsModified());
        QSignalSpy changed(&editor, &XStringFilter::Changed);
        editor.SetFilter(match(QStringLiteral("abc"), true, true, true));
        editor.SetFilter(nullptr);

        // Then it is empty and clean without a word, and clearing it changes nothing
        QVERIFY(child<QLineEdit>(&editor, "txtExpression")->text().isEmpty());
        for (const char *name : {"chkMatchCase", "chkMatchWholeName", "chkUsePatternMatching"})
            QVERIFY2(!child<QCheckBox>(&editor, name)->isChecked(), name);
        editor.ClearAll();
        QCOMPARE(changed.count(), 0);
        QVERIFY(!editor.IsModified());

        // When the user types and ticks, each edit is reported
        QTest::keyClicks(child<QLineEdit>(&editor, "txtExpression"), QStringLiteral("yz"));
        QCOMPARE(changed.count(), 2);
        child<QCheckBox>(&editor, "chkMatchCase")->click();
        QCOMPARE(changed.count(), 3);
        QVERIFY(editor.IsModified());
        QVERIFY(editor.GetFilter()->MatchCase());

        // And loading again says nothing
        editor.SetFilter(match(QStringLiteral("abc"), true, false, true));
        QCOMPARE(changed.count(), 3);
        QVERIFY(!editor.IsModified());

        // But clearing a loaded match goes through its widgets, each change reported
        editor.ClearAll();
        QCOMPARE(changed.count(), 6);
        QVERIFY(editor.IsModified());
        const auto value = editor.GetFilter();
        QVERIFY(value->Expression().isEmpty());
        QVERIFY(!value->UsePatternMatching() && !value->MatchWholeName() && !value->MatchCase());
    }

    void shouldKeepHiddenOptionsInTheValue()
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

    void shouldStoreOnlyPropertiesThatDifferFromTheirDefaults()
    {
        // A newly placed control stores nothing
        XStringFilter placed;
        placed.InitProperties();
        QCOMPARE(placed.Label(), QStringLiteral("&Matches Expression"));
        QVERIFY(placed.ExtraControls());
        MemoryPropertyBag bag;
        placed.WriteProperties(bag);
        QCOMPARE(bag.keys(), QStringList());

        // Changed properties are reported to the host and survive a save and restore
        QSignalSpy reported(placed.hostSite(), &HostSite::PropertyChanged);
        placed.setLabel(QStringLiteral("&Name matches:"));
        placed.setExtraControls(false);
        QCOMPARE(reported.count(), 2);
        QCOMPARE(reported.at(0).at(0).toString(), QStringLiteral("Label"));
        QCOMPARE(reported.at(1).at(0).toString(), QStringLiteral("ExtraControls"));
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

    void shouldPlaceTheExpressionAfterTheCaption_data()
    {
        QTest::addColumn<double>("captionWidth");
        QTest::addColumn<double>("innerWidth");
        QTest::addColumn<double>("left");
        QTest::addColumn<double>("width"); // -1: the box keeps its width

        QTest::newRow("wide control") << 1500.0 << 6000.0 << 1620.0 << 4380.0;
        QTest::newRow("exactly fits") << 1500.0 << 1620.0 << 1620.0 << 0.0;
        QTest::newRow("narrower than the caption") << 1500.0 << 1000.0 << 1620.0 << -1.0;
        QTest::newRow("no caption") << 0.0 << 3000.0 << 120.0 << 2880.0;
    }

    void shouldPlaceTheExpressionAfterTheCaption()
    {
        QFETCH(double, captionWidth);
        QFETCH(double, innerWidth);
        QFETCH(double, left);
        QFETCH(double, width);

        const auto column = PickerCtl::Filters::expressionColumn(captionWidth, innerWidth);
        QCOMPARE(column.left, left);
        QCOMPARE(column.width.value_or(-1.0), width);
    }

    void shouldStretchTheExpressionToTheRightEdge()
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

    void shouldFocusAndSelectTheExpressionByItsAccessKey()
    {
        XStringFilter editor;
        editor.InitProperties();
        QVERIFY(FilterTest::showActive(&editor));
        editor.SetFilter(match(QStringLiteral("busy hour")));
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
};

QTEST_MAIN(StringFilterTest)
#include "tst_stringfilter.moc"
