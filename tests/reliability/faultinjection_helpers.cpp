#include "faultinjection_helpers.h"

#include <PickerCtl/CatalogError.h>
#include <PickerCtl/Notifiers.h>
#include <PickerCtl/PropertyFilter.h>
#include <PickerCtl/PropertyStore.h>
#include <PickerCtl/testing/CatalogSpecs.h>

using namespace PickerCtl;

namespace FaultTest {

void FaultPlan::arm(int at, Mode how)
{
    failAt = at;
    mode = how;
    calls = 0;
    failedCall.clear();
}

bool FaultPlan::tick(const char *call)
{
    ++calls;
    if (calls != failAt)
        return false;
    failedCall = QLatin1String(call);
    switch (mode) {
    case Mode::CatalogError:
        throw CatalogError(QStringLiteral("The catalogue failed on purpose at call %1.").arg(calls));
    case Mode::Foreign:
        throw calls;
    case Mode::Nothing:
        break;
    }
    return true;
}

namespace {

class FaultyStore : public PropertyStore
{
public:
    FaultyStore(PropertyStorePtr inner, FaultPlanPtr plan)
        : m_inner(std::move(inner)), m_plan(std::move(plan))
    {
    }

    QVariant Item(const QString &key) const override
    {
        if (m_plan->tick(__func__))
            return {};
        return m_inner->Item(key);
    }
    void SetItem(const QString &key, const QVariant &value) override
    {
        if (m_plan->tick(__func__))
            return;
        m_inner->SetItem(key, value);
    }
    bool Contains(const QString &key) const override
    {
        if (m_plan->tick(__func__))
            return {};
        return m_inner->Contains(key);
    }
    void Remove(const QString &key) override
    {
        if (m_plan->tick(__func__))
            return;
        m_inner->Remove(key);
    }

private:
    PropertyStorePtr m_inner;
    FaultPlanPtr m_plan;
};

class FaultyPropertyFilter : public PropertyFilter
{
public:
    FaultyPropertyFilter(PropertyFilterPtr inner, FaultPlanPtr plan)
        : m_inner(std::move(inner)), m_plan(std::move(plan))
    {
    }

