// The per-thread catalogue services: one instance per thread, created on first use and kept until
// the thread ends. Each lives in a function-local thread_local so the shared library owns it.
#include "catalog/ownerpickerdialog.h"
#include "catalog/qtappservices.h"
#include "catalog/qtmessageservice.h"

#include <PickerCtl/FixedUserContext.h>
#include <PickerCtl/MemoryCatalog.h>

namespace PickerCtl {

namespace {

const QString kBuiltInAdministrator = QStringLiteral("admin");
constexpr qint32 kBuiltInAdministratorId = 1;

template<class Service>
std::shared_ptr<Service> &slotOf()
{
    thread_local std::shared_ptr<Service> slot;
    return slot;
}

// The catalogue's first administrator logs in by default; a catalogue without users gets a
// built-in administrator, so a fresh host can do everything.
std::shared_ptr<UserContext> defaultUserContext()
{
    for (const CurrentUserPtr &user : FieldCatalog::instance()->Users()) {
        if (user && user->IsAdministrator())
            return std::make_shared<FixedUserContext>(user);
    }
    UserSpec admin;
    admin.id = kBuiltInAdministratorId;
    admin.name = kBuiltInAdministrator;
    admin.administrator = true;
    return std::make_shared<FixedUserContext>(std::make_shared<FixedUser>(admin));
}

} // namespace

std::shared_ptr<FieldCatalog> FieldCatalog::instance()
{
    auto &slot = slotOf<FieldCatalog>();
    if (!slot)
        slot = std::make_shared<MemoryCatalog>();
    return slot;
}

void FieldCatalog::setInstance(std::shared_ptr<FieldCatalog> catalog)
{
    slotOf<FieldCatalog>() = std::move(catalog);
}

std::shared_ptr<AppServices> AppServices::instance()
{
    auto &slot = slotOf<AppServices>();
    if (!slot)
        slot = std::make_shared<QtAppServices>();
    return slot;
}

void AppServices::setInstance(std::shared_ptr<AppServices> services)
{
    slotOf<AppServices>() = std::move(services);
}

std::shared_ptr<UserContext> UserContext::instance()
{
    auto &slot = slotOf<UserContext>();
    if (!slot)
        slot = defaultUserContext();
    return slot;
}

void UserContext::setInstance(std::shared_ptr<UserContext> context)
{
    slotOf<UserContext>() = std::move(context);
}

std::shared_ptr<MessageService> MessageService::instance()
{
    auto &slot = slotOf<MessageService>();
    if (!slot)
        slot = std::make_shared<QtMessageService>();
    return slot;
}

void MessageService::setInstance(std::shared_ptr<MessageService> service)
{
    slotOf<MessageService>() = std::move(service);
}

std::shared_ptr<OwnerPicker> OwnerPicker::instance()
{
    auto &slot = slotOf<OwnerPicker>();
    if (!slot)
        slot = std::make_shared<QtOwnerPicker>();
    return slot;
}

void OwnerPicker::setInstance(std::shared_ptr<OwnerPicker> picker)
{
    slotOf<OwnerPicker>() = std::move(picker);
}

} // namespace PickerCtl
