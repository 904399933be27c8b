#pragma once

#include <PickerCtl/pickerctl_export.h>

#include <QtGlobal>

#include <optional>

namespace PickerCtl::fieldpicker {

/// A rectangle in twips (1/1440 inch), single precision like the control's measures.
struct TwipsRect
{
    float left = 0;
    float top = 0;
    float width = 0;
    float height = 0;

    friend bool operator==(const TwipsRect &, const TwipsRect &) = default;
};

/// The designed header height, and the gap between the headers and the panes.
inline constexpr float HeaderHeight = 255.0f;
inline constexpr float HeaderGap = 30.0f;
/// The air a header keeps around its text line and frame: one pixel at the usual screen density.
inline constexpr float HeaderTextMargin = 15.0f;

/// What one layout run reads: the view mode, the header flag, the bar's left edge L and width W,
/// the surface's inner width SW and height SH, and the headers' height (see headerHeightFor).
struct LayoutInput
{
    qint32 templateView = 0;
    bool captionVisible = true;
    float splitterLeft = 0;
    float splitterWidth = 0;
    float surfaceWidth = 0;
    float surfaceHeight = 0;
    float headerHeight = HeaderHeight;
};

/// Where one layout run puts the pieces; an empty entry is a piece that the layout leaves where it is.
struct LayoutResult
{
    std::optional<TwipsRect> bar;
    std::optional<TwipsRect> headerLeft;
    std::optional<TwipsRect> tree;
    std::optional<TwipsRect> headerRight;
    std::optional<TwipsRect> list;
};

/// The headers' height for a text line lineHeight twips high, the header's frame included: the
/// designed height, unless a larger font needs more so that the caption is not clipped.
PICKERCTL_AUTOTEST_EXPORT
float headerHeightFor(float lineHeight);

/// Where the panes start under headers headerHeight twips high.
constexpr float paneTopWithHeaders(float headerHeight)
{
    return headerHeight + HeaderGap;
}

/// Places the pieces for the view mode: two panes, list only or tree only; any other mode places nothing.
PICKERCTL_AUTOTEST_EXPORT
LayoutResult computeLayout(const LayoutInput &in);

} // namespace PickerCtl::fieldpicker
