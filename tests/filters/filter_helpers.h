#pragma once

#include <PickerCtl/AppServices.h>
#include <PickerCtl/EnumFilterValue.h>
#include <PickerCtl/ListViewProperties.h>
#include <PickerCtl/NumberFilterValue.h>
#include <PickerCtl/StringFilterValue.h>
#include <PickerCtl/TimeFilterValue.h>

#include <QDateTime>
#include <QList>
#include <QMetaType>
#include <QString>
#include <QWidget>

namespace FilterTest {

/// Shows the editor in its own active window, so focus changes reach its boxes as for a user.
bool showActive(QWidget *editor);

/// The child with that object name, or nullptr when the editor lacks it.
template<typename T>
T *child(const QWidget *editor, const QString &name)
{
    return editor->findChild<T *>(name);
}

/// True when the whole (non-empty) text of a line edit is selected.
bool wholeTextSelected(const QWidget *lineEdit);

/// The values the hosts hand in; an invalid QVariant leaves that bound unset.
PickerCtl::NumberFilterValuePtr bounds(const QVariant &minimum, const QVariant &maximum);
PickerCtl::StringFilterValuePtr match(const QString &expression, bool pattern = false, bool whole = false,
                                      bool matchCase = false);
PickerCtl::TimeFilterValuePtr relative(qint32 unit, qint32 count);
PickerCtl::TimeFilterValuePtr absolute(const QDateTime &start, const QDateTime &end);
/// "<no filter>" stands for no value at all.
PickerCtl::EnumFilterValuePtr selecting(const QString &selection);
PickerCtl::ListViewPropertiesPtr titled(const QString &title);

/// The real number checks, recording the types of the range ends each check received.
class RecordingServices : public PickerCtl::AppServices
{
public:
    explicit RecordingServices(std::shared_ptr<PickerCtl::AppServices> real)
        : m_real(std::move(real))
    {
    }

    std::shared_ptr<PickerCtl::WaitCursor> Cursor() override { return m_real->Cursor(); }
    bool UseEntityView() const override { return m_real->UseEntityView(); }
    void setUseEntityView(bool on) override { m_real->setUseEntityView(on); }
    bool IsValidLong(const QVariant &value, qint32 &result, const QVariant &rangeMin, const QVariant &rangeMax,
                     QString &errorText) override
    {
        record(rangeMin, rangeMax);
        return m_real->IsValidLong(value, result, rangeMin, rangeMax, errorText);
    }
    bool IsValidDouble(const QVariant &value, double &result, const QVariant &rangeMin, const QVariant &rangeMax,
                       QString &errorText) override
    {
        record(rangeMin, rangeMax);
        return m_real->IsValidDouble(value, result, rangeMin, rangeMax, errorText);
    }
    std::shared_ptr<PickerCtl::AppGeneralState> GeneralState() override { return m_real->GeneralState(); }

    QList<QMetaType> minimumTypes;
    QList<QMetaType> maximumTypes;

private:
    void record(const QVariant &rangeMin, const QVariant &rangeMax)
    {
        minimumTypes << rangeMin.metaType();
        maximumTypes << rangeMax.metaType();
    }

    std::shared_ptr<PickerCtl::AppServices> m_real;
};

/// Installs a RecordingServices over the current services for its lifetime.
class RecordingScope
{
public:
    RecordingScope()
        : m_real(PickerCtl::AppServices::instance())
        , services(std::make_shared<RecordingServices>(m_real))
    {
        PickerCtl::AppServices::setInstance(services);
    }
    ~RecordingScope() { PickerCtl::AppServices::setInstance(m_real); }
    RecordingScope(const RecordingScope &) = delete;
    RecordingScope &operator=(const RecordingScope &) = delete;

private:
    std::shared_ptr<PickerCtl::AppServices> m_real;

public:
    const std::shared_ptr<RecordingServices> services;
};

} // namespace FilterTest
