#include "catalog/core/memorycategory.h"

#include <PickerCtl/MemoryCatalog.h>

namespace PickerCtl {

namespace {
const QString kPathSeparator = QStringLiteral("\\");
}

MemoryCategory::MemoryCategory(const CategorySpec &spec, std::shared_ptr<MemoryCategory> parent,
                               quint32 index, qsizetype appIndex)
    : m_key(spec.key),
      m_name(spec.name),
      m_fullName(spec.fullName),
      m_caption(spec.caption.isEmpty() ? spec.name : spec.caption),
      m_rcvFormName(spec.rcvFormName),
      m_entityId(spec.entityId),
      m_parent(std::move(parent)),
      m_fields(Fields::create()),
      m_index(index),
      m_appIndex(appIndex)
{
    if (m_fullName.isEmpty())
        m_fullName = m_parent ? m_parent->FullName() + kPathSeparator + m_name : m_name;
}

QString MemoryCategory::ParentKey() const
{
    return m_parent ? m_parent->Key() : QString();
}

void MemoryCategory::Reload()
{
    if (const std::shared_ptr<const std::function<void()>> reload = m_reload.lock())
        (*reload)();
}

} // namespace PickerCtl
