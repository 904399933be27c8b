#include "filters/timeperiod.h"

#include <QRegularExpression>

namespace PickerCtl::Filters {

QDateTime defaultPeriodStart(const QDateTime &now)
{
    return now.addMonths(-DefaultPeriodMonths);
}

PeriodZone zoneOf(const QDateTime &time)
{
    PeriodZone zone;
    zone.spec = time.timeSpec();
    if (zone.spec == Qt::OffsetFromUTC)
        zone.offsetSeconds = time.offsetFromUtc();
    else if (zone.spec == Qt::TimeZone)
        zone.zone = time.timeZone();
    return zone;
}

QDateTime joinDateTime(const QDate &date, const QTime &time, const PeriodZone &zone)
{
    switch (zone.spec) {
    case Qt::UTC:
        return QDateTime(date, time, Qt::UTC);
    case Qt::OffsetFromUTC:
        return QDateTime(date, time, Qt::OffsetFromUTC, zone.offsetSeconds);
    case Qt::TimeZone:
        return QDateTime(date, time, zone.zone);
    case Qt::LocalTime:
        break;
    }
    return QDateTime(date, time, Qt::LocalTime);
}

bool isUnsetTime(const QDateTime &time)
{
    // A time in a daylight-saving gap is invalid but keeps its day: it is set, and wrong.
    return !time.date().isValid();
}

bool isPickableDate(const QDate &date)
{
    return date >= FirstPickerDate && date <= LastPickerDate;
}

QString describeMoment(const QDate &date, const QTime &time)
{
    const QLocale c = QLocale::c();
    return c.toString(date, QStringLiteral("yyyy-MM-dd")) + QLatin1Char(' ')
           + c.toString(time, QStringLiteral("HH:mm:ss"));
}

QString pickerDateFormat(const QLocale &locale)
{
    QString format = locale.dateFormat(QLocale::ShortFormat);
    if (!format.contains(QLatin1String("yyyy"))) {
        static const QRegularExpression shortYear(QStringLiteral("y+"));
        format.replace(shortYear, QStringLiteral("yyyy"));
    }
    return format;
}

QString pickerTimeFormat(const QLocale &locale)
{
    static const QRegularExpression zone(QStringLiteral("\\s*t+\\s*"));
    QString format = locale.timeFormat(QLocale::LongFormat);
    format.replace(zone, QStringLiteral(" "));
    format = format.trimmed();
    if (!format.contains(QLatin1Char('s')))
        format = QStringLiteral("HH:mm:ss");
    return format;
}

} // namespace PickerCtl::Filters
