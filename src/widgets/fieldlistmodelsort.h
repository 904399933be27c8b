#pragma once

#include <PickerCtl/pickerctl_export.h>

#include <QString>
#include <QStringView>
#include <vector>

namespace PickerCtl {

/**
 * The order of a text column of the field list: case-insensitive, by the Unicode code points of
 * the case-folded text, with ties kept in the collection's order (in both directions).
 *
 * The order is deliberately the same on every machine, whatever the user's locale: numbers
 * inside names are plain text ("Cell 10" before "Cell 2"), as in the catalogue's own listings,
 * and accented letters follow the unaccented alphabet ("Zone" before "École").
 */
namespace FieldListSort {

/// Negative, zero or positive as a comes before, ties with or comes after b.
PICKERCTL_AUTOTEST_EXPORT int compareText(QStringView a, QStringView b);

/// Display order (positions in texts) that sorts the texts; equal texts keep their order.
PICKERCTL_AUTOTEST_EXPORT std::vector<int> textOrder(const std::vector<QString> &texts, bool ascending);

} // namespace FieldListSort
} // namespace PickerCtl
