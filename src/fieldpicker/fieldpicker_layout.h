#pragma once

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

/// What one layout run reads: the view mode, the header flag, the bar's left edge L and width W and
/// the surface's inner width SW and height SH.
struct LayoutInput
{
    qint32 templateView = 0;
    bool captionVisible = true;
    float splitterLeft = 0;
    float splitterWidth = 0;
    float surfaceWidth = 0;
    float surfaceHeight = 0;
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

inline constexpr float HeaderHeight = 255.0f;
inline constexpr float HeaderGap = 30.0f;
inline constexpr float PaneTopWithHeaders = HeaderHeight + HeaderGap;

/// Places the pieces for the view mode: two panes, list only or tree only; any other mode places nothing.
LayoutResult computeLayout(const LayoutInput &in);

} // namespace PickerCtl::fieldpicker
