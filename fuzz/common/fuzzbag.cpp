#include "fuzzbag.h"

#include "fuzzsupport.h"

#include <QStringList>

namespace PickerCtl::fuzz {

void fillBag(MemoryPropertyBag &bag, const QByteArray &input)
{
    for (const QByteArray &line : input.split('\n')) {
        const qsizetype equals = line.indexOf('=');
        if (equals < 0)
            continue;
        bag.setStoredValue(QString::fromUtf8(line.left(equals)), variant(line.mid(equals + 1)));
    }
}

bool sameContent(const PropertyBag &a, const PropertyBag &b)
{
    QStringList keys = a.keys();
    QStringList otherKeys = b.keys();
    keys.sort();
    otherKeys.sort();
    if (keys != otherKeys)
        return false;
    for (const QString &key : keys) {
        if (a.storedValue(key) != b.storedValue(key))
            return false;
    }
    return true;
}

} // namespace PickerCtl::fuzz
