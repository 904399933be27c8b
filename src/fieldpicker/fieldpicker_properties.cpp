#include "fieldpicker/fieldpicker_p.h"

#include "fieldpicker/fieldpicker_keys.h"

#include <PickerCtl/HostSite.h>

#include <QFrame>
#include <QLabel>
#include <QTreeView>

namespace PickerCtl {

using namespace fieldpicker::keys;

namespace {

constexpr auto RootLabelEntities = "Entities";
constexpr auto RootLabelGeneric = "Generic";

} // namespace

void XFieldPicker::Private::notify(const char *key) const
{
    site->propertyChanged(QLatin1String(key));
}

ETPLSingleBranch XFieldPicker::SingleBranch() const
{
    return d->design.singleBranch;
}

void XFieldPicker::setSingleBranch(ETPLSingleBranch mode)
{
    d->design.singleBranch = mode;
}

QString XFieldPicker::RootLabel() const
{
    switch (d->design.rootLbl) {
    case tplEntities:
        return QLatin1String(RootLabelEntities);
    case tplGeneric:
        return QLatin1String(RootLabelGeneric);
    default:
        return QString();
    }
}

ETPLRootLbl XFieldPicker::RootLbl() const
{
    return d->design.rootLbl;
}

// Persisted under "RootLabel", yet its put tells the host nothing; hosts rely on both.
void XFieldPicker::setRootLbl(ETPLRootLbl mode)
{
    d->design.rootLbl = mode;
}

ETPLTemplateView XFieldPicker::TemplateView() const
{
    return d->design.templateView;
}

void XFieldPicker::setTemplateView(ETPLTemplateView mode)
{
    if (mode == d->design.templateView)
        return;
    if (mode == tplTreeOnly) {
        d->tvw->setVisible(true);
        d->stl->setVisible(false);
        d->stl->setShowEmptyText(false);
        d->lblHeaderLeft->setVisible(true);
        d->lblHeaderRight->setVisible(false);
    } else {
        // The list and its header are left as they are: leaving tree-only mode does not bring
        // the list back by itself.
        const bool twoPanes = mode == tplTreeAndList;
        d->tvw->setVisible(twoPanes);
        d->lblHeaderLeft->setVisible(twoPanes && d->design.captionVisible);
        d->lblSplitter->setVisible(twoPanes);
    }
    d->design.templateView = mode;
    d->layout();
    d->notify(KeyTemplateView);
}

XStaticList::EListStyle XFieldPicker::ListStyle() const
{
    return d->stl->ListStyle();
}

void XFieldPicker::setListStyle(XStaticList::EListStyle style)
{
    d->stl->setListStyle(style);
}

QColor XFieldPicker::BackColor() const
{
    return palette().color(QPalette::Window);
}

void XFieldPicker::setBackColor(const QColor &color)
{
    QPalette surface = palette();
    surface.setColor(QPalette::Window, color);
    QWidget::setPalette(surface);
    QPalette bar = d->lblSplitter->palette();
    bar.setColor(QPalette::Window, color);
    d->lblSplitter->setPalette(bar);
    d->notify(KeyBackColor);
}

QColor XFieldPicker::ForeColor() const
{
    return palette().color(QPalette::WindowText);
}

void XFieldPicker::setForeColor(const QColor &color)
{
    QPalette surface = palette();
    surface.setColor(QPalette::WindowText, color);
    QWidget::setPalette(surface);
    d->notify(KeyForeColor);
}

bool XFieldPicker::Enabled() const
{
    return isEnabled();
}

void XFieldPicker::setEnabled(bool on)
{
    QWidget::setEnabled(on);
    d->notify(KeyEnabled);
}

bool XFieldPicker::CaptionVisible() const
{
    return d->design.captionVisible;
}

void XFieldPicker::setCaptionVisible(bool visible)
{
    d->lblHeaderRight->setVisible(visible);
    if (d->design.templateView == tplTreeAndList) {
        d->lblHeaderLeft->setVisible(visible);
    } else if (d->design.templateView == tplTreeOnly) {
        d->lblHeaderLeft->setVisible(visible);
        d->lblHeaderRight->setVisible(false);
    }
    d->design.captionVisible = visible;
    d->layout();
    d->notify(KeyCaptionVisible);
}

bool XFieldPicker::AllowContextMenu() const
{
    return d->design.allowContextMenu;
}

void XFieldPicker::setAllowContextMenu(bool allow)
{
    d->design.allowContextMenu = allow;
    d->notify(KeyContextMenu);
}

bool XFieldPicker::AllowOpenMenu() const
{
    return d->design.allowOpenMenu;
}

void XFieldPicker::setAllowOpenMenu(bool allow)
{
    d->design.allowOpenMenu = allow;
    d->notify(KeyAllowOpenMenu);
}

bool XFieldPicker::AllowDragDrop() const
{
    return d->stl->AllowDragDrop();
}

void XFieldPicker::setAllowDragDrop(bool allow)
{
    d->stl->setAllowDragDrop(allow);
    d->notify(KeyAllowDragDrop);
}

QString XFieldPicker::OpenMenuCaption() const
{
    return d->design.openMenuCaption;
}

void XFieldPicker::setOpenMenuCaption(const QString &caption)
{
    d->design.openMenuCaption = caption;
    d->notify(KeyOpenMenuCaption);
}

bool XFieldPicker::ShowAll() const
{
    return d->design.showAll;
}

void XFieldPicker::setShowAll(bool showAll)
{
    d->design.showAll = showAll;
    d->notify(KeyShowAll);
}

bool XFieldPicker::MultiSelect() const
{
    return d->stl->MultiSelect();
}

void XFieldPicker::setMultiSelect(bool on)
{
    d->stl->setMultiSelect(on);
    if (d->view.filters().useForBusyHour && on)
        setUseForBusyHour(false);
    d->notify(KeyMultiSelect);
}

bool XFieldPicker::ShowEntityFld() const
{
    return d->design.showEntityFld;
}

void XFieldPicker::setShowEntityFld(bool show)
{
    d->design.showEntityFld = show;
    d->notify(KeyShowEntityField);
}

QString XFieldPicker::Caption() const
{
    return d->lblHeaderLeft->text();
}

void XFieldPicker::setCaption(const QString &caption)
{
    d->lblHeaderLeft->setText(caption);
    d->lblHeaderLeft->setToolTip(caption);
    d->notify(KeyCaption);
}

QFont XFieldPicker::Font() const
{
    return font();
}

void XFieldPicker::setFont(const QFont &newFont)
{
    QWidget::setFont(newFont);
    d->tvw->setFont(newFont);
    d->stl->setFont(newFont);
    d->notify(KeyFont);
}

float XFieldPicker::Indentation() const
{
    if (d->tvw->indentation() == d->site->twipsToPixelsX(d->indentationTwips))
        return d->indentationTwips;
    return float(d->site->pixelsToTwipsX(d->tvw->indentation()));
}

void XFieldPicker::setIndentation(float twips)
{
    d->indentationTwips = twips;
    d->tvw->setIndentation(d->site->twipsToPixelsX(twips));
    d->notify(KeyIndentation);
}

bool XFieldPicker::FullRowSelect() const
{
    return d->stl->FullRowSelect();
}

void XFieldPicker::setFullRowSelect(bool on)
{
    d->stl->setFullRowSelect(on);
    d->notify(KeyFullRowSelect);
}

float XFieldPicker::SplitterWidth() const
{
    return d->barWidthTwips();
}

void XFieldPicker::setSplitterWidth(float twips)
{
    d->moveBar(SplitterLeft(), twips);
    d->layout();
    d->notify(KeySplitterWidth);
}

float XFieldPicker::SplitterLeft() const
{
    return d->barLeftTwips();
}

void XFieldPicker::setSplitterLeft(float twips)
{
    d->moveBar(twips, SplitterWidth());
    d->layout();
    d->notify(KeySplitterLeft);
}

XStaticList::EArrangeIcons XFieldPicker::ArrangeIcons() const
{
    return d->stl->ArrangeIcons();
}

void XFieldPicker::setArrangeIcons(XStaticList::EArrangeIcons arrange)
{
    d->stl->setArrangeIcons(arrange);
}

qint32 XFieldPicker::ListCount() const
{
    return d->stl->ListCount();
}

quint16 XFieldPicker::ClipBoardFormatId() const
{
    return d->actions.clipboardFormatId();
}

FieldClipDataPtr XFieldPicker::ClipBoardData() const
{
    return d->actions.clipData();
}

qint32 XFieldPicker::SelectionCount() const
{
    return d->stl->SelectionCount();
}

bool XFieldPicker::Frozen() const
{
    return d->stl->Frozen();
}

void XFieldPicker::setFrozen(bool frozen)
{
    if (frozen == d->stl->Frozen())
        return;
    HostSite::setRedraw(d->tvw, !frozen);
    d->stl->setFrozen(frozen);
    d->raiseStateChange();
}

PropertyStorePtr XFieldPicker::Properties() const
{
    return d->stl->Properties();
}

void XFieldPicker::setProperties(const PropertyStorePtr &store)
{
    d->stl->setProperties(store);
}

} // namespace PickerCtl
