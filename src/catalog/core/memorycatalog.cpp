#include <PickerCtl/MemoryCatalog.h>

#include "catalog/core/fieldchunk.h"
#include "catalog/core/catalogtables.h"
#include "catalog/core/memorycategory.h"
#include "catalog/core/memoryfield.h"
#include "catalog/core/memorypropertyfilter.h"
#include "catalog/core/memoryrcvregistry.h"
#include "catalog/core/memorytree.h"
#include "catalog/core/ownershiprule.h"

#include <PickerCtl/CatalogError.h>
#include <PickerCtl/FixedUserContext.h>
#include <PickerCtl/ListViewProperties.h>
#include <PickerCtl/MemoryPropertyStore.h>
#include <PickerCtl/Notifiers.h>

#include <map>

namespace PickerCtl {

namespace {
const QString kAllTechTypes = QStringLiteral("<All Tech Types>");
const QString kAllFieldTypes = QStringLiteral("<All Field Types>");
const QString kNoApplication = QStringLiteral("Add an application before its categories.");
const QString kEmptyCategoryKey = QStringLiteral("The category \"%1\" has no key.");
const QString kDuplicateCategory = QStringLiteral("The category key \"%1\" is used twice in the catalogue.");
const QString kUnknownCategory = QStringLiteral("The field \"%1\" names the unknown category \"%2\".");
const QString kDuplicateField = QStringLiteral("The field id %1 is used twice in the catalogue.");
const QString kDuplicateUser = QStringLiteral("The user id %1 is used twice in the catalogue.");
const QString kUnknownOwner = QStringLiteral("\"%1\" is not a user of the catalogue.");
} // namespace

struct MemoryCatalog::Private
{
    struct Application
    {
        std::shared_ptr<ApplicationData> data;
        std::shared_ptr<MemoryTree> tree;
    };

    std::shared_ptr<CatalogTables> tables = std::make_shared<CatalogTables>();
    std::shared_ptr<FieldIndex> fieldIndex = std::make_shared<FieldIndex>();
    std::vector<Application> applications;
    TextMap<qsizetype> applicationIndex;
    TextMap<std::shared_ptr<MemoryCategory>> categories;
    std::vector<std::shared_ptr<MemoryCategory>> categoriesByIndex; ///< by MemoryCategory::index()
    QHash<qint32, QString> entityKeys;
    std::map<qint32, CurrentUserPtr> users;
    QList<std::pair<QString, QString>> fieldTypes; ///< (code, name) in catalogue order
    std::shared_ptr<MemoryRcvRegistry> rcvRegistry =
        std::make_shared<MemoryRcvRegistry>(tables, fieldIndex);
    std::shared_ptr<MemoryPropertyFilter> propertyFilter = std::make_shared<MemoryPropertyFilter>();
    std::shared_ptr<TechnologyTypes> technologyTypes = std::make_shared<TechnologyTypes>();
    PropertyStorePtr properties;
    std::shared_ptr<CatalogWriter> writer;
    /// What the categories' Reload runs: this catalogue's Refresh, for as long as the catalogue lives.
    std::shared_ptr<const std::function<void()>> reload;
    std::shared_ptr<FieldUpdates> fieldUpdates;
    FieldChunks fieldChunks;
    QString lastCategoryKey;                      ///< the category the last field went to
    std::shared_ptr<MemoryCategory> lastCategory;

    const Application *application(const QString &name) const
    {
        const qsizetype *index = applicationIndex.find(name);
        return index ? &applications[size_t(*index)] : nullptr;
    }

    /// The catalogue's own fields among those given, each once, in the given order.
    std::vector<std::shared_ptr<MemoryField>> ownFields(const FieldsPtr &fields,
                                                        const FieldsPtr &exceptions) const
    {
        std::vector<std::shared_ptr<MemoryField>> own;
        if (!fields)
            return own;
        QSet<qint32> seen;
        for (const FieldPtr &field : *fields) {
            if (!field || (exceptions && exceptions->contains(field->Key())))
                continue;
            std::shared_ptr<MemoryField> mine = fieldIndex->value(field->Id());
            if (mine && !seen.contains(mine->Id())) {
                seen.insert(mine->Id());
                own.push_back(std::move(mine));
            }
        }
        return own;
    }

    const std::shared_ptr<MemoryCategory> &categoryOf(const MemoryField &field) const
    {
        return categoriesByIndex[field.categoryIndex()];
    }

