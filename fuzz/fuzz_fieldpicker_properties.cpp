// The field browser's design-time properties as a host restores them from its saved bag.
#include "fuzzbag.h"

#include <PickerCtl/XFieldPicker.h>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    PickerCtl::fuzz::restoreProperties<PickerCtl::XFieldPicker>(data, size);
    return 0;
}
