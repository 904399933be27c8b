#include "exptemplate/exptemplate_p.h"

#include <PickerCtl/XStaticList.h>

#include <QAbstractItemView>
#include <QComboBox>
#include <QKeyEvent>
#include <QLineEdit>
#include <QToolButton>

namespace PickerCtl {

namespace {

bool isEnter(const QKeyEvent *key)
{
    return (key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter)
           && !(key->modifiers() & ~(Qt::KeypadModifier | Qt::ShiftModifier));
}

enum class TemplateKey { None, Delete, MoveUp, MoveDown };

TemplateKey templateKey(const QKeyEvent *key)
{
    const Qt::KeyboardModifiers modifiers = key->modifiers() & ~Qt::KeypadModifier;
    if (key->key() == Qt::Key_Delete && modifiers == Qt::NoModifier)
        return TemplateKey::Delete;
    if (key->key() == Qt::Key_Up && modifiers == Qt::ControlModifier)
        return TemplateKey::MoveUp;
    if (key->key() == Qt::Key_Down && modifiers == Qt::ControlModifier)
        return TemplateKey::MoveDown;
    return TemplateKey::None;
}

} // namespace

void XExpTemplate::Private::watchKeys()
{
    for (QWidget *box : {static_cast<QWidget *>(cboEntityTypes), static_cast<QWidget *>(cboTechTypes),
                         static_cast<QWidget *>(cboFieldTypes), static_cast<QWidget *>(txtNameFilter)})
        box->installEventFilter(q);
    const QList<QAbstractItemView *> views = stlSelected->findChildren<QAbstractItemView *>();
    for (QAbstractItemView *view : views)
        view->installEventFilter(q);
}

bool XExpTemplate::Private::isCriterionBox(const QObject *object) const
{
    return object == cboEntityTypes || object == cboTechTypes || object == cboFieldTypes || object == txtNameFilter;
}

bool XExpTemplate::Private::isTemplateView(const QObject *object) const
{
    const auto *view = qobject_cast<const QAbstractItemView *>(object);
    return view && view->parentWidget() == stlSelected;
}

bool XExpTemplate::Private::handleKey(QObject *watched, QEvent *event)
{
    if (event->type() != QEvent::KeyPress && event->type() != QEvent::ShortcutOverride)
        return false;
    auto *key = static_cast<QKeyEvent *>(event);
    const bool press = event->type() == QEvent::KeyPress;
    if (isCriterionBox(watched) && isEnter(key)) {
        // Swallowed: no default button of the host's dialog fires, no beep.
        if (press)
            findForUser();
        else
            event->accept();
        return press;
    }
    if (!isTemplateView(watched))
        return false;
    const TemplateKey action = templateKey(key);
    const bool enabled = (action == TemplateKey::Delete && cmdRemove->isEnabled())
                         || (action == TemplateKey::MoveUp && cmdMoveUp->isEnabled())
                         || (action == TemplateKey::MoveDown && cmdMoveDown->isEnabled());
    if (!enabled)
        return false;
    if (!press) {
        // Claim the key before a shortcut of the host's window takes it.
        event->accept();
        return false;
    }
    if (action == TemplateKey::Delete)
        remove();
    else if (action == TemplateKey::MoveUp)
        moveUp();
    else
        moveDown();
    return true;
}

} // namespace PickerCtl
