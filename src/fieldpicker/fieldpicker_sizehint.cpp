// How much room the field browser asks of a layout. Its children are placed by the twips layout,
// not by a QLayout, so the hints come from the same measures: the panes at the designed split, and
// at least both headers over a few rows of each pane.
#include "fieldpicker/fieldpicker_p.h"

#include <PickerCtl/HostSite.h>

#include <algorithm>

namespace PickerCtl {

namespace {

// Twips: the list gets three inches beside the tree, the panes two and a half inches of height.
constexpr float PreferredListWidth = 4320.0f;
constexpr float PreferredPaneHeight = 3600.0f;
// Half an inch of each pane still shows the start of a name; three quarters of an inch four rows.
constexpr float MinimumPaneWidth = 720.0f;
constexpr float MinimumPaneHeight = 1080.0f;
// A restored bag may hold any measure; a layout is never asked for more than fifty inches of tree
// or bar, far beyond any screen, so a hint stays a size the window system can paint.
constexpr float LargestHintedMeasure = 72000.0f;

float hinted(float twips)
{
    return std::clamp(twips, 0.0f, LargestHintedMeasure);
}

} // namespace

QSize XFieldPicker::sizeHint() const
{
    const float panes = d->design.templateView == tplTreeAndList
        ? hinted(SplitterLeft()) + hinted(SplitterWidth()) + PreferredListWidth
        : PreferredListWidth;
    const float paneTop = fieldpicker::paneTopWithHeaders(d->headerHeightTwips());
    return {d->site->twipsToPixelsX(panes), d->site->twipsToPixelsY(paneTop + PreferredPaneHeight)};
}

QSize XFieldPicker::minimumSizeHint() const
{
    const float panes = d->design.templateView == tplTreeAndList ? 2 * MinimumPaneWidth + hinted(SplitterWidth())
                                                          : MinimumPaneWidth;
    const float paneTop = fieldpicker::paneTopWithHeaders(d->headerHeightTwips());
    return {d->site->twipsToPixelsX(panes), d->site->twipsToPixelsY(paneTop + MinimumPaneHeight)};
}

} // namespace PickerCtl
