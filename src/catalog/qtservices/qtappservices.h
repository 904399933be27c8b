#pragma once

#include <PickerCtl/AppServices.h>

namespace PickerCtl {

/// The application services of a Qt host: the override cursor, the entity-view flag and the
/// number checks in the user's locale.
class QtAppServices final : public AppServices
{
public:
    QtAppServices();
    ~QtAppServices() override;

    std::shared_ptr<WaitCursor> Cursor() override;
    bool UseEntityView() const override;
    void setUseEntityView(bool on) override;
    bool IsValidLong(const QVariant &value, qint32 &result, const QVariant &rangeMin,
                     const QVariant &rangeMax, QString &errorText) override;
    bool IsValidDouble(const QVariant &value, double &result, const QVariant &rangeMin,
                       const QVariant &rangeMax, QString &errorText) override;
    std::shared_ptr<AppGeneralState> GeneralState() override;

private:
    std::shared_ptr<WaitCursor> m_cursor;
    std::shared_ptr<AppGeneralState> m_generalState;
    bool m_useEntityView = true;
};

} // namespace PickerCtl
