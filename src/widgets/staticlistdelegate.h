#pragma once

#include <PickerCtl/pickerctl_export.h>

#include <QStyledItemDelegate>

class QAbstractItemView;

namespace PickerCtl {

/// Draws the selection as the list's FullRowSelect and HideSelection ask.
class PICKERCTL_AUTOTEST_EXPORT StaticListDelegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    explicit StaticListDelegate(QAbstractItemView *view);

    bool fullRowSelect() const { return m_fullRowSelect; }
    void setFullRowSelect(bool on) { m_fullRowSelect = on; }
    bool hideSelection() const { return m_hideSelection; }
    void setHideSelection(bool on) { m_hideSelection = on; }

    /// Whether a selected cell is drawn highlighted, given whether the view has the focus.
    bool drawsSelected(int column, bool viewHasFocus) const;

    void paint(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const override;

private:
    QAbstractItemView *m_view;
    bool m_fullRowSelect = false;
    bool m_hideSelection = true;
};

} // namespace PickerCtl
