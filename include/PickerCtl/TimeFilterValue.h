#pragma once

#include <PickerCtl/pickerctl_export.h>

#include <QDateTime>
#include <memory>

namespace PickerCtl {

/**
 * A time period filter: all items, a relative period (the previous RelativeCount units) or an
 * absolute period from StartTime to EndTime. An unset time is the null QDateTime (the zero date).
 * RelativeUnit codes: 0 hours, 1 days, 2 months, 3 minutes.
 */
class PICKERCTL_EXPORT TimeFilterValue
{
public:
    enum Unit : qint32 { Hours = 0, Days = 1, Months = 2, Minutes = 3 };

    bool IsRelative() const { return m_relative; }
    void setIsRelative(bool relative) { m_relative = relative; }
    QDateTime StartTime() const { return m_start; }
    void setStartTime(const QDateTime &time) { m_start = time; }
    QDateTime EndTime() const { return m_end; }
    void setEndTime(const QDateTime &time) { m_end = time; }
    qint32 RelativeUnit() const { return m_unit; }
    void setRelativeUnit(qint32 unit) { m_unit = unit; }
    qint32 RelativeCount() const { return m_count; }
    void setRelativeCount(qint32 count) { m_count = count; }

private:
    bool m_relative = false;
    QDateTime m_start;
    QDateTime m_end;
    qint32 m_unit = 0;
    qint32 m_count = 0;
};

using TimeFilterValuePtr = std::shared_ptr<TimeFilterValue>;

} // namespace PickerCtl
