#include "fieldpicker/filterpass.h"

#include "catalog/core/memoryfield.h"
#include "catalog/core/namematcher.h"

#include <typeinfo>

namespace PickerCtl::fieldpicker {

namespace {

// Enough for the characters of a typical search; the oldest, widest results go first.
constexpr size_t MaxSteps = 8;

// The fields of a whole application lie far apart in memory; asking for a field a few steps
// ahead keeps the pass from waiting on each one in turn.
constexpr qsizetype PrefetchDistance = 24;
constexpr int CacheLine = 64;

inline void prefetchAhead(const Fields &source, qsizetype i)
{
    if (i + PrefetchDistance < source.size()) {
        const auto *ahead = reinterpret_cast<const char *>(source.at(i + PrefetchDistance).get());
        __builtin_prefetch(ahead);
        __builtin_prefetch(ahead + CacheLine);
    }
}

inline const MemoryField *asMemoryField(const Field *field)
{
    return field && typeid(*field) == typeid(MemoryField) ? static_cast<const MemoryField *>(field) : nullptr;
}

// Asking the name filter once about every name of the catalogue pays when the list holds a fair
// share of them; a category's few fields are asked one by one.
constexpr qsizetype NamesPerListedField = 4;

const CatalogTables *catalogueToScan(const Fields &source, const QString &nameFilter)
{
    if (nameFilter.isEmpty() || source.isEmpty())
        return nullptr;
    const MemoryField *first = asMemoryField(source.at(0).get());
    if (!first)
        return nullptr;
    const CatalogTables *tables = first->tables();
    return qsizetype(tables->names.size()) <= source.size() * NamesPerListedField ? tables : nullptr;
}

void passEachField(const Fields &source, const FieldFilterValues &values, Fields &result)
{
    for (qsizetype i = 0; i < source.size(); ++i) {
        prefetchAhead(source, i);
        const FieldPtr &field = source.at(i);
        if (field && field->PassesFilter(values.tech, values.fieldType, values.owner, values.name,
                                         values.useForBusyHour, values.rcvForm, values.rcvField))
            result.Add(field);
    }
}

// The same answers as passEachField, with the name filter asked once for every folded name of
// the catalogue; a field of another catalogue or kind answers for itself.
void passWithNameAnswers(const Fields &source, const FieldFilterValues &values, const CatalogTables &tables,
                         Fields &result)
{
    const std::vector<FoldedNames::Answer> answers = tables.names.answers(NameMatcher(values.name));
    for (qsizetype i = 0; i < source.size(); ++i) {
        prefetchAhead(source, i);
        const FieldPtr &field = source.at(i);
        const MemoryField *memoryField = asMemoryField(field.get());
        const bool passes = memoryField && memoryField->tables() == &tables
            ? memoryField->passesFilterWithName(values.tech, values.fieldType, values.owner, values.name,
                                                answers[memoryField->foldedNameIndex()], values.useForBusyHour,
                                                values.rcvForm, values.rcvField)
            : field && field->PassesFilter(values.tech, values.fieldType, values.owner, values.name,
                                           values.useForBusyHour, values.rcvForm, values.rcvField);
        if (passes)
            result.Add(field);
    }
}

} // namespace

FieldsPtr filterPass(const Fields &source, const FieldFilterValues &values)
{
    const FieldsPtr result = Fields::create();
    result->reserve(source.size());
    if (values == FieldFilterValues()) {
        for (const FieldPtr &field : source)
            result->Add(field);
        return result;
    }
    if (const CatalogTables *tables = catalogueToScan(source, values.name))
        passWithNameAnswers(source, values, *tables, *result);
    else
        passEachField(source, values, *result);
    return result;
}

bool narrows(const FieldFilterValues &from, const FieldFilterValues &to)
{
    FieldFilterValues sameName = from;
    sameName.name = to.name;
    return sameName == to && to.name.startsWith(from.name);
}

FieldsPtr NarrowingFilterPass::run(const FieldsPtr &source, const FieldFilterValues &values)
{
    if (!source || source != m_source || source->size() != m_sourceSize) {
        m_steps.clear();
        m_source = source;
        m_sourceSize = source ? source->size() : 0;
    }
    const Step *base = nullptr;
    for (const Step &step : m_steps) {
        if (!step.intact())
            continue;
        if (step.values == values)
            return step.result;
        if (narrows(step.values, values) && (!base || step.resultSize < base->resultSize))
            base = &step;
    }
    const FieldsPtr result = base ? filterPass(*base->result, values) : filterPass(source ? *source : Fields(), values);
    if (m_steps.size() == MaxSteps)
        m_steps.erase(m_steps.begin());
    m_steps.push_back(Step{values, result, result->size()});
    return result;
}

void NarrowingFilterPass::invalidate()
{
    m_source.reset();
    m_steps.clear();
}

} // namespace PickerCtl::fieldpicker
