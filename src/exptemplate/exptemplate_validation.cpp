#include "exptemplate/exptemplate_p.h"

#include "exptemplate/templatechecks.h"

#include <PickerCtl/FieldCatalog.h>
#include <PickerCtl/MessageService.h>
#include <PickerCtl/XStaticList.h>

#include <QtDebug>

namespace PickerCtl {

namespace {

const QString WarnOnMultipleTechTypes = QStringLiteral("Warn on Multiple TechTypes");
constexpr qint32 EmptyTemplateStyle = MessageService::Critical | MessageService::OkOnly;
constexpr qint32 TechnologyStyle = MessageService::Information | MessageService::YesNo;
constexpr qint32 ExpressionStyle = MessageService::Exclamation | MessageService::YesNo;

bool warnOnMultipleTechnologies(FieldCatalog &catalog)
{
    // A setting that cannot be read leaves the warning off: the template is still checked for the rest.
    try {
        const PropertyStorePtr store = catalog.GetProperties();
        const QVariant setting = store ? store->Item(WarnOnMultipleTechTypes) : QVariant();
        return !setting.isNull() && setting.toBool();
    } catch (const std::exception &e) {
        qWarning("XExpTemplate: reading the technology warning setting failed: %s", e.what());
    } catch (...) {
        qWarning("XExpTemplate: reading the technology warning setting failed: an exception of unknown type");
    }
    return false;
}

bool technologiesAccepted(const Fields &fields, FieldCatalog &catalog, const QString &title)
{
    const QStringList masks = ExpTemplate::distinctTechnologies(fields);
    if (masks.size() < 2)
        return true;
    const TechnologyTypesPtr types = catalog.GetTechnologyTypes();
    if (types && ExpTemplate::sharedTechnology(masks, *types))
        return true;
    const QString question = ExpTemplate::technologyQuestion(ExpTemplate::technologyListText(masks));
    return MessageService::instance()->ShowMessage(question, TechnologyStyle, title, 0, 0) != MessageService::AnswerNo;
}

bool expressionsAccepted(const Fields &fields, const QString &title)
{
    const FieldPtr expression = ExpTemplate::firstUnvalidatedExpression(fields);
    if (!expression)
        return true;
    const QString warning = ExpTemplate::expressionWarning(expression->Name());
    return MessageService::instance()->ShowMessage(warning, ExpressionStyle, title, 0, 0) == MessageService::AnswerYes;
}

} // namespace

bool XExpTemplate::IsValid(const QString &sMsgTitle)
{
    const FieldsPtr fields = d->stlSelected->Items();
    if (fields->isEmpty()) {
        MessageService::instance()->ShowMessage(ExpTemplate::emptyTemplateMessage(), EmptyTemplateStyle, sMsgTitle, 0, 0);
        return false;
    }
    FieldCatalog &catalog = *FieldCatalog::instance();
    if (warnOnMultipleTechnologies(catalog) && !technologiesAccepted(*fields, catalog, sMsgTitle))
        return false;
    return expressionsAccepted(*fields, sMsgTitle);
}

} // namespace PickerCtl
