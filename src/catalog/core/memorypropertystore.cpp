#include <PickerCtl/MemoryPropertyStore.h>

namespace PickerCtl {

MemoryPropertyStore::MemoryPropertyStore() = default;
MemoryPropertyStore::~MemoryPropertyStore() = default;

QVariant MemoryPropertyStore::Item(const QString &key) const
{
    return m_items.value(key);
}

void MemoryPropertyStore::SetItem(const QString &key, const QVariant &value)
{
    m_items.insert(key, value);
}

bool MemoryPropertyStore::Contains(const QString &key) const
{
    return m_items.contains(key);
}

void MemoryPropertyStore::Remove(const QString &key)
{
    m_items.remove(key);
}

} // namespace PickerCtl
