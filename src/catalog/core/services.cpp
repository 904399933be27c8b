// The per-thread catalogue services that need no user interface: the catalogue and the user.
#include "catalog/core/serviceslot.h"

#include <PickerCtl/FixedUserContext.h>
#include <PickerCtl/MemoryCatalog.h>

namespace PickerCtl {

namespace {

const QString kAnonymousUser = QStringLiteral("anonymous");

// A host that names no user gets no rights: an anonymous, read-only user who owns nothing. Which
// user may change the catalogue is the host's decision (UserContext::setInstance), never a default.
std::shared_ptr<UserContext> defaultUserContext()
{
    UserSpec anonymous;
    anonymous.id = 0;
    anonymous.name = kAnonymousUser;
    anonymous.administrator = false;
    anonymous.canModifyFields = false;
    anonymous.readOnly = true;
    return std::make_shared<FixedUserContext>(std::make_shared<FixedUser>(anonymous));
}

} // namespace

std::shared_ptr<FieldCatalog> FieldCatalog::instance()
{
    auto &slot = detail::serviceSlot<FieldCatalog>();
    if (!slot)
        slot = std::make_shared<MemoryCatalog>();
    return slot;
}

void FieldCatalog::setInstance(std::shared_ptr<FieldCatalog> catalog)
{
    detail::serviceSlot<FieldCatalog>() = std::move(catalog);
}

std::shared_ptr<UserContext> UserContext::instance()
{
    auto &slot = detail::serviceSlot<UserContext>();
    if (!slot)
        slot = defaultUserContext();
    return slot;
}

void UserContext::setInstance(std::shared_ptr<UserContext> context)
{
    detail::serviceSlot<UserContext>() = std::move(context);
}

} // namespace PickerCtl
