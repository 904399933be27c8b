#include "filters/countstep.h"
#include "filters/textboxes.h"

#include <algorithm>

namespace PickerCtl::Filters {

std::optional<int> steppedCount(const QString &text, int delta, int minimum, int maximum)
{
    bool ok = false;
    const QString count = trimSpaces(text);
    const qint64 current = count.toLongLong(&ok);
    if (!ok || hasOuterWhiteSpace(count))
        return minimum;
    const bool atEnd = (delta > 0 && current >= maximum) || (delta < 0 && current <= minimum);
    if (atEnd)
        return std::nullopt;
    return static_cast<int>(std::clamp<qint64>(current + delta, minimum, maximum));
}

} // namespace PickerCtl::Filters
