#pragma once

#include <QString>

namespace PickerCtl::ExpTemplate {

/// "<All Entity Types>": the first entry of the entity list, searching the whole application.
QString allEntityTypes();

/// The criteria of the last search, as the control keeps them.
struct SearchCriteria
{
    QString selectedCategory;
    QString fieldTypeFilter;
    QString techFilter;
    QString nameFilter;
};

/// What the criterion widgets show now.
struct CriteriaTexts
{
    QString entityType;
    QString fieldType;
    QString techType;
    QString name;
};

/// True when a search with these texts would repeat the last one: the category, the field type,
/// the technology and the name, compared exactly in that order.
bool criteriaUnchanged(const SearchCriteria &last, const CriteriaTexts &now);

} // namespace PickerCtl::ExpTemplate
