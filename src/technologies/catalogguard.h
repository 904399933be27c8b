#pragma once

#include <QDebug>
#include <exception>

namespace PickerCtl::Technologies {

/**
 * Runs a step that asks the catalogue and keeps whatever it throws inside the control: the
 * catalogue belongs to the host and may throw anything, not only CatalogError. Returns false,
 * after logging the failure, when the step threw.
 */
template<typename Step>
bool runGuarded(const char *operation, Step &&step) noexcept
{
    try {
        step();
        return true;
    } catch (const std::exception &error) {
        qWarning().noquote() << operation << "failed:" << error.what();
    } catch (...) {
        qWarning().noquote() << operation << "failed: the catalogue threw an unknown exception";
    }
    return false;
}

} // namespace PickerCtl::Technologies
