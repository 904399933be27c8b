#pragma once

#include <PickerCtl/MemoryCatalog.h>
#include <PickerCtl/UserContext.h>

namespace PickerCtl {

/// A catalogue user with fixed rights, as the in-memory catalogue lists its users.
class PICKERCTL_EXPORT FixedUser : public CurrentUser
{
public:
    explicit FixedUser(const UserSpec &spec);
    ~FixedUser() override;

    qint32 UserId() const override;
    /// The user id, which is what the catalogues' ChangeOwner takes.
    QVariant Identity() const override;
    bool CanModifyFields() const override;
    bool IsAdministrator() const override;
    bool IsReadOnly() const override;
    QString Name() const override;

private:
    UserSpec m_spec;
};

/// A user context that always names the same user (a host's login, a test's user).
class PICKERCTL_EXPORT FixedUserContext : public UserContext
{
public:
    explicit FixedUserContext(CurrentUserPtr user);
    ~FixedUserContext() override;

    CurrentUserPtr CurrentUser() const override;
    void setCurrentUser(CurrentUserPtr user);

private:
    CurrentUserPtr m_user;
};

} // namespace PickerCtl
