#pragma once

#include <PickerCtl/pickerctl_export.h>

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
PICKERCTL_AUTOTEST_EXPORT
double logicalDpiX(const QWidget *widget);
PICKERCTL_AUTOTEST_EXPORT
double logicalDpiY(const QWidget *widget);

/// Twips to whole pixels on the widget's screen, rounded to the nearest pixel. Results saturate
/// at +/-16777215 pixels (Qt's largest widget size); NaN gives 0.
PICKERCTL_AUTOTEST_EXPORT
int twipsToPixelsX(const QWidget *widget, double twips);
PICKERCTL_AUTOTEST_EXPORT
int twipsToPixelsY(const QWidget *widget, double twips);
PICKERCTL_AUTOTEST_EXPORT
double pixelsToTwipsX(const QWidget *widget, int pixels);
PICKERCTL_AUTOTEST_EXPORT
double pixelsToTwipsY(const QWidget *widget, int pixels);

/**
 * A rectangle in twips to pixels. The edges are rounded, not the sizes, so rectangles that touch
 * in twips touch in pixels (no gap, no overlap); a negative width or height becomes 0. Edges
 * saturate like single values, so no input overflows.
 */
PICKERCTL_AUTOTEST_EXPORT
QRect twipsRectToPixels(const QRectF &twips, double dpiX, double dpiY);
PICKERCTL_AUTOTEST_EXPORT
QRect twipsRectToPixels(const QWidget *widget, const QRectF &twips);
PICKERCTL_AUTOTEST_EXPORT
QRectF pixelRectToTwips(const QRect &pixels, double dpiX, double dpiY);
PICKERCTL_AUTOTEST_EXPORT
QRectF pixelRectToTwips(const QWidget *widget, const QRect &pixels);

} // namespace PickerCtl
