#include "fieldpicker/fieldpicker_icons.h"

#include <QGuiApplication>
#include <QPainter>
#include <QPainterPath>
#include <QPixmap>
#include <QPolygonF>
#include <QTransform>

#include <functional>

namespace PickerCtl::fieldpicker {

namespace {

constexpr auto SmallListName = "ilsSmall";
constexpr auto LargeListName = "ilsLarge";
constexpr auto TagCantAdd = "CantAdd";
constexpr auto TagCantAddFields = "CantAddfields";

const QColor FolderBack(0xd9, 0xa4, 0x41);
const QColor FolderFront(0xf3, 0xc9, 0x6b);
const QColor FolderEdge(0x8a, 0x62, 0x1a);
const QColor ArrowFill(0x3b, 0x6e, 0xb4);
const QColor SheetFill(0xfa, 0xfa, 0xfa);
const QColor SheetEdge(0x5f, 0x6b, 0x7a);
const QColor NoEntryFill(0xc6, 0x28, 0x28);

using Glyph = std::function<void(QPainter &, const QRectF &)>;

// Every glyph is drawn on a 16-unit grid and scaled, so one drawing serves 16 and 32 pixel lists
// and every device pixel ratio.
void toGrid(QPainter &p, const QRectF &r)
{
    p.translate(r.topLeft());
    p.scale(r.width() / 16.0, r.height() / 16.0);
}

void paintClosedFolder(QPainter &p, const QRectF &r)
{
    p.save();
    toGrid(p, r);
    p.setPen(QPen(FolderEdge, 0.8));
    QPainterPath tab;
    tab.addPolygon(QPolygonF{{1.5, 4}, {1.5, 2.5}, {6, 2.5}, {7.5, 4}});
    p.setBrush(FolderBack);
    p.drawPath(tab);
    p.setBrush(FolderFront);
    p.drawRoundedRect(QRectF(1.5, 4, 13, 9.5), 1, 1);
    p.restore();
}

void paintOpenFolder(QPainter &p, const QRectF &r)
{
    p.save();
    toGrid(p, r);
    p.setPen(QPen(FolderEdge, 0.8));
    p.setBrush(FolderBack);
    QPainterPath back;
    back.addPolygon(QPolygonF{{1.5, 13.5}, {1.5, 2.5}, {6, 2.5}, {7.5, 4}, {13, 4}, {13, 7}});
    p.drawPath(back);
    p.setBrush(SheetFill);
    p.drawRect(QRectF(3, 5, 9, 5));
    p.setBrush(FolderFront);
    p.drawPolygon(QPolygonF{{1.5, 13.5}, {4, 7}, {15, 7}, {12.5, 13.5}});
    p.restore();
}

void paintArrow(QPainter &p, const QRectF &r, bool up)
{
    p.save();
    toGrid(p, r);
    p.setPen(Qt::NoPen);
    p.setBrush(ArrowFill);
    const QPolygonF arrow{{8, 2}, {14, 9}, {10, 9}, {10, 14}, {6, 14}, {6, 9}, {2, 9}};
    // The down arrow is the up arrow turned over.
    p.drawPolygon(up ? arrow : QTransform(1, 0, 0, -1, 0, 16).map(arrow));
    p.restore();
}

// A sheet with numbered rows: the glyph of a count of fields.
void paintCount(QPainter &p, const QRectF &r)
{
    p.save();
    toGrid(p, r);
    p.setPen(QPen(SheetEdge, 0.8));
    p.setBrush(SheetFill);
    p.drawRect(QRectF(2.5, 1.5, 11, 13));
    for (int row = 0; row < 4; ++row) {
        const qreal y = 4.5 + row * 2.7;
        p.setPen(Qt::NoPen);
        p.setBrush(ArrowFill);
        p.drawRect(QRectF(4, y - 0.7, 1.6, 1.4));
        p.setBrush(SheetEdge);
        p.drawRect(QRectF(6.5, y - 0.4, 5.5, 0.8));
    }
    p.restore();
}

// A small red disc with a white bar in the lower right corner: nothing can be added here.
void paintNoEntry(QPainter &p, const QRectF &r)
{
    p.save();
    toGrid(p, r);
    p.setPen(QPen(Qt::white, 0.7));
    p.setBrush(NoEntryFill);
    p.drawEllipse(QPointF(11.5, 11.5), 4, 4);
    p.setPen(Qt::NoPen);
    p.setBrush(Qt::white);
    p.drawRect(QRectF(9.2, 10.8, 4.6, 1.4));
    p.restore();
}

QPixmap render(const Glyph &glyph, QSize size, qreal ratio)
{
    QPixmap pixmap(size * ratio);
    pixmap.setDevicePixelRatio(ratio);
    pixmap.fill(Qt::transparent);
    QPainter p(&pixmap);
    p.setRenderHint(QPainter::Antialiasing);
    glyph(p, QRectF(QPointF(0, 0), QSizeF(size)));
    return pixmap;
}

QList<QPixmap> makeImage(const Glyph &glyph, QSize size)
{
    // The common ratios plus the one of the running screen, so no image is ever scaled up blurred.
    QList<qreal> ratios{1.0, 1.25, 1.5, 2.0, 3.0};
    if (auto *app = qobject_cast<QGuiApplication *>(QCoreApplication::instance())) {
        const qreal current = app->devicePixelRatio();
        if (!ratios.contains(current))
            ratios.append(current);
    }
    QList<QPixmap> pixmaps;
    for (qreal ratio : ratios)
        pixmaps.append(render(glyph, size, ratio));
    return pixmaps;
}

} // namespace

ImageList::ImageList(const QString &name, QSize imageSize, QObject *parent)
    : QObject(parent)
    , m_imageSize(imageSize)
{
    setObjectName(name);
}

void ImageList::add(const QString &key, const QList<QPixmap> &pixmaps, const QString &tag)
{
    if (!m_pixmaps.contains(key))
        m_keys.append(key);
    m_pixmaps.insert(key, pixmaps);
    m_tags.insert(key, tag);
}

QIcon ImageList::icon(const QString &key) const
{
    QIcon result;
    for (const QPixmap &pixmap : m_pixmaps.value(key))
        result.addPixmap(pixmap);
    return result;
}

QIcon ImageList::icon(const QString &key, const QString &selectedKey) const
{
    QIcon result;
    for (const QPixmap &pixmap : m_pixmaps.value(key))
        result.addPixmap(pixmap, QIcon::Normal);
    for (const QPixmap &pixmap : m_pixmaps.value(selectedKey))
        result.addPixmap(pixmap, QIcon::Selected);
    return result;
}

QString ImageList::tag(const QString &key) const
{
    return m_tags.value(key);
}

ImageList *createSmallImages(QObject *parent)
{
    const QSize size(16, 16);
    auto *list = new ImageList(QLatin1String(SmallListName), size, parent);
    list->add(QLatin1String(ImageClosed), makeImage(paintClosedFolder, size));
    list->add(QLatin1String(ImageOpen), makeImage(paintOpenFolder, size));
    list->add(QLatin1String(ImageUp),
              makeImage([](QPainter &p, const QRectF &r) { paintArrow(p, r, true); }, size));
    list->add(QLatin1String(ImageDown),
              makeImage([](QPainter &p, const QRectF &r) { paintArrow(p, r, false); }, size));
    list->add(QLatin1String(ImageCount), makeImage(paintCount, size));
    list->add(QLatin1String(ImageXClosed),
              makeImage(
                  [](QPainter &p, const QRectF &r) {
                      paintClosedFolder(p, r);
                      paintNoEntry(p, r);
                  },
                  size),
              QLatin1String(TagCantAdd));
    list->add(QLatin1String(ImageXOpen),
              makeImage(
                  [](QPainter &p, const QRectF &r) {
                      paintOpenFolder(p, r);
                      paintNoEntry(p, r);
                  },
                  size),
              QLatin1String(TagCantAddFields));
    return list;
}

ImageList *createLargeImages(QObject *parent)
{
    const QSize size(32, 32);
    auto *list = new ImageList(QLatin1String(LargeListName), size, parent);
    list->add(QLatin1String(ImageCount), makeImage(paintCount, size));
    return list;
}

} // namespace PickerCtl::fieldpicker
