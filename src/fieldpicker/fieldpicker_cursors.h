#pragma once

#include <PickerCtl/pickerctl_export.h>

#include <QCursor>

namespace PickerCtl::fieldpicker {

/// The pointers shown while fields are dragged out of the list: one field (cursor 101) or several (102).
PICKERCTL_AUTOTEST_EXPORT
QCursor createSingleFieldDragCursor();
PICKERCTL_AUTOTEST_EXPORT
QCursor createMultipleFieldsDragCursor();

} // namespace PickerCtl::fieldpicker
