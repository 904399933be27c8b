#pragma once

#include <PickerCtl/pickerctl_export.h>

#include <QVariant>
#include <memory>

namespace PickerCtl {

class AppGeneralState;

/// A stack of mouse pointers shared by every control of the thread.
class PICKERCTL_EXPORT WaitCursor
{
public:
    /// The hourglass, the pointer the controls push for long operations.
    static constexpr qint16 Hourglass = 11;

    virtual ~WaitCursor();
    /// Shows the pointer; icon is unused by the controls (null).
    virtual void Push(qint16 pointer, const QVariant &icon = QVariant()) = 0;
    /// Restores the pointer that was shown before the matching Push.
    virtual void Pop() = 0;
    /// Number of pushes not yet popped.
    virtual int Depth() const = 0;
};

/// User-interface services: the wait cursor, the entity-view flag and the number checks.
class PICKERCTL_EXPORT AppServices
{
public:
    virtual ~AppServices();

    virtual std::shared_ptr<WaitCursor> Cursor() = 0;
    /// True: the catalogue is browsed by entity and categories are named by Name; false: from the
    /// catalogue root, named by FullName.
    virtual bool UseEntityView() const = 0;
    virtual void setUseEntityView(bool on) = 0;

    /**
     * Checks that value is a whole 32-bit number in the user's locale or the C locale and, when
     * rangeMin / rangeMax are not null, that it lies within them (ends included). On success writes
     * the number to result and returns true; otherwise writes a message that names the bad value and
     * the allowed range into errorText and returns false.
     */
    virtual bool IsValidLong(const QVariant &value, qint32 &result, const QVariant &rangeMin,
                             const QVariant &rangeMax, QString &errorText) = 0;
    /// As IsValidLong, for a real number.
    virtual bool IsValidDouble(const QVariant &value, double &result, const QVariant &rangeMin,
                               const QVariant &rangeMax, QString &errorText) = 0;

    /// The application's general state object.
    virtual std::shared_ptr<AppGeneralState> GeneralState() = 0;

    static std::shared_ptr<AppServices> instance();
    static void setInstance(std::shared_ptr<AppServices> services);
    /// A new instance of the library's own services (the Qt cursor stack and number checks), the
    /// one a thread gets when no host set another; hosts wrap it to change a part of it.
    static std::shared_ptr<AppServices> createStandard();
};

/// Shows the hourglass for its lifetime: Push(11) on construction, Pop() on destruction,
/// so the cursor stack stays balanced on every exit path, exceptions included.
class PICKERCTL_EXPORT WaitCursorGuard
{
public:
    WaitCursorGuard();
    explicit WaitCursorGuard(std::shared_ptr<WaitCursor> cursor);
    ~WaitCursorGuard();
    WaitCursorGuard(const WaitCursorGuard &) = delete;
    WaitCursorGuard &operator=(const WaitCursorGuard &) = delete;

private:
    std::shared_ptr<WaitCursor> m_cursor;
};

} // namespace PickerCtl
