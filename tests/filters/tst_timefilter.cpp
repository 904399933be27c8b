#include "filter_helpers.h"

#include "filters/countstep.h"

#include <PickerCtl/XTimeFilter.h>

#include <QDateEdit>
#include <QLineEdit>
#include <QRadioButton>
#include <QSignalSpy>
#include <QTest>
#include <QTimeEdit>
#include <QToolButton>

using namespace PickerCtl;
using FilterTest::child;

namespace {

const QString ReversedMessage = QStringLiteral("End date time must be greater than start date time.");
const QStringList BottomOptions{"optMinutes", "optHours", "optDays", "optMonths", "optDates"};
const QStringList Details{"txtMinutes", "updMinutes", "txtHours", "updHours", "txtDays", "updDays",
                          "txtMonths",  "updMonths",  "dtMinDate", "dtMinTime", "dtMaxDate", "dtMaxTime"};
const QStringList CountBoxes{"txtMinutes", "txtHours", "txtDays", "txtMonths"};

TimeFilterValuePtr relative(qint32 unit, qint32 count)
{
    auto value = std::make_shared<TimeFilterValue>();
    value->setIsRelative(true);
    value->setRelativeUnit(unit);
    value->setRelativeCount(count);
    return value;
}

TimeFilterValuePtr absolute(const QDateTime &start, const QDateTime &end)
{
    auto value = std::make_shared<TimeFilterValue>();
    value->setStartTime(start);
    value->setEndTime(end);
    return value;
}

QString checkedBottomOption(const XTimeFilter &editor)
{
    for (const QString &name : BottomOptions) {
        if (child<QRadioButton>(&editor, name.toLatin1().constData())->isChecked())
            return name;
    }
    return {};
}

QStringList enabledDetails(const XTimeFilter &editor)
{
    QStringList enabled;
    for (const QString &name : Details) {
        if (child<QWidget>(&editor, name.toLatin1().constData())->isEnabled())
            enabled << name;
    }
    return enabled;
}

const QStringList DatePickers{"dtMinDate", "dtMinTime", "dtMaxDate", "dtMaxTime"};

} // namespace

class TimeFilterTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void shouldOfferLastThreeMonthsAsAllItemsWhenFresh();
    void shouldLoadAndHandBackEachForm_data();
    void shouldLoadAndHandBackEachForm();
    void shouldValidateCounts_data();
    void shouldValidateCounts();
    void shouldRefuseOnlyAReversedPeriod_data();
    void shouldRefuseOnlyAReversedPeriod();
    void shouldRaiseChangedOnUserEditsButNotOnLoading();
    void shouldFallBackToPeriodWhenFilteringWithoutDetail();
    void shouldClearAllOnlyThroughWidgetChanges();
    void shouldStepCountsWithinTheUpDownRange_data();
    void shouldStepCountsWithinTheUpDownRange();
    void shouldSelectCountOnKeyboardFocusOnly();
};

void TimeFilterTest::shouldOfferLastThreeMonthsAsAllItemsWhenFresh()
{
    const QDateTime before = QDateTime::currentDateTime();
    XTimeFilter editor;
    const QDateTime after = QDateTime::currentDateTime();

    QVERIFY(!editor.IsModified());
    QVERIFY(child<QRadioButton>(&editor, "optAllItems")->isChecked());
    QCOMPARE(checkedBottomOption(editor), QString());
    QCOMPARE(enabledDetails(editor), QStringList());

    // The offered period runs from three calendar months ago to now, both with their time of day
    const QDateTime start(child<QDateEdit>(&editor, "dtMinDate")->date(), child<QTimeEdit>(&editor, "dtMinTime")->time());
    const QDateTime end(child<QDateEdit>(&editor, "dtMaxDate")->date(), child<QTimeEdit>(&editor, "dtMaxTime")->time());
    QVERIFY(end >= before.addSecs(-1) && end <= after);
    QVERIFY(start >= before.addMonths(-3).addSecs(-1) && start <= after.addMonths(-3));

    const auto value = editor.GetTimeFilter();
    QVERIFY(!value->IsRelative());
    QVERIFY(!value->StartTime().isValid() && !value->EndTime().isValid());
    QCOMPARE(value->RelativeCount(), 0);
}

