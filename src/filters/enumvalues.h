#pragma once

#include <QString>
#include <QStringList>

namespace PickerCtl::Filters {

/// The items of a list joined by "," without blanks; an empty list has no items.
QStringList splitList(const QString &joined);

/// The value codes joined as a selection: no blanks, no trailing separator.
QString joinSelection(const QStringList &codes);

} // namespace PickerCtl::Filters
