#pragma once

#include <PickerCtl/CategoryTree.h>
#include <PickerCtl/FieldClipData.h>
#include <PickerCtl/PropertyFilter.h>
#include <PickerCtl/PropertyStore.h>
#include <PickerCtl/RcvRegistry.h>
#include <PickerCtl/TechnologyTypes.h>
#include <PickerCtl/UserContext.h>

#include <QList>
#include <QStringList>

namespace PickerCtl {

class FieldUpdates;
class ListViewProperties;

/**
 * The catalogue service: categories, category trees and fields of each application, technology
 * and field types, ownership change and deletion. One instance per user-interface thread, created
 * on first use. Failing operations throw CatalogError.
 */
class PICKERCTL_EXPORT FieldCatalog
{
public:
    virtual ~FieldCatalog();

    /// The whole category hierarchy of the application (an empty tree for an unknown application).
    virtual CategoryTreePtr GetCategoryTree(const QString &appName) = 0;
    /// The category key of an entity, or "".
    virtual QString GetEntityKey(qint32 entityId) = 0;
    /// The category named so (FullName, else Name; exact), or null.
    virtual FieldCategoryPtr GetCategory(const QString &appName, const QString &categoryName) = 0;
    /// The field with that id (a number in the variant), or null; reserved is always 0.
    virtual FieldPtr GetField(const QString &appName, const QVariant &id, qint32 reserved = 0) = 0;
    /// Gives every field of the collection the new owner (an Identity of CurrentUser).
    virtual void ChangeOwner(const FieldsPtr &fields, const QVariant &owner) = 0;
    /// Deletes the fields, leaving out those whose keys are in exceptions (may be null).
    virtual void DeleteFields(const FieldsPtr &fields, const FieldsPtr &exceptions) = 0;

    /// A new, empty tree of the application, to be filled with CategoryTree::Add.
    virtual CategoryTreePtr NewCategoryTree(const QString &appName) = 0;
    /// The applications of the catalogue, in catalogue order.
    virtual QStringList Applications() = 0;
    /// Every category of the application, in catalogue order (pre-order of its tree).
    virtual QList<FieldCategoryPtr> Categories(const QString &appName) = 0;
    virtual TechnologyTypesPtr GetTechnologyTypes() = 0;
    /// Entries of a technology drop-down: "<All Tech Types>" first, then the type names.
    virtual QStringList TechnologyComboEntries() = 0;
    /// Entries of a field-type drop-down: "<All Field Types>" first, then the field-type names.
    virtual QStringList FieldTypeComboEntries(const QString &appName) = 0;
    /// The field-type code for a field-type name of the drop-down, or "".
    virtual QString FieldTypeCode(const QString &appName, const QString &fieldTypeName) = 0;
    virtual RcvRegistryPtr GetRcvRegistry() = 0;
    /// A new clipboard payload object.
    virtual FieldClipDataPtr NewClipData(bool primary) = 0;
    /// The application's properties store.
    virtual PropertyStorePtr GetProperties() = 0;
    /// A new list-view properties object.
    virtual std::shared_ptr<ListViewProperties> NewListProperties() = 0;
    /// The property filter that describes the enumerated fields.
    virtual PropertyFilterPtr GetPropertyFilter() = 0;
    /// The field-updates notifier.
    virtual std::shared_ptr<FieldUpdates> GetFieldUpdates() = 0;
    /// The catalogue's users, in id order.
    virtual QList<CurrentUserPtr> Users() = 0;

    static std::shared_ptr<FieldCatalog> instance();
    static void setInstance(std::shared_ptr<FieldCatalog> catalog);
};

using FieldCatalogPtr = std::shared_ptr<FieldCatalog>;

/// Text of the generic branch's label; catalogues key their generic branch node with it.
PICKERCTL_EXPORT QString genericLabel();

} // namespace PickerCtl
