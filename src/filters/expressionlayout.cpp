#include "filters/expressionlayout.h"

namespace PickerCtl::Filters {

ExpressionColumn expressionColumn(double captionWidth, double innerWidth)
{
    ExpressionColumn column;
    column.left = captionWidth + CaptionGapTwips;
    const double width = innerWidth - column.left;
    if (width >= 0.0)
        column.width = width;
    return column;
}

} // namespace PickerCtl::Filters
