#pragma once

// A benchmark's problem size, which an environment variable may override for a quick run on a
// busy machine.

#include <QtGlobal>

namespace PickerCtl::Bench {

/// The positive number in the environment variable `name`, else `fallback`.
inline int sizeFromEnvironment(const char *name, int fallback)
{
    bool ok = false;
    const int value = qEnvironmentVariableIntValue(name, &ok);
    return ok && value > 0 ? value : fallback;
}

} // namespace PickerCtl::Bench
