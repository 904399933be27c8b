#include "filters/timeperiod.h"

#include <QRegularExpression>

namespace PickerCtl::Filters {

QDateTime defaultPeriodStart(const QDateTime &now)
{
    return now.addMonths(-DefaultPeriodMonths);
}

QDateTime joinDateTime(const QDate &date, const QTime &time)
{
    return QDateTime(date, time);
}

bool isUnsetTime(const QDateTime &time)
{
    return !time.isValid();
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
