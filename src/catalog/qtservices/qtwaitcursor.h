#pragma once

#include <PickerCtl/AppServices.h>
#include <PickerCtl/pickerctl_export.h>

#include <Qt>
#include <vector>

namespace PickerCtl {

/// The pointer code a control pushes, as a Qt cursor shape (the classic mouse-pointer numbering).
PICKERCTL_AUTOTEST_EXPORT
Qt::CursorShape cursorShapeFor(qint16 pointer);

/// The shared cursor stack on the application's override cursor. Without a QGuiApplication (a
/// console host, a test) it only counts, so Push and Pop stay balanced either way.
class PICKERCTL_AUTOTEST_EXPORT QtWaitCursor final : public WaitCursor
{
public:
    void Push(qint16 pointer, const QVariant &icon = QVariant()) override;
    void Pop() override;
    int Depth() const override;

private:
    // Whether each push reached the override cursor, so a pop restores only what was set.
    std::vector<bool> m_applied;
};

} // namespace PickerCtl
