#pragma once

#include <PickerCtl/MemoryCatalog.h>

namespace PickerCtl {

/// A category of a test catalogue by the parts tests name most; set the rest on the result.
inline CategorySpec categorySpec(const QString &key, const QString &parentKey, const QString &name,
                                 qint32 entityId = 0, const QString &nodeKey = QString())
{
    CategorySpec spec;
    spec.key = key;
    spec.parentKey = parentKey;
    spec.nodeKey = nodeKey;
    spec.name = name;
    spec.entityId = entityId;
    return spec;
}

/// A field of a test catalogue; every field type but a counter ("CNT") is an expression.
inline FieldSpec fieldSpec(qint32 id, const QString &categoryKey, const QString &name, const QString &typeCode,
                           qint32 ownerId, const QString &techMask, bool busyHour = false)
{
    FieldSpec spec;
    spec.id = id;
    spec.categoryKey = categoryKey;
    spec.name = name;
    spec.typeCode = typeCode;
    spec.ownerId = ownerId;
    spec.techMask = techMask;
    spec.busyHour = busyHour;
    spec.expression = typeCode != QLatin1String("CNT");
    return spec;
}

} // namespace PickerCtl
