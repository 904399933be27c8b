#pragma once

#include <QStyledItemDelegate>

namespace PickerCtl::Technologies {

/// Draws the rows of a locked tree as disabled (the palette's disabled colours for the text and
/// the check boxes), so that the user sees that the ticks cannot be changed.
class LockedLookDelegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    using QStyledItemDelegate::QStyledItemDelegate;

    bool isLocked() const { return m_locked; }
    void setLocked(bool locked) { m_locked = locked; }

protected:
    void initStyleOption(QStyleOptionViewItem *option, const QModelIndex &index) const override;

private:
    bool m_locked = false;
};

} // namespace PickerCtl::Technologies
