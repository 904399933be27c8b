#include "fieldpicker/fieldpicker_cursors.h"
#include "fieldpicker/fieldpicker_icons.h"

#include <QApplication>
#include <QImage>
#include <QTest>

using namespace PickerCtl::fieldpicker;

namespace {

QImage imageOf(const QIcon &icon, QSize size)
{
    return icon.pixmap(size).toImage().convertToFormat(QImage::Format_ARGB32);
}

// An image that failed to load is fully transparent.
bool hasInk(const QImage &image)
{
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            if (qAlpha(image.pixel(x, y)) > 0)
                return true;
    return false;
}

} // namespace

class TestFieldPickerImages : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void shouldDrawEveryTreeImageDistinctly_data();
    void shouldDrawEveryTreeImageDistinctly();
    void shouldTagTheFoldersThatTakeNoFields();
    void shouldDrawTheLargeCountImage();
    void shouldDrawBothDragPointersDistinctly();
};

void TestFieldPickerImages::shouldDrawEveryTreeImageDistinctly_data()
{
    QTest::addColumn<qreal>("ratio");
    // A ratio the list holds no image for would be scaled and blurred: each must be drawn sharp.
    QTest::newRow("normal screen") << 1.0;
    QTest::newRow("high-density screen") << 2.0;
}

void TestFieldPickerImages::shouldDrawEveryTreeImageDistinctly()
{
    QFETCH(qreal, ratio);

    // Given the tree's small images
    std::unique_ptr<ImageList> small(createSmallImages(nullptr));
    QCOMPARE(small->objectName(), u"ilsSmall"_qs);
    QCOMPARE(small->imageSize(), QSize(16, 16));
    QCOMPARE(small->keys(), (QStringList{u"Closed"_qs, u"Open"_qs, u"Up"_qs, u"Down"_qs, u"Count"_qs,
                                         u"XClosed"_qs, u"XOpen"_qs}));

    // Then each key has a drawn image of its own at the ratio's full resolution
    QList<QImage> seen;
    const auto keys = small->keys();
    for (const QString &key : keys) {
        const QPixmap pixmap = small->icon(key).pixmap(QSize(16, 16), ratio);
        QCOMPARE(pixmap.size(), QSize(16, 16) * ratio);
        const QImage image = pixmap.toImage().convertToFormat(QImage::Format_ARGB32);
        QVERIFY2(hasInk(image), qPrintable(key + u" is empty"_qs));
        QVERIFY2(!seen.contains(image), qPrintable(key + u" looks like another image"_qs));
        seen.append(image);
    }
}

void TestFieldPickerImages::shouldTagTheFoldersThatTakeNoFields()
{
    std::unique_ptr<ImageList> small(createSmallImages(nullptr));
    QCOMPARE(small->tag(u"XClosed"_qs), u"CantAdd"_qs);
    QCOMPARE(small->tag(u"XOpen"_qs), u"CantAddfields"_qs);
    QCOMPARE(small->tag(u"Closed"_qs), QString());
}

void TestFieldPickerImages::shouldDrawTheLargeCountImage()
{
    std::unique_ptr<ImageList> large(createLargeImages(nullptr));
    QCOMPARE(large->objectName(), u"ilsLarge"_qs);
    QCOMPARE(large->keys(), QStringList{u"Count"_qs});
    QVERIFY(hasInk(imageOf(large->icon(u"Count"_qs), QSize(32, 32))));
}

void TestFieldPickerImages::shouldDrawBothDragPointersDistinctly()
{
    const QCursor one = createSingleFieldDragCursor();
    const QCursor several = createMultipleFieldsDragCursor();

    // The pointer's tip is the hot spot, and the two pointers differ
    QCOMPARE(one.hotSpot(), QPoint(0, 0));
    QCOMPARE(several.hotSpot(), QPoint(0, 0));
    const QImage oneImage = one.pixmap().toImage().convertToFormat(QImage::Format_ARGB32);
    const QImage severalImage = several.pixmap().toImage().convertToFormat(QImage::Format_ARGB32);
    QCOMPARE(one.pixmap().deviceIndependentSize(), QSizeF(32, 32));
    QVERIFY(hasInk(oneImage));
    QVERIFY(hasInk(severalImage));
    QVERIFY(oneImage != severalImage);
}

QTEST_MAIN(TestFieldPickerImages)
#include "tst_fieldpickerimages.moc"
