#pragma once

#include <PickerCtl/UserContext.h>

#include <QString>

namespace PickerCtl {

/// The dialog that lets the user pick a new owner among the catalogue's users.
class PICKERCTL_EXPORT OwnerPicker
{
public:
    virtual ~OwnerPicker();
    /// Modal; true when the user confirmed a choice, which is written into `picked`.
    virtual bool PickUser(CurrentUserPtr &picked, const QString &title, const QString &label,
                          qint32 reserved = 0) = 0;

    static std::shared_ptr<OwnerPicker> instance();
    static void setInstance(std::shared_ptr<OwnerPicker> picker);
};

} // namespace PickerCtl
