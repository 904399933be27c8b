#pragma once

#include <PickerCtl/FieldCatalog.h>

#include <QHash>
#include <QStringList>

#include <optional>

namespace PickerCtl {

struct UserSpec
{
    qint32 id = 0;
    QString name;
    bool administrator = false;
    bool canModifyFields = true;
    bool readOnly = false;
};

struct CategorySpec
{
    QString key;          ///< unique within the catalogue
    QString parentKey;    ///< node key of the parent; empty: the application's root node
    QString nodeKey;      ///< key of the category's tree node; empty: the category key
    QString name;
    QString fullName;     ///< empty: built from the parent's full name and name, joined by "\"
    QString caption;      ///< empty: the name
    qint32 entityId = 0;
    QString rcvFormName;
};

struct FieldSpec
{
    qint32 id = 0;        ///< unique within the catalogue; the key is "F" + id
    QString categoryKey;
    QString name;
    QString typeCode;     ///< "CNT", "EXP" or "UDC"
    qint32 ownerId = 0;
    QString techMask;
    bool busyHour = false;
    bool expression = false;
    QString validationStatus = QStringLiteral("V");
    QString description;
    QString unit;
};

/// Writes catalogue changes back to a store before the in-memory catalogue applies them.
/// Throwing leaves the in-memory catalogue unchanged.
class PICKERCTL_EXPORT CatalogWriter
{
public:
    virtual ~CatalogWriter();
    virtual void changeOwner(const QList<qint32> &fieldIds, qint32 ownerId) = 0;
    virtual void deleteFields(const QList<qint32> &fieldIds) = 0;
    /// The owner of every field the store holds now, by field id, for MemoryCatalog::Refresh;
    /// nothing (the default) for a store that cannot be read back.
    virtual std::optional<QHash<qint32, qint32>> storedOwners();
};

/**
 * The in-memory catalogue. Built once through the add* calls (categories before their fields,
 * parents before children), then used through FieldCatalog. Strings that many fields share
 * (technology masks, type codes, units, descriptions) are stored once.
 *
 * Shape of an application's tree, as the sample catalogue builds it (one application, one tree):
 * @code
 *   root                 category with an empty parentKey (the catalogue root)
 *   +- "Entities"        nodeKey "Entities": the entity root category ("Network"), then the
 *   |                    entity hierarchy below it (region, controller, site, cell ...), each
 *   |                    category with its EntityId
 *   +- genericLabel()    nodeKey genericLabel(): a "Generic" category whose children are the
 *                        built-in "SYSTEM" category and the other non-entity categories
 * @endcode
 * Node keys are unique in a tree and category keys in the catalogue; addCategory refuses a
 * duplicate of either, a second root and an unknown parent with CatalogError.
 * CategoryNodes::Find looks nodes up by node key, CategoryByKey categories by category key;
 * FieldCategory::ParentKey is the parent's category key.
 *
 * Look-ups: GetCategory tries the exact FullName, then the exact Name (the first category in
 * catalogue order with that name). GetField takes the id as a number or a numeric text and answers
 * only for a field of the named application. CategoryTree::AllFields gives every field of the
 * application in catalogue order (categories in pre-order, fields in insertion order inside); the
 * same collection is handed out until fields or categories are added, and deletions are applied
 * to it in place. A tree made by NewCategoryTree answers AllFields the same way.
 *
 * Field filters (Field::PassesFilter), beyond the rules documented on Field:
 * - rcvFormFilter, when not empty, keeps the fields of categories whose RcvFormName equals it
 *   and the fields that the RCV registry maps under that form (addRcvField).
 * - rcvFieldFilter, when not empty, keeps only the field mapped as (rcvFormFilter, rcvFieldFilter);
 *   with an empty rcvFormFilter that is the mapping under the empty form name.
 *
 * Changes: ChangeOwner takes a user id (CurrentUser::Identity) and throws CatalogError for an
 * unknown user. DeleteFields leaves out the fields whose keys are in the exceptions. Both keep the
 * ownership rule for the current user (UserContext::instance()): a user who is read-only or may
 * not modify fields changes nothing, any other user re-owns and deletes only his own fields unless
 * he is an administrator; one refused field refuses the whole call with CatalogError and nothing
 * changed. Both ignore fields that are not (or no longer) in the catalogue, call the CatalogWriter
 * first (a throwing writer leaves the catalogue unchanged), then apply the change and raise
 * FieldUpdates::FieldsChange once per category (its EntityId, the fields of that category,
 * Changed or Removed). Refresh brings in the ownership changes and deletions that other clients
 * of the writer's store committed meanwhile, with the same notifications; FieldCategory::Reload
 * (which a control's Refresh calls) runs it.
 *
 * Fields stay readable after the catalogue is destroyed; they keep its shared tables alive.
 */
class PICKERCTL_EXPORT MemoryCatalog : public FieldCatalog
{
public:
    MemoryCatalog();
    ~MemoryCatalog() override;

