#pragma once

#include <QtGlobal>

#include <memory>

struct sqlite3_stmt;

namespace PickerCtl {

class SqlConnection;
struct FieldSpec;
struct SqlTextRefs;

/// Inserts fields into a new SQLite catalogue through SQLite's own interface: binding a dozen
/// values per row through the Qt driver costs more than SQLite's whole insert.
class SqliteFieldInsert
{
public:
    /// The inserter for the connection, or null when it is not an SQLite one it can reach.
    static std::unique_ptr<SqliteFieldInsert> forConnection(const SqlConnection &connection);
    ~SqliteFieldInsert();

    /// Inserts the field at that position, its category and shared texts given by number; throws
    /// CatalogError when SQLite refuses it.
    void insert(qint64 position, const FieldSpec &field, qint64 category, const SqlTextRefs &texts);

private:
    SqliteFieldInsert(const SqlConnection &connection, sqlite3_stmt *statement);

    const SqlConnection &m_connection;
    sqlite3_stmt *m_statement;
};

} // namespace PickerCtl
