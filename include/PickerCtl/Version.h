#pragma once

#include <PickerCtl/pickerctl_export.h>

namespace PickerCtl {

/// The version of the PickerCtl library the application runs with, e.g. "0.1.0".
PICKERCTL_EXPORT const char *libraryVersion();

} // namespace PickerCtl
