#pragma once

#include <PickerCtl/pickerctl_export.h>

#include <optional>

namespace PickerCtl::Filters {

/// Gap in twips between the caption and the expression column.
inline constexpr double CaptionGapTwips = 120.0;
/// Vertical gap in twips between the rows of the string filter.
inline constexpr double RowGapTwips = 60.0;

/// Where the expression box and the option boxes start, and how wide the expression box is.
struct ExpressionColumn
{
    double left = 0.0;
    /// nullopt when the control is narrower than the caption: the box keeps its old width.
    std::optional<double> width;
};

/// The expression column of a control of innerWidth whose caption is captionWidth wide, in twips.
PICKERCTL_AUTOTEST_EXPORT
ExpressionColumn expressionColumn(double captionWidth, double innerWidth);

} // namespace PickerCtl::Filters
