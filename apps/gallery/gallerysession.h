#pragma once

#include <PickerCtl/UserContext.h>

#include <QString>
#include <memory>

namespace PickerCtl {
class FieldCatalog;
}

/// Logs the gallery in as one of the catalogue's users: the one named so, or the first
/// administrator when the name is empty. Throws PickerCtl::CatalogError for an unknown name.
std::shared_ptr<PickerCtl::UserContext> galleryUserContext(PickerCtl::FieldCatalog &catalog,
                                                           const QString &userName);
