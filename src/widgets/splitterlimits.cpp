#include "widgets/splitterlimits.h"

#include "widgets/twips.h"

#include <algorithm>
#include <cmath>

namespace PickerCtl {

SplitterRange splitterRange(float minimumTwips, float maximumTwips, double dpi, int parentWidth,
                            int barWidth)
{
    SplitterRange range{0, std::max(0, parentWidth - barWidth)};
    if (maximumTwips >= 0)
        range.highest = std::min(range.highest,
                                 int(std::lround(twipsToPixels(maximumTwips, dpi))));
    if (minimumTwips >= 0)
        range.lowest = std::min(int(std::lround(twipsToPixels(minimumTwips, dpi))),
                                std::max(0, parentWidth - barWidth));
    range.highest = std::max(range.highest, range.lowest);
    return range;
}

} // namespace PickerCtl
