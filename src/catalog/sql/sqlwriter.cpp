#include "catalog/sql/sqlwriter.h"

#include "catalog/core/ownershiprule.h"
#include "catalog/sql/sqlconnection.h"
#include "catalog/sql/sqlstoredid.h"

#include <PickerCtl/UserContext.h>

#include <QSet>

namespace PickerCtl {

namespace {

const auto UnknownOwner = QStringLiteral("There is no user with the id %1 to give the fields to.");
const auto MissingField = QStringLiteral(
    "The field with the id %1 is no longer in the catalogue (another user may have deleted it); "
    "nothing was changed. Refresh the catalogue and try again.");
const auto LostRows = QStringLiteral(
    "%1 of %2 fields could not be written; nothing was changed. Refresh the catalogue and try again.");

// Ids per statement: few statements for many fields, each of them of a modest length.
constexpr qsizetype BatchSize = 400;

/// The ids as an SQL list. They are numbers, so they go into the text itself: one plain statement
/// per batch, with nothing to prepare and nothing to free if the transaction fails.
QString idList(const QList<qint32> &ids)
{
    QString list;
    list.reserve(ids.size() * 8);
    for (const qint32 id : ids) {
        if (!list.isEmpty())
            list += QLatin1Char(',');
        list += QString::number(id);
    }
    return list;
}

/// The ids once each, in their first order, cut into batches.
QList<QList<qint32>> batchesOf(const QList<qint32> &ids)
{
    QList<QList<qint32>> batches;
    QSet<qint32> seen;
    seen.reserve(ids.size());
    for (const qint32 id : ids) {
        if (seen.contains(id))
            continue;
        seen.insert(id);
        if (batches.isEmpty() || batches.last().size() == BatchSize)
            batches.append(QList<qint32>());
        batches.last().append(id);
    }
    return batches;
}

struct StoredField
{
    qint32 ownerId = 0;
    QString name;
};

/// A statement over one batch of ids: "{ids}" in the text becomes the list of ids.
QSqlQuery batchStatement(const SqlConnection &db, const QString &sql, const QList<qint32> &ids)
{
    return db.execute(QString(sql).replace(QStringLiteral("{ids}"), idList(ids)));
}

/// The batch's fields as stored now; on a server the rows stay locked until the transaction ends,
/// so the rule checked on them holds for what is written.
QHash<qint32, StoredField> lockFields(const SqlConnection &db, const QList<qint32> &ids)
{
    const QString lock = db.isSqlite() ? QString() : QStringLiteral(" FOR UPDATE");
    QSqlQuery query = batchStatement(
        db, QStringLiteral("SELECT id, owner_id, name FROM fields WHERE id IN ({ids})") + lock, ids);
    QHash<qint32, StoredField> stored;
    const QString &where = db.location().display;
    while (query.next()) {
        const QString name = query.value(2).toString();
        const QString row = namedFieldRow(name);
        const qint32 id = storedId32(query.value(0).toLongLong(), where, row, "id");
        stored.insert(id, {storedId32(query.value(1).toLongLong(), where, row, "owner_id"), name});
    }
    db.checkDone(query);
    return stored;
}

/// Checks that every field of the batch is there and that the user may change it.
void checkBatch(const QHash<qint32, StoredField> &stored, const QList<qint32> &ids, const FieldRights &rights,
                FieldChange change)
{
    for (const qint32 id : ids) {
        const auto field = stored.constFind(id);
        if (field == stored.cend())
            throw CatalogError(MissingField.arg(id));
        const QString refusal = fieldChangeRefusal(rights, change, field->name, field->ownerId);
        if (!refusal.isEmpty())
            throw CatalogError(refusal);
    }
}

/// A write that changed fewer rows than it was meant to is a failure, never a quiet success.
void checkChanged(const QSqlQuery &query, const QList<qint32> &ids)
{
    const int changed = query.numRowsAffected();
    if (changed != ids.size())
        throw CatalogError(LostRows.arg(ids.size() - qMax(changed, 0)).arg(ids.size()));
}

} // namespace

SqlCatalogWriter::SqlCatalogWriter(std::shared_ptr<SqlConnection> connection)
    : m_connection(std::move(connection))
{
}

SqlCatalogWriter::~SqlCatalogWriter() = default;

void SqlCatalogWriter::changeOwner(const QList<qint32> &fieldIds, qint32 ownerId)
{
    m_connection->reconnectIfLost();
    const SqlConnection &db = *m_connection;
    SqlTransaction transaction(db);
    if (!userExists(ownerId))
        throw CatalogError(UnknownOwner.arg(ownerId));
    // The rights come from the database, inside the transaction, so they hold for what is written.
    const FieldRights rights = storedRights();
    for (const QList<qint32> &ids : batchesOf(fieldIds)) {
        checkBatch(lockFields(db, ids), ids, rights, FieldChange::ChangeOwner);
        const QSqlQuery update = batchStatement(
            db, QStringLiteral("UPDATE fields SET owner_id = %1 WHERE id IN ({ids})").arg(ownerId), ids);
        checkChanged(update, ids);
    }
    transaction.commit();
}

void SqlCatalogWriter::deleteFields(const QList<qint32> &fieldIds)
{
    m_connection->reconnectIfLost();
    const SqlConnection &db = *m_connection;
    SqlTransaction transaction(db);
    const FieldRights rights = storedRights();
    for (const QList<qint32> &ids : batchesOf(fieldIds)) {
        checkBatch(lockFields(db, ids), ids, rights, FieldChange::Delete);
        batchStatement(db, QStringLiteral("DELETE FROM rcv_fields WHERE field_id IN ({ids})"), ids);
        const QSqlQuery remove = batchStatement(db, QStringLiteral("DELETE FROM fields WHERE id IN ({ids})"), ids);
        checkChanged(remove, ids);
    }
    transaction.commit();
}

std::optional<QHash<qint32, qint32>> SqlCatalogWriter::storedOwners()
{
    m_connection->reconnectIfLost();
    const SqlConnection &db = *m_connection;
    QSqlQuery query = db.prepare(QStringLiteral("SELECT id, owner_id, name, position FROM fields"));
    db.exec(query);
    QHash<qint32, qint32> owners;
    const QString &where = db.location().display;
    while (query.next()) {
        const QString row = fieldRow(query.value(3).toLongLong(), query.value(2).toString());
        owners.insert(storedId32(query.value(0).toLongLong(), where, row, "id"),
                      storedId32(query.value(1).toLongLong(), where, row, "owner_id"));
    }
    db.checkDone(query);
    return owners;
}

FieldRights SqlCatalogWriter::storedRights() const
{
    const CurrentUserPtr user = UserContext::instance()->CurrentUser();
    FieldRights rights = rightsOf(user.get());
    if (!rights.known)
        return rights;

    const SqlConnection &db = *m_connection;
    QSqlQuery query = db.prepare(QStringLiteral("SELECT is_admin, can_modify, read_only FROM users WHERE id = ?"));
    query.addBindValue(rights.userId);
    db.exec(query);
    if (query.next()) {
        rights.administrator = rights.administrator && query.value(0).toInt() != 0;
        rights.canModify = rights.canModify && query.value(1).toInt() != 0;
        rights.readOnly = rights.readOnly || query.value(2).toInt() != 0;
    } else {
        rights.known = false;
    }
    db.checkDone(query);
    return rights;
}

bool SqlCatalogWriter::userExists(qint32 userId) const
{
    const SqlConnection &db = *m_connection;
    QSqlQuery query = db.prepare(QStringLiteral("SELECT id FROM users WHERE id = ?"));
    query.addBindValue(userId);
    db.exec(query);
    const bool known = query.next();
    db.checkDone(query);
    return known;
}

} // namespace PickerCtl
