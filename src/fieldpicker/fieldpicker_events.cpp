#include "fieldpicker/fieldpicker_p.h"

#include <QEvent>
#include <QTreeView>

// What the user does with the tree and the list, and the events the host hears of it.
namespace PickerCtl {

namespace {

/// Tells the control when the keyboard focus enters or leaves the tree and when a mouse press
/// starts on it.
class TreeWatcher : public QObject
{
public:
    TreeWatcher(QObject *parent, std::function<void()> focusChanged, std::function<void()> pressed)
        : QObject(parent)
        , m_focusChanged(std::move(focusChanged))
        , m_pressed(std::move(pressed))
    {
    }

protected:
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        switch (event->type()) {
        case QEvent::FocusIn:
        case QEvent::FocusOut:
            m_focusChanged();
            break;
        case QEvent::MouseButtonPress:
            m_pressed();
            break;
        default:
            break;
        }
        return QObject::eventFilter(watched, event);
    }

private:
    std::function<void()> m_focusChanged;
    std::function<void()> m_pressed;
};

} // namespace

void XFieldPicker::Private::connectTreeNotifications()
{
    QObject::connect(tvw->selectionModel(), &QItemSelectionModel::currentChanged, q,
                     [this](const QModelIndex &current) { onTreeCurrentChanged(current); });
    QObject::connect(tvw, &QTreeView::clicked, q, [this](const QModelIndex &node) {
        treePressed = false;
        onTreeClicked(node);
    });
    treeWatcher = new TreeWatcher(
        tvw, [this] { raiseStateChange(); },
        [this] {
            treePressed = true;
            nodeSelectedByPress = QPersistentModelIndex();
        });
    tvw->installEventFilter(treeWatcher);
    tvw->viewport()->installEventFilter(treeWatcher);
}

void XFieldPicker::Private::connectListNotifications()
{
    QObject::connect(stl, &XStaticList::ItemClick, q, [this](const FieldPtr &field) {
        Q_EMIT q->ItemClick(field);
        raiseStateChange();
    });
    QObject::connect(stl, &XStaticList::ItemDblClick, q,
                     [this](const FieldPtr &field) { Q_EMIT q->DblClick(field, q->SelectedCategory()); });
    QObject::connect(stl, &XStaticList::SelectionChange, q, [this] { raiseStateChange(); });
}

void XFieldPicker::Private::raiseStateChange()
{
    Q_EMIT q->StateChange();
}

} // namespace PickerCtl
