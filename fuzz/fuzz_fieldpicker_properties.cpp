// The field browser's design-time properties as a host restores them from its saved bag.
#include "fuzzbag.h"
#include "fuzzsupport.h"

#include <PickerCtl/XFieldPicker.h>

using namespace PickerCtl;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    fuzz::ensureApplication();
    MemoryPropertyBag restored;
    fuzz::fillBag(restored, fuzz::bytes(data, size));

    XFieldPicker picker;
    picker.ReadProperties(restored);
    picker.resize(picker.sizeHint());
    picker.grab();
    fuzz::processEvents();

    // Whatever was taken is saved in a form that restores to the same state.
    MemoryPropertyBag saved;
    picker.WriteProperties(saved);
    XFieldPicker restoredAgain;
    restoredAgain.ReadProperties(saved);
    MemoryPropertyBag savedAgain;
    restoredAgain.WriteProperties(savedAgain);
    fuzz::require(fuzz::sameContent(saved, savedAgain), "saved properties restore to the same state");
    return 0;
}