void TimeFilterTest::shouldLoadAndHandBackEachForm_data()
{
    QTest::addColumn<bool>("isRelative");
    QTest::addColumn<int>("unit");
    QTest::addColumn<int>("count");
    QTest::addColumn<QDateTime>("start");
    QTest::addColumn<QDateTime>("end");
    QTest::addColumn<QString>("option");
    QTest::addColumn<QStringList>("enabled");
    QTest::addColumn<bool>("roundTrip");

    const QDateTime start(QDate(2024, 1, 31), QTime(23, 59, 58));
    const QDateTime end(QDate(2024, 3, 1), QTime(0, 0, 1));
    const QDateTime unset;
    QTest::newRow("7 days") << true << 1 << 7 << unset << unset << "optDays" << QStringList{"txtDays", "updDays"} << true;
    QTest::newRow("12 hours") << true << 0 << 12 << unset << unset << "optHours" << QStringList{"txtHours", "updHours"} << true;
    QTest::newRow("3 months") << true << 2 << 3 << unset << unset << "optMonths" << QStringList{"txtMonths", "updMonths"} << true;
    QTest::newRow("90 minutes") << true << 3 << 90 << unset << unset << "optMinutes" << QStringList{"txtMinutes", "updMinutes"} << true;
    QTest::newRow("absolute period") << false << 0 << 0 << start << end << "optDates" << DatePickers << true;
    QTest::newRow("unset end is all items") << false << 0 << 0 << start << unset << "" << QStringList() << false;
    QTest::newRow("unset start is all items") << false << 0 << 0 << unset << end << "" << QStringList() << false;
}

void TimeFilterTest::shouldLoadAndHandBackEachForm()
{
    QFETCH(bool, isRelative);
    QFETCH(int, unit);
    QFETCH(int, count);
    QFETCH(QDateTime, start);
    QFETCH(QDateTime, end);
    QFETCH(QString, option);
    QFETCH(QStringList, enabled);
    QFETCH(bool, roundTrip);

    // Given a value of one form
    const auto loaded = isRelative ? relative(unit, count) : absolute(start, end);
    XTimeFilter editor;
    QSignalSpy changed(&editor, &XTimeFilter::Changed);

    // When the host loads it
    editor.SetDateFilter(loaded);

    // Then the editor shows that form alone, quietly
    QCOMPARE(changed.count(), 0);
    QVERIFY(!editor.IsModified());
    QCOMPARE(child<QRadioButton>(&editor, "optFilterByDate")->isChecked(), !option.isEmpty());
    QCOMPARE(child<QRadioButton>(&editor, "optAllItems")->isChecked(), option.isEmpty());
    QCOMPARE(checkedBottomOption(editor), option);
    QCOMPARE(enabledDetails(editor), enabled);
    for (const QString &box : CountBoxes) {
        const bool shown = isRelative && enabled.contains(box);
        QCOMPARE(child<QLineEdit>(&editor, box.toLatin1().constData())->text(),
                 shown ? QString::number(count) : QStringLiteral("1"));
    }

    // And hands back an equal new value, or nothing set for all items
    const auto value = editor.GetTimeFilter();
    QVERIFY(value != loaded);
    if (!roundTrip) {
        QVERIFY(!value->IsRelative() && !value->StartTime().isValid() && !value->EndTime().isValid());
        return;
    }
    QCOMPARE(value->IsRelative(), isRelative);
    if (isRelative) {
        QCOMPARE(value->RelativeUnit(), unit);
        QCOMPARE(value->RelativeCount(), count);
        QVERIFY(!value->StartTime().isValid());
    } else {
        QCOMPARE(value->StartTime(), start);
        QCOMPARE(value->EndTime(), end);
    }
}

void TimeFilterTest::shouldValidateCounts_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("valid");

    QTest::newRow("one") << "1" << true;
    QTest::newRow("beyond the up-down") << "1000" << true;
    QTest::newRow("zero") << "0" << false;
    QTest::newRow("negative") << "-2" << false;
    QTest::newRow("empty") << "" << false;
    QTest::newRow("not a number") << "week" << false;
    QTest::newRow("fraction") << "1.5" << false;
}

