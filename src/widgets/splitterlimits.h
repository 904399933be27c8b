#pragma once

#include <PickerCtl/pickerctl_export.h>

namespace PickerCtl {

/// The pixels a splitter bar's left edge may take.
struct SplitterRange
{
    int lowest = 0;
    int highest = 0;

    int clamp(int left) const { return left < lowest ? lowest : (left > highest ? highest : left); }
};

/**
 * The range of the bar's left edge: the limits given in twips (a negative limit does not limit)
 * converted at dpi, and never outside the parent, so the bar can always be grabbed again.
 * When the limits contradict each other the minimum wins.
 */
PICKERCTL_AUTOTEST_EXPORT
SplitterRange splitterRange(float minimumTwips, float maximumTwips, double dpi, int parentWidth,
                            int barWidth);

} // namespace PickerCtl
