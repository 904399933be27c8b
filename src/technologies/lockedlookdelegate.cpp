#include "technologies/lockedlookdelegate.h"

namespace PickerCtl::Technologies {

void LockedLookDelegate::initStyleOption(QStyleOptionViewItem *option, const QModelIndex &index) const
{
    QStyledItemDelegate::initStyleOption(option, index);
    if (m_locked)
        option->state &= ~QStyle::State_Enabled;
}

} // namespace PickerCtl::Technologies
