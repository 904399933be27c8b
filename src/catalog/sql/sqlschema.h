#pragma once

#include <PickerCtl/pickerctl_export.h>

#include <QString>

namespace PickerCtl {

class SqlConnection;

/// Version of the tables below; a catalogue of any other version is refused.
constexpr int SqlSchemaVersion = 2;

/// The kinds a stored property value is read back as; any other kind is a string.
inline const QString SqlPropertyBool = QStringLiteral("bool");
inline const QString SqlPropertyInt = QStringLiteral("int");
inline const QString SqlPropertyDouble = QStringLiteral("double");
inline const QString SqlPropertyString = QStringLiteral("string");

/// Creates every table and index of a catalogue and records the schema version.
PICKERCTL_AUTOTEST_EXPORT
void createSqlSchema(const SqlConnection &connection);

/// Checks that the database is a catalogue this library can read: the format row, the version and
/// every table with its columns. Throws CatalogError saying what is wrong.
PICKERCTL_AUTOTEST_EXPORT
void checkSqlSchema(const SqlConnection &connection);

} // namespace PickerCtl
