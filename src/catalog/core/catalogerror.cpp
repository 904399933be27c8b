#include <PickerCtl/CatalogError.h>

namespace PickerCtl {

CatalogError::CatalogError(const QString &message)
    : std::runtime_error(message.toStdString())
{
}

QString CatalogError::message() const
{
    return QString::fromStdString(what());
}

} // namespace PickerCtl
