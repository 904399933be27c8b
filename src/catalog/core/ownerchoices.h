#pragma once

#include <PickerCtl/pickerctl_export.h>
#include <PickerCtl/UserContext.h>

#include <QList>
#include <QString>

namespace PickerCtl {

/// One line of the owner picker: the text shown and the user it stands for.
struct OwnerChoice
{
    QString text;
    CurrentUserPtr user;
};

/// The owner picker's lines, in the order of the users given: name and id, "jsmith (42)".
/// Null users are left out.
PICKERCTL_AUTOTEST_EXPORT
QList<OwnerChoice> ownerChoices(const QList<CurrentUserPtr> &users);

/// Position of the user with that id among the choices, or -1.
PICKERCTL_AUTOTEST_EXPORT
qsizetype ownerChoiceIndex(const QList<OwnerChoice> &choices, qint32 userId);

} // namespace PickerCtl
