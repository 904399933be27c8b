#include "exptemplate/exptemplate_p.h"

#include "exptemplate/templatelayout.h"

#include <PickerCtl/HostSite.h>
#include <PickerCtl/XStaticList.h>

#include <QComboBox>
#include <QFrame>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QToolButton>

#include <algorithm>
#include <array>

namespace PickerCtl {

namespace {

// Characters a criterion box shows at its preferred width, and at the least.
constexpr int PreferredBoxCharacters = 18;
constexpr int MinimumBoxCharacters = 6;
// Rows of fields the lists show at the preferred height.
constexpr int PreferredListRows = 12;

/// The box keeps its height; the layout gives its left, top and width.
void place(QWidget *widget, const HostSite &site, const ExpTemplate::TwipsBox &box)
{
    const QRect pixels = site.twipsToPixels(QRectF(box.left, box.top, box.width, site.pixelsToTwipsY(widget->height())));
    widget->setGeometry(pixels.left(), pixels.top(), pixels.width(), widget->height());
}

void placeFully(QWidget *widget, const HostSite &site, const ExpTemplate::TwipsBox &box)
{
    widget->setGeometry(site.twipsToPixels(QRectF(box.left, box.top, box.width, box.height)));
}

void moveLeft(QWidget *widget, const HostSite &site, float left)
{
    widget->move(site.twipsToPixelsX(left), widget->y());
}

} // namespace

void XExpTemplate::Private::placeDesign()
{
    // The design sizes: labels and boxes as tall as their text, square picture buttons, and the
    // list labels one gap below the criterion boxes.
    for (QLabel *label : {lblEntity, lblTechTypes, lblFieldTypes, lblNameFilter}) {
        label->resize(label->sizeHint());
        label->move(label->x(), 0);
    }
    for (QWidget *box : {static_cast<QWidget *>(cboEntityTypes), static_cast<QWidget *>(cboTechTypes),
                         static_cast<QWidget *>(cboFieldTypes), static_cast<QWidget *>(txtNameFilter)})
        box->resize(box->width(), box->sizeHint().height());
    cmdApply->resize(cmdApply->sizeHint().width(), cboEntityTypes->height());
    for (QToolButton *button : {cmdAdd, cmdRemove, cmdMoveUp, cmdMoveDown}) {
        const QSize hint = button->sizeHint();
        const int side = std::max(hint.width(), hint.height());
        button->resize(side, side);
    }
    const int rowTop = lblEntity->height();
    cmdApply->move(cmdApply->x(), rowTop);
    const int labelTop = rowTop + cboEntityTypes->height() + site->twipsToPixelsY(ExpTemplate::Gap);
    for (QLabel *label : {lblAvailable, lblSelected}) {
        label->resize(label->width(), label->sizeHint().height());
        label->move(label->x(), labelTop);
    }
}

void XExpTemplate::Private::layout()
{
    const QRect inner = q->contentsRect();
    frmExpress->setGeometry(inner);
    lblEntity->raise();
    lblTechTypes->lower();

    ExpTemplate::LayoutInput in;
    in.width = float(site->ScaleWidth());
    in.height = float(site->ScaleHeight());
    in.entityLabelHeight = float(site->pixelsToTwipsY(lblEntity->height()));
    in.applyWidth = float(site->pixelsToTwipsX(cmdApply->width()));
    in.buttonWidth = float(site->pixelsToTwipsX(cmdAdd->width()));
    in.buttonHeight = float(site->pixelsToTwipsY(cmdAdd->height()));
    in.listLabelTop = float(site->pixelsToTwipsY(lblAvailable->y()));
    in.listLabelHeight = float(site->pixelsToTwipsY(lblAvailable->height()));
    const ExpTemplate::Layout out = ExpTemplate::computeLayout(in);

    const std::array<QLabel *, 4> labels{lblEntity, lblTechTypes, lblFieldTypes, lblNameFilter};
    const std::array<QWidget *, 4> boxes{cboEntityTypes, cboTechTypes, cboFieldTypes, txtNameFilter};
    for (size_t i = 0; i < labels.size(); ++i) {
        moveLeft(labels[i], *site, out.criterionLabelLeft[i]);
        place(boxes[i], *site, out.criterionBox[i]);
    }
    moveLeft(cmdApply, *site, out.applyLeft);
    place(lblAvailable, *site, out.availableLabel);
    place(lblSelected, *site, out.selectedLabel);
    placeFully(stlAvailable, *site, out.availableList);
    placeFully(stlSelected, *site, out.selectedList);
    const std::array<QToolButton *, 4> buttons{cmdAdd, cmdRemove, cmdMoveUp, cmdMoveDown};
    for (size_t i = 0; i < buttons.size(); ++i)
        buttons[i]->move(site->twipsToPixelsX(out.buttonLeft), site->twipsToPixelsY(out.buttonTop[i]));
}

QSize XExpTemplate::Private::preferredSize(bool minimum) const
{
    const int gap = site->twipsToPixelsX(ExpTemplate::Gap);
    const int character = q->fontMetrics().averageCharWidth();
    const int box = character * (minimum ? MinimumBoxCharacters : PreferredBoxCharacters);
    const int width = 4 * (box + gap) + cmdApply->width();
    const int step = cmdAdd->height() + site->twipsToPixelsY(ExpTemplate::Gap);
    const int rows = q->fontMetrics().height() * (minimum ? 4 : PreferredListRows);
    const int listTop = lblAvailable->y() + lblAvailable->height();
    const QMargins margins = q->contentsMargins();
    return QSize(width + margins.left() + margins.right(),
                 listTop + std::max(4 * step, rows) + margins.top() + margins.bottom());
}

} // namespace PickerCtl
