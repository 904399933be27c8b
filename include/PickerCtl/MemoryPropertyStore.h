#pragma once

#include <PickerCtl/PropertyStore.h>

#include <QHash>
#include <QString>

namespace PickerCtl {

/// A properties store that lives as long as the object: the catalogue's default store and a
/// host's or test's scratch store.
class PICKERCTL_EXPORT MemoryPropertyStore : public PropertyStore
{
public:
    MemoryPropertyStore();
    ~MemoryPropertyStore() override;

    QVariant Item(const QString &key) const override;
    void SetItem(const QString &key, const QVariant &value) override;
    bool Contains(const QString &key) const override;
    void Remove(const QString &key) override;

private:
    QHash<QString, QVariant> m_items;
};

} // namespace PickerCtl
