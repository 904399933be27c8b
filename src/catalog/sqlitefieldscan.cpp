#include "catalog/sqlitefieldscan.h"

#include "catalog/sqlconnection.h"
#include "catalog/sqliteconnectionhandle.h"

#include <PickerCtl/MemoryCatalog.h>

#include <sqlite3.h>

#include <string>
#include <string_view>
#include <unordered_map>

namespace PickerCtl {

namespace {

const char *const FieldsInOrder =
    "SELECT id, category_key, name, type_code, owner_id, tech_mask, busy_hour, is_expression, "
    "validation_status, description, unit FROM fields ORDER BY position";

struct TextHash
{
    using is_transparent = void;
    size_t operator()(std::string_view text) const { return std::hash<std::string_view>()(text); }
};

/// One QString per distinct text, looked up by the UTF-8 bytes SQLite hands out, so the few
/// hundred descriptions, units and masks a million fields share are decoded once each.
class Utf8Pool
{
public:
    const QString &intern(std::string_view bytes)
    {
        // Fields come category by category: the text of the previous row is the usual hit.
        if (m_last && m_lastBytes == bytes)
            return *m_last;
        auto it = m_pool.find(bytes);
        if (it == m_pool.end())
            it = m_pool.emplace(std::string(bytes), QString::fromUtf8(bytes.data(), qsizetype(bytes.size()))).first;
        m_lastBytes = it->first;
        m_last = &it->second;
        return *m_last;
    }

private:
    std::unordered_map<std::string, QString, TextHash, std::equal_to<>> m_pool;
    std::string_view m_lastBytes;
    const QString *m_last = nullptr;
};

std::string_view textAt(sqlite3_stmt *statement, int column)
{
    const auto *text = reinterpret_cast<const char *>(sqlite3_column_text(statement, column));
    return text ? std::string_view(text, size_t(sqlite3_column_bytes(statement, column))) : std::string_view();
}

struct Statement
{
    ~Statement() { sqlite3_finalize(statement); }
    sqlite3_stmt *statement = nullptr;
};

} // namespace

bool scanSqliteFields(const SqlConnection &connection, MemoryCatalog &catalog)
{
    sqlite3 *db = sqliteHandle(connection);
    if (!db)
        return false;

    Statement count;
    if (sqlite3_prepare_v2(db, "SELECT COUNT(*) FROM fields", -1, &count.statement, nullptr) != SQLITE_OK)
        throw connection.failure(QString::fromUtf8(sqlite3_errmsg(db)));
    if (sqlite3_step(count.statement) == SQLITE_ROW)
        catalog.reserveFields(sqlite3_column_int64(count.statement, 0));

    Statement rows;
    if (sqlite3_prepare_v2(db, FieldsInOrder, -1, &rows.statement, nullptr) != SQLITE_OK)
        throw connection.failure(QString::fromUtf8(sqlite3_errmsg(db)));
    Utf8Pool categoryKeys, typeCodes, masks, statuses, descriptions, units;
    FieldSpec field;
    sqlite3_stmt *s = rows.statement;
    int step = SQLITE_ROW;
    while ((step = sqlite3_step(s)) == SQLITE_ROW) {
        field.id = sqlite3_column_int(s, 0);
        field.categoryKey = categoryKeys.intern(textAt(s, 1));
        const std::string_view name = textAt(s, 2);
        field.name = QString::fromUtf8(name.data(), qsizetype(name.size()));
        field.typeCode = typeCodes.intern(textAt(s, 3));
        field.ownerId = sqlite3_column_int(s, 4);
        field.techMask = masks.intern(textAt(s, 5));
        field.busyHour = sqlite3_column_int(s, 6) != 0;
        field.expression = sqlite3_column_int(s, 7) != 0;
        field.validationStatus = statuses.intern(textAt(s, 8));
        field.description = descriptions.intern(textAt(s, 9));
        field.unit = units.intern(textAt(s, 10));
        catalog.addField(field);
    }
    if (step != SQLITE_DONE)
        throw connection.failure(QString::fromUtf8(sqlite3_errmsg(db)));
    return true;
}

} // namespace PickerCtl
