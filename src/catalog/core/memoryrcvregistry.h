#pragma once

#include "catalog/core/catalogtables.h"
#include "catalog/core/fieldindex.h"

#include <PickerCtl/RcvRegistry.h>

namespace PickerCtl {

/// The RCV registry of the in-memory catalogue, read from its tables and field index.
class MemoryRcvRegistry final : public RcvRegistry
{
public:
    MemoryRcvRegistry(std::shared_ptr<const CatalogTables> tables, std::shared_ptr<const FieldIndex> fields);

    QString CategoryName(const QString &formKey) const override;
    FieldPtr FieldFor(const QString &form, const QString &fieldName) const override;

    void addForm(const QString &formKey, const QString &categoryName);

private:
    std::shared_ptr<const CatalogTables> m_tables;
    std::shared_ptr<const FieldIndex> m_fields;
    QHash<QString, QString> m_formCategories;
};

} // namespace PickerCtl
