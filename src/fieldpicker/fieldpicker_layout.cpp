#include "fieldpicker/fieldpicker_layout.h"

#include <PickerCtl/Enums.h>

#include <algorithm>

namespace PickerCtl::fieldpicker {

namespace {

float clampedToZero(float value)
{
    return std::max(value, 0.0f);
}

float paneTop(const LayoutInput &in)
{
    return in.captionVisible ? paneTopWithHeaders(in.headerHeight) : 0.0f;
}

float paneHeight(const LayoutInput &in)
{
    return clampedToZero(in.surfaceHeight - paneTop(in));
}

// The tree-only placement keeps the header room even without captions, so the tree never jumps
// up when a host switches the captions off in this mode.
void placeTreeAlone(const LayoutInput &in, LayoutResult &out)
{
    const float top = paneTopWithHeaders(in.headerHeight);
    out.headerLeft = TwipsRect{0, 0, in.surfaceWidth, in.headerHeight};
    out.tree = TwipsRect{0, top, in.surfaceWidth, clampedToZero(in.surfaceHeight - top)};
}

void placeTwoPanes(const LayoutInput &in, LayoutResult &out)
{
    const float left = in.splitterLeft;
    const float barWidth = in.splitterWidth;
    // The bar spans the full height, headers included, and is never clamped.
    out.bar = TwipsRect{left, 0, barWidth, in.surfaceHeight};

    const float height = paneHeight(in);
    const float top = paneTop(in);

    if (left >= in.surfaceWidth) {
        placeTreeAlone(in, out);
    } else {
        out.headerLeft = TwipsRect{0, 0, left, in.headerHeight};
        out.tree = TwipsRect{0, top, left, height};
    }

    // A bar pushed to the right edge leaves the list side with width 0 rather than off the surface.
    const float rightWidth = clampedToZero(in.surfaceWidth - left - barWidth);
    out.headerRight = TwipsRect{left + barWidth, 0, rightWidth, in.headerHeight};
    out.list = TwipsRect{left + barWidth, top, rightWidth, height};
}

void placeListAlone(const LayoutInput &in, LayoutResult &out)
{
    out.headerRight = TwipsRect{0, 0, in.surfaceWidth, in.headerHeight};
    out.list = TwipsRect{0, paneTop(in), in.surfaceWidth, paneHeight(in)};
}

} // namespace

float headerHeightFor(float lineHeight)
{
    return std::max(HeaderHeight, lineHeight + HeaderTextMargin);
}

LayoutResult computeLayout(const LayoutInput &in)
{
    LayoutResult out;
    switch (in.templateView) {
    case tplTreeAndList:
        placeTwoPanes(in, out);
        break;
    case tplListOnly:
        placeListAlone(in, out);
        break;
    case tplTreeOnly:
        placeTreeAlone(in, out);
        break;
    default:
        break;
    }
    return out;
}

} // namespace PickerCtl::fieldpicker