    void raisePerCategory(const std::vector<std::shared_ptr<MemoryField>> &fields, qint32 action);
    void remove(const std::vector<std::shared_ptr<MemoryField>> &fields);
};

namespace {
QList<qint32> idsOf(const std::vector<std::shared_ptr<MemoryField>> &fields)
{
    QList<qint32> ids;
    ids.reserve(qsizetype(fields.size()));
    for (const auto &field : fields)
        ids.append(field->Id());
    return ids;
}

// The catalogue keeps the ownership rule itself, whatever a control asked the user before: one
// refused field refuses the whole call.
void checkOwnershipRule(const std::vector<std::shared_ptr<MemoryField>> &fields, FieldChange change)
{
    const CurrentUserPtr user = UserContext::instance()->CurrentUser();
    const FieldRights rights = rightsOf(user.get());
    for (const auto &field : fields) {
        const QString refusal = fieldChangeRefusal(rights, change, field->Name(), field->OwnerId());
        if (!refusal.isEmpty())
            throw CatalogError(refusal);
    }
}
} // namespace

MemoryCatalog::MemoryCatalog()
    : d(std::make_unique<Private>())
{
    d->reload = std::make_shared<const std::function<void()>>([this] { Refresh(); });
}

MemoryCatalog::~MemoryCatalog() = default;

void MemoryCatalog::addUser(const UserSpec &user)
{
    if (d->users.count(user.id))
        throw CatalogError(kDuplicateUser.arg(user.id));
    d->users.emplace(user.id, std::make_shared<FixedUser>(user));
    d->tables->userNames.insert(user.id, user.name);
}

void MemoryCatalog::addTechnology(const QString &name, const QString &code, qint32 bit)
{
    auto type = std::make_shared<TechnologyType>(name, code, bit);
    d->technologyTypes->Add(type);
    d->tables->technologies.Add(type);
}

void MemoryCatalog::addFieldType(const QString &code, const QString &name)
{
    d->fieldTypes.append({code, name});
}

void MemoryCatalog::addApplication(const QString &appName)
{
    if (d->applicationIndex.contains(appName))
        return;
    auto data = std::make_shared<ApplicationData>(appName);
    auto tree = std::make_shared<MemoryTree>(data->nodes(), data);
    d->applicationIndex.insert(appName, qsizetype(d->applications.size()));
    d->applications.push_back({data, tree});
}

void MemoryCatalog::addCategory(const CategorySpec &spec)
{
    if (d->applications.empty())
        throw CatalogError(kNoApplication);
    if (spec.key.isEmpty())
        throw CatalogError(kEmptyCategoryKey.arg(spec.name));
    if (d->categories.contains(spec.key))
        throw CatalogError(kDuplicateCategory.arg(spec.key));

    const qsizetype appIndex = qsizetype(d->applications.size()) - 1;
    ApplicationData &app = *d->applications.back().data;
    const std::shared_ptr<MemoryNode> parentNode = app.nodes()->node(spec.parentKey);
    auto parent = parentNode ? std::static_pointer_cast<MemoryCategory>(parentNode->Category()) : nullptr;
    const quint32 index = quint32(d->tables->categories.size());
    auto category = std::make_shared<MemoryCategory>(spec, parent, index, appIndex);
    category->setReload(d->reload);
    // The tree refuses duplicate node keys and unknown parents before anything is recorded.
    app.nodes()->add(spec.nodeKey.isEmpty() ? spec.key : spec.nodeKey, category, spec.parentKey);

    d->tables->categories.push_back({category->Name(), category->RcvFormName()});
    d->categories.insert(spec.key, category);
    d->categoriesByIndex.push_back(category);
    app.byFullName.insertIfAbsent(category->FullName(), category);
    app.byName.insertIfAbsent(category->Name(), category);
    if (spec.entityId != 0 && !d->entityKeys.contains(spec.entityId))
        d->entityKeys.insert(spec.entityId, spec.key);
    app.invalidate();
}

void MemoryCatalog::addField(const FieldSpec &spec)
{
    // Fields come category by category: the category of the previous field is the usual one.
    if (!d->lastCategory || spec.categoryKey != d->lastCategoryKey) {
        std::shared_ptr<MemoryCategory> category = d->categories.value(spec.categoryKey);
        if (!category)
            throw CatalogError(kUnknownCategory.arg(spec.name, spec.categoryKey));
        d->lastCategory = std::move(category);
        d->lastCategoryKey = spec.categoryKey;
    }
    MemoryCategory &category = *d->lastCategory;
    if (d->fieldIndex->value(spec.id))
        throw CatalogError(kDuplicateField.arg(spec.id));
    std::shared_ptr<MemoryField> field = d->fieldChunks.make(d->tables, category.index(), spec);
    d->fieldIndex->insert(spec.id, field);
    category.Fields()->Add(std::move(field));
    d->applications[size_t(category.appIndex())].data->invalidate();
}

void MemoryCatalog::reserveFields(qsizetype count)
{
    d->fieldIndex->reserve(count);
}

void MemoryCatalog::addRcvForm(const QString &formKey, const QString &categoryName)
{
    d->rcvRegistry->addForm(formKey, categoryName);
}

void MemoryCatalog::addRcvField(const QString &form, const QString &fieldName, qint32 fieldId)
{
    d->tables->rcvFields[form].insert(fieldName, fieldId);
    d->tables->rcvFieldIds[form].insert(fieldId);
}

void MemoryCatalog::addEnumList(const QString &title, const QStringList &names, const QStringList &codes)
{
    d->propertyFilter->addList(title, names, codes);
}

void MemoryCatalog::setProperties(const PropertyStorePtr &store)
{
    d->properties = store;
}

void MemoryCatalog::setWriter(const std::shared_ptr<CatalogWriter> &writer)
{
    d->writer = writer;
}

CategoryTreePtr MemoryCatalog::GetCategoryTree(const QString &appName)
{
    const Private::Application *app = d->application(appName);
    if (!app)
        return std::make_shared<MemoryTree>(std::make_shared<MemoryNodes>(), nullptr);
    return app->tree;
}

QString MemoryCatalog::GetEntityKey(qint32 entityId)
{
    return d->entityKeys.value(entityId);
}

FieldCategoryPtr MemoryCatalog::GetCategory(const QString &appName, const QString &categoryName)
{
    const Private::Application *app = d->application(appName);
    if (!app)
        return nullptr;
    if (FieldCategoryPtr byFullName = app->data->byFullName.value(categoryName))
        return byFullName;
    return app->data->byName.value(categoryName);
}

FieldPtr MemoryCatalog::GetField(const QString &appName, const QVariant &id, qint32 /*reserved*/)
{
    bool isNumber = false;
    const qint32 fieldId = id.toInt(&isNumber);
    if (!isNumber)
        return nullptr;
    const std::shared_ptr<MemoryField> field = d->fieldIndex->value(fieldId);
    if (!field)
        return nullptr;
    const Private::Application *app = d->application(appName);
    if (!app || d->applications[size_t(d->categoryOf(*field)->appIndex())].data != app->data)
        return nullptr;
    return field;
}

void MemoryCatalog::ChangeOwner(const FieldsPtr &fields, const QVariant &owner)
{
    bool isNumber = false;
    const qint32 ownerId = owner.toInt(&isNumber);
    if (!isNumber || !d->users.count(ownerId))
        throw CatalogError(kUnknownOwner.arg(owner.toString()));
    const std::vector<std::shared_ptr<MemoryField>> changing = d->ownFields(fields, nullptr);
    if (changing.empty())
        return;
    checkOwnershipRule(changing, FieldChange::ChangeOwner);
    if (d->writer)
        d->writer->changeOwner(idsOf(changing), ownerId);
    for (const auto &field : changing)
        field->setOwnerId(ownerId);
    d->raisePerCategory(changing, FieldUpdates::Changed);
}

void MemoryCatalog::DeleteFields(const FieldsPtr &fields, const FieldsPtr &exceptions)
{
    const std::vector<std::shared_ptr<MemoryField>> deleting = d->ownFields(fields, exceptions);
    if (deleting.empty())
        return;
    checkOwnershipRule(deleting, FieldChange::Delete);
    if (d->writer)
        d->writer->deleteFields(idsOf(deleting));
    d->remove(deleting);
    d->raisePerCategory(deleting, FieldUpdates::Removed);
}

void MemoryCatalog::Refresh()
{
    if (!d->writer)
        return;
    const std::optional<QHash<qint32, qint32>> stored = d->writer->storedOwners();
    if (!stored)
        return;
    std::vector<std::shared_ptr<MemoryField>> gone, reowned;
    for (const auto &category : d->categoriesByIndex) {
        for (const FieldPtr &field : *category->Fields()) {
            std::shared_ptr<MemoryField> mine = d->fieldIndex->value(field->Id());
            if (!mine)
                continue;
            const auto owner = stored->constFind(mine->Id());
            if (owner == stored->cend()) {
                gone.push_back(std::move(mine));
            } else if (*owner != mine->OwnerId()) {
                mine->setOwnerId(*owner);
                reowned.push_back(std::move(mine));
            }
        }
    }
    if (!gone.empty()) {
        d->remove(gone);
        d->raisePerCategory(gone, FieldUpdates::Removed);
    }
    if (!reowned.empty())
        d->raisePerCategory(reowned, FieldUpdates::Changed);
}

void MemoryCatalog::Private::remove(const std::vector<std::shared_ptr<MemoryField>> &fields)
{
    QSet<const Field *> removed;
    removed.reserve(qsizetype(fields.size()));
    QSet<qsizetype> touchedApplications;
    QSet<MemoryCategory *> touchedCategories;
    for (const auto &field : fields) {
        removed.insert(field.get());
        fieldIndex->remove(field->Id());
        MemoryCategory *category = categoryOf(*field).get();
        touchedCategories.insert(category);
        touchedApplications.insert(category->appIndex());
    }
    for (MemoryCategory *category : touchedCategories)
        removeFieldsInPlace(*category->Fields(), removed);
    for (qsizetype appIndex : touchedApplications)
        applications[size_t(appIndex)].data->removeFields(removed);
}

void MemoryCatalog::Private::raisePerCategory(const std::vector<std::shared_ptr<MemoryField>> &fields,
                                              qint32 action)
{
    if (!fieldUpdates)
        return; // nobody has asked for the notifier, so nobody listens
    // One notification per category, in the order the categories first come.
    std::vector<std::pair<MemoryCategory *, FieldsPtr>> groups;
    QHash<MemoryCategory *, size_t> groupOf;
    for (const auto &field : fields) {
        MemoryCategory *category = categoryOf(*field).get();
        auto group = groupOf.constFind(category);
        if (group == groupOf.cend()) {
            group = groupOf.insert(category, groups.size());
            groups.emplace_back(category, Fields::create());
        }
        groups[*group].second->Add(field);
    }
    for (const auto &[category, changed] : groups)
        fieldUpdates->RaiseFieldsChange(category->EntityId(), changed, action);
}

CategoryTreePtr MemoryCatalog::NewCategoryTree(const QString &appName)
{
    const Private::Application *app = d->application(appName);
    return std::make_shared<MemoryTree>(std::make_shared<MemoryNodes>(), app ? app->data : nullptr);
}

QStringList MemoryCatalog::Applications()
{
    QStringList names;
    for (const Private::Application &app : d->applications)
        names.append(app.data->name());
    return names;
}

QList<FieldCategoryPtr> MemoryCatalog::Categories(const QString &appName)
{
    const Private::Application *app = d->application(appName);
    return app ? app->data->categories() : QList<FieldCategoryPtr>();
}

TechnologyTypesPtr MemoryCatalog::GetTechnologyTypes()
{
    return d->technologyTypes;
}

QStringList MemoryCatalog::TechnologyComboEntries()
{
    QStringList entries{kAllTechTypes};
    for (const TechnologyTypePtr &type : *d->technologyTypes)
        entries.append(type->Name());
    return entries;
}

QStringList MemoryCatalog::FieldTypeComboEntries(const QString & /*appName*/)
{
    QStringList entries{kAllFieldTypes};
    for (const auto &[code, name] : d->fieldTypes)
        entries.append(name);
    return entries;
}

QString MemoryCatalog::FieldTypeCode(const QString & /*appName*/, const QString &fieldTypeName)
{
    for (const auto &[code, name] : d->fieldTypes) {
        if (name == fieldTypeName)
            return code;
    }
    return QString();
}

RcvRegistryPtr MemoryCatalog::GetRcvRegistry()
{
    return d->rcvRegistry;
}

FieldClipDataPtr MemoryCatalog::NewClipData(bool /*primary*/)
{
    return std::make_shared<FieldClipData>();
}

PropertyStorePtr MemoryCatalog::GetProperties()
{
    if (!d->properties)
        d->properties = std::make_shared<MemoryPropertyStore>();
    return d->properties;
}

std::shared_ptr<ListViewProperties> MemoryCatalog::NewListProperties()
{
    return std::make_shared<ListViewProperties>();
}

PropertyFilterPtr MemoryCatalog::GetPropertyFilter()
{
    return d->propertyFilter;
}

std::shared_ptr<FieldUpdates> MemoryCatalog::GetFieldUpdates()
{
    if (!d->fieldUpdates)
        d->fieldUpdates = std::make_shared<FieldUpdates>();
    return d->fieldUpdates;
}

QList<CurrentUserPtr> MemoryCatalog::Users()
{
    QList<CurrentUserPtr> users;
    users.reserve(qsizetype(d->users.size()));
    for (const auto &[id, user] : d->users)
        users.append(user);
    return users;
}

} // namespace PickerCtl
