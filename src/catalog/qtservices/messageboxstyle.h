#pragma once

#include <PickerCtl/pickerctl_export.h>

#include <QMessageBox>

namespace PickerCtl {

/// What a message style asks of a message box: its buttons, icon and default button.
struct MessageBoxLayout
{
    QMessageBox::StandardButtons buttons = QMessageBox::Ok;
    QMessageBox::Icon icon = QMessageBox::NoIcon;
    QMessageBox::StandardButton defaultButton = QMessageBox::Ok;
};

/**
 * Reads a message style: the low four bits choose the buttons (0 OK, 1 OK/Cancel,
 * 3 Yes/No/Cancel, 4 Yes/No, 7 Yes / Yes to All / No / Cancel), 16/32/48/64 the icon and
 * 256/512 make the second or third button the default. Unknown button sets fall back to OK.
 */
PICKERCTL_AUTOTEST_EXPORT
MessageBoxLayout messageBoxLayout(qint32 style);

/// The answer code of a clicked button; a box closed without a button answers as Cancel (2).
PICKERCTL_AUTOTEST_EXPORT
qint32 messageAnswer(QMessageBox::StandardButton clicked);

} // namespace PickerCtl
