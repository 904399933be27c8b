#include <PickerCtl/testing/CursorLog.h>


namespace PickerCtl {

CursorLog::CursorLog() = default;
CursorLog::~CursorLog() = default;

void CursorLog::Push(qint16 pointer, const QVariant & /*icon*/)
{
    m_pushed.append(pointer);
    m_maxDepth = qMax(m_maxDepth, ++m_depth);
}

void CursorLog::Pop()
{
    ++m_pops;
    if (m_depth == 0)
        ++m_unbalanced;
    else
        --m_depth;
}

void CursorLog::clear()
{
    m_pushed.clear();
    m_pops = m_depth = m_maxDepth = m_unbalanced = 0;
}

CursorLogServices::CursorLogServices()
    : m_log(std::make_shared<CursorLog>()), m_real(AppServices::createStandard())
{
}

CursorLogServices::~CursorLogServices() = default;

bool CursorLogServices::UseEntityView() const
{
    return m_real->UseEntityView();
}

void CursorLogServices::setUseEntityView(bool on)
{
    m_real->setUseEntityView(on);
}

bool CursorLogServices::IsValidLong(const QVariant &value, qint32 &result, const QVariant &rangeMin,
                                    const QVariant &rangeMax, QString &errorText)
{
    return m_real->IsValidLong(value, result, rangeMin, rangeMax, errorText);
}

bool CursorLogServices::IsValidDouble(const QVariant &value, double &result, const QVariant &rangeMin,
                                      const QVariant &rangeMax, QString &errorText)
{
    return m_real->IsValidDouble(value, result, rangeMin, rangeMax, errorText);
}

std::shared_ptr<AppGeneralState> CursorLogServices::GeneralState()
{
    return m_real->GeneralState();
}

} // namespace PickerCtl
