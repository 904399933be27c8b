#include "fieldpicker/fieldpicker_cursors.h"

#include "fieldpicker/fieldpicker_icons.h"

#include <QGuiApplication>

namespace PickerCtl::fieldpicker {

namespace {

constexpr int CursorSize = 32;

qreal screenRatio()
{
    if (auto *app = qobject_cast<QGuiApplication *>(QCoreApplication::instance()))
        return app->devicePixelRatio();
    return 1.0;
}

// The pointer's tip is the top left corner of the image.
QCursor makeCursor(bool severalFields)
{
    return QCursor(renderSvgImage(dragCursorResource(severalFields), QSize(CursorSize, CursorSize), screenRatio()),
                   0, 0);
}

} // namespace

QCursor createSingleFieldDragCursor()
{
    return makeCursor(false);
}

QCursor createMultipleFieldsDragCursor()
{
    return makeCursor(true);
}

} // namespace PickerCtl::fieldpicker
