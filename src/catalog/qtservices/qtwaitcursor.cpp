#include "catalog/qtservices/qtwaitcursor.h"

#include <QCursor>
#include <QGuiApplication>

namespace PickerCtl {

namespace {
bool hasGuiApplication()
{
    return qobject_cast<QGuiApplication *>(QCoreApplication::instance()) != nullptr;
}
} // namespace

Qt::CursorShape cursorShapeFor(qint16 pointer)
{
    switch (pointer) {
    case 2: return Qt::CrossCursor;
    case 3: return Qt::IBeamCursor;
    case 5: return Qt::SizeAllCursor;
    case 6: return Qt::SizeBDiagCursor;
    case 7: return Qt::SizeVerCursor;
    case 8: return Qt::SizeFDiagCursor;
    case 9: return Qt::SizeHorCursor;
    case 10: return Qt::UpArrowCursor;
    case WaitCursor::Hourglass: return Qt::WaitCursor;
    case 12: return Qt::ForbiddenCursor;
    case 13: return Qt::BusyCursor;
    case 14: return Qt::WhatsThisCursor;
    case 15: return Qt::SizeAllCursor;
    default: return Qt::ArrowCursor;
    }
}

void QtWaitCursor::Push(qint16 pointer, const QVariant &icon)
{
    const bool apply = hasGuiApplication();
    if (apply) {
        if (icon.metaType().id() == QMetaType::QCursor)
            QGuiApplication::setOverrideCursor(icon.value<QCursor>());
        else
            QGuiApplication::setOverrideCursor(QCursor(cursorShapeFor(pointer)));
    }
    m_applied.push_back(apply);
}

void QtWaitCursor::Pop()
{
    if (m_applied.empty())
        return;
    const bool applied = m_applied.back();
    m_applied.pop_back();
    if (applied && hasGuiApplication())
        QGuiApplication::restoreOverrideCursor();
}

int QtWaitCursor::Depth() const
{
    return int(m_applied.size());
}

} // namespace PickerCtl
