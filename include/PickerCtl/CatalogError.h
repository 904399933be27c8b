#pragma once

#include <PickerCtl/pickerctl_export.h>

#include <QString>
#include <stdexcept>

namespace PickerCtl {

/// Raised by catalogue objects and services when an operation cannot be carried out:
/// a broken or foreign database, a refused change, a duplicate key. The message is meant for a user.
class PICKERCTL_EXPORT CatalogError : public std::runtime_error
{
public:
    explicit CatalogError(const QString &message);
    QString message() const;
};

} // namespace PickerCtl
