#include "fieldpicker/interaction_keys.h"

#include <QKeyEvent>
#include <QWidget>

namespace PickerCtl::fieldpicker {

KeyAction keyAction(KeyTarget target, int key, Qt::KeyboardModifiers modifiers)
{
    // The number pad's Enter carries the keypad modifier; it is the same key to a user.
    const Qt::KeyboardModifiers pressed = modifiers & ~Qt::KeypadModifier;
    if ((key == Qt::Key_Menu && pressed == Qt::NoModifier) || (key == Qt::Key_F10 && pressed == Qt::ShiftModifier))
        return KeyAction::ContextMenu;
    if (target != KeyTarget::List)
        return KeyAction::None;
    if (pressed == Qt::NoModifier) {
        if (key == Qt::Key_Return || key == Qt::Key_Enter)
            return KeyAction::Activate;
        if (key == Qt::Key_Delete)
            return KeyAction::Delete;
    }
    if (pressed == Qt::ControlModifier) {
        if (key == Qt::Key_C)
            return KeyAction::Copy;
        if (key == Qt::Key_A)
            return KeyAction::SelectAll;
    }
    return KeyAction::None;
}

KeyFilter::KeyFilter(KeyTarget target, Handler handler, QObject *parent)
    : QObject(parent)
    , m_target(target)
    , m_handler(std::move(handler))
{
}

void KeyFilter::watch(QWidget *widget)
{
    widget->installEventFilter(this);
}

bool KeyFilter::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() != QEvent::KeyPress && event->type() != QEvent::ShortcutOverride)
        return QObject::eventFilter(watched, event);
    auto *key = static_cast<QKeyEvent *>(event);
    const KeyAction action = keyAction(m_target, key->key(), key->modifiers());
    if (action == KeyAction::None)
        return QObject::eventFilter(watched, event);
    if (event->type() == QEvent::ShortcutOverride) {
        event->accept();
        return false;
    }
    if (!m_handler(action))
        return QObject::eventFilter(watched, event);
    event->accept();
    return true;
}

} // namespace PickerCtl::fieldpicker
