#include "widgets/fieldlisticons.h"

#include <QCoreApplication>
#include <QPainter>
#include <QPainterPath>
#include <QPixmap>
#include <array>

namespace PickerCtl {

namespace {

const QString kCounterCode = QStringLiteral("CNT");
const QString kExpressionCode = QStringLiteral("EXP");
const QString kUdcCode = QStringLiteral("UDC");

// Counters are plain measurements (a bar chart), expressions are calculated (an "f" in a
// rounded tile) and UDCs are the user's own calculations (the same tile with a user's head).
QPixmap drawKind(FieldKind kind, int size)
{
    QPixmap pixmap(size, size);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    const qreal unit = size / 16.0;
    painter.scale(unit, unit);

    switch (kind) {
    case FieldKind::Counter: {
        painter.setPen(Qt::NoPen);
        painter.setBrush(QColor(0x2e, 0x7d, 0x32));
        painter.drawRect(QRectF(2, 9, 3, 5));
        painter.setBrush(QColor(0x43, 0xa0, 0x47));
        painter.drawRect(QRectF(6.5, 5, 3, 9));
        painter.setBrush(QColor(0x66, 0xbb, 0x6a));
        painter.drawRect(QRectF(11, 2, 3, 12));
        painter.setPen(QPen(QColor(0x33, 0x33, 0x33), 1));
        painter.drawLine(QPointF(1, 14.5), QPointF(15, 14.5));
        break;
    }
    case FieldKind::Expression:
    case FieldKind::Udc: {
        const QColor tile = kind == FieldKind::Expression ? QColor(0x15, 0x65, 0xc0) : QColor(0xef, 0x6c, 0x00);
        painter.setPen(QPen(tile.darker(130), 1));
        painter.setBrush(tile);
        painter.drawRoundedRect(QRectF(1.5, 1.5, 13, 13), 3, 3);
        painter.setPen(QPen(Qt::white, 1.6, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        painter.setBrush(Qt::NoBrush);
        QPainterPath f;
        f.moveTo(10, 4);
        f.cubicTo(8, 3.2, 7, 4, 7, 6);
        f.lineTo(7, 12.5);
        painter.drawPath(f);
        painter.drawLine(QPointF(5, 7.5), QPointF(9.5, 7.5));
        if (kind == FieldKind::Udc) {
            painter.setPen(Qt::NoPen);
            painter.setBrush(Qt::white);
            painter.drawEllipse(QPointF(12, 10), 1.4, 1.4);
            painter.drawPie(QRectF(9.8, 11.4, 4.4, 4.4), 0, 180 * 16);
        }
        break;
    }
    }
    return pixmap;
}

} // namespace

FieldKind fieldKindOf(const Field &field)
{
    const QString code = field.FieldTypeCode();
    if (code == kUdcCode)
        return FieldKind::Udc;
    if (code == kExpressionCode)
        return FieldKind::Expression;
    if (code == kCounterCode)
        return FieldKind::Counter;
    return field.IsExpression() ? FieldKind::Expression : FieldKind::Counter;
}

QIcon fieldKindIcon(FieldKind kind)
{
    // Pixmaps must go before the application does, so the cache is emptied with it.
    static std::array<QIcon, 3> icons;
    static const bool cleanupRegistered = [] {
        qAddPostRoutine([] { icons.fill(QIcon()); });
        return true;
    }();
    Q_UNUSED(cleanupRegistered);
    QIcon &icon = icons[size_t(kind)];
    if (icon.isNull()) {
        icon.addPixmap(drawKind(kind, 16));
        icon.addPixmap(drawKind(kind, 32));
    }
    return icon;
}

} // namespace PickerCtl
