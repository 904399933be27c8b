#include "catalog/sql/sqlloader.h"

#include "catalog/sql/sqlconnection.h"
#include "catalog/sql/sqlfieldrefs.h"
#include "catalog/sql/sqlitefieldreader.h"
#include "catalog/sql/sqlschema.h"
#include "catalog/sql/sqlstoredid.h"

#include <PickerCtl/MemoryCatalog.h>

namespace PickerCtl {

namespace {

QSqlQuery select(const SqlConnection &connection, const QString &sql)
{
    QSqlQuery query = connection.prepare(sql);
    connection.exec(query);
    return query;
}

bool flag(const QSqlQuery &query, int column)
{
    return query.value(column).toInt() != 0;
}

QVariant propertyValue(const QString &text, const QString &kind)
{
    if (kind == SqlPropertyBool)
        return QVariant(text == QLatin1String("true"));
    if (kind == SqlPropertyInt)
        return QVariant(text.toLongLong());
    if (kind == SqlPropertyDouble)
        return QVariant(text.toDouble());
    return QVariant(text);
}

void loadUsers(const SqlConnection &connection, MemoryCatalog &catalog)
{
    QSqlQuery q = select(connection, QStringLiteral(
        "SELECT id, name, is_admin, can_modify, read_only FROM users ORDER BY id"));
    while (q.next()) {
        UserSpec user;
        user.name = q.value(1).toString();
        user.id = storedId32(q.value(0).toLongLong(), connection.location().display, userRow(user.name), "id");
        user.administrator = flag(q, 2);
        user.canModifyFields = flag(q, 3);
        user.readOnly = flag(q, 4);
        catalog.addUser(user);
    }
    connection.checkDone(q);
}

void loadTypes(const SqlConnection &connection, MemoryCatalog &catalog)
{
    QSqlQuery tech = select(connection, QStringLiteral(
        "SELECT name, code, bit FROM technology_types ORDER BY position"));
    while (tech.next())
        catalog.addTechnology(tech.value(0).toString(), tech.value(1).toString(), tech.value(2).toInt());
    connection.checkDone(tech);

    QSqlQuery types = select(connection, QStringLiteral("SELECT code, name FROM field_types ORDER BY position"));
    while (types.next())
        catalog.addFieldType(types.value(0).toString(), types.value(1).toString());
    connection.checkDone(types);
}

// Every application is followed by its own categories, as the in-memory catalogue takes them.
// The fields refer to their categories by position.
void loadCategories(const SqlConnection &connection, MemoryCatalog &catalog, SqlFieldResolver &resolver)
{
    QStringList apps;
    QSqlQuery appQuery = select(connection, QStringLiteral("SELECT name FROM applications ORDER BY position"));
    while (appQuery.next())
        apps << appQuery.value(0).toString();
    connection.checkDone(appQuery);

    QSqlQuery q = select(connection, QStringLiteral(
        "SELECT c.app, c.key, c.parent_key, c.node_key, c.name, c.full_name, c.caption, c.entity_id, "
        "c.rcv_form_name, c.position FROM categories c JOIN applications a ON a.name = c.app "
        "ORDER BY a.position, c.position"));
    qsizetype added = 0;
    while (q.next()) {
        const QString app = q.value(0).toString();
        while (added < apps.size() && (added == 0 || apps[added - 1] != app))
            catalog.addApplication(apps[added++]);
        CategorySpec category;
        category.key = q.value(1).toString();
        category.parentKey = q.value(2).toString();
        category.nodeKey = q.value(3).toString();
        category.name = q.value(4).toString();
        category.fullName = q.value(5).toString();
        category.caption = q.value(6).toString();
        category.entityId = q.value(7).toInt();
        category.rcvFormName = q.value(8).toString();
        catalog.addCategory(category);
        resolver.addCategory(q.value(9).toLongLong(), category.key);
    }
    connection.checkDone(q);
    while (added < apps.size())
        catalog.addApplication(apps[added++]);
}

void loadTexts(const SqlConnection &connection, SqlFieldResolver &resolver)
{
    QSqlQuery q = select(connection, QStringLiteral("SELECT id, text FROM texts"));
    while (q.next())
        resolver.addText(q.value(0).toLongLong(), q.value(1).toString());
    connection.checkDone(q);
}

// Reads the fields through the Qt driver, for the databases the SQLite reader does not serve.
void loadFields(const SqlConnection &connection, MemoryCatalog &catalog, const SqlFieldResolver &resolver)
{
    QSqlQuery count = select(connection, QStringLiteral("SELECT COUNT(*) FROM fields"));
    if (count.next())
        catalog.reserveFields(count.value(0).toLongLong());
    connection.checkDone(count);

    QSqlQuery q = select(connection, QStringLiteral(
        "SELECT id, category, name, type_code, owner_id, tech_mask, busy_hour, is_expression, "
        "validation_status, description, unit, position FROM fields ORDER BY position"));
    const QString &where = connection.location().display;
    SqlFieldResolver::Cursor cursor;
    FieldSpec field;
    SqlTextRefs refs;
    while (q.next()) {
        field.name = q.value(2).toString();
        const QString row = fieldRow(q.value(11).toLongLong(), field.name);
        field.id = storedId32(q.value(0).toLongLong(), where, row, "id");
        field.categoryKey = resolver.categoryKey(q.value(1).toLongLong(), cursor, field.id, field.name);
        field.typeCode = q.value(3).toString();
        field.ownerId = storedId32(q.value(4).toLongLong(), where, row, "owner_id");
        refs.techMask = q.value(5).toLongLong();
        field.busyHour = flag(q, 6);
        field.expression = flag(q, 7);
        refs.status = q.value(8).toLongLong();
        refs.description = q.value(9).toLongLong();
        refs.unit = q.value(10).toLongLong();
        resolver.texts(refs, cursor, field.id, field.name).fill(field);
        catalog.addField(field);
    }
    connection.checkDone(q);
}

void loadRcv(const SqlConnection &connection, MemoryCatalog &catalog)
{
    QSqlQuery forms = select(connection, QStringLiteral("SELECT form_key, category_name FROM rcv_forms"));
    while (forms.next())
        catalog.addRcvForm(forms.value(0).toString(), forms.value(1).toString());
    connection.checkDone(forms);

    QSqlQuery fields = select(connection, QStringLiteral("SELECT form, field_name, field_id FROM rcv_fields"));
    while (fields.next()) {
        const QString name = fields.value(1).toString();
        catalog.addRcvField(fields.value(0).toString(), name,
                            storedId32(fields.value(2).toLongLong(), connection.location().display,
                                       rcvFieldRow(name), "field_id"));
    }
    connection.checkDone(fields);
}

void loadEnumLists(const SqlConnection &connection, MemoryCatalog &catalog)
{
    QSqlQuery q = select(connection, QStringLiteral(
        "SELECT title, name, code FROM enum_values ORDER BY title, position"));
    QString title;
    QStringList names, codes;
    const auto flush = [&] {
        if (!names.isEmpty())
            catalog.addEnumList(title, names, codes);
        names.clear();
        codes.clear();
    };
    while (q.next()) {
        const QString rowTitle = q.value(0).toString();
        if (rowTitle != title) {
            flush();
            title = rowTitle;
        }
        names << q.value(1).toString();
        codes << q.value(2).toString();
    }
    connection.checkDone(q);
    flush();
}

void loadProperties(const SqlConnection &connection, MemoryCatalog &catalog)
{
    const PropertyStorePtr store = catalog.GetProperties();
    QSqlQuery q = select(connection, QStringLiteral("SELECT key, value, kind FROM properties"));
    while (q.next())
        store->SetItem(q.value(0).toString(), propertyValue(q.value(1).toString(), q.value(2).toString()));
    connection.checkDone(q);
}

} // namespace

void loadSqlCatalog(const SqlConnection &connection, MemoryCatalog &catalog, SqlFieldReading reading)
{
    // The fields of an SQLite catalogue are read on a second thread meanwhile.
    const std::unique_ptr<SqliteFieldReader> reader =
        reading == SqlFieldReading::Fastest ? SqliteFieldReader::start(connection) : nullptr;
    SqlFieldResolver resolver(connection.location().display);
    loadTexts(connection, resolver);
    loadUsers(connection, catalog);
    loadTypes(connection, catalog);
    loadCategories(connection, catalog, resolver);
    if (reader)
        reader->addFieldsTo(catalog, resolver);
    else
        loadFields(connection, catalog, resolver);
    loadRcv(connection, catalog);
    loadEnumLists(connection, catalog);
    loadProperties(connection, catalog);
}

} // namespace PickerCtl
