#pragma once

#include "catalog/core/foldednames.h"
#include "catalog/core/stringpool.h"

#include <PickerCtl/TechnologyTypes.h>

#include <QHash>
#include <QSet>
#include <deque>

namespace PickerCtl {

/// What a field needs to know about its category without holding the category itself.
struct CategoryInfo
{
    QString name;
    QString rcvFormName;
};

/**
 * The catalogue's shared look-up tables. Every field holds them (not the catalogue), so a field a
 * host keeps stays readable after its catalogue is gone. The tables hold no field and no category,
 * so nothing here keeps a field alive in a cycle.
 */
struct CatalogTables
{
    StringPool techMasks;
    StringPool typeCodes;
    StringPool statuses;
    StringPool units;
    StringPool descriptions;
    FoldedNames names; ///< every field's name, folded for the name filter; never shrinks
    std::deque<CategoryInfo> categories; ///< by the position given at addCategory; never shrinks
    QHash<qint32, QString> userNames;
    TechnologyTypes technologies;
    /// RCV form -> (form field name -> field id), and form -> the ids mapped under it.
    QHash<QString, QHash<QString, qint32>> rcvFields;
    QHash<QString, QSet<qint32>> rcvFieldIds;
};

} // namespace PickerCtl
