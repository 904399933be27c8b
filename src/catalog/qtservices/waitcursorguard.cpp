#include <PickerCtl/AppServices.h>

namespace PickerCtl {

WaitCursorGuard::WaitCursorGuard()
    : WaitCursorGuard(AppServices::instance()->Cursor())
{
}

WaitCursorGuard::WaitCursorGuard(std::shared_ptr<WaitCursor> cursor)
    : m_cursor(std::move(cursor))
{
    if (m_cursor)
        m_cursor->Push(WaitCursor::Hourglass);
}

WaitCursorGuard::~WaitCursorGuard()
{
    if (m_cursor)
        m_cursor->Pop();
}

} // namespace PickerCtl
