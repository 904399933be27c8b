#include "catalog/sql/sqlitefieldinsert.h"

#include "catalog/sql/sqliteconnectionhandle.h"
#include "catalog/sql/sqlconnection.h"
#include "catalog/sql/sqlfieldrefs.h"

#include <PickerCtl/MemoryCatalog.h>

#include <sqlite3.h>

namespace PickerCtl {

namespace {

const char *const InsertField =
    "INSERT INTO fields (position, id, category, name, type_code, owner_id, tech_mask, busy_hour, "
    "is_expression, validation_status, description, unit) VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?)";

// The texts live in the FieldSpec until the step is done, so SQLite need not copy them.
int bindText(sqlite3_stmt *statement, int index, const QString &text)
{
    return sqlite3_bind_text16(statement, index, text.utf16(), int(text.size() * 2), SQLITE_STATIC);
}

} // namespace

std::unique_ptr<SqliteFieldInsert> SqliteFieldInsert::forConnection(const SqlConnection &connection)
{
    sqlite3 *db = sqliteHandle(connection);
    if (!db)
        return nullptr;
    sqlite3_stmt *statement = nullptr;
    if (sqlite3_prepare_v2(db, InsertField, -1, &statement, nullptr) != SQLITE_OK)
        throw connection.failure(QString::fromUtf8(sqlite3_errmsg(db)));
    return std::unique_ptr<SqliteFieldInsert>(new SqliteFieldInsert(connection, statement));
}

SqliteFieldInsert::SqliteFieldInsert(const SqlConnection &connection, sqlite3_stmt *statement)
    : m_connection(connection), m_statement(statement)
{
}

SqliteFieldInsert::~SqliteFieldInsert()
{
    sqlite3_finalize(m_statement);
}

void SqliteFieldInsert::insert(qint64 position, const FieldSpec &field, qint64 category, const SqlTextRefs &texts)
{
    sqlite3_stmt *s = m_statement;
    sqlite3_bind_int64(s, 1, position);
    sqlite3_bind_int(s, 2, field.id);
    sqlite3_bind_int64(s, 3, category);
    bindText(s, 4, field.name);
    bindText(s, 5, field.typeCode);
    sqlite3_bind_int(s, 6, field.ownerId);
    sqlite3_bind_int64(s, 7, texts.techMask);
    sqlite3_bind_int(s, 8, field.busyHour ? 1 : 0);
    sqlite3_bind_int(s, 9, field.expression ? 1 : 0);
    sqlite3_bind_int64(s, 10, texts.status);
    sqlite3_bind_int64(s, 11, texts.description);
    sqlite3_bind_int64(s, 12, texts.unit);
    const int step = sqlite3_step(s);
    sqlite3_reset(s);
    if (step != SQLITE_DONE)
        throw m_connection.failure(QString::fromUtf8(sqlite3_errmsg(sqlite3_db_handle(s))));
}

} // namespace PickerCtl
