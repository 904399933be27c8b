// The per-thread services that talk to the user: the wait cursor and number checks, the message
// box and the owner picker.
#include "catalog/core/serviceslot.h"
#include "catalog/qtservices/ownerpickerdialog.h"
#include "catalog/qtservices/qtappservices.h"
#include "catalog/qtservices/qtmessageservice.h"

namespace PickerCtl {

std::shared_ptr<AppServices> AppServices::instance()
{
    auto &slot = detail::serviceSlot<AppServices>();
    if (!slot)
        slot = std::make_shared<QtAppServices>();
    return slot;
}

void AppServices::setInstance(std::shared_ptr<AppServices> services)
{
    detail::serviceSlot<AppServices>() = std::move(services);
}

std::shared_ptr<MessageService> MessageService::instance()
{
    auto &slot = detail::serviceSlot<MessageService>();
    if (!slot)
        slot = std::make_shared<QtMessageService>();
    return slot;
}

void MessageService::setInstance(std::shared_ptr<MessageService> service)
{
    detail::serviceSlot<MessageService>() = std::move(service);
}

std::shared_ptr<OwnerPicker> OwnerPicker::instance()
{
    auto &slot = detail::serviceSlot<OwnerPicker>();
    if (!slot)
        slot = std::make_shared<QtOwnerPicker>();
    return slot;
}

void OwnerPicker::setInstance(std::shared_ptr<OwnerPicker> picker)
{
    detail::serviceSlot<OwnerPicker>() = std::move(picker);
}

std::shared_ptr<AppServices> AppServices::createStandard()
{
    return std::make_shared<QtAppServices>();
}

} // namespace PickerCtl