void TimeFilterTest::shouldValidateCounts()
{
    QFETCH(QString, text);
    QFETCH(bool, valid);

    // Given a relative period whose count the user typed
    XTimeFilter editor;
    QVERIFY(FilterTest::showActive(&editor));
    editor.SetDateFilter(relative(TimeFilterValue::Days, 7));
    auto *txtDays = child<QLineEdit>(&editor, "txtDays");
    txtDays->clear();
    QTest::keyClicks(txtDays, text);
    child<QRadioButton>(&editor, "optAllItems")->setFocus();

    // When the host validates
    QString errorText;
    const bool answer = editor.IsValid(errorText);

    // Then a bad count is refused with the focus back in its box
    QCOMPARE(answer, valid);
    QCOMPARE(errorText.isEmpty(), valid);
    if (valid)
        QCOMPARE(editor.GetTimeFilter()->RelativeCount(), text.toInt());
    else
        QCOMPARE(QApplication::focusWidget(), txtDays);
}

void TimeFilterTest::shouldRefuseOnlyAReversedPeriod_data()
{
    QTest::addColumn<int>("endOffsetSeconds");
    QTest::addColumn<bool>("valid");

    QTest::newRow("end after start") << 1 << true;
    QTest::newRow("equal ends") << 0 << true;
    QTest::newRow("end before start") << -1 << false;
    QTest::newRow("end a day before") << -86400 << false;
}

void TimeFilterTest::shouldRefuseOnlyAReversedPeriod()
{
    QFETCH(int, endOffsetSeconds);
    QFETCH(bool, valid);

    const QDateTime start(QDate(2023, 6, 15), QTime(12, 30, 15));
    XTimeFilter editor;
    QVERIFY(FilterTest::showActive(&editor));
    editor.SetDateFilter(absolute(start, start.addSecs(endOffsetSeconds)));
    child<QRadioButton>(&editor, "optAllItems")->setFocus();

    QString errorText;
    QCOMPARE(editor.IsValid(errorText), valid);
    if (valid) {
        QVERIFY(errorText.isEmpty());
    } else {
        QCOMPARE(errorText, ReversedMessage);
        QCOMPARE(QApplication::focusWidget()->objectName(), QStringLiteral("dtMinDate"));
    }
}

void TimeFilterTest::shouldRaiseChangedOnUserEditsButNotOnLoading()
{
    // Given a loaded editor showing all items
    XTimeFilter editor;
    QVERIFY(FilterTest::showActive(&editor));
    editor.SetDateFilter(nullptr);
    QSignalSpy changed(&editor, &XTimeFilter::Changed);

    // When the user picks "during the previous ... day(s)" by its access key
    child<QRadioButton>(&editor, "optAllItems")->setFocus();
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_D, Qt::AltModifier);

    // Then the days row is live (the button releases after its click animation) and the host heard of it
    QTRY_VERIFY(child<QRadioButton>(&editor, "optDays")->isChecked());
    QVERIFY(child<QRadioButton>(&editor, "optFilterByDate")->isChecked());
    QCOMPARE(enabledDetails(editor), (QStringList{"txtDays", "updDays"}));
    QVERIFY(editor.IsModified());
    const auto afterPick = changed.count();
    QVERIFY(afterPick >= 1);

    // And the arrows and typing count as edits too
    QTest::mouseClick(child<QToolButton>(child<QWidget>(&editor, "updDays"), "up"), Qt::LeftButton);
    QCOMPARE(child<QLineEdit>(&editor, "txtDays")->text(), QStringLiteral("2"));
    QVERIFY(changed.count() > afterPick);
    const auto afterStep = changed.count();
    QTest::keyClicks(child<QLineEdit>(&editor, "txtDays"), QStringLiteral("5"));
    QVERIFY(changed.count() > afterStep);
    QCOMPARE(editor.GetTimeFilter()->RelativeCount(), 25);

    // But loading again says nothing
    const auto beforeLoad = changed.count();
    editor.SetDateFilter(absolute(QDateTime::currentDateTime().addDays(-1), QDateTime::currentDateTime()));
    QCOMPARE(changed.count(), beforeLoad);
    QVERIFY(!editor.IsModified());
}

