#include "fieldpicker_helpers.h"

#include <PickerCtl/CatalogError.h>
#include <PickerCtl/testing/CatalogSpecs.h>

#include <QTreeView>

namespace PickerCtl::testsupport {

void addCategory(MemoryCatalog &catalog, const QString &key, const QString &parentKey, const QString &name,
                 qint32 entityId, const QString &nodeKey)
{
    catalog.addCategory(categorySpec(key, parentKey, name, entityId, nodeKey));
}

QTreeView *treeOf(const XFieldPicker &picker)
{
    return picker.findChild<QTreeView *>(QStringLiteral("tvw"));
}

XStaticList *listOf(const XFieldPicker &picker)
{
    return picker.findChild<XStaticList *>(QStringLiteral("stl"));
}

QList<qint32> idsOf(const FieldsPtr &fields)
{
    QList<qint32> ids;
    for (const FieldPtr &field : *fields)
        ids.append(field->Id());
    return ids;
}

namespace {

void addFields(MemoryCatalog &catalog, const QString &categoryKey, int firstId, int count)
{
    for (int i = 0; i < count; ++i) {
        FieldSpec spec;
        spec.id = firstId + i;
        spec.categoryKey = categoryKey;
        spec.name = QStringLiteral("%1 field %2").arg(categoryKey).arg(i + 1);
        spec.typeCode = QStringLiteral("CNT");
        catalog.addField(spec);
    }
}

} // namespace

void fillSampleCatalog(MemoryCatalog &catalog)
{
    catalog.addApplication(QLatin1String(ReportsApp));
    addCategory(catalog, QStringLiteral("root"), QString(), QStringLiteral("Catalogue"));
    addCategory(catalog, QStringLiteral("net"), QStringLiteral("root"), QStringLiteral("Network"), 1,
                QStringLiteral("Entities"));
    addCategory(catalog, QStringLiteral("site"), QStringLiteral("Entities"), QStringLiteral("Site"), 4);
    addCategory(catalog, QStringLiteral("region"), QStringLiteral("Entities"), QStringLiteral("Region"), 2);
    addCategory(catalog, QStringLiteral("cell"), QStringLiteral("region"), QStringLiteral("Cell"), 3);
    addCategory(catalog, QStringLiteral("gen"), QStringLiteral("root"), QStringLiteral("Generic"), 0,
                genericLabel());
    CategorySpec system;
    system.key = QStringLiteral("sys");
    system.parentKey = genericLabel();
    system.name = QStringLiteral("SYSTEM");
    system.fullName = QStringLiteral("System");
    catalog.addCategory(system);
    addCategory(catalog, QStringLiteral("perf"), QStringLiteral("sys"), QStringLiteral("Performance"));
    addCategory(catalog, QStringLiteral("traffic"), genericLabel(), QStringLiteral("Traffic"));
    addFields(catalog, QStringLiteral("site"), 100, 2);
    addFields(catalog, QStringLiteral("region"), 200, 3);
    addFields(catalog, QStringLiteral("cell"), 300, 2);
    addFields(catalog, QStringLiteral("perf"), 400, 1);
    addFields(catalog, QStringLiteral("traffic"), 500, 2);

    catalog.addApplication(QLatin1String(OtherApp));
    addCategory(catalog, QStringLiteral("plans"), QString(), QStringLiteral("Plans"));
    addFields(catalog, QStringLiteral("plans"), 600, 1);
}

std::shared_ptr<MemoryCatalog> makeSampleCatalog()
{
    auto catalog = std::make_shared<MemoryCatalog>();
    fillSampleCatalog(*catalog);
    return catalog;
}

CategoryTreePtr FailingCatalog::GetCategoryTree(const QString &appName)
{
    if (failTree)
        throw CatalogError(QStringLiteral("The category tree cannot be read."));
    return MemoryCatalog::GetCategoryTree(appName);
}

FieldCategoryPtr FailingCatalog::GetCategory(const QString &appName, const QString &categoryName)
{
    if (failCategory)
        throw CatalogError(QStringLiteral("The category cannot be read."));
    return MemoryCatalog::GetCategory(appName, categoryName);
}

void FailingCatalog::fail(const char *what) const
{
    if (throwForeign)
        throw 42;
    throw CatalogError(QString::fromLatin1(what));
}

void FailingCatalog::DeleteFields(const FieldsPtr &fields, const FieldsPtr &exceptions)
{
    if (failDelete)
        fail("The fields cannot be deleted.");
    MemoryCatalog::DeleteFields(fields, exceptions);
}

void FailingCatalog::ChangeOwner(const FieldsPtr &fields, const QVariant &owner)
{
    if (failOwner)
        fail("The owner cannot be changed.");
    MemoryCatalog::ChangeOwner(fields, owner);
}

CategoryTreePtr FailingCatalog::NewCategoryTree(const QString &appName)
{
    return nullNewTree ? nullptr : MemoryCatalog::NewCategoryTree(appName);
}

FieldClipDataPtr FailingCatalog::NewClipData(bool primary)
{
    if (failServices)
        fail("No clipboard payload.");
    return MemoryCatalog::NewClipData(primary);
}

PropertyStorePtr FailingCatalog::GetProperties()
{
    if (failServices)
        fail("No properties store.");
    return MemoryCatalog::GetProperties();
}

std::shared_ptr<FieldUpdates> FailingCatalog::GetFieldUpdates()
{
    if (failServices)
        fail("No field updates.");
    return MemoryCatalog::GetFieldUpdates();
}

EventLog::EventLog(XFieldPicker &picker)
{
    auto record = [this](const char *name) { return [this, name] { names.append(QLatin1String(name)); }; };
    connect(&picker, &XFieldPicker::SplitterAdjustment, this, record("SplitterAdjustment"));
    connect(&picker, &XFieldPicker::StateChange, this, record("StateChange"));
    connect(&picker, &XFieldPicker::Change, this, record("Change"));
    connect(&picker, &XFieldPicker::HandleContextMenu, this, record("HandleContextMenu"));
    connect(&picker, &XFieldPicker::DblClick, this, [this](const FieldPtr &fld, const QString &category) {
        names.append(QStringLiteral("DblClick"));
        lastField = fld;
        lastCategoryName = category;
    });
    connect(&picker, &XFieldPicker::ItemClick, this, [this](const FieldPtr &fld) {
        names.append(QStringLiteral("ItemClick"));
        lastField = fld;
    });
    connect(&picker, &XFieldPicker::CategoryClick, this,
            [this](const FieldCategoryPtr &) { names.append(QStringLiteral("CategoryClick")); });
    connect(&picker, &XFieldPicker::Delete, this, [this](const FieldsPtr &flds) {
        names.append(QStringLiteral("Delete"));
        lastFields = flds;
    });
    connect(&picker, &XFieldPicker::Edit, this, [this](const FieldsPtr &flds) {
        names.append(QStringLiteral("Edit"));
        lastFields = flds;
    });
    connect(&picker, &XFieldPicker::NewExpression, this, [this](const QString &category) {
        names.append(QStringLiteral("NewExpression"));
        lastCategoryName = category;
    });
    connect(&picker, &XFieldPicker::OpenEditor, this, [this](const FieldsPtr &flds, const QString &category) {
        names.append(QStringLiteral("OpenEditor"));
        lastFields = flds;
        lastCategoryName = category;
    });
}

ServicesScope::ServicesScope(std::shared_ptr<FieldCatalog> catalog, bool entityView)
    : m_services(std::make_shared<CursorLogServices>())
{
    m_services->setUseEntityView(entityView);
    FieldCatalog::setInstance(std::move(catalog));
    AppServices::setInstance(m_services);
}

ServicesScope::~ServicesScope()
{
    FieldCatalog::setInstance(nullptr);
    AppServices::setInstance(nullptr);
}

} // namespace PickerCtl::testsupport
