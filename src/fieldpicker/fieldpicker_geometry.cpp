#include "fieldpicker/fieldpicker_p.h"

#include <PickerCtl/HostSite.h>
#include <PickerCtl/Splitter.h>

#include <QFrame>
#include <QLabel>
#include <QTreeView>

namespace PickerCtl {

using fieldpicker::TwipsRect;

void XFieldPicker::Private::layout()
{
    const fieldpicker::LayoutInput input{design.templateView, design.captionVisible, q->SplitterLeft(),
                                         q->SplitterWidth(), float(site->ScaleWidth()),
                                         float(site->ScaleHeight()), headerHeightTwips()};
    const fieldpicker::LayoutResult result = fieldpicker::computeLayout(input);
    place(lblSplitter, result.bar);
    place(lblHeaderLeft, result.headerLeft);
    place(tvw, result.tree);
    place(lblHeaderRight, result.headerRight);
    place(stl, result.list);
}

// Both headers share the control's font; the text line is measured with the frame around it.
float XFieldPicker::Private::headerHeightTwips() const
{
    const int line = lblHeaderLeft->fontMetrics().height() + 2 * lblHeaderLeft->frameWidth();
    return fieldpicker::headerHeightFor(float(site->pixelsToTwipsY(line)));
}

void XFieldPicker::Private::place(QWidget *widget, const std::optional<TwipsRect> &twips)
{
    if (!twips)
        return;
    widget->setGeometry(site->twipsToPixels(QRectF(twips->left, twips->top, twips->width, twips->height)));
}

QRect XFieldPicker::Private::barPixels(float left, float width) const
{
    return site->twipsToPixels(QRectF(left, 0, width, 0));
}

void XFieldPicker::Private::moveBar(float left, float width)
{
    splitterLeftTwips = left;
    splitterWidthTwips = width;
    const QRect bar = barPixels(left, width);
    lblSplitter->setGeometry(bar.x(), lblSplitter->y(), bar.width(), lblSplitter->height());
}

// The bar's pixels are the truth (the user drags it); the twips last put are returned as long as
// the bar still stands where they put it, so that a put followed by a get is exact.
float XFieldPicker::Private::barLeftTwips() const
{
    if (lblSplitter->x() == barPixels(splitterLeftTwips, splitterWidthTwips).x())
        return splitterLeftTwips;
    return float(site->pixelsToTwipsX(lblSplitter->x()));
}

float XFieldPicker::Private::barWidthTwips() const
{
    const QRect expected = barPixels(splitterLeftTwips, splitterWidthTwips);
    if (lblSplitter->x() == expected.x() && lblSplitter->width() == expected.width())
        return splitterWidthTwips;
    return float(site->pixelsToTwipsX(lblSplitter->width()));
}

void XFieldPicker::Private::attachSplitter()
{
    splitter->Attach(lblSplitter, pbTemp, true, Splitter::NoLimit, Splitter::NoLimit);
}

void XFieldPicker::Private::onSplit()
{
    layout();
    Q_EMIT q->SplitterAdjustment();
}

} // namespace PickerCtl
