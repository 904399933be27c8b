#include "exptemplate/templatelayout.h"

#include <algorithm>

namespace PickerCtl::ExpTemplate {

namespace {

float size(float value)
{
    // A negative size (a control narrower than its buttons) is drawn as nothing.
    return std::max(0.0f, value);
}

} // namespace

Layout computeLayout(const LayoutInput &in)
{
    Layout out;
    out.frame = {0, 0, size(in.width), size(in.height)};

    const float rowTop = in.entityLabelHeight;
    const float column = (in.width - 4 * Gap - in.applyWidth) / 4;
    out.columnWidth = column;
    float x = 0;
    for (int i = 0; i < 4; ++i) {
        out.criterionLabelLeft[i] = x;
        out.criterionBox[i] = {x, rowTop, size(column), 0};
        x += column + Gap;
    }
    out.applyLeft = x;

    const float buttonColumn = in.buttonWidth + 2 * Gap;
    const float step = in.buttonHeight + Gap;
    const float listWidth = (in.width - buttonColumn) / 2;
    const float selectedLeft = listWidth + buttonColumn;
    out.availableLabel = {0, in.listLabelTop, size(listWidth), 0};
    out.selectedLabel = {selectedLeft, in.listLabelTop, size(listWidth), 0};

    const float listTop = in.listLabelTop + in.listLabelHeight;
    const float listHeight = in.height - listTop;
    out.availableList = {0, listTop, size(listWidth), size(listHeight)};
    out.selectedList = {selectedLeft, listTop, size(listWidth), size(listHeight)};

    out.buttonLeft = listWidth + Gap;
    // The four buttons stand as a block centred on the lists, never above them.
    const float firstTop = std::max(listTop, (listHeight - 4 * step + Gap) / 2 + listTop);
    for (int i = 0; i < 4; ++i)
        out.buttonTop[i] = firstTop + i * step;
    return out;
}

} // namespace PickerCtl::ExpTemplate
