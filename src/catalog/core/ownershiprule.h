#pragma once

#include <QString>

namespace PickerCtl {

class CurrentUser;

/// A change to a field that the ownership rule guards.
enum class FieldChange { ChangeOwner, Delete };

/// The rights that decide what a user may change. The in-memory catalogue takes them from the
/// logged-in user; the SQL store reads them from its own users table inside the writing transaction.
struct FieldRights
{
    bool known = false;         ///< false: nobody, or a user the store does not know
    qint32 userId = 0;
    QString name;
    bool administrator = false;
    bool canModify = false;
    bool readOnly = true;
};

/// The rights of the user (null: nobody, who may change nothing).
FieldRights rightsOf(const CurrentUser *user);

/**
 * Why the user may not make the change to the field, or an empty string when he may. A user who
 * is unknown, read-only or without the right to modify fields changes nothing; any other user
 * re-owns and deletes his own fields, and an administrator those of every user.
 */
QString fieldChangeRefusal(const FieldRights &rights, FieldChange change, const QString &fieldName,
                           qint32 ownerId);

} // namespace PickerCtl
