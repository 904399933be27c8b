#include "catalog/core/memoryrcvregistry.h"

#include "catalog/core/memoryfield.h"

namespace PickerCtl {

MemoryRcvRegistry::MemoryRcvRegistry(std::shared_ptr<const CatalogTables> tables,
                                     std::shared_ptr<const FieldIndex> fields)
    : m_tables(std::move(tables)), m_fields(std::move(fields))
{
}

QString MemoryRcvRegistry::CategoryName(const QString &formKey) const
{
    return m_formCategories.value(formKey);
}

FieldPtr MemoryRcvRegistry::FieldFor(const QString &form, const QString &fieldName) const
{
    const auto fields = m_tables->rcvFields.constFind(form);
    if (fields == m_tables->rcvFields.cend())
        return nullptr;
    const auto id = fields->constFind(fieldName);
    return id == fields->cend() ? nullptr : FieldPtr(m_fields->value(*id));
}

void MemoryRcvRegistry::addForm(const QString &formKey, const QString &categoryName)
{
    m_formCategories.insert(formKey, categoryName);
}

} // namespace PickerCtl
