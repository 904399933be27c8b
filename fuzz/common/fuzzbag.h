#pragma once

#include "fuzzsupport.h"

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

/**
 * A control's design-time properties as a host restores them from its saved bag: the control takes
 * what it can, lays out and paints, and whatever it took is saved in a form that restores to the
 * same state.
 */
template <typename Control>
void restoreProperties(const std::uint8_t *data, std::size_t size)
{
    ensureApplication();
    MemoryPropertyBag restored;
    fillBag(restored, bytes(data, size));

    Control control;
    control.ReadProperties(restored);
    control.resize(control.sizeHint());
    control.grab();
    processEvents();

    MemoryPropertyBag saved;
    control.WriteProperties(saved);
    Control restoredAgain;
    restoredAgain.ReadProperties(saved);
    MemoryPropertyBag savedAgain;
    restoredAgain.WriteProperties(savedAgain);
    require(sameContent(saved, savedAgain), "saved properties restore to the same state");
}

} // namespace PickerCtl::fuzz
