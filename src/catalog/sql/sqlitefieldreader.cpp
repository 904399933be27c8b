#include "catalog/sql/sqlitefieldreader.h"

#include "catalog/sql/batchhandoff.h"
#include "catalog/sql/sqlconnection.h"
#include "catalog/sql/sqlfieldrefs.h"
#include "catalog/sql/sqlstoredid.h"

#include <PickerCtl/MemoryCatalog.h>

#include <QFile>

#include <sqlite3.h>

#include <string>
#include <string_view>
#include <thread>
#include <unordered_map>
#include <vector>

namespace PickerCtl {

namespace {

const char *const CountFields = "SELECT COUNT(*) FROM fields";
const char *const FieldsInOrder =
    "SELECT id, category, name, type_code, owner_id, tech_mask, busy_hour, is_expression, "
    "validation_status, description, unit, position FROM fields ORDER BY position";

// Batches stay below the size malloc serves from fresh mappings, so their memory is reused. The
// reader may run well ahead while the loader is still busy with the categories.
constexpr std::size_t BatchSize = 1024;
constexpr std::size_t BatchesAhead = 256;

struct Utf8Hash
{
    using is_transparent = void;
    size_t operator()(std::string_view text) const { return std::hash<std::string_view>()(text); }
};

/// One QString per distinct text, looked up by the UTF-8 bytes SQLite hands out, so the few field
/// type codes a million fields share are decoded once each. The QStrings never move or change.
class Utf8Pool
{
public:
    const QString &intern(std::string_view bytes)
    {
        // Neighbouring rows mostly share their type: the text of the previous row is the usual hit.
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
    std::unordered_map<std::string, QString, Utf8Hash, std::equal_to<>> m_pool;
    std::string_view m_lastBytes;
    const QString *m_last = nullptr;
};

std::string_view textAt(sqlite3_stmt *statement, int column)
{
    const auto *text = reinterpret_cast<const char *>(sqlite3_column_text(statement, column));
    return text ? std::string_view(text, size_t(sqlite3_column_bytes(statement, column))) : std::string_view();
}

/// A field row as the reader thread takes it from SQLite: stepping through the rows is the slower
/// half of loading, so the reader does nothing else. The name stays UTF-8 in the batch's name
/// buffer, the category and shared texts stay numbers; the loading thread decodes and resolves them.
/// The type code points into the reader's pool, which outlives the hand-off: copying a shared text
/// on both threads would have them contend for its reference count.
struct DecodedRow
{
    qint32 id = 0;
    qint32 ownerId = 0;
    bool busyHour = false;
    bool expression = false;
    quint32 nameStart = 0;
    quint32 nameSize = 0;
    qint64 category = 0;
    SqlTextRefs texts;
    const QString *typeCode = nullptr;
};

struct RowBatch
{
    std::vector<DecodedRow> rows;
    std::string names;

    void clear()
    {
        rows.clear();
        names.clear();
    }
    bool empty() const { return rows.empty(); }
    QUtf8StringView name(const DecodedRow &row) const
    {
        return QUtf8StringView(names.data() + row.nameStart, qsizetype(row.nameSize));
    }
};

} // namespace

struct SqliteFieldReader::Private
{
    explicit Private(const SqlConnection &sqlConnection) : connection(sqlConnection) {}
    ~Private()
    {
        handoff.cancel();
        if (reader.joinable())
            reader.join();
        sqlite3_finalize(rows);
        sqlite3_close_v2(db);
    }

    [[nodiscard]] CatalogError failure() const
    {
        return connection.failure(db ? QString::fromUtf8(sqlite3_errmsg(db)) : QString());
    }

    void prepare(const char *sql, sqlite3_stmt **statement)
    {
        if (sqlite3_prepare_v2(db, sql, -1, statement, nullptr) != SQLITE_OK)
            throw failure();
    }

    void readRows();
    qint32 id32(sqlite3_stmt *statement, int column, const char *name) const
    {
        const qint64 value = sqlite3_column_int64(statement, column);
        if (value == qint64(qint32(value)))
            return qint32(value);
        const std::string_view fieldName = textAt(statement, 2);
        return storedId32(value, connection.location().display,
                          fieldRow(sqlite3_column_int64(statement, 11),
                                   QString::fromUtf8(fieldName.data(), qsizetype(fieldName.size()))),
                          name);
    }

