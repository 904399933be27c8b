#include <PickerCtl/SqlCatalog.h>

#include "catalog/core/filereplacement.h"
#include "catalog/sql/sqlconnection.h"
#include "catalog/sql/sqlfieldrefs.h"
#include "catalog/sql/sqlitefieldinsert.h"
#include "catalog/sql/sqlschema.h"
#include "catalog/core/textmap.h"

#include <PickerCtl/CatalogError.h>

#include <optional>

namespace PickerCtl {

namespace {

const auto NoApplication = QStringLiteral("The category \"%1\" comes before any application.");
const auto EnumMismatch = QStringLiteral(
    "The enumeration list \"%1\" has %2 names but %3 codes.");
const auto Finished = QStringLiteral("The catalogue was already committed.");
const auto UnknownCategory = QStringLiteral("The field \"%1\" names the unknown category \"%2\".");

QString insertInto(const char *table, const char *columns, int count)
{
    QStringList marks;
    for (int i = 0; i < count; ++i)
        marks << QStringLiteral("?");
    return QStringLiteral("INSERT INTO %1 (%2) VALUES (%3)")
        .arg(QLatin1String(table), QLatin1String(columns), marks.join(QLatin1Char(',')));
}

int flag(bool on) { return on ? 1 : 0; }

// A null QString would be stored as NULL; the catalogue's texts are never NULL, at most empty.
QString text(const QString &value)
{
    return value.isNull() ? QString(QLatin1String("")) : value;
}

/// The prepared inserts of one build; they go before the connection closes.
struct BuildStatements
{
    explicit BuildStatements(const SqlConnection &connection)
    {
        users = connection.prepare(insertInto("users", "id, name, is_admin, can_modify, read_only", 5));
        technologies = connection.prepare(insertInto("technology_types", "position, name, code, bit", 4));
        fieldTypes = connection.prepare(insertInto("field_types", "position, code, name", 3));
        applications = connection.prepare(insertInto("applications", "position, name", 2));
        categories = connection.prepare(insertInto(
            "categories",
            "position, app, key, parent_key, node_key, name, full_name, caption, entity_id, rcv_form_name", 10));
        texts = connection.prepare(insertInto("texts", "id, text", 2));
        fields = connection.prepare(insertInto(
            "fields",
            "position, id, category, name, type_code, owner_id, tech_mask, busy_hour, is_expression, "
            "validation_status, description, unit", 12));
        rcvForms = connection.prepare(insertInto("rcv_forms", "form_key, category_name", 2));
        rcvFields = connection.prepare(insertInto("rcv_fields", "form, field_name, field_id", 3));
        enumValues = connection.prepare(insertInto("enum_values", "title, position, name, code", 4));
        properties = connection.prepare(insertInto("properties", "key, value, kind", 3));
        fastFields = SqliteFieldInsert::forConnection(connection);
    }

    QSqlQuery users, technologies, fieldTypes, applications, categories, texts, fields;
    QSqlQuery rcvForms, rcvFields, enumValues, properties;
    std::unique_ptr<SqliteFieldInsert> fastFields;
};

/// Where the build writes: a server database as it is (its transaction replaces the old catalogue
/// at commit), an SQLite file as a new file beside the old one that takes its place at commit.
SqlLocation buildLocation(const SqlLocation &target, std::optional<FileReplacement> &replacement)
{
    if (target.kind != SqlLocation::Kind::SQLite)
        return target;
    replacement.emplace(target.path);
    SqlLocation building = target;
    building.path = replacement->temporaryPath();
    return building;
}

} // namespace

struct SqlCatalogBuilder::Private
{
    explicit Private(const QString &pathOrUrl)
    {
        const SqlLocation target = parseSqlLocation(pathOrUrl);
        connection = std::make_unique<SqlConnection>(buildLocation(target, replacement), SqlConnection::Mode::Build);
        transaction.emplace(*connection);
        createSqlSchema(*connection);
        q = std::make_unique<BuildStatements>(*connection);
    }

    BuildStatements &statements()
    {
        if (!q)
            throw CatalogError(Finished);
        return *q;
    }

    void run(QSqlQuery &query)
    {
        if (!transaction)
            throw CatalogError(Finished);
        connection->exec(query);
    }

    /// The number of a shared text, written to the texts table the first time it comes.
    qint64 textId(const QString &value)
    {
        if (const qint64 *id = textIds.find(value))
            return *id;
        const qint64 id = qint64(textIds.size()) + 1;
        q->texts.bindValue(0, id);
        q->texts.bindValue(1, text(value));
        run(q->texts);
        textIds.insert(value, id);
        return id;
    }

    qint64 categoryOf(const FieldSpec &field) const
    {
        const qint64 *position = categoryPositions.find(field.categoryKey);
        if (!position)
            throw CatalogError(UnknownCategory.arg(field.name, field.categoryKey));
        return *position;
    }

    SqlTextRefs textsOf(const FieldSpec &field)
    {
        SqlTextRefs refs;
        refs.techMask = textId(field.techMask);
        refs.status = textId(field.validationStatus);
        refs.description = textId(field.description);
        refs.unit = textId(field.unit);
        return refs;
    }

    /// Commits, closes the database and, for a file, puts it in the old one's place.
    void commit()
    {
        transaction->commit();
        transaction.reset();
        q.reset();
        connection.reset();
        if (replacement)
            replacement->commit();
    }

