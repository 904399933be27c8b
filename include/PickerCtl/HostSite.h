#pragma once

#include <PickerCtl/pickerctl_export.h>

#include <QColor>
#include <QFont>
#include <QObject>
#include <QRect>
#include <memory>

class QMenu;
class QWidget;

namespace PickerCtl {

/**
 * The hosting surface of one control: what the hosting container gives an embedded control.
 *
 * A control creates its site in its constructor (`new HostSite(this)`, owned by the control) and
 * asks it for the ambient colours and font, reports property changes through it and converts
 * twips with it. The container's notifications map onto Qt like this:
 *
 * | container notification | Qt                                                              |
 * |------------------------|-----------------------------------------------------------------|
 * | Initialize             | the control's constructor (builds the child widgets)            |
 * | InitProperties         | the host calls the control's InitProperties() on a new control  |
 * | ReadProperties(bag)    | the host calls ReadProperties(PropertyBag &) to restore it      |
 * | WriteProperties(bag)   | the host calls WriteProperties(PropertyBag &) to save it        |
 * | Show / Hide            | showEvent / hideEvent                                           |
 * | Resize                 | resizeEvent                                                     |
 * | Terminate              | the destructor                                                  |
 * | property change        | the control calls propertyChanged(key); the host connects to    |
 * |                        | PropertyChanged(key)                                            |
 * | event raised to host   | a Qt signal of the control                                      |
 *
 * Ambient properties come from the host when it has set them (setAmbient...), else from the
 * control's parent widget (palette Window and WindowText, font), else from the application.
 */
class PICKERCTL_EXPORT HostSite : public QObject
{
    Q_OBJECT

public:
    /// control is both the QObject parent of the site and the widget it serves.
    explicit HostSite(QWidget *control);
    ~HostSite() override;

    QWidget *control() const;

    QColor AmbientBackColor() const;
    QColor AmbientForeColor() const;
    QFont AmbientFont() const;
    /// Host overrides; an invalid colour or a reset font returns to the derived value.
    void setAmbientBackColor(const QColor &color);
    void setAmbientForeColor(const QColor &color);
    void setAmbientFont(const QFont &font);
    void resetAmbientFont();

    /// Tells the host that the persisted property stored under key has changed.
    void propertyChanged(const QString &key);

    /// Twips of the control's screen (logical DPI of the control) to pixels, rounded, and back.
    int twipsToPixelsX(double twips) const;
    int twipsToPixelsY(double twips) const;
    double pixelsToTwipsX(int pixels) const;
    double pixelsToTwipsY(int pixels) const;
    /// A rectangle in twips to pixels; adjacent rectangles keep sharing their edges.
    QRect twipsToPixels(const QRectF &twips) const;
    QRectF pixelsToTwips(const QRect &pixels) const;

    /// The control's inner width and height in twips (the scale width and height).
    double ScaleWidth() const;
    double ScaleHeight() const;

    /**
     * The set-redraw request: off stops painting of widget, on resumes it and repaints. Requests are
     * counted per widget, so nested off/on pairs balance and painting resumes at the last on; an on
     * without a matching off only makes sure painting is on.
     */
    static void setRedraw(QWidget *widget, bool on);
    /// True while widget has more redraw-offs than ons.
    static bool isRedrawOff(const QWidget *widget);

    /// Pops menu up at the mouse position without blocking (menu->popup).
    static void showPopupMenu(QMenu *menu);

Q_SIGNALS:
    void PropertyChanged(const QString &key);

private:
    class Private;
    std::unique_ptr<Private> d;
};

} // namespace PickerCtl