    const SqlConnection &connection;
    sqlite3 *db = nullptr;
    sqlite3_stmt *rows = nullptr;
    qint64 count = 0;
    Utf8Pool typeCodes;
    BatchHandoff<RowBatch> handoff{BatchesAhead};
    std::thread reader;
};

// Runs on the reader thread; touches nothing but its connection, the type code pool and the hand-off.
void SqliteFieldReader::Private::readRows()
{
    RowBatch batch;
    batch.rows.reserve(BatchSize);
    sqlite3_stmt *s = rows;
    int step = SQLITE_ROW;
    while ((step = sqlite3_step(s)) == SQLITE_ROW) {
        DecodedRow &row = batch.rows.emplace_back();
        row.id = id32(s, 0, "id");
        row.category = sqlite3_column_int64(s, 1);
        const std::string_view name = textAt(s, 2);
        row.nameStart = quint32(batch.names.size());
        row.nameSize = quint32(name.size());
        batch.names.append(name);
        row.typeCode = &typeCodes.intern(textAt(s, 3));
        row.ownerId = id32(s, 4, "owner_id");
        row.texts.techMask = sqlite3_column_int64(s, 5);
        row.busyHour = sqlite3_column_int(s, 6) != 0;
        row.expression = sqlite3_column_int(s, 7) != 0;
        row.texts.status = sqlite3_column_int64(s, 8);
        row.texts.description = sqlite3_column_int64(s, 9);
        row.texts.unit = sqlite3_column_int64(s, 10);
        if (batch.rows.size() == BatchSize) {
            if (!handoff.put(batch))
                return;
            batch.rows.reserve(BatchSize);
        }
    }
    if (step != SQLITE_DONE)
        throw failure();
    if (!batch.empty())
        handoff.put(batch);
}

SqliteFieldReader::SqliteFieldReader(std::unique_ptr<Private> reader) : d(std::move(reader)) {}

SqliteFieldReader::~SqliteFieldReader() = default;

std::unique_ptr<SqliteFieldReader> SqliteFieldReader::start(const SqlConnection &connection)
{
    // An SQLite built without thread support cannot have two connections busy at once.
    if (!connection.isSqlite() || sqlite3_threadsafe() == 0)
        return nullptr;
    auto p = std::make_unique<Private>(connection);
    // A connection of its own, used by one thread at a time, needs none of SQLite's locking.
    const QByteArray path = QFile::encodeName(connection.location().path);
    if (sqlite3_open_v2(path.constData(), &p->db, SQLITE_OPEN_READONLY | SQLITE_OPEN_NOMUTEX, nullptr) != SQLITE_OK)
        throw p->failure();
    // Another client's write lock is waited for, as on the catalogue's main connection.
    sqlite3_busy_timeout(p->db, SqlConnection::BusyTimeoutMs);

    sqlite3_stmt *count = nullptr;
    p->prepare(CountFields, &count);
    const int step = sqlite3_step(count);
    p->count = step == SQLITE_ROW ? sqlite3_column_int64(count, 0) : 0;
    sqlite3_finalize(count);
    if (step != SQLITE_ROW)
        throw p->failure();
    p->prepare(FieldsInOrder, &p->rows);

    p->reader = std::thread([reading = p.get()] {
        try {
            reading->readRows();
            reading->handoff.finish();
        } catch (...) {
            reading->handoff.fail(std::current_exception());
        }
    });
    return std::unique_ptr<SqliteFieldReader>(new SqliteFieldReader(std::move(p)));
}

void SqliteFieldReader::addFieldsTo(MemoryCatalog &catalog, const SqlFieldResolver &resolver)
{
    catalog.reserveFields(d->count);
    SqlFieldResolver::Cursor cursor;
    RowBatch batch;
    FieldSpec field;
    try {
        while (d->handoff.take(batch)) {
            for (const DecodedRow &row : batch.rows) {
                const QUtf8StringView name = batch.name(row);
                field.id = row.id;
                field.categoryKey = resolver.categoryKey(row.category, cursor, row.id, name);
                resolver.texts(row.texts, cursor, row.id, name).fill(field);
                field.name = name.toString();
                field.typeCode = *row.typeCode;
                field.ownerId = row.ownerId;
                field.busyHour = row.busyHour;
                field.expression = row.expression;
                catalog.addField(field);
            }
        }
    } catch (...) {
        d->handoff.cancel();
        throw;
    }
}

} // namespace PickerCtl
