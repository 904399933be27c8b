#include "fieldpicker/fieldpicker_layout.h"

#include <PickerCtl/Enums.h>

#include <algorithm>

namespace PickerCtl::fieldpicker {

namespace {

float clampedToZero(float value)
{
    return std::max(value, 0.0f);
}

float paneTop(bool captionVisible)
{
    return captionVisible ? PaneTopWithHeaders : 0.0f;
}

float paneHeight(bool captionVisible, float surfaceHeight)
{
    return clampedToZero(captionVisible ? surfaceHeight - PaneTopWithHeaders : surfaceHeight);
}

// The tree-only placement keeps the header room even without captions, so the tree never jumps
// up when a host switches the captions off in this mode.
void placeTreeAlone(const LayoutInput &in, LayoutResult &out)
{
    out.headerLeft = TwipsRect{0, 0, in.surfaceWidth, HeaderHeight};
    out.tree = TwipsRect{0, PaneTopWithHeaders, in.surfaceWidth,
                         clampedToZero(in.surfaceHeight - PaneTopWithHeaders)};
}

void placeTwoPanes(const LayoutInput &in, LayoutResult &out)
{
    const float left = in.splitterLeft;
    const float barWidth = in.splitterWidth;
    // The bar spans the full height, headers included, and is never clamped.
    out.bar = TwipsRect{left, 0, barWidth, in.surfaceHeight};

    const float height = paneHeight(in.captionVisible, in.surfaceHeight);
    const float top = paneTop(in.captionVisible);

    if (left >= in.surfaceWidth) {
        placeTreeAlone(in, out);
    } else {
        out.headerLeft = TwipsRect{0, 0, left, HeaderHeight};
        out.tree = TwipsRect{0, top, left, height};
    }

    // A bar pushed to the right edge leaves the list side with width 0 rather than off the surface.
    const float rightWidth = clampedToZero(in.surfaceWidth - left - barWidth);
    out.headerRight = TwipsRect{left + barWidth, 0, rightWidth, HeaderHeight};
    out.list = TwipsRect{left + barWidth, top, rightWidth, height};
}

void placeListAlone(const LayoutInput &in, LayoutResult &out)
{
    out.headerRight = TwipsRect{0, 0, in.surfaceWidth, HeaderHeight};
    out.list = TwipsRect{0, paneTop(in.captionVisible), in.surfaceWidth,
                         paneHeight(in.captionVisible, in.surfaceHeight)};
}

} // namespace

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
