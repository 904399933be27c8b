#pragma once

#include <QDateTime>
#include <QLocale>
#include <QString>
#include <QTimeZone>

namespace PickerCtl::Filters {

/// A fresh time filter offers the last three calendar months up to now.
inline constexpr int DefaultPeriodMonths = 3;

/// The days the date pickers can show; a period end outside them is kept, never clamped.
inline const QDate FirstPickerDate(100, 1, 1);
inline const QDate LastPickerDate(9999, 12, 31);

/// Start of the default absolute period ending at now.
QDateTime defaultPeriodStart(const QDateTime &now);

/**
 * The time zone a period end was given in: local time, UTC, a fixed offset or a named zone. The
 * pickers show the end's own day and time of day, and the join puts them back into this zone.
 */
struct PeriodZone
{
    Qt::TimeSpec spec = Qt::LocalTime;
    int offsetSeconds = 0;
    QTimeZone zone;
};

PeriodZone zoneOf(const QDateTime &time);

/// The moment of a date picker's day at a time picker's time of day, in the given zone. Invalid
/// (not null) when that local time does not exist, as in the hour skipped when summer time begins.
QDateTime joinDateTime(const QDate &date, const QTime &time, const PeriodZone &zone = {});

/// A period end that was never set: the zero date.
bool isUnsetTime(const QDateTime &time);

/// True when the date pickers can show the day of time.
bool isPickableDate(const QDate &date);

/// "yyyy-MM-dd HH:mm:ss", for messages that must name a moment whatever its year.
QString describeMoment(const QDate &date, const QTime &time);

/// The locale's short date with a four-digit year, so no picked date is read in the wrong century.
QString pickerDateFormat(const QLocale &locale);

/// The locale's long time of day, seconds included, without the time zone.
QString pickerTimeFormat(const QLocale &locale);

} // namespace PickerCtl::Filters
