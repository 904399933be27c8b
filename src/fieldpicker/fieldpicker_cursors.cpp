#include "fieldpicker/fieldpicker_cursors.h"

#include <QGuiApplication>
#include <QPainter>
#include <QPolygonF>
#include <QPixmap>

namespace PickerCtl::fieldpicker {

namespace {

constexpr int CursorSize = 32;
const QColor CardFill(0xfd, 0xfd, 0xfd);
const QColor CardEdge(0x33, 0x3d, 0x4a);
const QColor RowInk(0x3b, 0x6e, 0xb4);

qreal screenRatio()
{
    if (auto *app = qobject_cast<QGuiApplication *>(QCoreApplication::instance()))
        return app->devicePixelRatio();
    return 1.0;
}

void paintArrowPointer(QPainter &p)
{
    p.setPen(QPen(Qt::white, 1));
    p.setBrush(Qt::black);
    p.drawPolygon(QPolygonF{{0, 0}, {0, 15}, {4, 11}, {7, 17}, {9, 16}, {6, 10}, {11, 10}});
}

// A field card: a small sheet with one headline row, below and right of the pointer's hot spot.
void paintCard(QPainter &p, QPointF topLeft)
{
    const QRectF card(topLeft, QSizeF(13, 10));
    p.setPen(QPen(CardEdge, 1));
    p.setBrush(CardFill);
    p.drawRect(card);
    p.setPen(Qt::NoPen);
    p.setBrush(RowInk);
    p.drawRect(QRectF(card.left() + 2, card.top() + 3, 9, 1.5));
    p.setBrush(CardEdge);
    p.drawRect(QRectF(card.left() + 2, card.top() + 6, 6, 1));
}

QCursor makeCursor(int cards)
{
    const qreal ratio = screenRatio();
    QPixmap pixmap(QSize(CursorSize, CursorSize) * ratio);
    pixmap.setDevicePixelRatio(ratio);
    pixmap.fill(Qt::transparent);
    {
        QPainter p(&pixmap);
        p.setRenderHint(QPainter::Antialiasing);
        p.translate(0.5, 0.5);
        for (int i = cards - 1; i >= 0; --i)
            paintCard(p, QPointF(12 + 3 * i, 15 + 3 * i));
        paintArrowPointer(p);
    }
    return QCursor(pixmap, 0, 0);
}

} // namespace

QCursor createSingleFieldDragCursor()
{
    return makeCursor(1);
}

QCursor createMultipleFieldsDragCursor()
{
    return makeCursor(3);
}

} // namespace PickerCtl::fieldpicker
