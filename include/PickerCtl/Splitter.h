#pragma once

#include <PickerCtl/pickerctl_export.h>

#include <QObject>
#include <memory>

class QWidget;

namespace PickerCtl {

/**
 * Lets the user drag a vertical bar (a thin widget between two panes) sideways with the mouse.
 *
 * Attach() watches the bar's mouse events: a left press starts a drag, moves make the bar follow
 * the mouse horizontally, the release ends it. Split() is raised once at the end of a drag that
 * left the bar's left edge in a new place; a click without movement raises nothing.
 *
 * The bar's left edge is kept within [minimum, maximum] (twips in the bar parent's coordinates,
 * converted with the bar's logical DPI; -1 means no limit on that side), and always within the
 * parent so that the bar can be grabbed again: 0 <= left <= parent width - bar width.
 *
 * live = true moves the bar itself during the drag. live = false leaves the bar in place and
 * shows the scratch widget as a ghost bar (same geometry as the bar, raised, following the mouse);
 * on release the ghost is hidden again and the bar jumps to the ghost's place. Without a scratch
 * widget the drag is live.
 */
class PICKERCTL_EXPORT Splitter : public QObject
{
    Q_OBJECT

public:
    /// Value of a limit that does not limit.
    static constexpr float NoLimit = -1.0f;

    explicit Splitter(QObject *parent = nullptr);
    ~Splitter() override;

    /// Starts handling drags of bar (detaching any earlier bar first) and gives it the split cursor.
    void Attach(QWidget *bar, QWidget *scratch, bool live, float minimum = NoLimit,
                float maximum = NoLimit);
    /// Stops handling the bar; a drag in progress is abandoned without Split.
    void Detach();

    bool IsAttached() const;
    bool IsDragging() const;

Q_SIGNALS:
    /// A drag ended with the bar in a new place.
    void Split();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    class Private;
    std::unique_ptr<Private> d;
};

} // namespace PickerCtl
