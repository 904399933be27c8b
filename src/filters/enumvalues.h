#pragma once

#include <QHash>
#include <QString>
#include <QStringList>

#include <functional>
#include <optional>

namespace PickerCtl::Filters {

/// The items of a list joined by "," without blanks; an empty list has no items.
QStringList splitList(const QString &joined);

/// The value codes joined as a selection: no blanks, no trailing separator.
QString joinSelection(const QStringList &codes);

/**
 * Code -> key of the node that a code checks: of the keys in order, the first whose node exists
 * (tagOf answers its tag) with that code as its tag. One pass, so loading a selection of n codes
 * over n values is linear rather than a scan of the keys per code.
 */
QHash<QString, QString> firstKeyOfEachCode(const QStringList &keys,
                                           const std::function<std::optional<QString>(const QString &)> &tagOf);

} // namespace PickerCtl::Filters
