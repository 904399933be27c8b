#pragma once

#include <QString>

namespace PickerCtl {

/**
 * A field or user id as the database stores it, checked to fit the 32 bits the catalogue works
 * with. SQLite keeps any 64-bit integer in an INTEGER column; cutting one to its low 32 bits would
 * make the field a different one, and a later delete or re-owning would miss its row. Throws
 * CatalogError naming the catalogue, the row and the column when the value does not fit.
 */
qint32 storedId32(qint64 value, const QString &catalogue, const QString &row, const char *column);

/// How storedId32 names a field's row: by its position and name.
QString fieldRow(qint64 position, const QString &name);
/// How storedId32 names a field's row when its position is not at hand: by its name.
QString namedFieldRow(const QString &name);
/// How storedId32 names an RCV mapping's row: by its field name.
QString rcvFieldRow(const QString &fieldName);
/// How storedId32 names a user's row: by its name.
QString userRow(const QString &name);

} // namespace PickerCtl
