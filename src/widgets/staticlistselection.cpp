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

RowSpans movingSpans(const RowSpans &selected, int rowCount, int delta)
{
    if (selected.empty() || (delta != -1 && delta != 1))
        return {};
    // Merged spans leave a gap between them, so only a span at the edge it moves towards stays.
    auto first = selected.begin();
    auto last = selected.end();
    if (delta == -1 && first->first == 0)
        ++first;
    else if (delta == 1 && selected.back().second == rowCount - 1)
        --last;
    return RowSpans(first, last);
}

RowSpans movedSpans(const RowSpans &selected, const RowSpans &moving, int delta)
{
    RowSpans spans;
    spans.reserve(selected.size());
    auto next = moving.begin();
    for (const auto &span : selected) {
        if (next != moving.end() && *next == span) {
            spans.emplace_back(span.first + delta, span.second + delta);
            ++next;
        } else {
            spans.push_back(span);
        }
    }
    return merged(std::move(spans));
}

} // namespace PickerCtl
