#pragma once

#include <QCursor>

namespace PickerCtl::fieldpicker {

/// The pointers shown while fields are dragged out of the list: one field (cursor 101) or several (102).
QCursor createSingleFieldDragCursor();
QCursor createMultipleFieldsDragCursor();

} // namespace PickerCtl::fieldpicker
