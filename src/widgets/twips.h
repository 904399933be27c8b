#pragma once

#include <QRect>
#include <QRectF>

class QWidget;

namespace PickerCtl {

/// Twips per inch: layouts are given in twips, 1/1440 inch.
inline constexpr double TwipsPerInch = 1440.0;

constexpr double twipsToPixels(double twips, double dpi)
{
    return twips * dpi / TwipsPerInch;
}

constexpr double pixelsToTwips(double pixels, double dpi)
{
    return pixels * TwipsPerInch / dpi;
}

/// Logical DPI of the widget's screen (the application's primary screen without a widget).
double logicalDpiX(const QWidget *widget);
double logicalDpiY(const QWidget *widget);

/// Twips to whole pixels on the widget's screen, rounded to the nearest pixel.
int twipsToPixelsX(const QWidget *widget, double twips);
int twipsToPixelsY(const QWidget *widget, double twips);
double pixelsToTwipsX(const QWidget *widget, int pixels);
double pixelsToTwipsY(const QWidget *widget, int pixels);

/**
 * A rectangle in twips to pixels. The edges are rounded, not the sizes, so rectangles that touch
 * in twips touch in pixels (no gap, no overlap); a negative width or height becomes 0.
 */
QRect twipsRectToPixels(const QRectF &twips, double dpiX, double dpiY);
QRect twipsRectToPixels(const QWidget *widget, const QRectF &twips);
QRectF pixelRectToTwips(const QRect &pixels, double dpiX, double dpiY);
QRectF pixelRectToTwips(const QWidget *widget, const QRect &pixels);

} // namespace PickerCtl