    /// Adds a user; throws CatalogError on a duplicate id. Users() lists them in id order.
    void addUser(const UserSpec &user);
    void addTechnology(const QString &name, const QString &code, qint32 bit);
    void addFieldType(const QString &code, const QString &name);
    /// Adds an application; its categories follow with addCategory.
    void addApplication(const QString &appName);
    /// Adds a category of the last added application; throws CatalogError on a duplicate key.
    void addCategory(const CategorySpec &category);
    /// Adds a field to a category of any application; throws CatalogError on a duplicate id or an
    /// unknown category.
    void addField(const FieldSpec &field);
    /// Prepares the field index for that many fields (a loader that knows its count).
    void reserveFields(qsizetype count);
    /// RCV registry content: form key -> category name, (form, field name) -> field id.
    void addRcvForm(const QString &formKey, const QString &categoryName);
    void addRcvField(const QString &form, const QString &fieldName, qint32 fieldId);
    /// An enumeration list for the property filter, addressed by the list-view properties' Title.
    void addEnumList(const QString &title, const QStringList &names, const QStringList &codes);
    /// The store GetProperties hands out; without one, a MemoryPropertyStore made on first use.
    void setProperties(const PropertyStorePtr &store);
    void setWriter(const std::shared_ptr<CatalogWriter> &writer);
    /// Re-reads the owners of the fields from the writer's store: fields gone from the store are
    /// removed, re-owned fields take their new owner. Does nothing without a writer; throws
    /// CatalogError (nothing changed) when the store cannot be read.
    void Refresh();

    // FieldCatalog
    CategoryTreePtr GetCategoryTree(const QString &appName) override;
    QString GetEntityKey(qint32 entityId) override;
    FieldCategoryPtr GetCategory(const QString &appName, const QString &categoryName) override;
    FieldPtr GetField(const QString &appName, const QVariant &id, qint32 reserved = 0) override;
    void ChangeOwner(const FieldsPtr &fields, const QVariant &owner) override;
    void DeleteFields(const FieldsPtr &fields, const FieldsPtr &exceptions) override;
    CategoryTreePtr NewCategoryTree(const QString &appName) override;
    QStringList Applications() override;
    QList<FieldCategoryPtr> Categories(const QString &appName) override;
    TechnologyTypesPtr GetTechnologyTypes() override;
    QStringList TechnologyComboEntries() override;
    QStringList FieldTypeComboEntries(const QString &appName) override;
    QString FieldTypeCode(const QString &appName, const QString &fieldTypeName) override;
    RcvRegistryPtr GetRcvRegistry() override;
    FieldClipDataPtr NewClipData(bool primary) override;
    PropertyStorePtr GetProperties() override;
    std::shared_ptr<ListViewProperties> NewListProperties() override;
    PropertyFilterPtr GetPropertyFilter() override;
    std::shared_ptr<FieldUpdates> GetFieldUpdates() override;
    QList<CurrentUserPtr> Users() override;

private:
    struct Private;
    std::unique_ptr<Private> d;
};

} // namespace PickerCtl
