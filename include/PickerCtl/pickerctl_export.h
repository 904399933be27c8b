#pragma once

// Symbols of the public API stay visible from the shared library; everything else is hidden.
#if defined(__GNUC__) || defined(__clang__)
#define PICKERCTL_EXPORT __attribute__((visibility("default")))
#else
#define PICKERCTL_EXPORT
#endif