    // Declared so that they go in reverse: statements, an uncommitted transaction (rolled back),
    // the connection, and last the temporary file of an unfinished build.
    std::optional<FileReplacement> replacement;
    std::unique_ptr<SqlConnection> connection;
    std::optional<SqlTransaction> transaction;
    std::unique_ptr<BuildStatements> q;
    QString currentApp;
    TextMap<qint64> categoryPositions, textIds;
    qint64 technologyCount = 0, fieldTypeCount = 0, applicationCount = 0, categoryCount = 0, fieldCount = 0;
};

SqlCatalogBuilder::SqlCatalogBuilder(const QString &pathOrUrl) : d(std::make_unique<Private>(pathOrUrl)) {}

SqlCatalogBuilder::~SqlCatalogBuilder() = default;

void SqlCatalogBuilder::addUser(const UserSpec &user)
{
    QSqlQuery &q = d->statements().users;
    q.bindValue(0, user.id);
    q.bindValue(1, text(user.name));
    q.bindValue(2, flag(user.administrator));
    q.bindValue(3, flag(user.canModifyFields));
    q.bindValue(4, flag(user.readOnly));
    d->run(q);
}

void SqlCatalogBuilder::addTechnology(const QString &name, const QString &code, qint32 bit)
{
    QSqlQuery &q = d->statements().technologies;
    q.bindValue(0, ++d->technologyCount);
    q.bindValue(1, text(name));
    q.bindValue(2, text(code));
    q.bindValue(3, bit);
    d->run(q);
}

void SqlCatalogBuilder::addFieldType(const QString &code, const QString &name)
{
    QSqlQuery &q = d->statements().fieldTypes;
    q.bindValue(0, ++d->fieldTypeCount);
    q.bindValue(1, text(code));
    q.bindValue(2, text(name));
    d->run(q);
}

void SqlCatalogBuilder::addApplication(const QString &appName)
{
    QSqlQuery &q = d->statements().applications;
    q.bindValue(0, ++d->applicationCount);
    q.bindValue(1, text(appName));
    d->run(q);
    d->currentApp = appName;
}

void SqlCatalogBuilder::addCategory(const CategorySpec &category)
{
    if (d->currentApp.isNull())
        throw CatalogError(NoApplication.arg(category.key));
    QSqlQuery &q = d->statements().categories;
    q.bindValue(0, ++d->categoryCount);
    q.bindValue(1, text(d->currentApp));
    q.bindValue(2, text(category.key));
    q.bindValue(3, text(category.parentKey));
    q.bindValue(4, text(category.nodeKey));
    q.bindValue(5, text(category.name));
    q.bindValue(6, text(category.fullName));
    q.bindValue(7, text(category.caption));
    q.bindValue(8, category.entityId);
    q.bindValue(9, text(category.rcvFormName));
    d->run(q);
    d->categoryPositions.insert(category.key, d->categoryCount);
}

void SqlCatalogBuilder::addField(const FieldSpec &field)
{
    if (!d->transaction)
        throw CatalogError(Finished);
    const qint64 category = d->categoryOf(field);
    const SqlTextRefs refs = d->textsOf(field);
    if (d->statements().fastFields) {
        d->statements().fastFields->insert(++d->fieldCount, field, category, refs);
        return;
    }
    QSqlQuery &q = d->statements().fields;
    q.bindValue(0, ++d->fieldCount);
    q.bindValue(1, field.id);
    q.bindValue(2, category);
    q.bindValue(3, text(field.name));
    q.bindValue(4, text(field.typeCode));
    q.bindValue(5, field.ownerId);
    q.bindValue(6, refs.techMask);
    q.bindValue(7, flag(field.busyHour));
    q.bindValue(8, flag(field.expression));
    q.bindValue(9, refs.status);
    q.bindValue(10, refs.description);
    q.bindValue(11, refs.unit);
    d->run(q);
}

void SqlCatalogBuilder::addRcvForm(const QString &formKey, const QString &categoryName)
{
    QSqlQuery &q = d->statements().rcvForms;
    q.bindValue(0, text(formKey));
    q.bindValue(1, text(categoryName));
    d->run(q);
}

void SqlCatalogBuilder::addRcvField(const QString &form, const QString &fieldName, qint32 fieldId)
{
    QSqlQuery &q = d->statements().rcvFields;
    q.bindValue(0, text(form));
    q.bindValue(1, text(fieldName));
    q.bindValue(2, fieldId);
    d->run(q);
}

void SqlCatalogBuilder::addEnumList(const QString &title, const QStringList &names, const QStringList &codes)
{
    if (names.size() != codes.size())
        throw CatalogError(EnumMismatch.arg(title).arg(names.size()).arg(codes.size()));
    QSqlQuery &q = d->statements().enumValues;
    for (qsizetype i = 0; i < names.size(); ++i) {
        q.bindValue(0, text(title));
        q.bindValue(1, qint64(i + 1));
        q.bindValue(2, text(names[i]));
        q.bindValue(3, text(codes[i]));
        d->run(q);
    }
}

void SqlCatalogBuilder::setProperty(const QString &key, const QVariant &value)
{
    QString kind = SqlPropertyString;
    switch (value.typeId()) {
    case QMetaType::Bool: kind = SqlPropertyBool; break;
    case QMetaType::Int:
    case QMetaType::LongLong:
    case QMetaType::UInt:
    case QMetaType::ULongLong: kind = SqlPropertyInt; break;
    case QMetaType::Double:
    case QMetaType::Float: kind = SqlPropertyDouble; break;
    default: break;
    }
    QSqlQuery &q = d->statements().properties;
    q.bindValue(0, text(key));
    q.bindValue(1, text(value.toString()));
    q.bindValue(2, text(kind));
    d->run(q);
}

void SqlCatalogBuilder::commit()
{
    if (!d->transaction)
        throw CatalogError(Finished);
    d->commit();
}

void SqlCatalog::create(const QString &pathOrUrl)
{
    SqlCatalogBuilder builder(pathOrUrl);
    builder.commit();
}

int SqlCatalog::schemaVersion()
{
    return SqlSchemaVersion;
}

} // namespace PickerCtl
