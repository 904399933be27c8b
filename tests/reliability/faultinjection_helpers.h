#pragma once

#include <PickerCtl/AppServices.h>
#include <PickerCtl/MemoryCatalog.h>
#include <PickerCtl/testing/CursorLog.h>

#include <memory>

namespace FaultTest {

/**
 * When the services fail: every call of the catalogue, of the properties store, of the property
 * filter and of the number checks counts, and the call numbered failAt fails. CatalogError is what
 * a catalogue is allowed to throw; an int stands for a host whose code throws something that is no
 * std::exception at all; Nothing answers nothing (a null object, an empty value, false) without
 * throwing.
 */
struct FaultPlan
{
    enum class Mode { CatalogError, Foreign, Nothing };

    int failAt = 0; ///< 0: never fails, only counts
    Mode mode = Mode::CatalogError;
    int calls = 0;
    /// The service call that failed, by name; empty while none did.
    QString failedCall;

    void arm(int at, Mode how);
    void disarm() { failAt = 0; }
    /// Counts a call; when it is the one to fail, throws, or returns true for "answer nothing".
    bool tick(const char *call);
};

using FaultPlanPtr = std::shared_ptr<FaultPlan>;

/// The application "Reports" (Network -> Region -> Cell, Generic -> SYSTEM, Traffic), technologies
/// GSM "G", UMTS "U", LTE "L", one administrator, and the enumeration "Status".
std::shared_ptr<PickerCtl::MemoryCatalog> sampleCatalog();

/// A catalogue that forwards to a real one and fails as its plan says; the properties store and
/// the property filter it hands out fail by the same plan.
class FaultyCatalog : public PickerCtl::FieldCatalog
{
public:
    FaultyCatalog(std::shared_ptr<PickerCtl::MemoryCatalog> inner, FaultPlanPtr plan);

    const std::shared_ptr<PickerCtl::MemoryCatalog> &inner() const { return m_inner; }
    /// A store that forwards to the real catalogue's and fails by the plan.
    PickerCtl::PropertyStorePtr faultyProperties() const { return m_properties; }

    PickerCtl::CategoryTreePtr GetCategoryTree(const QString &appName) override;
    QString GetEntityKey(qint32 entityId) override;
    PickerCtl::FieldCategoryPtr GetCategory(const QString &appName, const QString &categoryName) override;
    PickerCtl::FieldPtr GetField(const QString &appName, const QVariant &id, qint32 reserved = 0) override;
    void ChangeOwner(const PickerCtl::FieldsPtr &fields, const QVariant &owner) override;
    void DeleteFields(const PickerCtl::FieldsPtr &fields, const PickerCtl::FieldsPtr &exceptions) override;
    PickerCtl::CategoryTreePtr NewCategoryTree(const QString &appName) override;
    QStringList Applications() override;
    QList<PickerCtl::FieldCategoryPtr> Categories(const QString &appName) override;
    PickerCtl::TechnologyTypesPtr GetTechnologyTypes() override;
    QStringList TechnologyComboEntries() override;
    QStringList FieldTypeComboEntries(const QString &appName) override;
    QString FieldTypeCode(const QString &appName, const QString &fieldTypeName) override;
    PickerCtl::RcvRegistryPtr GetRcvRegistry() override;
    PickerCtl::FieldClipDataPtr NewClipData(bool primary) override;
    PickerCtl::PropertyStorePtr GetProperties() override;
    std::shared_ptr<PickerCtl::ListViewProperties> NewListProperties() override;
    PickerCtl::PropertyFilterPtr GetPropertyFilter() override;
    std::shared_ptr<PickerCtl::FieldUpdates> GetFieldUpdates() override;
    QList<PickerCtl::CurrentUserPtr> Users() override;

private:
    std::shared_ptr<PickerCtl::MemoryCatalog> m_inner;
    FaultPlanPtr m_plan;
    PickerCtl::PropertyStorePtr m_properties;
    PickerCtl::PropertyFilterPtr m_propertyFilter;
};

/// Application services whose number checks fail by the plan; the cursor is a CursorLog that never fails.
class FaultyServices : public PickerCtl::AppServices
{
public:
    explicit FaultyServices(FaultPlanPtr plan);

    const std::shared_ptr<PickerCtl::CursorLog> &log() const { return m_real->log(); }

    std::shared_ptr<PickerCtl::WaitCursor> Cursor() override { return m_real->Cursor(); }
    bool UseEntityView() const override { return m_real->UseEntityView(); }
    void setUseEntityView(bool on) override { m_real->setUseEntityView(on); }
    bool IsValidLong(const QVariant &value, qint32 &result, const QVariant &rangeMin, const QVariant &rangeMax,
                     QString &errorText) override;
    bool IsValidDouble(const QVariant &value, double &result, const QVariant &rangeMin, const QVariant &rangeMax,
                       QString &errorText) override;
    std::shared_ptr<PickerCtl::AppGeneralState> GeneralState() override { return m_real->GeneralState(); }

private:
    std::shared_ptr<PickerCtl::CursorLogServices> m_real;
    FaultPlanPtr m_plan;
};

} // namespace FaultTest
