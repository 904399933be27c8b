// The shared library is assembled from the internal areas; this unit carries its version.
#include <PickerCtl/Version.h>

namespace PickerCtl {

const char *libraryVersion()
{
    return PICKERCTL_VERSION;
}

} // namespace PickerCtl
