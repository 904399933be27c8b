#include "catalog/core/fieldfilterrules.h"

namespace PickerCtl {

namespace {
constexpr char16_t kListSeparator = u',';
}

bool techFilterPasses(QStringView mask, QStringView filter, const TechnologyTypes &technologies)
{
    bool filterHasKnownCode = false;
    for (const TechnologyTypePtr &type : technologies) {
        const QString &code = type->Code();
        if (code.isEmpty() || !filter.contains(code))
            continue;
        filterHasKnownCode = true;
        if (mask.contains(code))
            return true;
    }
    return !filterHasKnownCode && mask.contains(filter);
}

bool fieldTypeFilterPasses(QStringView typeCode, QStringView filter)
{
    for (QStringView code : filter.tokenize(kListSeparator)) {
        if (code == typeCode)
            return true;
    }
    return false;
}

bool ownerFilterPasses(qint32 ownerId, QStringView ownerName, QStringView filter)
{
    bool isNumber = false;
    const qint32 id = filter.toInt(&isNumber);
    if (isNumber)
        return id == ownerId;
    return ownerName.compare(filter, Qt::CaseInsensitive) == 0;
}

} // namespace PickerCtl
