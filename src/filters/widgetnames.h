#pragma once

#include <QString>

namespace PickerCtl::Filters {

/// Gives a freshly made child widget its member name, so tests and style sheets find it.
template<typename T>
T *named(T *widget, const char *name)
{
    widget->setObjectName(QLatin1String(name));
    return widget;
}

} // namespace PickerCtl::Filters
