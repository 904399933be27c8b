#pragma once

#include <PickerCtl/pickerctl_export.h>

#include <QVariant>
#include <memory>

namespace PickerCtl {

/// The application's store of named settings: column layouts, user settings such as
/// "Full Row Selection" and "Warn on Multiple TechTypes". A store that keeps its settings somewhere
/// that can fail (a file) throws CatalogError from SetItem and Remove when a change cannot be kept,
/// and then still holds what it held before the call.
class PICKERCTL_EXPORT PropertyStore
{
public:
    virtual ~PropertyStore();
    /// The value stored under the key, or a null variant.
    virtual QVariant Item(const QString &key) const = 0;
    virtual void SetItem(const QString &key, const QVariant &value) = 0;
    virtual bool Contains(const QString &key) const = 0;
    virtual void Remove(const QString &key) = 0;
};

using PropertyStorePtr = std::shared_ptr<PropertyStore>;

} // namespace PickerCtl
