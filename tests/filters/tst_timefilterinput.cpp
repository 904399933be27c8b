#include "filter_helpers.h"

#include "filters/countstep.h"

#include <PickerCtl/XTimeFilter.h>

#include <QApplication>
#include <QDateEdit>
#include <QLineEdit>
#include <QRadioButton>
#include <QTest>
#include <QTimeEdit>
#include <QTimeZone>

#include <ctime>

using namespace PickerCtl;
using FilterTest::child;

namespace {

// In Europe/Berlin the clocks jump from 02:00 to 03:00 on 29 March 2026.
const QDate GapDay(2026, 3, 29);
const QTime InGap(2, 30);
const QString GapTail = QStringLiteral(" does not exist: the clocks skip it when daylight saving time begins.");
const QString RangeTail = QStringLiteral(" is outside the dates that can be entered (0100-01-01 to 9999-12-31).");

TimeFilterValuePtr absolute(const QDateTime &start, const QDateTime &end)
{
    auto value = std::make_shared<TimeFilterValue>();
    value->setStartTime(start);
    value->setEndTime(end);
    return value;
}

} // namespace

class TimeFilterInputTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        qputenv("TZ", "Europe/Berlin");
        tzset();
        QVERIFY(!QDateTime(GapDay, InGap).isValid());
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
        const QTimeZone berlin("Europe/Berlin");
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

        // And validation names the moment it cannot keep, in the picker that shows it
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
        QTest::newRow("UTC") << QDateTime(day, QTime(6, 0), Qt::UTC) << QDateTime(day, QTime(18, 0), Qt::UTC);
        QTest::newRow("offset +05:30") << QDateTime(day, QTime(6, 0), Qt::OffsetFromUTC, 19800)
                                       << QDateTime(day, QTime(18, 0), Qt::OffsetFromUTC, 19800);
        QTest::newRow("offset -03:00") << QDateTime(day, QTime(6, 0), Qt::OffsetFromUTC, -10800)
                                       << QDateTime(day.addDays(1), QTime(1, 0), Qt::OffsetFromUTC, -10800);
        QTest::newRow("named zone") << QDateTime(day, QTime(6, 0), QTimeZone("America/New_York"))
                                    << QDateTime(day, QTime(23, 0), QTimeZone("America/New_York"));
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

    void shouldCheckCountsAgainstA16BitMinimum()
    {
        FilterTest::RecordingScope recording;
        auto value = std::make_shared<TimeFilterValue>();
        value->setIsRelative(true);
        value->setRelativeUnit(TimeFilterValue::Days);
        value->setRelativeCount(7);

        XTimeFilter editor;
        editor.SetDateFilter(value);
        QString errorText;
        QVERIFY(editor.IsValid(errorText));
        QCOMPARE(editor.GetTimeFilter()->RelativeCount(), 7);

        const auto &calls = *recording.services;
        QCOMPARE(calls.minimumTypes, (QList<QMetaType>{QMetaType::fromType<qint16>(), QMetaType::fromType<qint16>()}));
        QCOMPARE(calls.maximumTypes, (QList<QMetaType>{QMetaType(), QMetaType()}));
    }

    void shouldTakeOnlySpacesAroundACount_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<bool>("valid");
        QTest::addColumn<int>("stepped");

        QTest::newRow("spaces around are trimmed") << "  7  " << true << 8;
        QTest::newRow("tab before is text") << "\t7" << false << 1;
        QTest::newRow("line break after is text") << "7\n" << false << 1;
        QTest::newRow("no-break space is text") << QString(QChar(0x00A0)) + "7" << false << 1;
    }

    void shouldTakeOnlySpacesAroundACount()
    {
        QFETCH(QString, text);
        QFETCH(bool, valid);
        QFETCH(int, stepped);

        auto value = std::make_shared<TimeFilterValue>();
        value->setIsRelative(true);
        value->setRelativeUnit(TimeFilterValue::Hours);
        value->setRelativeCount(1);
        XTimeFilter editor;
        editor.SetDateFilter(value);
        child<QLineEdit>(&editor, "txtHours")->setText(text);

        QString errorText;
        QCOMPARE(editor.IsValid(errorText), valid);
        QCOMPARE(editor.GetTimeFilter()->RelativeCount(), valid ? 7 : 0);
        QCOMPARE(PickerCtl::Filters::steppedCount(text, 1, 1, 999).value_or(-1), stepped);
    }
};

QTEST_MAIN(TimeFilterInputTest)
#include "tst_timefilterinput.moc"