void TimeFilterTest::shouldFallBackToPeriodWhenFilteringWithoutDetail()
{
    XTimeFilter editor;
    QSignalSpy changed(&editor, &XTimeFilter::Changed);

    child<QRadioButton>(&editor, "optFilterByDate")->click();

    QCOMPARE(checkedBottomOption(editor), QStringLiteral("optDates"));
    QCOMPARE(enabledDetails(editor), DatePickers);
    QVERIFY(changed.count() >= 1);

    // Going back to all items leaves no detail selected
    child<QRadioButton>(&editor, "optAllItems")->click();
    QCOMPARE(checkedBottomOption(editor), QString());
    QCOMPARE(enabledDetails(editor), QStringList());
    QVERIFY(!editor.GetTimeFilter()->IsRelative());
}

void TimeFilterTest::shouldClearAllOnlyThroughWidgetChanges()
{
    // An editor that already shows all items with counts of 1 stays clean
    XTimeFilter editor;
    editor.SetDateFilter(nullptr);
    QSignalSpy changed(&editor, &XTimeFilter::Changed);
    editor.ClearAll();
    QCOMPARE(changed.count(), 0);
    QVERIFY(!editor.IsModified());

    // A relative period is cleared back to all items, which the host hears of
    editor.SetDateFilter(relative(TimeFilterValue::Days, 7));
    editor.ClearAll();
    QVERIFY(changed.count() >= 1);
    QVERIFY(editor.IsModified());
    QVERIFY(child<QRadioButton>(&editor, "optAllItems")->isChecked());
    QCOMPARE(child<QLineEdit>(&editor, "txtDays")->text(), QStringLiteral("1"));
    QCOMPARE(enabledDetails(editor), QStringList());
}

void TimeFilterTest::shouldStepCountsWithinTheUpDownRange_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("delta");
    QTest::addColumn<int>("expected");  // -1: the box is left alone

    QTest::newRow("up") << "5" << 1 << 6;
    QTest::newRow("down") << "5" << -1 << 4;
    QTest::newRow("stops at 999") << "999" << 1 << -1;
    QTest::newRow("stops at 1") << "1" << -1 << -1;
    QTest::newRow("typed 1000 stays on up") << "1000" << 1 << -1;
    QTest::newRow("typed 1000 steps down into range") << "1000" << -1 << 999;
    QTest::newRow("zero steps up to 1") << "0" << 1 << 1;
    QTest::newRow("garbage restarts at 1") << "abc" << 1 << 1;
}

void TimeFilterTest::shouldStepCountsWithinTheUpDownRange()
{
    QFETCH(QString, text);
    QFETCH(int, delta);
    QFETCH(int, expected);

    const auto next = PickerCtl::Filters::steppedCount(text, delta, 1, 999);
    QCOMPARE(next.value_or(-1), expected);
}

void TimeFilterTest::shouldSelectCountOnKeyboardFocusOnly()
{
    XTimeFilter editor;
    QVERIFY(FilterTest::showActive(&editor));
    editor.SetDateFilter(relative(TimeFilterValue::Hours, 48));
    auto *optHours = child<QRadioButton>(&editor, "optHours");
    auto *txtHours = child<QLineEdit>(&editor, "txtHours");

    optHours->setFocus(Qt::OtherFocusReason);
    QTest::keyClick(optHours, Qt::Key_Tab);
    QCOMPARE(QApplication::focusWidget(), txtHours);
    QVERIFY(FilterTest::wholeTextSelected(txtHours));

    optHours->setFocus(Qt::OtherFocusReason);
    QTest::mouseClick(txtHours, Qt::LeftButton, Qt::NoModifier, QPoint(3, txtHours->height() / 2));
    QCOMPARE(QApplication::focusWidget(), txtHours);
    QVERIFY(!txtHours->hasSelectedText());

    // The Up key in the box steps like the arrows
    QTest::keyClick(txtHours, Qt::Key_Up);
    QCOMPARE(txtHours->text(), QStringLiteral("49"));
}

QTEST_MAIN(TimeFilterTest)
#include "tst_timefilter.moc"
