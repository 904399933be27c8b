#pragma once

#include <PickerCtl/FieldCatalog.h>

#include <QStringList>

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
};

/**
 * The in-memory catalogue. Built once through the add* calls (categories before their fields,
 * parents before children), then used through FieldCatalog. Strings that many fields share
 * (technology masks, type codes, units, descriptions) are stored once.
 */
class PICKERCTL_EXPORT MemoryCatalog : public FieldCatalog
{
public:
    MemoryCatalog();
    ~MemoryCatalog() override;

    void addUser(const UserSpec &user);
    void addTechnology(const QString &name, const QString &code, qint32 bit);
    void addFieldType(const QString &code, const QString &name);
    /// Adds an application; its categories follow with addCategory.
    void addApplication(const QString &appName);
    /// Adds a category of the last added application; throws CatalogError on a duplicate key.
    void addCategory(const CategorySpec &category);
    /// Adds a field to a category of any application; throws CatalogError on a duplicate id.
    void addField(const FieldSpec &field);
    void reserveFields(qsizetype count);
    /// RCV registry content: form key -> category name, (form, field name) -> field id.
    void addRcvForm(const QString &formKey, const QString &categoryName);
    void addRcvField(const QString &form, const QString &fieldName, qint32 fieldId);
    /// An enumeration list for the property filter, addressed by the list-view properties' Title.
    void addEnumList(const QString &title, const QStringList &names, const QStringList &codes);
    void setProperties(const PropertyStorePtr &store);
    void setWriter(const std::shared_ptr<CatalogWriter> &writer);

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
