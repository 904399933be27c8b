#pragma once

#include <PickerCtl/pickerctl_export.h>

#include <QVariant>
#include <memory>

namespace PickerCtl {

/// A numeric range filter: an optional lower and an optional upper bound, kept as the user typed them.
class PICKERCTL_EXPORT NumberFilterValue
{
public:
    /// A bound is set when its value is neither null nor an empty string.
    bool HasMinValue() const;
    bool HasMaxValue() const;
    QVariant MinValue() const { return m_min; }
    void setMinValue(const QVariant &value) { m_min = value; }
    QVariant MaxValue() const { return m_max; }
    void setMaxValue(const QVariant &value) { m_max = value; }

private:
    QVariant m_min;
    QVariant m_max;
};

using NumberFilterValuePtr = std::shared_ptr<NumberFilterValue>;

} // namespace PickerCtl
