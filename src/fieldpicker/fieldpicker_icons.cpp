#include "fieldpicker/fieldpicker_icons.h"

#include <QGuiApplication>
#include <QPainter>
#include <QSvgRenderer>

// Outside any namespace, as Qt's resource macro requires; the resources live in a static part
// of the library, so they are brought in explicitly before the first image is drawn.
static void initImageResources()
{
    Q_INIT_RESOURCE(fieldpicker_images);
}

namespace PickerCtl::fieldpicker {

namespace {

constexpr auto SmallListName = "ilsSmall";
constexpr auto LargeListName = "ilsLarge";
constexpr auto TagCantAdd = "CantAdd";
constexpr auto TagCantAddFields = "CantAddfields";
constexpr auto ImageFolder = ":/pickerctl/fieldpicker/images/";

QString imageResource(const char *file)
{
    static const bool loaded = (initImageResources(), true);
    Q_UNUSED(loaded);
    return QLatin1String(ImageFolder) + QLatin1String(file);
}

QList<QPixmap> makeImage(const char *file, QSize size)
{
    // The common ratios plus the one of the running screen, so no image is ever scaled up blurred.
    QList<qreal> ratios{1.0, 1.25, 1.5, 2.0, 3.0};
    if (auto *app = qobject_cast<QGuiApplication *>(QCoreApplication::instance())) {
        const qreal current = app->devicePixelRatio();
        if (!ratios.contains(current))
            ratios.append(current);
    }
    const QString resource = imageResource(file);
    QList<QPixmap> pixmaps;
    for (qreal ratio : ratios)
        pixmaps.append(renderSvgImage(resource, size, ratio));
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

QPixmap renderSvgImage(const QString &resource, QSize size, qreal ratio)
{
    QPixmap pixmap(size * ratio);
    pixmap.setDevicePixelRatio(ratio);
    pixmap.fill(Qt::transparent);
    QSvgRenderer renderer(resource);
    if (!renderer.isValid())
        return pixmap;
    QPainter p(&pixmap);
    renderer.render(&p, QRectF(QPointF(0, 0), QSizeF(size)));
    return pixmap;
}

QString dragCursorResource(bool severalFields)
{
    return imageResource(severalFields ? "dragfields.svg" : "dragfield.svg");
}

ImageList *createSmallImages(QObject *parent)
{
    const QSize size(16, 16);
    auto *list = new ImageList(QLatin1String(SmallListName), size, parent);
    list->add(QLatin1String(ImageClosed), makeImage("closed.svg", size));
    list->add(QLatin1String(ImageOpen), makeImage("open.svg", size));
    list->add(QLatin1String(ImageUp), makeImage("up.svg", size));
    list->add(QLatin1String(ImageDown), makeImage("down.svg", size));
    list->add(QLatin1String(ImageCount), makeImage("count.svg", size));
    list->add(QLatin1String(ImageXClosed), makeImage("xclosed.svg", size), QLatin1String(TagCantAdd));
    list->add(QLatin1String(ImageXOpen), makeImage("xopen.svg", size), QLatin1String(TagCantAddFields));
    return list;
}

ImageList *createLargeImages(QObject *parent)
{
    const QSize size(32, 32);
    auto *list = new ImageList(QLatin1String(LargeListName), size, parent);
    list->add(QLatin1String(ImageCount), makeImage("count.svg", size));
    return list;
}

} // namespace PickerCtl::fieldpicker
