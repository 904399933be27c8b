#include "widgets/staticlistselection.h"

#include <algorithm>

namespace PickerCtl {

namespace {

RowSpans merged(RowSpans spans)
{
    std::sort(spans.begin(), spans.end());
    RowSpans result;
    for (const auto &span : spans) {
        if (!result.empty() && span.first <= result.back().second + 1)
            result.back().second = std::max(result.back().second, span.second);
        else
            result.push_back(span);
    }
    return result;
}

} // namespace

RowSpans rowSpansOf(const QItemSelection &selection)
{
    RowSpans spans;
    spans.reserve(size_t(selection.size()));
    for (const QItemSelectionRange &range : selection) {
        if (range.isValid())
            spans.emplace_back(range.top(), range.bottom());
    }
    return merged(std::move(spans));
}

RowSpans rowSpansOfRows(std::vector<int> rows)
{
    std::sort(rows.begin(), rows.end());
    RowSpans spans;
    for (int row : rows) {
        if (!spans.empty() && row <= spans.back().second + 1)
            spans.back().second = std::max(spans.back().second, row);
        else
            spans.emplace_back(row, row);
    }
    return spans;
}

RowSpans invertedSpans(const RowSpans &spans, int rowCount)
{
    RowSpans result;
    int next = 0;
    for (const auto &span : spans) {
        if (span.first > next)
            result.emplace_back(next, std::min(span.first, rowCount) - 1);
        next = std::max(next, span.second + 1);
        if (next >= rowCount)
            break;
    }
    if (next < rowCount)
        result.emplace_back(next, rowCount - 1);
    return result;
}

qint64 rowCountOf(const RowSpans &spans)
{
    qint64 count = 0;
    for (const auto &span : spans)
        count += span.second - span.first + 1;
    return count;
}

QItemSelection selectionOf(const RowSpans &spans, const QAbstractItemModel *model)
{
    QItemSelection selection;
    const int lastColumn = model->columnCount() - 1;
    if (lastColumn < 0)
        return selection;
    selection.reserve(qsizetype(spans.size()));
    for (const auto &span : spans)
        selection.append(QItemSelectionRange(model->index(span.first, 0), model->index(span.second, lastColumn)));
    return selection;
}

std::vector<RowMove> selectionMoves(const RowSpans &selected, int rowCount, int delta)
{
    std::vector<RowMove> moves;
    if (delta == -1) {
        int blocked = 0;  // rows above this one are taken by the block at the top edge
        for (const auto &span : selected) {
            if (span.first == blocked) {
                blocked = span.second + 1;
                continue;
            }
            for (int row = span.first; row <= span.second; ++row)
                moves.push_back({row, -1});
            blocked = span.second + 1;
        }
    } else if (delta == 1) {
        int blocked = rowCount - 1;
        for (auto it = selected.rbegin(); it != selected.rend(); ++it) {
            if (it->second == blocked) {
                blocked = it->first - 1;
                continue;
            }
            for (int row = it->second; row >= it->first; --row)
                moves.push_back({row, 1});
            blocked = it->first - 1;
        }
    }
    return moves;
}

RowSpans movedSpans(const RowSpans &selected, const std::vector<RowMove> &moves)
{
    std::vector<int> rows;
    rows.reserve(size_t(rowCountOf(selected)));
    for (const auto &span : selected) {
        for (int row = span.first; row <= span.second; ++row)
            rows.push_back(row);
    }
    std::vector<int> movedRows;
    movedRows.reserve(moves.size());
    for (const RowMove &move : moves)
        movedRows.push_back(move.row);
    std::sort(movedRows.begin(), movedRows.end());
    for (int &row : rows) {
        if (std::binary_search(movedRows.begin(), movedRows.end(), row))
            row += moves.front().delta;
    }
    return rowSpansOfRows(std::move(rows));
}

} // namespace PickerCtl
