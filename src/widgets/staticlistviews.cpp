#include "widgets/staticlistviews.h"

#include <QPainter>
#include <QPaintEvent>

namespace PickerCtl {

namespace {

constexpr int kEmptyTextMargin = 8;

} // namespace

void paintEmptyText(QWidget *viewport, const QString &text)
{
    QPainter painter(viewport);
    painter.setPen(viewport->palette().color(QPalette::PlaceholderText));
    const QRect area = viewport->rect().adjusted(kEmptyTextMargin, kEmptyTextMargin, -kEmptyTextMargin,
                                                 -kEmptyTextMargin);
    painter.drawText(area, Qt::AlignCenter | Qt::TextWordWrap, text);
}

StaticListTreeView::StaticListTreeView(const StaticListViewState &state, QWidget *parent)
    : QTreeView(parent)
    , m_state(state)
{
    // Every second row banded in the palette's AlternateBase, so the band follows a dark palette.
    setAlternatingRowColors(true);
}

void StaticListTreeView::keyboardSearch(const QString &search)
{
    // Typing looks up names whichever cell has the focus.
    const QModelIndex current = currentIndex();
    if (current.isValid() && current.column() != 0)
        selectionModel()->setCurrentIndex(current.siblingAtColumn(0), QItemSelectionModel::NoUpdate);
    QTreeView::keyboardSearch(search);
}

void StaticListTreeView::paintEvent(QPaintEvent *event)
{
    if (m_state.showEmptyText) {
        paintEmptyText(viewport(), m_state.emptyText);
        return;
    }
    QTreeView::paintEvent(event);
}

void StaticListTreeView::startDrag(Qt::DropActions supportedActions)
{
    if (m_state.startDrag)
        m_state.startDrag(supportedActions);
}

StaticListIconView::StaticListIconView(const StaticListViewState &state, QWidget *parent)
    : QListView(parent)
    , m_state(state)
{
}

void StaticListIconView::paintEvent(QPaintEvent *event)
{
    if (m_state.showEmptyText) {
        paintEmptyText(viewport(), m_state.emptyText);
        return;
    }
    QListView::paintEvent(event);
}

void StaticListIconView::startDrag(Qt::DropActions supportedActions)
{
    if (m_state.startDrag)
        m_state.startDrag(supportedActions);
}

} // namespace PickerCtl