    QString ValueNames(const std::shared_ptr<ListViewProperties> &listProperties,
                       const QString &appName) const override
    {
        if (m_plan->tick(__func__))
            return {};
        return m_inner->ValueNames(listProperties, appName);
    }
    QString ValueCodes(const std::shared_ptr<ListViewProperties> &listProperties,
                       const QString &appName) const override
    {
        if (m_plan->tick(__func__))
            return {};
        return m_inner->ValueCodes(listProperties, appName);
    }

private:
    PropertyFilterPtr m_inner;
    FaultPlanPtr m_plan;
};

} // namespace

std::shared_ptr<MemoryCatalog> sampleCatalog()
{
    auto catalog = std::make_shared<MemoryCatalog>();
    catalog->addUser({1, QStringLiteral("admin"), true});
    catalog->addTechnology(QStringLiteral("GSM"), QStringLiteral("G"), 1);
    catalog->addTechnology(QStringLiteral("UMTS"), QStringLiteral("U"), 2);
    catalog->addTechnology(QStringLiteral("LTE"), QStringLiteral("L"), 4);
    catalog->addFieldType(QStringLiteral("CNT"), QStringLiteral("Counter"));
    catalog->addApplication(QStringLiteral("Reports"));
    catalog->addCategory(categorySpec(QStringLiteral("ROOT"), QString(), QStringLiteral("Catalogue")));
    catalog->addCategory(categorySpec(QStringLiteral("NET"), QStringLiteral("ROOT"), QStringLiteral("Network"), 1,
                                      QStringLiteral("Entities")));
    catalog->addCategory(categorySpec(QStringLiteral("GEN"), QStringLiteral("ROOT"), QStringLiteral("Generic"), 0,
                                      genericLabel()));
    catalog->addCategory(categorySpec(QStringLiteral("REG"), QStringLiteral("Entities"), QStringLiteral("Region"), 2));
    catalog->addCategory(categorySpec(QStringLiteral("SYS"), genericLabel(), QStringLiteral("SYSTEM")));
    catalog->addCategory(categorySpec(QStringLiteral("CELL"), QStringLiteral("REG"), QStringLiteral("Cell"), 3));
    catalog->addCategory(categorySpec(QStringLiteral("TRF"), genericLabel(), QStringLiteral("Traffic")));
    const QString counter = QStringLiteral("CNT");
    catalog->addField(fieldSpec(10, QStringLiteral("CELL"), QStringLiteral("Call Attempts"), counter, 1, QStringLiteral("GUL")));
    catalog->addField(fieldSpec(11, QStringLiteral("CELL"), QStringLiteral("Drops"), counter, 1, QStringLiteral("G")));
    catalog->addField(fieldSpec(12, QStringLiteral("REG"), QStringLiteral("Handovers"), counter, 1, QStringLiteral("L")));
    catalog->addField(fieldSpec(13, QStringLiteral("TRF"), QStringLiteral("Erlang"), counter, 1, QStringLiteral("UL")));
    catalog->addEnumList(QStringLiteral("Status"), {QStringLiteral("Active"), QStringLiteral("Idle")},
                         {QStringLiteral("A"), QStringLiteral("I")});
    return catalog;
}

FaultyCatalog::FaultyCatalog(std::shared_ptr<MemoryCatalog> inner, FaultPlanPtr plan)
    : m_inner(std::move(inner))
    , m_plan(std::move(plan))
    , m_properties(std::make_shared<FaultyStore>(m_inner->GetProperties(), m_plan))
    , m_propertyFilter(std::make_shared<FaultyPropertyFilter>(m_inner->GetPropertyFilter(), m_plan))
{
}

CategoryTreePtr FaultyCatalog::GetCategoryTree(const QString &appName)
{
    if (m_plan->tick(__func__))
        return {};
    return m_inner->GetCategoryTree(appName);
}

QString FaultyCatalog::GetEntityKey(qint32 entityId)
{
    if (m_plan->tick(__func__))
        return {};
    return m_inner->GetEntityKey(entityId);
}

FieldCategoryPtr FaultyCatalog::GetCategory(const QString &appName, const QString &categoryName)
{
    if (m_plan->tick(__func__))
        return {};
    return m_inner->GetCategory(appName, categoryName);
}

FieldPtr FaultyCatalog::GetField(const QString &appName, const QVariant &id, qint32 reserved)
{
    if (m_plan->tick(__func__))
        return {};
    return m_inner->GetField(appName, id, reserved);
}

void FaultyCatalog::ChangeOwner(const FieldsPtr &fields, const QVariant &owner)
{
    if (m_plan->tick(__func__))
        return;
    m_inner->ChangeOwner(fields, owner);
}

void FaultyCatalog::DeleteFields(const FieldsPtr &fields, const FieldsPtr &exceptions)
{
    if (m_plan->tick(__func__))
        return;
    m_inner->DeleteFields(fields, exceptions);
}

CategoryTreePtr FaultyCatalog::NewCategoryTree(const QString &appName)
{
    if (m_plan->tick(__func__))
        return {};
    return m_inner->NewCategoryTree(appName);
}

QStringList FaultyCatalog::Applications()
{
    if (m_plan->tick(__func__))
        return {};
    return m_inner->Applications();
}

QList<FieldCategoryPtr> FaultyCatalog::Categories(const QString &appName)
{
    if (m_plan->tick(__func__))
        return {};
    return m_inner->Categories(appName);
}

TechnologyTypesPtr FaultyCatalog::GetTechnologyTypes()
{
    if (m_plan->tick(__func__))
        return {};
    return m_inner->GetTechnologyTypes();
}

QStringList FaultyCatalog::TechnologyComboEntries()
{
    if (m_plan->tick(__func__))
        return {};
    return m_inner->TechnologyComboEntries();
}

QStringList FaultyCatalog::FieldTypeComboEntries(const QString &appName)
{
    if (m_plan->tick(__func__))
        return {};
    return m_inner->FieldTypeComboEntries(appName);
}

QString FaultyCatalog::FieldTypeCode(const QString &appName, const QString &fieldTypeName)
{
    if (m_plan->tick(__func__))
        return {};
    return m_inner->FieldTypeCode(appName, fieldTypeName);
}

RcvRegistryPtr FaultyCatalog::GetRcvRegistry()
{
    if (m_plan->tick(__func__))
        return {};
    return m_inner->GetRcvRegistry();
}

FieldClipDataPtr FaultyCatalog::NewClipData(bool primary)
{
    if (m_plan->tick(__func__))
        return {};
    return m_inner->NewClipData(primary);
}

PropertyStorePtr FaultyCatalog::GetProperties()
{
    if (m_plan->tick(__func__))
        return {};
    return m_properties;
}

std::shared_ptr<ListViewProperties> FaultyCatalog::NewListProperties()
{
    if (m_plan->tick(__func__))
        return {};
    return m_inner->NewListProperties();
}

PropertyFilterPtr FaultyCatalog::GetPropertyFilter()
{
    if (m_plan->tick(__func__))
        return {};
    return m_propertyFilter;
}

std::shared_ptr<FieldUpdates> FaultyCatalog::GetFieldUpdates()
{
    if (m_plan->tick(__func__))
        return {};
    return m_inner->GetFieldUpdates();
}

QList<CurrentUserPtr> FaultyCatalog::Users()
{
    if (m_plan->tick(__func__))
        return {};
    return m_inner->Users();
}

FaultyServices::FaultyServices(FaultPlanPtr plan)
    : m_real(std::make_shared<CursorLogServices>())
    , m_plan(std::move(plan))
{
}

bool FaultyServices::IsValidLong(const QVariant &value, qint32 &result, const QVariant &rangeMin,
                                 const QVariant &rangeMax, QString &errorText)
{
    if (m_plan->tick(__func__))
        return {};
    return m_real->IsValidLong(value, result, rangeMin, rangeMax, errorText);
}

bool FaultyServices::IsValidDouble(const QVariant &value, double &result, const QVariant &rangeMin,
                                   const QVariant &rangeMax, QString &errorText)
{
    if (m_plan->tick(__func__))
        return {};
    return m_real->IsValidDouble(value, result, rangeMin, rangeMax, errorText);
}

} // namespace FaultTest
