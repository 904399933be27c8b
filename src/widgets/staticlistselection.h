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

/**
 * The selected spans that move one place up (delta -1) or down (+1), in ascending order. A
 * selected block at the edge stays where it is, so gaps between selected rows close up one
 * place at a time and nothing leaves the list. The selection must be merged spans: then the
 * moving spans never share a neighbour and may be applied in any order.
 */
RowSpans movingSpans(const RowSpans &selected, int rowCount, int delta);
/// The selected spans after the moving ones (a subset of them) moved by delta.
RowSpans movedSpans(const RowSpans &selected, const RowSpans &moving, int delta);

} // namespace PickerCtl
