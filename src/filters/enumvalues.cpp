#include "filters/enumvalues.h"

namespace PickerCtl::Filters {

namespace {
const QChar Separator = QLatin1Char(',');
}

QStringList splitList(const QString &joined)
{
    // Items are taken as they stand: no trimming, so " B" and "B" are different values.
    return joined.isEmpty() ? QStringList() : joined.split(Separator);
}

QString joinSelection(const QStringList &codes)
{
    return codes.join(Separator);
}

} // namespace PickerCtl::Filters
