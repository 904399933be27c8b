#include <PickerCtl/Splitter.h>

#include "widgets/splitterlimits.h"
#include "widgets/twips.h"

#include <QMouseEvent>
#include <QPointer>
#include <QWidget>

namespace PickerCtl {

class Splitter::Private
{
public:
    QPointer<QWidget> bar;
    QPointer<QWidget> scratch;
    bool live = true;
    float minimum = NoLimit;
    float maximum = NoLimit;

    bool dragging = false;
    int startLeft = 0;
    int pressGlobalX = 0;
    int currentLeft = 0;

    bool usesGhost() const { return !live && scratch; }

    int clampedLeft(int wanted) const
    {
        const QWidget *parent = bar->parentWidget();
        const int parentWidth = parent ? parent->width() : wanted + bar->width();
        const SplitterRange range = splitterRange(minimum, maximum, logicalDpiX(bar), parentWidth,
                                                  bar->width());
        return range.clamp(wanted);
    }

    void startDrag(int globalX)
    {
        dragging = true;
        startLeft = bar->x();
        currentLeft = startLeft;
        pressGlobalX = globalX;
        if (usesGhost()) {
            scratch->setGeometry(bar->geometry());
            scratch->raise();
            scratch->show();
        }
    }

    void follow(int globalX)
    {
        currentLeft = clampedLeft(startLeft + globalX - pressGlobalX);
        QWidget *moving = usesGhost() ? scratch.data() : bar.data();
        moving->move(currentLeft, moving->y());
    }

    bool finishDrag()
    {
        dragging = false;
        if (usesGhost()) {
            scratch->hide();
            bar->move(currentLeft, bar->y());
        }
        return currentLeft != startLeft;
    }

    void abandonDrag()
    {
        if (dragging && usesGhost())
            scratch->hide();
        dragging = false;
    }
};

Splitter::Splitter(QObject *parent)
    : QObject(parent)
    , d(std::make_unique<Private>())
{
}

Splitter::~Splitter()
{
    Detach();
}

void Splitter::Attach(QWidget *bar, QWidget *scratch, bool live, float minimum, float maximum)
{
    Detach();
    if (!bar)
        return;
    d->bar = bar;
    d->scratch = scratch;
    d->live = live;
    d->minimum = minimum;
    d->maximum = maximum;
    bar->setCursor(Qt::SplitHCursor);
    bar->installEventFilter(this);
}

void Splitter::Detach()
{
    d->abandonDrag();
    if (d->bar)
        d->bar->removeEventFilter(this);
    d->bar = nullptr;
    d->scratch = nullptr;
}

bool Splitter::IsAttached() const
{
    return !d->bar.isNull();
}

bool Splitter::IsDragging() const
{
    return d->dragging;
}

bool Splitter::eventFilter(QObject *watched, QEvent *event)
{
    if (watched != d->bar)
        return QObject::eventFilter(watched, event);

    switch (event->type()) {
    case QEvent::MouseButtonPress: {
        auto *mouse = static_cast<QMouseEvent *>(event);
        if (mouse->button() != Qt::LeftButton)
            break;
        d->startDrag(qRound(mouse->globalPosition().x()));
        return true;
    }
    case QEvent::MouseMove:
        if (!d->dragging)
            break;
        d->follow(qRound(static_cast<QMouseEvent *>(event)->globalPosition().x()));
        return true;
    case QEvent::MouseButtonRelease: {
        auto *mouse = static_cast<QMouseEvent *>(event);
        if (!d->dragging || mouse->button() != Qt::LeftButton)
            break;
        d->follow(qRound(mouse->globalPosition().x()));
        if (d->finishDrag())
            Q_EMIT Split();
        return true;
    }
    default:
        break;
    }
    return QObject::eventFilter(watched, event);
}

} // namespace PickerCtl
