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

QHash<QString, QString> firstKeyOfEachCode(const QStringList &keys,
                                           const std::function<std::optional<QString>(const QString &)> &tagOf)
{
    QHash<QString, QString> result;
    result.reserve(keys.size());
    for (const QString &key : keys) {
        const std::optional<QString> tag = tagOf(key);
        if (tag && !result.contains(*tag))
            result.insert(*tag, key);
    }
    return result;
}

} // namespace PickerCtl::Filters
