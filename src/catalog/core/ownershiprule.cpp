#include "catalog/core/ownershiprule.h"

#include <PickerCtl/UserContext.h>

namespace PickerCtl {

namespace {

const auto NoUser = QStringLiteral("No user is logged in to the catalogue, so nothing can be changed.");
const auto UnknownUser = QStringLiteral(
    "The user \"%1\" is not known to the catalogue, so nothing can be changed.");
const auto ReadOnlyUser = QStringLiteral(
    "The user \"%1\" may not change the catalogue; nothing was changed.");
const auto ForeignDelete = QStringLiteral(
    "'%1' belongs to another user and cannot be deleted: only its owner or an administrator may "
    "delete it. Nothing was deleted.");
const auto ForeignOwner = QStringLiteral(
    "'%1' belongs to another user: only its owner or an administrator may give it a new owner. "
    "No owner was changed.");

} // namespace

FieldRights rightsOf(const CurrentUser *user)
{
    FieldRights rights;
    if (!user)
        return rights;
    rights.known = true;
    rights.userId = user->UserId();
    rights.name = user->Name();
    rights.administrator = user->IsAdministrator();
    rights.canModify = user->CanModifyFields();
    rights.readOnly = user->IsReadOnly();
    return rights;
}

QString fieldChangeRefusal(const FieldRights &rights, FieldChange change, const QString &fieldName,
                           qint32 ownerId)
{
    if (!rights.known)
        return rights.name.isEmpty() ? NoUser : UnknownUser.arg(rights.name);
    if (rights.readOnly || !rights.canModify)
        return ReadOnlyUser.arg(rights.name);
    if (rights.administrator || ownerId == rights.userId)
        return QString();
    return (change == FieldChange::Delete ? ForeignDelete : ForeignOwner).arg(fieldName);
}

} // namespace PickerCtl
