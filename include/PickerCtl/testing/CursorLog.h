#pragma once

#include <PickerCtl/AppServices.h>

#include <QList>

namespace PickerCtl {

/// A wait cursor for tests: records every Push (the pointer code) and Pop, and how deep the stack
/// is, so a test can see that an operation kept Push and Pop balanced.
class PICKERCTL_EXPORT CursorLog : public WaitCursor
{
public:
    CursorLog();
    ~CursorLog() override;

    void Push(qint16 pointer, const QVariant &icon = QVariant()) override;
    void Pop() override;
    int Depth() const override { return m_depth; }

    int pushCount() const { return int(m_pushed.size()); }
    int popCount() const { return m_pops; }
    /// The pointer codes pushed, oldest first.
    const QList<qint16> &pushed() const { return m_pushed; }
    /// The deepest the stack has been.
    int maxDepth() const { return m_maxDepth; }
    /// Pops that found nothing to pop.
    int unbalancedPops() const { return m_unbalanced; }
    void clear();

private:
    QList<qint16> m_pushed;
    int m_pops = 0;
    int m_depth = 0;
    int m_maxDepth = 0;
    int m_unbalanced = 0;
};

/// Application services for tests whose cursor is a CursorLog; the number checks are the real ones.
class PICKERCTL_EXPORT CursorLogServices : public AppServices
{
public:
    CursorLogServices();
    ~CursorLogServices() override;

    std::shared_ptr<WaitCursor> Cursor() override { return m_log; }
    const std::shared_ptr<CursorLog> &log() const { return m_log; }
    bool UseEntityView() const override;
    void setUseEntityView(bool on) override;
    bool IsValidLong(const QVariant &value, qint32 &result, const QVariant &rangeMin,
                     const QVariant &rangeMax, QString &errorText) override;
    bool IsValidDouble(const QVariant &value, double &result, const QVariant &rangeMin,
                       const QVariant &rangeMax, QString &errorText) override;
    std::shared_ptr<AppGeneralState> GeneralState() override;

private:
    std::shared_ptr<CursorLog> m_log;
    std::shared_ptr<AppServices> m_real;
};

} // namespace PickerCtl
