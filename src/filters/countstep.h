#pragma once

#include <PickerCtl/pickerctl_export.h>

#include <QString>
#include <optional>

namespace PickerCtl::Filters {

/**
 * The next count of an up-down bound to a text box: the box's number moved by delta and kept
 * within [minimum, maximum]. The box itself is not capped, so it may hold a number beyond the
 * range; stepping further away from the range then leaves it alone rather than jumping back.
 * A box without a number restarts at minimum. nullopt: leave the box as it is.
 */
PICKERCTL_AUTOTEST_EXPORT
std::optional<int> steppedCount(const QString &text, int delta, int minimum, int maximum);

} // namespace PickerCtl::Filters
