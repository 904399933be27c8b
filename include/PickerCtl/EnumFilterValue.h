#pragma once

#include <PickerCtl/pickerctl_export.h>

#include <QString>
#include <memory>

namespace PickerCtl {

/// A filter on an enumerated field: the codes of the selected values joined by ",";
/// empty means every value (no restriction).
class PICKERCTL_EXPORT EnumFilterValue
{
public:
    QString Selection() const { return m_selection; }
    void setSelection(const QString &selection) { m_selection = selection; }

private:
    QString m_selection;
};

using EnumFilterValuePtr = std::shared_ptr<EnumFilterValue>;

} // namespace PickerCtl
