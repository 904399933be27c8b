#include "filters/countstep.h"

#include <algorithm>

namespace PickerCtl::Filters {

std::optional<int> steppedCount(const QString &text, int delta, int minimum, int maximum)
{
    bool ok = false;
    const qint64 current = text.trimmed().toLongLong(&ok);
    if (!ok)
        return minimum;
    const bool atEnd = (delta > 0 && current >= maximum) || (delta < 0 && current <= minimum);
    if (atEnd)
        return std::nullopt;
    return static_cast<int>(std::clamp<qint64>(current + delta, minimum, maximum));
}

} // namespace PickerCtl::Filters
