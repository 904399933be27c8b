#include <PickerCtl/FixedUserContext.h>

namespace PickerCtl {

FixedUser::FixedUser(const UserSpec &spec)
    : m_spec(spec)
{
}

FixedUser::~FixedUser() = default;

qint32 FixedUser::UserId() const
{
    return m_spec.id;
}

QVariant FixedUser::Identity() const
{
    return QVariant(m_spec.id);
}

bool FixedUser::CanModifyFields() const
{
    return m_spec.canModifyFields && !m_spec.readOnly;
}

bool FixedUser::IsAdministrator() const
{
    return m_spec.administrator;
}

bool FixedUser::IsReadOnly() const
{
    return m_spec.readOnly;
}

QString FixedUser::Name() const
{
    return m_spec.name;
}

FixedUserContext::FixedUserContext(CurrentUserPtr user)
    : m_user(std::move(user))
{
}

FixedUserContext::~FixedUserContext() = default;

CurrentUserPtr FixedUserContext::CurrentUser() const
{
    return m_user;
}

void FixedUserContext::setCurrentUser(CurrentUserPtr user)
{
    m_user = std::move(user);
}

} // namespace PickerCtl
