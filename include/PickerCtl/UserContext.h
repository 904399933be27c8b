#pragma once

#include <PickerCtl/pickerctl_export.h>

#include <QVariant>
#include <memory>

namespace PickerCtl {

/// A user of the catalogue and his rights.
class PICKERCTL_EXPORT CurrentUser
{
public:
    virtual ~CurrentUser();
    virtual qint32 UserId() const = 0;
    /// What FieldCatalog::ChangeOwner takes as the new owner: the user id.
    virtual QVariant Identity() const = 0;
    /// The right to create, edit and delete fields.
    virtual bool CanModifyFields() const = 0;
    /// An administrator may delete UDCs owned by others.
    virtual bool IsAdministrator() const = 0;
    /// A read-only user may change nothing.
    virtual bool IsReadOnly() const = 0;
    virtual QString Name() const = 0;
};

using CurrentUserPtr = std::shared_ptr<CurrentUser>;

/// The logged-in user's context; one per user-interface thread, created on first use.
class PICKERCTL_EXPORT UserContext
{
public:
    virtual ~UserContext();
    virtual CurrentUserPtr CurrentUser() const = 0;

    /// This thread's instance; created on first use as an anonymous user with no rights (id 0, no
    /// administrator, read-only, may not modify fields), so a host that names no user changes nothing.
    static std::shared_ptr<UserContext> instance();
    /// Replaces this thread's instance (a host or a test, best before first use).
    static void setInstance(std::shared_ptr<UserContext> context);
};

} // namespace PickerCtl
