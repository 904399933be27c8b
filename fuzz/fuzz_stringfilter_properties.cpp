// The text filter editor's design-time properties as a host restores them from its saved bag.
#include "fuzzbag.h"

#include <PickerCtl/XStringFilter.h>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    PickerCtl::fuzz::restoreProperties<PickerCtl::XStringFilter>(data, size);
    return 0;
}
