#include "catalog/sql/sqlschema.h"

#include "catalog/sql/sqlconnection.h"

#include <QSqlError>
#include <QStringList>

#include <iterator>

namespace PickerCtl {

namespace {

const auto FormatKey = QStringLiteral("format");
const auto VersionKey = QStringLiteral("schema_version");
const auto FormatName = QStringLiteral("PickerCtl field catalogue");

const auto NotACatalogue = QStringLiteral("\"%1\" is not a PickerCtl field catalogue.");
const auto Unreadable = QStringLiteral(
    "\"%1\" is not a PickerCtl field catalogue, or it is damaged: the database reports \"%2\".");
// How the drivers report a missing table.
const auto SqliteNoTable = QLatin1String("no such table");
const auto PostgresNoTable = QLatin1String("does not exist");
const auto OtherVersion = QStringLiteral(
    "The catalogue \"%1\" has schema version %2; this program reads version %3 only.");
const auto BadVersion = QStringLiteral("The catalogue \"%1\" is damaged: its schema version is missing.");
const auto BadTable = QStringLiteral(
    "The catalogue \"%1\" is damaged: the table \"%2\" is missing or incomplete (%3).");

struct Table
{
    const char *name;
    const char *columns;     // what the catalogue reads and writes, in this order
    const char *definition;  // column definitions and constraints
};

// Positions keep the catalogue order; in SQLite an INTEGER PRIMARY KEY is the row id, so reading a
// table in position order is a plain scan.
const Table Tables[] = {
    {"catalog_info", "key, value", "key TEXT PRIMARY KEY, value TEXT NOT NULL"},
    {"users", "id, name, is_admin, can_modify, read_only",
     "id INTEGER PRIMARY KEY, name TEXT NOT NULL UNIQUE, is_admin INTEGER NOT NULL, "
     "can_modify INTEGER NOT NULL, read_only INTEGER NOT NULL"},
    {"technology_types", "position, name, code, bit",
     "position INTEGER PRIMARY KEY, name TEXT NOT NULL UNIQUE, code TEXT NOT NULL UNIQUE, bit INTEGER NOT NULL"},
    {"field_types", "position, code, name",
     "position INTEGER PRIMARY KEY, code TEXT NOT NULL UNIQUE, name TEXT NOT NULL"},
    {"applications", "position, name", "position INTEGER PRIMARY KEY, name TEXT NOT NULL UNIQUE"},
    {"categories",
     "position, app, key, parent_key, node_key, name, full_name, caption, entity_id, rcv_form_name",
     "position INTEGER PRIMARY KEY, app TEXT NOT NULL REFERENCES applications(name), "
     "key TEXT NOT NULL UNIQUE, parent_key TEXT NOT NULL, node_key TEXT NOT NULL, name TEXT NOT NULL, "
     "full_name TEXT NOT NULL, caption TEXT NOT NULL, entity_id INTEGER NOT NULL, rcv_form_name TEXT NOT NULL"},
    // Texts that many fields share (technology masks, validation states, descriptions, units) are
    // stored once and referred to by number, as is a field's category: a field row is then little more
    // than its name, and a million of them read quickly.
    {"texts", "id, text", "id INTEGER PRIMARY KEY, text TEXT NOT NULL UNIQUE"},
    {"fields",
     "position, id, category, name, type_code, owner_id, tech_mask, busy_hour, is_expression, "
     "validation_status, description, unit",
     "position INTEGER PRIMARY KEY, id INTEGER NOT NULL UNIQUE, "
     "category INTEGER NOT NULL REFERENCES categories(position), name TEXT NOT NULL, "
     "type_code TEXT NOT NULL REFERENCES field_types(code), owner_id INTEGER NOT NULL REFERENCES users(id), "
     "tech_mask INTEGER NOT NULL REFERENCES texts(id), busy_hour INTEGER NOT NULL, "
     "is_expression INTEGER NOT NULL, validation_status INTEGER NOT NULL REFERENCES texts(id), "
     "description INTEGER NOT NULL REFERENCES texts(id), unit INTEGER NOT NULL REFERENCES texts(id)"},
    {"rcv_forms", "form_key, category_name", "form_key TEXT PRIMARY KEY, category_name TEXT NOT NULL"},
    {"rcv_fields", "form, field_name, field_id",
     "form TEXT NOT NULL REFERENCES rcv_forms(form_key), field_name TEXT NOT NULL, "
     "field_id INTEGER NOT NULL REFERENCES fields(id), PRIMARY KEY (form, field_name)"},
    {"enum_values", "title, position, name, code",
     "title TEXT NOT NULL, position INTEGER NOT NULL, name TEXT NOT NULL, code TEXT NOT NULL, "
     "PRIMARY KEY (title, position)"},
    {"properties", "key, value, kind", "key TEXT PRIMARY KEY, value TEXT NOT NULL, kind TEXT NOT NULL"},
};

// Deleting a field looks up its RCV mapping by field id.
const char *const Indexes[] = {
    "CREATE INDEX rcv_fields_by_field ON rcv_fields(field_id)",
    "CREATE INDEX categories_by_app ON categories(app)",
};

// The catalogue's own description; errors are reported as they come since the database may be
// anything at this point.
QString readInfo(const SqlConnection &connection, const QString &key, bool &found, QString &error)
{
    QSqlQuery query(connection.database());
    query.setForwardOnly(true);
    found = false;
    if (!query.prepare(QStringLiteral("SELECT value FROM catalog_info WHERE key = ?"))) {
        error = query.lastError().databaseText();
        return {};
    }
    query.addBindValue(key);
    if (!query.exec()) {
        error = query.lastError().databaseText();
        return {};
    }
    found = query.next();
    const QString value = found ? query.value(0).toString() : QString();
    if (query.lastError().isValid())
        error = query.lastError().databaseText();
    return value;
}

} // namespace

void createSqlSchema(const SqlConnection &connection)
{
    // A new SQLite catalogue is a new file; a server database may still hold an older catalogue.
    if (!connection.isSqlite()) {
        for (auto table = std::rbegin(Tables); table != std::rend(Tables); ++table)
            connection.run(QStringLiteral("DROP TABLE IF EXISTS %1 CASCADE").arg(QLatin1String(table->name)));
    }
    for (const Table &table : Tables) {
        connection.run(QStringLiteral("CREATE TABLE %1 (%2)")
                           .arg(QLatin1String(table.name), QLatin1String(table.definition)));
    }
    for (const char *index : Indexes)
        connection.run(QLatin1String(index));

    QSqlQuery info = connection.prepare(QStringLiteral("INSERT INTO catalog_info (key, value) VALUES (?, ?)"));
    for (const auto &[key, value] : {std::pair{FormatKey, FormatName},
                                     std::pair{VersionKey, QString::number(SqlSchemaVersion)}}) {
        info.bindValue(0, key);
        info.bindValue(1, value);
        connection.exec(info);
    }
}

void checkSqlSchema(const SqlConnection &connection)
{
    const QString where = connection.location().display;
    bool found = false;
    QString error;
    const QString format = readInfo(connection, FormatKey, found, error);
    if (!error.isEmpty()) {
        // A foreign database has no catalog_info table; a file that is no database fails here too.
        if (error.contains(SqliteNoTable) || error.contains(PostgresNoTable))
            throw CatalogError(NotACatalogue.arg(where));
        throw CatalogError(Unreadable.arg(where, error));
    }
    if (!found || format != FormatName)
        throw CatalogError(NotACatalogue.arg(where));

    bool ok = false;
    const int version = readInfo(connection, VersionKey, found, error).toInt(&ok);
    if (!error.isEmpty() || !found || !ok)
        throw CatalogError(BadVersion.arg(where));
    if (version != SqlSchemaVersion)
        throw CatalogError(OtherVersion.arg(where).arg(version).arg(SqlSchemaVersion));

    for (const Table &table : Tables) {
        const QString probe = QStringLiteral("SELECT %1 FROM %2 WHERE 1 = 0")
                                  .arg(QLatin1String(table.columns), QLatin1String(table.name));
        try {
            QSqlQuery query = connection.prepare(probe);
            connection.exec(query);
        } catch (const CatalogError &e) {
            throw CatalogError(BadTable.arg(where, QLatin1String(table.name), e.message()));
        }
    }
}

} // namespace PickerCtl
