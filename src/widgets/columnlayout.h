#pragma once

#include <PickerCtl/ListViewProperties.h>
#include <PickerCtl/pickerctl_export.h>

#include <functional>
#include <vector>

class QHeaderView;

namespace PickerCtl {

/// Where one model column of the field list stands.
struct ColumnPlacement
{
    int column;
    bool visible;
    int width;
};

/**
 * The full placement of the field list's columns, in display order, from a saved layout:
 * ids the list does not know are dropped, columns the layout does not name follow at the end
 * with their defaults, a width of 0 takes the column's default, and the name column is shown.
 */
PICKERCTL_AUTOTEST_EXPORT
std::vector<ColumnPlacement> resolveColumnLayout(const QList<ListColumnState> &saved,
                                                 const std::function<int(int column)> &defaultWidth);

/// Moves, hides and sizes the header's sections as placed.
PICKERCTL_AUTOTEST_EXPORT
void applyColumnPlacement(QHeaderView *header, const std::vector<ColumnPlacement> &placement);

/// The header's columns in display order; hidden ones keep the width they had when shown.
PICKERCTL_AUTOTEST_EXPORT
QList<ListColumnState> captureColumnLayout(const QHeaderView *header, const std::vector<int> &lastWidths);

} // namespace PickerCtl
