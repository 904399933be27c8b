#include "catalog/qtservices/qtappservices.h"

#include "catalog/core/numbercheck.h"
#include "catalog/qtservices/qtwaitcursor.h"

#include <PickerCtl/Notifiers.h>

#include <QLocale>

namespace PickerCtl {

QtAppServices::QtAppServices()
    : m_cursor(std::make_shared<QtWaitCursor>())
{
}

QtAppServices::~QtAppServices() = default;

std::shared_ptr<WaitCursor> QtAppServices::Cursor()
{
    return m_cursor;
}

bool QtAppServices::UseEntityView() const
{
    return m_useEntityView;
}

void QtAppServices::setUseEntityView(bool on)
{
    m_useEntityView = on;
}

bool QtAppServices::IsValidLong(const QVariant &value, qint32 &result, const QVariant &rangeMin,
                                const QVariant &rangeMax, QString &errorText)
{
    return checkWholeNumber(value, rangeMin, rangeMax, QLocale(), result, errorText);
}

bool QtAppServices::IsValidDouble(const QVariant &value, double &result, const QVariant &rangeMin,
                                  const QVariant &rangeMax, QString &errorText)
{
    return checkRealNumber(value, rangeMin, rangeMax, QLocale(), result, errorText);
}

std::shared_ptr<AppGeneralState> QtAppServices::GeneralState()
{
    if (!m_generalState)
        m_generalState = std::make_shared<AppGeneralState>();
    return m_generalState;
}

} // namespace PickerCtl
