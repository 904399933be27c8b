#include "technologies/techmask.h"

namespace PickerCtl::Technologies {

bool maskSelects(const QString &mask, const QString &code)
{
    return !code.isEmpty() && mask.contains(code, Qt::CaseSensitive);
}

QString maskOf(const TechnologyTypes &types, const TreeReader &tree)
{
    QString mask;
    for (const TechnologyTypePtr &type : types) {
        if (tree.isTicked(type->Name()))
            mask += tree.tag(type->Name());
    }
    return mask;
}

qint32 bitsOf(const TechnologyTypes &types, const TreeReader &tree)
{
    // Unsigned, so that bits summing past 32 bits wrap instead of overflowing a signed int.
    quint32 total = 0;
    for (const TechnologyTypePtr &type : types) {
        if (!tree.isTicked(type->Name()))
            continue;
        if (const TechnologyTypePtr named = types.Item(type->Name()))
            total += quint32(named->Bit());
    }
    return qint32(total);
}

} // namespace PickerCtl::Technologies
