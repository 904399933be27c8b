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

std::shared_ptr<FieldCatalog> &catalogSlot()
{
    thread_local std::shared_ptr<FieldCatalog> slot;
    return slot;
}

std::shared_ptr<AppServices> &appServicesSlot()
{
    thread_local std::shared_ptr<AppServices> slot;
    return slot;
}

std::shared_ptr<UserContext> &userContextSlot()
{
    thread_local std::shared_ptr<UserContext> slot;
    return slot;
}

std::shared_ptr<MessageService> &messageServiceSlot()
{
    thread_local std::shared_ptr<MessageService> slot;
    return slot;
}

std::shared_ptr<OwnerPicker> &ownerPickerSlot()
{
    thread_local std::shared_ptr<OwnerPicker> slot;
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
    auto &slot = catalogSlot();
    if (!slot)
        slot = std::make_shared<MemoryCatalog>();
    return slot;
}

void FieldCatalog::setInstance(std::shared_ptr<FieldCatalog> catalog)
{
    catalogSlot() = std::move(catalog);
}

std::shared_ptr<AppServices> AppServices::instance()
{
    auto &slot = appServicesSlot();
    if (!slot)
        slot = std::make_shared<QtAppServices>();
    return slot;
}

void AppServices::setInstance(std::shared_ptr<AppServices> services)
{
    appServicesSlot() = std::move(services);
}

std::shared_ptr<UserContext> UserContext::instance()
{
    auto &slot = userContextSlot();
    if (!slot)
        slot = defaultUserContext();
    return slot;
}

void UserContext::setInstance(std::shared_ptr<UserContext> context)
{
    userContextSlot() = std::move(context);
}

std::shared_ptr<MessageService> MessageService::instance()
{
    auto &slot = messageServiceSlot();
    if (!slot)
        slot = std::make_shared<QtMessageService>();
    return slot;
}

void MessageService::setInstance(std::shared_ptr<MessageService> service)
{
    messageServiceSlot() = std::move(service);
}

std::shared_ptr<OwnerPicker> OwnerPicker::instance()
{
    auto &slot = ownerPickerSlot();
    if (!slot)
        slot = std::make_shared<QtOwnerPicker>();
    return slot;
}

void OwnerPicker::setInstance(std::shared_ptr<OwnerPicker> picker)
{
    ownerPickerSlot() = std::move(picker);
}

} // namespace PickerCtl
