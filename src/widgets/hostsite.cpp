#include <PickerCtl/HostSite.h>

#include "widgets/twips.h"

#include <QApplication>
#include <QCursor>
#include <QMenu>
#include <QPalette>
#include <QWidget>

#include <optional>

namespace PickerCtl {

namespace {

// Per-widget count of outstanding redraw-offs; it lives and dies with the widget.
constexpr char RedrawOffCountProperty[] = "_pickerctl_redrawOffCount";

int redrawOffCount(const QWidget *widget)
{
    return widget->property(RedrawOffCountProperty).toInt();
}

} // namespace

class HostSite::Private
{
public:
    QWidget *control = nullptr;
    QColor backColor;
    QColor foreColor;
    std::optional<QFont> font;

    QPalette ambientPalette() const
    {
        const QWidget *parent = control->parentWidget();
        return parent ? parent->palette() : QApplication::palette();
    }
};

HostSite::HostSite(QWidget *control)
    : QObject(control)
    , d(std::make_unique<Private>())
{
    d->control = control;
}

HostSite::~HostSite() = default;

QWidget *HostSite::control() const
{
    return d->control;
}

QColor HostSite::AmbientBackColor() const
{
    return d->backColor.isValid() ? d->backColor : d->ambientPalette().color(QPalette::Window);
}

QColor HostSite::AmbientForeColor() const
{
    return d->foreColor.isValid() ? d->foreColor : d->ambientPalette().color(QPalette::WindowText);
}

QFont HostSite::AmbientFont() const
{
    if (d->font)
        return *d->font;
    const QWidget *parent = d->control->parentWidget();
    return parent ? parent->font() : QApplication::font();
}

void HostSite::setAmbientBackColor(const QColor &color)
{
    d->backColor = color;
}

void HostSite::setAmbientForeColor(const QColor &color)
{
    d->foreColor = color;
}

void HostSite::setAmbientFont(const QFont &font)
{
    d->font = font;
}

void HostSite::resetAmbientFont()
{
    d->font.reset();
}

void HostSite::propertyChanged(const QString &key)
{
    Q_EMIT PropertyChanged(key);
}

int HostSite::twipsToPixelsX(double twips) const
{
    return PickerCtl::twipsToPixelsX(d->control, twips);
}

int HostSite::twipsToPixelsY(double twips) const
{
    return PickerCtl::twipsToPixelsY(d->control, twips);
}

double HostSite::pixelsToTwipsX(int pixels) const
{
    return PickerCtl::pixelsToTwipsX(d->control, pixels);
}

double HostSite::pixelsToTwipsY(int pixels) const
{
    return PickerCtl::pixelsToTwipsY(d->control, pixels);
}

QRect HostSite::twipsToPixels(const QRectF &twips) const
{
    return twipsRectToPixels(d->control, twips);
}

QRectF HostSite::pixelsToTwips(const QRect &pixels) const
{
    return pixelRectToTwips(d->control, pixels);
}

double HostSite::ScaleWidth() const
{
    return pixelsToTwipsX(d->control->contentsRect().width());
}

double HostSite::ScaleHeight() const
{
    return pixelsToTwipsY(d->control->contentsRect().height());
}

void HostSite::setRedraw(QWidget *widget, bool on)
{
    if (!widget)
        return;
    const int count = redrawOffCount(widget);
    if (!on) {
        widget->setProperty(RedrawOffCountProperty, count + 1);
        if (count == 0)
            widget->setUpdatesEnabled(false);
        return;
    }
    if (count > 1) {
        widget->setProperty(RedrawOffCountProperty, count - 1);
        return;
    }
    widget->setProperty(RedrawOffCountProperty, QVariant());
    widget->setUpdatesEnabled(true);
    widget->update();
}

bool HostSite::isRedrawOff(const QWidget *widget)
{
    return widget && redrawOffCount(widget) > 0;
}

void HostSite::showPopupMenu(QMenu *menu)
{
    if (menu)
        menu->popup(QCursor::pos());
}

} // namespace PickerCtl
