#include "filter_helpers.h"

#include "filters/countstep.h"

#include <PickerCtl/XTimeFilter.h>

#include <QDateEdit>
#include <QLineEdit>
#include <QRadioButton>
#include <QSignalSpy>
#include <QTest>
#include <QTimeEdit>
#include <QTimeZone>
#include <QToolButton>

#include <ctime>

using namespace PickerCtl;
using FilterTest::absolute;
using FilterTest::child;
using FilterTest::relative;

namespace {

const QStringList BottomOptions{"optMinutes", "optHours", "optDays", "optMonths", "optDates"};
const QStringList DatePickers{"dtMinDate", "dtMinTime", "dtMaxDate", "dtMaxTime"};
const QStringList Details = QStringList{"txtMinutes", "updMinutes", "txtHours", "updHours", "txtDays", "updDays",
                                        "txtMonths", "updMonths"} + DatePickers;
const QStringList CountBoxes{"txtMinutes", "txtHours", "txtDays", "txtMonths"};
// In Europe/Berlin the clocks jump from 02:00 to 03:00 on 29 March 2026.
const QDate GapDay(2026, 3, 29);
const QTime InGap(2, 30);
const QString GapTail = QStringLiteral(" does not exist: the clocks skip it when daylight saving time begins.");
const QString RangeTail = QStringLiteral(" is outside the dates that can be entered (0100-01-01 to 9999-12-31).");
const QString ReversedMessage = QStringLiteral("End date time must be greater than start date time.");

QString checkedBottomOption(const XTimeFilter &editor)
{
    for (const QString &name : BottomOptions) {
        if (child<QRadioButton>(&editor, name)->isChecked())
            return name;
    }
    return {};
}

QStringList enabledDetails(const XTimeFilter &editor)
{
    QStringList enabled;
    for (const QString &name : Details) {
        if (child<QWidget>(&editor, name)->isEnabled())
            enabled << name;
    }
    return enabled;
}

} // namespace

class TimeFilterTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        qputenv("TZ", "Europe/Berlin");
        tzset();
        QVERIFY(!QDateTime(GapDay, InGap).isValid());
    }

    void shouldOfferLastThreeMonthsAsAllItemsWhenFresh()
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

    void shouldLoadAndHandBackEachForm_data()
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
        QTest::newRow("odd unit code 7 falls back to the period") << true << 7 << 5 << unset << unset << "optDates" << DatePickers << false;
        QTest::newRow("odd unit code -1 falls back to the period") << true << -1 << 5 << unset << unset << "optDates" << DatePickers << false;
        QTest::newRow("absolute period") << false << 0 << 0 << start << end << "optDates" << DatePickers << true;
        QTest::newRow("unset end is all items") << false << 0 << 0 << start << unset << "" << QStringList() << false;
        QTest::newRow("unset start is all items") << false << 0 << 0 << unset << end << "" << QStringList() << false;
    }

    void shouldLoadAndHandBackEachForm()
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
            QCOMPARE(child<QLineEdit>(&editor, box)->text(), shown ? QString::number(count) : QStringLiteral("1"));
        }

        // And hands back an equal new value, the offered period, or nothing set for all items
        const auto value = editor.GetTimeFilter();
        QVERIFY(value != loaded);
        if (!roundTrip) {
            QVERIFY(!value->IsRelative());
            QCOMPARE(value->StartTime().isValid(), !option.isEmpty());
            QCOMPARE(value->EndTime().isValid(), !option.isEmpty());
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

    void shouldValidateCounts_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<int>("count"); // 0: refused

        QTest::newRow("one") << "1" << 1;
        QTest::newRow("beyond the up-down") << "1000" << 1000;
        QTest::newRow("zero") << "0" << 0;
        QTest::newRow("negative") << "-2" << 0;
        QTest::newRow("empty") << "" << 0;
        QTest::newRow("not a number") << "week" << 0;
        QTest::newRow("fraction") << "1.5" << 0;
        // Hostile input: only spaces around a count are taken
        QTest::newRow("spaces around are trimmed") << "  7  " << 7;
        QTest::newRow("tab before is text") << "\t7" << 0;
        QTest::newRow("line break after is text") << "7\n" << 0;
        QTest::newRow("no-break space is text") << QString(QChar(0x00A0)) + "7" << 0;
    }

    void shouldValidateCounts()
    {
        QFETCH(QString, text);
        QFETCH(int, count);

        // Given a relative period whose count the user typed
        FilterTest::RecordingScope recording;
        XTimeFilter editor;
        QVERIFY(FilterTest::showActive(&editor));
        editor.SetDateFilter(relative(TimeFilterValue::Days, 7));
        auto *txtDays = child<QLineEdit>(&editor, "txtDays");
        txtDays->setText(text);
        child<QRadioButton>(&editor, "optAllItems")->setFocus();

        // When the host validates
        QString errorText;
        const bool answer = editor.IsValid(errorText);

        // Then a bad count is refused with the focus back in its box
        QCOMPARE(answer, count > 0);
        QCOMPARE(errorText.isEmpty(), count > 0);
        QCOMPARE(editor.GetTimeFilter()->RelativeCount(), count);
        if (count == 0)
            QCOMPARE(QApplication::focusWidget(), txtDays);
        // And each check was against a 16-bit minimum with no maximum
        const auto &calls = *recording.services;
        if (count > 0)
            QCOMPARE(calls.minimumTypes.size(), 2);
        for (qsizetype i = 0; i < calls.minimumTypes.size(); ++i) {
            QCOMPARE(calls.minimumTypes.at(i), QMetaType::fromType<qint16>());
            QCOMPARE(calls.maximumTypes.at(i), QMetaType());
        }
    }

    void shouldStepCountsWithinTheUpDownRange_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<int>("delta");
        QTest::addColumn<int>("expected"); // -1: the box is left alone

        QTest::newRow("up") << "5" << 1 << 6;
        QTest::newRow("down") << "5" << -1 << 4;
        QTest::newRow("stops at 999") << "999" << 1 << -1;
        QTest::newRow("stops at 1") << "1" << -1 << -1;
        QTest::newRow("typed 1000 stays on up") << "1000" << 1 << -1;
        QTest::newRow("typed 1000 steps down into range") << "1000" << -1 << 999;
        QTest::newRow("zero steps up to 1") << "0" << 1 << 1;
        QTest::newRow("garbage restarts at 1") << "abc" << 1 << 1;
        QTest::newRow("spaces around are trimmed") << "  7  " << 1 << 8;
        QTest::newRow("tab before is garbage") << "\t7" << 1 << 1;
        QTest::newRow("line break after is garbage") << "7\n" << 1 << 1;
        QTest::newRow("no-break space is garbage") << QString(QChar(0x00A0)) + "7" << 1 << 1;
    }

    void shouldStepCountsWithinTheUpDownRange()
    {
        QFETCH(QString, text);
        QFETCH(int, delta);
        QFETCH(int, expected);

        const auto next = PickerCtl::Filters::steppedCount(text, delta, 1, 999);
        QCOMPARE(next.value_or(-1), expected);
    }

    void shouldRefuseMomentsItCannotKeep_data()
    {
        QTest::addColumn<QDateTime>("start");
        QTest::addColumn<QDateTime>("end");
        QTest::addColumn<QString>("message");
        QTest::addColumn<QString>("focus");
        QTest::addColumn<bool>("keptExactly");

        const QDateTime before(QDate(2026, 3, 1), QTime(8, 0));
        const QDateTime after(QDate(2026, 4, 1), QTime(8, 0));
        const QDateTime start(QDate(2023, 6, 15), QTime(12, 30, 15));
        const QTimeZone berlin("Europe/Berlin");
        QTest::newRow("end after start") << start << start.addSecs(1) << QString() << QString() << true;
        QTest::newRow("equal ends") << start << start << QString() << QString() << true;
        QTest::newRow("end before start") << start << start.addSecs(-1) << ReversedMessage << "dtMinDate" << false;
        QTest::newRow("end a day before") << start << start.addDays(-1) << ReversedMessage << "dtMinDate" << false;
        QTest::newRow("start in the summer-time gap") << QDateTime(GapDay, InGap) << after
            << "The start time 2026-03-29 02:30:00" + GapTail << "dtMinTime" << false;
        QTest::newRow("end in the summer-time gap") << before << QDateTime(GapDay, QTime(2, 0))
            << "The end time 2026-03-29 02:00:00" + GapTail << "dtMaxTime" << false;
        QTest::newRow("gap of a named zone") << QDateTime(GapDay, QTime(2, 59, 59), berlin) << after
            << "The start time 2026-03-29 02:59:59" + GapTail << "dtMinTime" << false;
        QTest::newRow("start before year 100") << QDateTime(QDate(50, 6, 1), QTime(12, 0), Qt::UTC) << after
            << "The start date 0050-06-01 12:00:00" + RangeTail << "dtMinDate" << true;
        QTest::newRow("end after 9999") << before << QDateTime(QDate(12000, 1, 1), QTime(0, 0), Qt::UTC)
            << "The end date 12000-01-01 00:00:00" + RangeTail << "dtMaxDate" << true;
        QTest::newRow("start before 1752 is no fault") << QDateTime(QDate(1500, 6, 1), QTime(12, 0), Qt::UTC) << after
            << QString() << QString() << true;
        QTest::newRow("end at the last pickable second") << before << QDateTime(QDate(9999, 12, 31), QTime(23, 59, 59), Qt::UTC)
            << QString() << QString() << true;
    }

    void shouldRefuseMomentsItCannotKeep()
    {
        QFETCH(QDateTime, start);
        QFETCH(QDateTime, end);
        QFETCH(QString, message);
        QFETCH(QString, focus);
        QFETCH(bool, keptExactly);

        // Given a period the host hands in
        XTimeFilter editor;
        QVERIFY(FilterTest::showActive(&editor));
        editor.SetDateFilter(absolute(start, end));
        child<QRadioButton>(&editor, "optAllItems")->setFocus();

        // Then it shows as a period, never as all items
        QVERIFY(child<QRadioButton>(&editor, "optDates")->isChecked());

        // And validation names what it cannot take, in the picker to fix
        QString errorText;
        QCOMPARE(editor.IsValid(errorText), message.isEmpty());
        QCOMPARE(errorText, message);
        if (!focus.isEmpty())
            QCOMPARE(QApplication::focusWidget()->objectName(), focus);

        // And a moment the pickers cannot show comes back as it was handed in, not clamped
        if (keptExactly) {
            const auto value = editor.GetTimeFilter();
            QCOMPARE(value->StartTime(), start);
            QCOMPARE(value->EndTime(), end);
        }
    }

    void shouldRefuseAGapTimeThePickerIsSetTo()
    {
        // Given a valid period on the day the clocks go forward
        XTimeFilter editor;
        QVERIFY(FilterTest::showActive(&editor));
        editor.SetDateFilter(absolute(QDateTime(GapDay, QTime(1, 0)), QDateTime(GapDay, QTime(4, 0))));
        QString errorText;
        QVERIFY(editor.IsValid(errorText));

        // When the user sets the start into the skipped hour
        child<QTimeEdit>(&editor, "dtMinTime")->setTime(InGap);

        // Then it is refused by name, not dropped to all items later
        QVERIFY(!editor.IsValid(errorText));
        QCOMPARE(errorText, "The start time 2026-03-29 02:30:00" + GapTail);
    }

    void shouldLetTheUserReplaceADateItCouldNotShow()
    {
        XTimeFilter editor;
        const QDateTime end(QDate(2026, 4, 1), QTime(8, 0));
        editor.SetDateFilter(absolute(QDateTime(QDate(12, 1, 1), QTime(0, 0)), end));

        child<QDateEdit>(&editor, "dtMinDate")->setDate(QDate(2026, 1, 15));

        QString errorText;
        QVERIFY(editor.IsValid(errorText));
        QCOMPARE(editor.GetTimeFilter()->StartTime().date(), QDate(2026, 1, 15));
    }

    void shouldKeepTheZoneOfEachEnd_data()
    {
        QTest::addColumn<QDateTime>("start");
        QTest::addColumn<QDateTime>("end");

        const QDate day(2025, 7, 14);
        const QTimeZone newYork("America/New_York");
        QTest::newRow("UTC") << QDateTime(day, QTime(6, 0), Qt::UTC) << QDateTime(day, QTime(18, 0), Qt::UTC);
        QTest::newRow("offset +05:30") << QDateTime(day, QTime(6, 0), Qt::OffsetFromUTC, 19800)
                                       << QDateTime(day, QTime(18, 0), Qt::OffsetFromUTC, 19800);
        QTest::newRow("offset -03:00") << QDateTime(day, QTime(6, 0), Qt::OffsetFromUTC, -10800)
                                       << QDateTime(day.addDays(1), QTime(1, 0), Qt::OffsetFromUTC, -10800);
        QTest::newRow("named zone") << QDateTime(day, QTime(6, 0), newYork) << QDateTime(day, QTime(23, 0), newYork);
        QTest::newRow("local time") << QDateTime(day, QTime(6, 0)) << QDateTime(day, QTime(18, 0));
        QTest::newRow("UTC start, Tokyo end") << QDateTime(day, QTime(0, 0), Qt::UTC)
                                              << QDateTime(day, QTime(21, 0), QTimeZone("Asia/Tokyo"));
    }

    void shouldKeepTheZoneOfEachEnd()
    {
        QFETCH(QDateTime, start);
        QFETCH(QDateTime, end);

        XTimeFilter editor;
        editor.SetDateFilter(absolute(start, end));

        // The pickers show each end's own wall-clock time
        QCOMPARE(child<QTimeEdit>(&editor, "dtMinTime")->time(), start.time());
        QCOMPARE(child<QDateEdit>(&editor, "dtMaxDate")->date(), end.date());

        // And the ends come back in the zones they were given in
        QString errorText;
        QVERIFY2(editor.IsValid(errorText), qPrintable(errorText));
        const auto value = editor.GetTimeFilter();
        for (const auto &[given, back] : {std::pair{start, value->StartTime()}, std::pair{end, value->EndTime()}}) {
            QCOMPARE(back, given);
            QCOMPARE(back.timeSpec(), given.timeSpec());
            QCOMPARE(back.offsetFromUtc(), given.offsetFromUtc());
            QCOMPARE(back.timeZone(), given.timeZone());
        }
    }

    void shouldRaiseChangedOnUserEditsButNotOnLoading()
    {
        // Given a loaded editor showing all items, which clearing leaves clean
        XTimeFilter editor;
        QVERIFY(FilterTest::showActive(&editor));
        editor.SetDateFilter(nullptr);
        QSignalSpy changed(&editor, &XTimeFilter::Changed);
        editor.ClearAll();
        QCOMPARE(changed.count(), 0);
        QVERIFY(!editor.IsModified());

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
        editor.SetDateFilter(relative(TimeFilterValue::Days, 7));
        QCOMPARE(changed.count(), beforeLoad);
        QVERIFY(!editor.IsModified());

        // And clearing a relative period goes back to all items through the widgets, which the host hears of
        editor.ClearAll();
        QVERIFY(changed.count() > beforeLoad);
        QVERIFY(editor.IsModified());
        QVERIFY(child<QRadioButton>(&editor, "optAllItems")->isChecked());
        QCOMPARE(child<QLineEdit>(&editor, "txtDays")->text(), QStringLiteral("1"));
        QCOMPARE(enabledDetails(editor), QStringList());
    }

    void shouldFallBackToPeriodWhenFilteringWithoutDetail()
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

    void shouldSelectCountOnKeyboardFocusOnly()
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
};

QTEST_MAIN(TimeFilterTest)
#include "tst_timefilter.moc"
