#pragma once

#include <QString>

namespace PickerCtl {

class SqlConnection;

/// Version of the tables below; a catalogue written by a newer version is refused.
constexpr int SqlSchemaVersion = 1;

/// Creates every table and index of a catalogue and records the schema version.
void createSqlSchema(const SqlConnection &connection);

/// Checks that the database is a catalogue this library can read: the format row, the version and
/// every table with its columns. Throws CatalogError saying what is wrong.
void checkSqlSchema(const SqlConnection &connection);

} // namespace PickerCtl
