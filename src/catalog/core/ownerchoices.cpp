#include "catalog/core/ownerchoices.h"

namespace PickerCtl {

namespace {
const QString kChoiceText = QStringLiteral("%1 (%2)");
}

QList<OwnerChoice> ownerChoices(const QList<CurrentUserPtr> &users)
{
    QList<OwnerChoice> choices;
    choices.reserve(users.size());
    for (const CurrentUserPtr &user : users) {
        if (user)
            choices.append({kChoiceText.arg(user->Name()).arg(user->UserId()), user});
    }
    return choices;
}

qsizetype ownerChoiceIndex(const QList<OwnerChoice> &choices, qint32 userId)
{
    for (qsizetype i = 0; i < choices.size(); ++i) {
        if (choices[i].user->UserId() == userId)
            return i;
    }
    return -1;
}

} // namespace PickerCtl
