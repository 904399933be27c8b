#include "gallerysession.h"

#include <PickerCtl/CatalogError.h>
#include <PickerCtl/FieldCatalog.h>
#include <PickerCtl/FixedUserContext.h>

namespace {

const auto UnknownUser = QStringLiteral("The catalogue has no user named \"%1\".");
const auto NoUsers = QStringLiteral("The catalogue has no users.");

} // namespace

std::shared_ptr<PickerCtl::UserContext> galleryUserContext(PickerCtl::FieldCatalog &catalog,
                                                           const QString &userName)
{
    const QList<PickerCtl::CurrentUserPtr> users = catalog.Users();
    PickerCtl::CurrentUserPtr chosen;
    for (const auto &user : users) {
        if (userName.isEmpty() ? user->IsAdministrator() : user->Name() == userName) {
            chosen = user;
            break;
        }
    }
    if (!chosen && userName.isEmpty() && !users.isEmpty())
        chosen = users.first();
    if (!chosen)
        throw PickerCtl::CatalogError(userName.isEmpty() ? NoUsers : UnknownUser.arg(userName));
    return std::make_shared<PickerCtl::FixedUserContext>(chosen);
}
