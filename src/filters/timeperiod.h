#pragma once

#include <QDateTime>
#include <QLocale>
#include <QString>

namespace PickerCtl::Filters {

/// A fresh time filter offers the last three calendar months up to now.
inline constexpr int DefaultPeriodMonths = 3;

/// Start of the default absolute period ending at now.
QDateTime defaultPeriodStart(const QDateTime &now);

/// The moment of a date picker's day at a time picker's time of day.
QDateTime joinDateTime(const QDate &date, const QTime &time);

/// A period end that was never set: the zero date.
bool isUnsetTime(const QDateTime &time);

/// The locale's short date with a four-digit year, so no picked date is read in the wrong century.
QString pickerDateFormat(const QLocale &locale);

/// The locale's long time of day, seconds included, without the time zone.
QString pickerTimeFormat(const QLocale &locale);

} // namespace PickerCtl::Filters
