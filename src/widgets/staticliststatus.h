#pragma once

#include <PickerCtl/pickerctl_export.h>

#include <QLocale>
#include <QString>

namespace PickerCtl {

/// The list's status line: "3 of 1,204 fields selected", "1,204 fields", "1 field", "No fields".
/// Numbers carry the locale's group separators.
PICKERCTL_AUTOTEST_EXPORT
QString staticListStatusText(qint64 count, qint64 selected, const QLocale &locale);

} // namespace PickerCtl
