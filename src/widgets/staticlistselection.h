#pragma once

#include <QItemSelection>
#include <utility>
#include <vector>

namespace PickerCtl {

/// Inclusive row spans [first, last], sorted and merged.
using RowSpans = std::vector<std::pair<int, int>>;

/// The selected rows of a selection as merged spans (columns are ignored).
RowSpans rowSpansOf(const QItemSelection &selection);
/// Merges sorted or unsorted single rows into spans.
RowSpans rowSpansOfRows(std::vector<int> rows);
/// The rows of [0, rowCount) that the spans leave out.
RowSpans invertedSpans(const RowSpans &spans, int rowCount);
qint64 rowCountOf(const RowSpans &spans);
/// Whole-row selection ranges of the model for the spans.
QItemSelection selectionOf(const RowSpans &spans, const QAbstractItemModel *model);

/// One step of a selection move: the row that moves by one place (-1 up, +1 down).
struct RowMove
{
    int row;
    int delta;
};

/**
 * Moves that take every selected row one place up (delta -1) or down (+1). A selected block at
 * the edge stays where it is and stops the rows that follow it, so gaps between selected rows
 * close up one place at a time and nothing leaves the list. Moves are in the order to apply them.
 */
std::vector<RowMove> selectionMoves(const RowSpans &selected, int rowCount, int delta);
/// The selected spans after those moves.
RowSpans movedSpans(const RowSpans &selected, const std::vector<RowMove> &moves);

} // namespace PickerCtl
