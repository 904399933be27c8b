#pragma once

#include <PickerCtl/pickerctl_export.h>

#include <QHash>
#include <QIcon>
#include <QList>
#include <QObject>
#include <QPixmap>
#include <QSize>
#include <QStringList>

namespace PickerCtl::fieldpicker {

/// Keys of the node images; the tree nodes name their images by these.
inline constexpr auto ImageClosed = "Closed";
inline constexpr auto ImageOpen = "Open";
inline constexpr auto ImageUp = "Up";
inline constexpr auto ImageDown = "Down";
inline constexpr auto ImageCount = "Count";
inline constexpr auto ImageXClosed = "XClosed";
inline constexpr auto ImageXOpen = "XOpen";

/// A keyed list of same-sized images, each with an optional tag, like the image lists that a tree
/// view draws its nodes from. A QObject so that it carries its member name as object name.
class PICKERCTL_AUTOTEST_EXPORT ImageList : public QObject
{
    Q_OBJECT
public:
    ImageList(const QString &name, QSize imageSize, QObject *parent = nullptr);

    QSize imageSize() const { return m_imageSize; }
    /// Adds an image drawn at several device pixel ratios.
    void add(const QString &key, const QList<QPixmap> &pixmaps, const QString &tag = QString());
    QIcon icon(const QString &key) const;
    /// One icon showing the image normally and the selected image while its item is selected.
    QIcon icon(const QString &key, const QString &selectedKey) const;
    QString tag(const QString &key) const;
    /// Keys in the order the images were added.
    QStringList keys() const { return m_keys; }

private:
    QSize m_imageSize;
    QStringList m_keys;
    QHash<QString, QList<QPixmap>> m_pixmaps;
    QHash<QString, QString> m_tags;
};

/// The tree's 16 x 16 images: folders, arrows, the count glyph and the folders that take no fields.
PICKERCTL_AUTOTEST_EXPORT
ImageList *createSmallImages(QObject *parent);
/// The 32 x 32 images: the count glyph.
PICKERCTL_AUTOTEST_EXPORT
ImageList *createLargeImages(QObject *parent);

/// Draws an SVG resource into a transparent pixmap of size logical pixels at the device pixel ratio;
/// a resource that cannot be read leaves the pixmap empty.
QPixmap renderSvgImage(const QString &resource, QSize size, qreal ratio);
/// The resource of the drag pointer for one field or for several.
QString dragCursorResource(bool severalFields);

} // namespace PickerCtl::fieldpicker
