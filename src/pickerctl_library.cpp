// The shared library is assembled from the internal areas; this unit carries its version.
#include <PickerCtl/pickerctl_export.h>

namespace PickerCtl {
PICKERCTL_EXPORT const char *libraryVersion() { return "0.1.0"; }
}
