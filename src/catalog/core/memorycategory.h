#pragma once

#include <PickerCtl/FieldCategory.h>

#include <functional>

namespace PickerCtl {

struct CategorySpec;

/// A category of the in-memory catalogue. Its Fields collection is the catalogue's own list of
/// the category's fields, in the order they were added.
class MemoryCategory final : public FieldCategory
{
public:
    MemoryCategory(const CategorySpec &spec, std::shared_ptr<MemoryCategory> parent,
                   quint32 index, qsizetype appIndex);

    QString Key() const override { return m_key; }
    qint32 EntityId() const override { return m_entityId; }
    QString Name() const override { return m_name; }
    QString FullName() const override { return m_fullName; }
    QString RcvFormName() const override { return m_rcvFormName; }
    QString Caption() const override { return m_caption; }
    QString ParentKey() const override;
    FieldCategoryPtr Parent() const override { return m_parent; }
    FieldsPtr Fields() const override { return m_fields; }
    /// Has the catalogue re-read what its store holds (MemoryCatalog::Refresh), which updates this
    /// category's fields in place; nothing for a catalogue without a store or one that is gone.
    void Reload() override;
    void setReload(std::weak_ptr<const std::function<void()>> reload) { m_reload = std::move(reload); }

    quint32 index() const { return m_index; }
    qsizetype appIndex() const { return m_appIndex; }

private:
    QString m_key;
    QString m_name;
    QString m_fullName;
    QString m_caption;
    QString m_rcvFormName;
    qint32 m_entityId;
    std::shared_ptr<MemoryCategory> m_parent;
    FieldsPtr m_fields;
    quint32 m_index;
    qsizetype m_appIndex;
    std::weak_ptr<const std::function<void()>> m_reload;
};

} // namespace PickerCtl
