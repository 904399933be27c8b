#include "widgets/staticlistdelegate.h"

#include <QAbstractItemView>

namespace PickerCtl {

StaticListDelegate::StaticListDelegate(QAbstractItemView *view)
    : QStyledItemDelegate(view)
    , m_view(view)
{
}

bool StaticListDelegate::drawsSelected(int column, bool viewHasFocus) const
{
    if (m_hideSelection && !viewHasFocus)
        return false;
    return m_fullRowSelect || column == 0;
}

void StaticListDelegate::paint(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const
{
    if (!(option.state & QStyle::State_Selected)) {
        QStyledItemDelegate::paint(painter, option, index);
        return;
    }
    QStyleOptionViewItem adjusted(option);
    if (!drawsSelected(index.column(), m_view->hasFocus()))
        adjusted.state &= ~QStyle::State_Selected;
    QStyledItemDelegate::paint(painter, adjusted, index);
}

} // namespace PickerCtl
