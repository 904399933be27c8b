#include "catalog/sqlwriter.h"

#include "catalog/sqlconnection.h"

#include <PickerCtl/UserContext.h>

namespace PickerCtl {

namespace {

const auto UnknownOwner = QStringLiteral("There is no user with the id %1 to give the fields to.");
const auto UnknownField = QStringLiteral("The field with the id %1 is no longer in the catalogue.");
const auto ForeignField = QStringLiteral(
    "\"%1\" belongs to another user; only an administrator may delete it. Nothing was deleted.");
const auto NoUser = QStringLiteral("No user is logged in; nothing was deleted.");

} // namespace

SqlCatalogWriter::SqlCatalogWriter(std::shared_ptr<SqlConnection> connection)
    : m_connection(std::move(connection))
{
}

SqlCatalogWriter::~SqlCatalogWriter() = default;

void SqlCatalogWriter::changeOwner(const QList<qint32> &fieldIds, qint32 ownerId)
{
    const SqlConnection &db = *m_connection;
    SqlTransaction transaction(db);

    QSqlQuery owner = db.prepare(QStringLiteral("SELECT id FROM users WHERE id = ?"));
    owner.addBindValue(ownerId);
    db.exec(owner);
    const bool known = owner.next();
    db.checkDone(owner);
    if (!known)
        throw CatalogError(UnknownOwner.arg(ownerId));

    QSqlQuery update = db.prepare(QStringLiteral("UPDATE fields SET owner_id = ? WHERE id = ?"));
    for (const qint32 id : fieldIds) {
        update.bindValue(0, ownerId);
        update.bindValue(1, id);
        db.exec(update);
        if (update.numRowsAffected() == 0)
            throw CatalogError(UnknownField.arg(id));
    }
    transaction.commit();
}

void SqlCatalogWriter::deleteFields(const QList<qint32> &fieldIds)
{
    const CurrentUserPtr user = UserContext::instance()->CurrentUser();
    if (!user)
        throw CatalogError(NoUser);

    const SqlConnection &db = *m_connection;
    SqlTransaction transaction(db);
    // The rights come from the database, inside the transaction, so they hold for what is deleted.
    const bool administrator = isAdministrator(user->UserId());

    QSqlQuery owner = db.prepare(QStringLiteral("SELECT owner_id, name FROM fields WHERE id = ?"));
    QSqlQuery unmap = db.prepare(QStringLiteral("DELETE FROM rcv_fields WHERE field_id = ?"));
    QSqlQuery remove = db.prepare(QStringLiteral("DELETE FROM fields WHERE id = ?"));
    for (const qint32 id : fieldIds) {
        owner.bindValue(0, id);
        db.exec(owner);
        if (!owner.next()) {
            db.checkDone(owner);
            continue;   // already gone: deleting it again changes nothing
        }
        const qint32 ownerId = owner.value(0).toInt();
        const QString name = owner.value(1).toString();
        owner.finish();
        if (ownerId != user->UserId() && !administrator)
            throw CatalogError(ForeignField.arg(name));

        unmap.bindValue(0, id);
        db.exec(unmap);
        remove.bindValue(0, id);
        db.exec(remove);
    }
    transaction.commit();
}

bool SqlCatalogWriter::isAdministrator(qint32 userId) const
{
    const SqlConnection &db = *m_connection;
    QSqlQuery query = db.prepare(QStringLiteral("SELECT is_admin FROM users WHERE id = ?"));
    query.addBindValue(userId);
    db.exec(query);
    const bool administrator = query.next() && query.value(0).toInt() != 0;
    db.checkDone(query);
    return administrator;
}

} // namespace PickerCtl
