#pragma once

struct sqlite3;

namespace PickerCtl {

class SqlConnection;

/// SQLite's own handle behind a Qt SQLite connection, or null for other databases.
sqlite3 *sqliteHandle(const SqlConnection &connection);

} // namespace PickerCtl
