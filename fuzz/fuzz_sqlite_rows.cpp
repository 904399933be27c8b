// Rows of a well-formed SQLite catalogue changed behind the library's back (another tool, a broken
// migration, a hostile file): the input is a list of edits applied to a small valid catalogue before
// SqlCatalog::open reads it, which must refuse it with CatalogError or load it, never crash.
//
// Each edit is an operation byte (0 update a cell, 1 delete a row, 2 copy a row with one cell
// changed), a table byte, a column byte, a row byte and, for 0 and 2, a value: a kind byte (0 null,
// 1 64-bit integer, 2 small integer, 3 real, 4 text, 5 blob) and its bytes (8 little-endian for 1 and
// 3, 1 for 2, a length byte and that many for 4 and 5). Bytes that choose are taken modulo the choice.
#include "fuzzcatalog.h"
#include "fuzzsupport.h"

#include <PickerCtl/SqlCatalog.h>
#include <PickerCtl/testing/CatalogSpecs.h>

#include <QFile>
#include <QStringList>

#include <sqlite3.h>

#include <algorithm>
#include <cstring>
#include <functional>

using namespace PickerCtl;

namespace {

const char *const Tables[] = {"catalog_info", "users",   "technology_types", "field_types",
                              "applications", "categories", "texts",           "fields",
                              "rcv_forms",    "rcv_fields", "enum_values",     "properties"};
constexpr int TableCount = int(sizeof(Tables) / sizeof(Tables[0]));

// Every column written: a description, and a unit also where a counter would have none.
FieldSpec field(qint32 id, const QString &categoryKey, const QString &name, const QString &type, qint32 owner,
                const QString &techMask)
{
    FieldSpec spec = fieldSpec(id, categoryKey, name, type, owner, techMask);
    spec.description = QStringLiteral("about %1").arg(name);
    spec.unit = QStringLiteral("%");
    return spec;
}

/// A small catalogue with a row in every table, written by the library itself.
QByteArray makeTemplate()
{
    const fuzz::ScratchFile file(QStringLiteral("template.sqlite"));
    {
        SqlCatalogBuilder builder(file.path());
        builder.addUser({1, QStringLiteral("admin"), true});
        builder.addUser({2, QStringLiteral("alice"), false});
        builder.addUser({3, QStringLiteral("viewer"), false, false, true});
        builder.addTechnology(QStringLiteral("GSM"), QStringLiteral("G"), 1);
        builder.addTechnology(QStringLiteral("LTE"), QStringLiteral("L"), 4);
        builder.addFieldType(QStringLiteral("CNT"), QStringLiteral("Counter"));
        builder.addFieldType(QStringLiteral("UDC"), QStringLiteral("User-Defined Calculation"));
        builder.addApplication(QStringLiteral("Reports"));
        builder.addCategory(categorySpec(QStringLiteral("ROOT"), QString(), QStringLiteral("Catalogue"), 0));
        builder.addCategory(categorySpec(QStringLiteral("NET"), QStringLiteral("ROOT"), QStringLiteral("Network"), 1,
                                         QStringLiteral("Entities")));
        builder.addCategory(categorySpec(QStringLiteral("CELL"), QStringLiteral("Entities"), QStringLiteral("Cell"), 2));
        builder.addCategory(categorySpec(QStringLiteral("GEN"), QStringLiteral("ROOT"), QStringLiteral("Generic"), 0,
                                         genericLabel()));
        builder.addField(field(10, QStringLiteral("CELL"), QStringLiteral("Attempts"), QStringLiteral("CNT"), 1,
                               QStringLiteral("GL")));
        builder.addField(field(11, QStringLiteral("CELL"), QStringLiteral("Drops"), QStringLiteral("UDC"), 2,
                               QStringLiteral("L")));
        builder.addField(field(12, QStringLiteral("GEN"), QStringLiteral("Load"), QStringLiteral("CNT"), 1,
                               QStringLiteral("G")));
        builder.addRcvForm(QStringLiteral("FORM"), QStringLiteral("Cell"));
        builder.addRcvField(QStringLiteral("FORM"), QStringLiteral("attempts"), 10);
        builder.addEnumList(QStringLiteral("Priority"), {QStringLiteral("Low"), QStringLiteral("High")},
                            {QStringLiteral("1"), QStringLiteral("2")});
        builder.setProperty(QStringLiteral("flag"), true);
        builder.setProperty(QStringLiteral("count"), 7);
        builder.setProperty(QStringLiteral("ratio"), 0.5);
        builder.setProperty(QStringLiteral("name"), QStringLiteral("text"));
        builder.commit();
    }
    QFile content(file.path());
    if (!content.open(QIODevice::ReadOnly))
        qFatal("cannot read the template catalogue");
    return content.readAll();
}

/// Reads the edits from the input, byte by byte; past the end every read is 0.
class Edits
{
public:
    Edits(const std::uint8_t *data, std::size_t size)
        : m_data(data)
        , m_size(size)
    {
    }
    bool atEnd() const { return m_position >= m_size; }
    std::uint8_t byte() { return atEnd() ? 0 : m_data[m_position++]; }
    QByteArray take(std::size_t count)
    {
        QByteArray bytes;
        while (count-- > 0 && !atEnd())
            bytes.append(char(byte()));
        return bytes;
    }

private:
    const std::uint8_t *m_data;
    std::size_t m_size;
    std::size_t m_position = 0;
};

template<class T>
T fromBytes(const QByteArray &bytes)
{
    T value{};
    std::memcpy(&value, bytes.constData(), std::min<std::size_t>(sizeof(T), std::size_t(bytes.size())));
    return value;
}

/// Binds the next value of the edits to parameter index of the statement.
void bindValue(sqlite3_stmt *statement, int index, Edits &edits)
{
    switch (edits.byte() % 6) {
    case 0:
        sqlite3_bind_null(statement, index);
        break;
    case 1:
        sqlite3_bind_int64(statement, index, fromBytes<sqlite3_int64>(edits.take(8)));
        break;
    case 2:
        sqlite3_bind_int(statement, index, std::int8_t(edits.byte()));
        break;
    case 3:
        sqlite3_bind_double(statement, index, fromBytes<double>(edits.take(8)));
        break;
    case 4: {
        const QByteArray text = edits.take(edits.byte());
        sqlite3_bind_text(statement, index, text.constData(), int(text.size()), SQLITE_TRANSIENT);
        break;
    }
    default: {
        const QByteArray blob = edits.take(edits.byte());
        sqlite3_bind_blob(statement, index, blob.constData(), int(blob.size()), SQLITE_TRANSIENT);
        break;
    }
    }
}

/// Runs the statement (its parameters bound); a constraint that refuses the edit is fine.
void run(sqlite3 *db, const QString &sql, const std::function<void(sqlite3_stmt *)> &bind = {})
{
    sqlite3_stmt *statement = nullptr;
    if (sqlite3_prepare_v2(db, sql.toUtf8().constData(), -1, &statement, nullptr) != SQLITE_OK) {
        sqlite3_finalize(statement);
        return;
    }
    if (bind)
        bind(statement);
    while (sqlite3_step(statement) == SQLITE_ROW) {
    }
    sqlite3_finalize(statement);
}

QStringList columnsOf(sqlite3 *db, const char *table)
{
    QStringList columns;
    sqlite3_stmt *statement = nullptr;
    const QByteArray sql = QByteArray("SELECT * FROM ") + table + " LIMIT 0";
    if (sqlite3_prepare_v2(db, sql.constData(), -1, &statement, nullptr) == SQLITE_OK) {
        for (int i = 0; i < sqlite3_column_count(statement); ++i)
            columns.append(QString::fromUtf8(sqlite3_column_name(statement, i)));
    }
    sqlite3_finalize(statement);
    return columns;
}

void applyEdits(sqlite3 *db, Edits &edits)
{
    while (!edits.atEnd()) {
        const int operation = edits.byte() % 3;
        const char *tableName = Tables[edits.byte() % TableCount];
        const QString table = QLatin1String(tableName);
        const QStringList columns = columnsOf(db, tableName);
        const QString column = columns.isEmpty() ? QStringLiteral("rowid") : columns.at(edits.byte() % columns.size());
        const int row = edits.byte() % 16;
        const QString nthRow = QStringLiteral("(SELECT rowid FROM %1 LIMIT 1 OFFSET %2)").arg(table).arg(row);
        switch (operation) {
        case 0:
            run(db, QStringLiteral("UPDATE %1 SET \"%2\" = ? WHERE rowid = %3").arg(table, column, nthRow),
                [&edits](sqlite3_stmt *s) { bindValue(s, 1, edits); });
            break;
        case 1:
            run(db, QStringLiteral("DELETE FROM %1 WHERE rowid = %2").arg(table, nthRow));
            break;
        default:
            run(db, QStringLiteral("DROP TABLE IF EXISTS temp.copied"));
            run(db, QStringLiteral("CREATE TEMP TABLE copied AS SELECT * FROM %1 WHERE rowid = %2").arg(table, nthRow));
            run(db, QStringLiteral("UPDATE temp.copied SET \"%1\" = ?").arg(column),
                [&edits](sqlite3_stmt *s) { bindValue(s, 1, edits); });
            run(db, QStringLiteral("INSERT OR IGNORE INTO %1 SELECT * FROM temp.copied").arg(table));
            break;
        }
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    fuzz::ensureApplication();
    static const QByteArray valid = makeTemplate();
    static const fuzz::ScratchFile file(QStringLiteral("catalog.sqlite"));
    file.rewrite(valid);

    sqlite3 *db = nullptr;
    if (sqlite3_open(file.path().toUtf8().constData(), &db) != SQLITE_OK)
        qFatal("cannot open the scratch catalogue");
    Edits edits(data, size);
    applyEdits(db, edits);
    sqlite3_close(db);

    if (const std::shared_ptr<MemoryCatalog> catalog = fuzz::openCatalog(file.path()))
        fuzz::exerciseCatalog(*catalog);
    return 0;
}
