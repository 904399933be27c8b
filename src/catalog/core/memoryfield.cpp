#include "catalog/core/memoryfield.h"

#include "catalog/core/fieldfilterrules.h"
#include "catalog/core/namematcher.h"

#include <PickerCtl/CatalogError.h>
#include <PickerCtl/MemoryCatalog.h>

#include <limits>

namespace PickerCtl {

namespace {
const QString kKeyPrefix = QStringLiteral("F");
const QString kTooManyTexts = QStringLiteral("The catalogue has more distinct %1 than it can hold.");
const QString kUnitsWord = QStringLiteral("units");
const QString kTypesWord = QStringLiteral("field types");
const QString kStatusesWord = QStringLiteral("validation states");

template<typename Narrow>
Narrow narrowed(quint32 position, const QString &what)
{
    if (position > std::numeric_limits<Narrow>::max())
        throw CatalogError(kTooManyTexts.arg(what));
    return Narrow(position);
}
} // namespace

MemoryField::MemoryField(std::shared_ptr<CatalogTables> tables, quint32 categoryIndex,
                         const FieldSpec &spec)
    : m_foldedName(tables->names.add(spec.name)),
      m_id(spec.id),
      m_tables(std::move(tables)),
      m_name(spec.name),
      m_ownerId(spec.ownerId),
      m_categoryIndex(categoryIndex),
      m_techMask(m_tables->techMasks.intern(spec.techMask)),
      m_description(m_tables->descriptions.intern(spec.description)),
      m_unit(narrowed<quint16>(m_tables->units.intern(spec.unit), kUnitsWord)),
      m_typeCode(narrowed<quint8>(m_tables->typeCodes.intern(spec.typeCode), kTypesWord)),
      m_status(narrowed<quint8>(m_tables->statuses.intern(spec.validationStatus), kStatusesWord)),
      m_busyHour(spec.busyHour),
      m_expression(spec.expression)
{
}

QString MemoryField::keyFor(qint32 id)
{
    return kKeyPrefix + QString::number(id);
}

QString MemoryField::CategoryName() const
{
    return m_tables->categories[m_categoryIndex].name;
}

QString MemoryField::Key() const
{
    return keyFor(m_id);
}

QString MemoryField::TechMask() const
{
    return m_tables->techMasks.at(m_techMask);
}

QString MemoryField::FieldTypeCode() const
{
    return m_tables->typeCodes.at(m_typeCode);
}

QString MemoryField::ValidationStatus() const
{
    return m_tables->statuses.at(m_status);
}

QString MemoryField::OwnerName() const
{
    return m_tables->userNames.value(m_ownerId);
}

QString MemoryField::Description() const
{
    return m_tables->descriptions.at(m_description);
}

QString MemoryField::Unit() const
{
    return m_tables->units.at(m_unit);
}

bool MemoryField::PassesFilter(const QString &techFilter, const QString &fieldTypeFilter,
                               const QString &ownerFilter, const QString &nameFilter,
                               bool useForBusyHour, const QString &rcvFormFilter,
                               const QString &rcvFieldFilter) const
{
    if (!passesAllButName(techFilter, fieldTypeFilter, ownerFilter, useForBusyHour))
        return false;
    if (!nameFilter.isEmpty() && !nameFilterMatches(m_name, nameFilter))
        return false;
    return passesRcv(rcvFormFilter, rcvFieldFilter);
}

bool MemoryField::passesFilterWithName(const QString &techFilter, const QString &fieldTypeFilter,
                                       const QString &ownerFilter, const QString &nameFilter,
                                       FoldedNames::Answer nameAnswer, bool useForBusyHour,
                                       const QString &rcvFormFilter, const QString &rcvFieldFilter) const
{
    if (nameAnswer == FoldedNames::Fails)
        return false;
    if (!passesAllButName(techFilter, fieldTypeFilter, ownerFilter, useForBusyHour))
        return false;
    if (nameAnswer == FoldedNames::AskTheName && !nameFilterMatches(m_name, nameFilter))
        return false;
    return passesRcv(rcvFormFilter, rcvFieldFilter);
}

bool MemoryField::passesAllButName(const QString &techFilter, const QString &fieldTypeFilter,
                                   const QString &ownerFilter, bool useForBusyHour) const
{
    if (useForBusyHour && !m_busyHour)
        return false;
    if (!techFilter.isEmpty()
        && !techFilterPasses(m_tables->techMasks.at(m_techMask), techFilter, m_tables->technologies))
        return false;
    if (!fieldTypeFilter.isEmpty()
        && !fieldTypeFilterPasses(m_tables->typeCodes.at(m_typeCode), fieldTypeFilter))
        return false;
    return ownerFilter.isEmpty() || ownerFilterPasses(m_ownerId, m_tables->userNames.value(m_ownerId), ownerFilter);
}

// A form filter keeps the fields of the form's own category and the fields the registry maps
// under the form; a field filter then narrows that to the one field mapped under that name.
bool MemoryField::passesRcv(const QString &rcvFormFilter, const QString &rcvFieldFilter) const
{
    if (!rcvFieldFilter.isEmpty()) {
        const auto form = m_tables->rcvFields.constFind(rcvFormFilter);
        if (form == m_tables->rcvFields.cend())
            return false;
        const auto field = form->constFind(rcvFieldFilter);
        return field != form->cend() && *field == m_id;
    }
    if (rcvFormFilter.isEmpty())
        return true;
    if (m_tables->categories[m_categoryIndex].rcvFormName == rcvFormFilter)
        return true;
    const auto ids = m_tables->rcvFieldIds.constFind(rcvFormFilter);
    return ids != m_tables->rcvFieldIds.cend() && ids->contains(m_id);
}

} // namespace PickerCtl
