#pragma once

#include <memory>

namespace PickerCtl::detail {

// One instance of a per-thread service: created on first use, kept until the thread ends. The slot
// lives in a function-local thread_local so that the shared library owns it.
template<class Service>
std::shared_ptr<Service> &serviceSlot()
{
    thread_local std::shared_ptr<Service> slot;
    return slot;
}

} // namespace PickerCtl::detail
