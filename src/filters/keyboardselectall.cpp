#include "filters/keyboardselectall.h"

#include <QEvent>
#include <QFocusEvent>
#include <QLineEdit>

namespace PickerCtl::Filters {

KeyboardSelectAll::KeyboardSelectAll(QObject *parent)
    : QObject(parent)
{
}

void KeyboardSelectAll::watch(QLineEdit *box)
{
    box->installEventFilter(this);
}

bool KeyboardSelectAll::eventFilter(QObject *watched, QEvent *event)
{
    switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
        m_mouseDown = true;
        break;
    case QEvent::MouseButtonRelease:
        m_mouseDown = false;
        break;
    case QEvent::FocusIn: {
        const auto reason = static_cast<QFocusEvent *>(event)->reason();
        const bool byMouse = m_mouseDown || reason == Qt::MouseFocusReason;
        // Focus coming back with the window or from a closed popup is not the user entering the box.
        const bool returning = reason == Qt::ActiveWindowFocusReason || reason == Qt::PopupFocusReason;
        if (!byMouse && !returning) {
            if (auto *box = qobject_cast<QLineEdit *>(watched))
                box->selectAll();
        }
        break;
    }
    default:
        break;
    }
    return QObject::eventFilter(watched, event);
}

} // namespace PickerCtl::Filters
