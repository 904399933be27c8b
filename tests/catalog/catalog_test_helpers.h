#pragma once

#include <PickerCtl/MemoryCatalog.h>
#include <PickerCtl/testing/CatalogSpecs.h>

#include <memory>

namespace PickerCtl::test {

/// Ids and keys of the small catalogue that sampleCatalog() builds.
namespace sample {
inline const QString App = QStringLiteral("Reports");
constexpr qint32 Admin = 1;
constexpr qint32 Alice = 2;
constexpr qint32 Bob = 3;
}

/**
 * A small catalogue in the sample shape: root "ROOT" -> node "Entities" (category "Network") ->
 * "Region" -> "Cell"; node genericLabel() (category "Generic") -> "SYSTEM", "Traffic".
 * Technologies GSM "G", UMTS "U", LTE "L"; field types CNT/EXP/UDC; users admin, alice, bob.
 */
std::shared_ptr<MemoryCatalog> sampleCatalog();

} // namespace PickerCtl::test
