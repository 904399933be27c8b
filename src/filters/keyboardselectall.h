#pragma once

#include <QObject>

class QLineEdit;

namespace PickerCtl::Filters {

/**
 * Makes text boxes select their whole text when the focus arrives from the keyboard (Tab, Backtab,
 * an access key, or the editor moving the focus to a bad value), so typing replaces the old value,
 * while a click keeps the caret where the user put it.
 *
 * One MouseDown flag serves every watched box of an editor: a press on any of them sets it, the
 * release clears it. Qt hands the focus over before it delivers the press that caused it, so a
 * focus change that Qt reports as caused by the mouse counts as a press in progress too.
 */
class KeyboardSelectAll : public QObject
{
    Q_OBJECT
public:
    explicit KeyboardSelectAll(QObject *parent = nullptr);

    void watch(QLineEdit *box);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    bool m_mouseDown = false;
};

} // namespace PickerCtl::Filters
