#pragma once

#include <PickerCtl/pickerctl_export.h>

#include <QObject>
#include <Qt>

#include <functional>

class QWidget;

namespace PickerCtl::fieldpicker {

/// What a key does in the field browser, beyond what the tree and the list do by themselves.
enum class KeyAction {
    None,        ///< the key is left to the widget
    Activate,    ///< as a double click on the focused field
    Delete,      ///< as the list menu's Delete entry
    ContextMenu, ///< as a right click: the context menu of the widget that has the focus
    Copy,        ///< copies the selection
    SelectAll,   ///< selects every field of the list
};

/// Where the key was pressed.
enum class KeyTarget { Tree, List };

/// Return or Enter, Delete, Ctrl+C and Ctrl+A act on the list only; the Menu key and Shift+F10
/// ask for the context menu in both. A key with any other modifier is left alone.
PICKERCTL_AUTOTEST_EXPORT KeyAction keyAction(KeyTarget target, int key, Qt::KeyboardModifiers modifiers);

/**
 * Watches the key presses of the widgets given to watch() and hands each mapped key to the
 * handler, which answers whether it acted: an acted-on key goes no further. Shortcut overrides of
 * mapped keys are accepted, so that the keys reach the focused widget ahead of a host's shortcuts.
 */
class PICKERCTL_AUTOTEST_EXPORT KeyFilter : public QObject
{
    Q_OBJECT
public:
    using Handler = std::function<bool(KeyAction action)>;

    KeyFilter(KeyTarget target, Handler handler, QObject *parent = nullptr);
    void watch(QWidget *widget);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    KeyTarget m_target;
    Handler m_handler;
};

} // namespace PickerCtl::fieldpicker
