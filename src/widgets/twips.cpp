#include "widgets/twips.h"

#include <QGuiApplication>
#include <QScreen>
#include <QWidget>

#include <algorithm>
#include <cmath>

namespace PickerCtl {

namespace {

// Used only when there is neither a widget nor a screen (a bare QCoreApplication).
constexpr double FallbackDpi = 96.0;

double screenDpiX()
{
    const QScreen *screen = QGuiApplication::primaryScreen();
    return screen ? screen->logicalDotsPerInchX() : FallbackDpi;
}

double screenDpiY()
{
    const QScreen *screen = QGuiApplication::primaryScreen();
    return screen ? screen->logicalDotsPerInchY() : FallbackDpi;
}

// The largest widget size Qt allows. Pixel values are saturated to it, so that a restored size of
// 1e10 twips (or NaN) can neither overflow an int here nor in the sums callers make of the results.
constexpr double PixelLimit = 16777215.0;

int roundToInt(double value)
{
    if (std::isnan(value))
        return 0;
    return int(std::lround(std::clamp(value, -PixelLimit, PixelLimit)));
}

} // namespace

double logicalDpiX(const QWidget *widget)
{
    return widget ? widget->logicalDpiX() : screenDpiX();
}

double logicalDpiY(const QWidget *widget)
{
    return widget ? widget->logicalDpiY() : screenDpiY();
}

int twipsToPixelsX(const QWidget *widget, double twips)
{
    return roundToInt(twipsToPixels(twips, logicalDpiX(widget)));
}

int twipsToPixelsY(const QWidget *widget, double twips)
{
    return roundToInt(twipsToPixels(twips, logicalDpiY(widget)));
}

double pixelsToTwipsX(const QWidget *widget, int pixels)
{
    return pixelsToTwips(pixels, logicalDpiX(widget));
}

double pixelsToTwipsY(const QWidget *widget, int pixels)
{
    return pixelsToTwips(pixels, logicalDpiY(widget));
}

QRect twipsRectToPixels(const QRectF &twips, double dpiX, double dpiY)
{
    const int left = roundToInt(twipsToPixels(twips.left(), dpiX));
    const int top = roundToInt(twipsToPixels(twips.top(), dpiY));
    const int right = roundToInt(twipsToPixels(twips.left() + twips.width(), dpiX));
    const int bottom = roundToInt(twipsToPixels(twips.top() + twips.height(), dpiY));
    return QRect(left, top, std::max(0, right - left), std::max(0, bottom - top));
}

QRect twipsRectToPixels(const QWidget *widget, const QRectF &twips)
{
    return twipsRectToPixels(twips, logicalDpiX(widget), logicalDpiY(widget));
}

QRectF pixelRectToTwips(const QRect &pixels, double dpiX, double dpiY)
{
    return QRectF(pixelsToTwips(pixels.x(), dpiX), pixelsToTwips(pixels.y(), dpiY),
                  pixelsToTwips(pixels.width(), dpiX), pixelsToTwips(pixels.height(), dpiY));
}

QRectF pixelRectToTwips(const QWidget *widget, const QRect &pixels)
{
    return pixelRectToTwips(pixels, logicalDpiX(widget), logicalDpiY(widget));
}

} // namespace PickerCtl
