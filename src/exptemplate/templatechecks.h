#pragma once

#include <PickerCtl/Fields.h>
#include <PickerCtl/TechnologyTypes.h>

#include <QStringList>

namespace PickerCtl::ExpTemplate {

/// The distinct technology masks of the fields, in first-seen order; a field whose mask cannot be
/// read does not count.
QStringList distinctTechnologies(const Fields &fields);

/// True when one catalogue technology code occurs in every non-empty mask (case-sensitive
/// substring), that is when the fields share a technology.
bool sharedTechnology(const QStringList &masks, const TechnologyTypes &types);

/// "A,B": the masks in order, joined by ","; a mask that is empty after trimming spaces is "Unknown".
QString technologyListText(const QStringList &masks);

/// The question put when the template mixes technologies.
QString technologyQuestion(const QString &listText);

/// The first field that is an expression without the valid status "V", or null.
FieldPtr firstUnvalidatedExpression(const Fields &fields);

/// The warning about a not validated expression, naming it.
QString expressionWarning(const QString &expressionName);

/// The refusal of an empty template.
QString emptyTemplateMessage();

} // namespace PickerCtl::ExpTemplate
