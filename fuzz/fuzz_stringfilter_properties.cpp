// The text filter editor's design-time properties as a host restores them from its saved bag.
#include "fuzzbag.h"
#include "fuzzsupport.h"

#include <PickerCtl/XStringFilter.h>

using namespace PickerCtl;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    fuzz::ensureApplication();
    MemoryPropertyBag restored;
    fuzz::fillBag(restored, fuzz::bytes(data, size));

    XStringFilter editor;
    editor.ReadProperties(restored);
    editor.resize(editor.sizeHint());
    editor.grab();
    fuzz::processEvents();

    MemoryPropertyBag saved;
    editor.WriteProperties(saved);
    XStringFilter restoredAgain;
    restoredAgain.ReadProperties(saved);
    MemoryPropertyBag savedAgain;
    restoredAgain.WriteProperties(savedAgain);
    fuzz::require(fuzz::sameContent(saved, savedAgain), "saved properties restore to the same state");
    return 0;
}
