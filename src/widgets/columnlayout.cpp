#include "widgets/columnlayout.h"

#include "widgets/fieldlistmodel.h"

#include <QHeaderView>

namespace PickerCtl {

std::vector<ColumnPlacement> resolveColumnLayout(const QList<ListColumnState> &saved,
                                                 const std::function<int(int column)> &defaultWidth)
{
    std::vector<ColumnPlacement> placement;
    std::vector<bool> placed(FieldListModel::ColumnCount, false);
    for (const ListColumnState &state : saved) {
        const int column = FieldListModel::columnFromId(state.id);
        if (column < 0 || placed[size_t(column)])
            continue;
        placed[size_t(column)] = true;
        const bool visible = state.visible || column == FieldListModel::NameColumn;
        placement.push_back({column, visible, state.width > 0 ? state.width : defaultWidth(column)});
    }
    for (int column = 0; column < FieldListModel::ColumnCount; ++column) {
        if (!placed[size_t(column)])
            placement.push_back({column, FieldListModel::columnVisibleByDefault(column), defaultWidth(column)});
    }
    return placement;
}

void applyColumnPlacement(QHeaderView *header, const std::vector<ColumnPlacement> &placement)
{
    for (size_t position = 0; position < placement.size(); ++position) {
        const ColumnPlacement &place = placement[position];
        if (place.column >= header->count())
            continue;
        const int from = header->visualIndex(place.column);
        if (from != int(position))
            header->moveSection(from, int(position));
        header->setSectionHidden(place.column, !place.visible);
        if (place.visible)
            header->resizeSection(place.column, place.width);
    }
}

QList<ListColumnState> captureColumnLayout(const QHeaderView *header, const std::vector<int> &lastWidths)
{
    QList<ListColumnState> layout;
    for (int position = 0; position < header->count(); ++position) {
        const int column = header->logicalIndex(position);
        ListColumnState state;
        state.id = FieldListModel::columnId(column);
        state.visible = !header->isSectionHidden(column);
        state.width = state.visible ? header->sectionSize(column)
                                    : (size_t(column) < lastWidths.size() ? lastWidths[size_t(column)] : 0);
        state.width = std::clamp(state.width, 0, ListViewProperties::MaxColumnWidth);
        layout.append(state);
    }
    return layout;
}

} // namespace PickerCtl
