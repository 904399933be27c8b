#pragma once

#include <PickerCtl/PropertyBag.h>

#include <QByteArray>

namespace PickerCtl::fuzz {

/**
 * A restored bag as a host's store may hand it back: one "Key=value" line per entry, the value
 * tagged as fuzz::variant reads it. Lines without "=" are skipped.
 */
void fillBag(MemoryPropertyBag &bag, const QByteArray &input);

/// True when both bags hold the same keys with equal values.
bool sameContent(const PropertyBag &a, const PropertyBag &b);

} // namespace PickerCtl::fuzz
