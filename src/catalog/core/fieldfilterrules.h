#pragma once

#include <PickerCtl/TechnologyTypes.h>

#include <QString>
#include <QStringView>

namespace PickerCtl {

/// The technology filter: passes when a catalogue code found in the filter is also in the mask;
/// a filter holding no known code passes masks that contain the filter text itself.
bool techFilterPasses(QStringView mask, QStringView filter, const TechnologyTypes &technologies);

/// The field-type filter: one code or several joined by ","; exact and case-sensitive.
bool fieldTypeFilterPasses(QStringView typeCode, QStringView filter);

/// The owner filter: a whole number is an owner id, any other text an owner name (any case).
bool ownerFilterPasses(qint32 ownerId, QStringView ownerName, QStringView filter);

} // namespace PickerCtl
