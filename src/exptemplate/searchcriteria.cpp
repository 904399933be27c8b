#include "exptemplate/searchcriteria.h"

namespace PickerCtl::ExpTemplate {

QString allEntityTypes()
{
    return QStringLiteral("<All Entity Types>");
}

bool criteriaUnchanged(const SearchCriteria &last, const CriteriaTexts &now)
{
    return last.selectedCategory == now.entityType && now.fieldType == last.fieldTypeFilter
           && now.techType == last.techFilter && now.name == last.nameFilter;
}

} // namespace PickerCtl::ExpTemplate
