#include "exptemplate/templatechecks.h"

#include <QCoreApplication>
#include <QSet>

namespace PickerCtl::ExpTemplate {

namespace {

constexpr auto Context = "PickerCtl::XExpTemplate";
constexpr auto EmptyTemplate = QT_TRANSLATE_NOOP("PickerCtl::XExpTemplate", "A report template must have at least 1 field.");
constexpr auto TechnologiesUsed = QT_TRANSLATE_NOOP("PickerCtl::XExpTemplate", "The following TechTypes are used in the Template.");
constexpr auto SureToUse = QT_TRANSLATE_NOOP("PickerCtl::XExpTemplate", "Are you sure you want to use this Template?");
constexpr auto ExpressionPrefix = QT_TRANSLATE_NOOP("PickerCtl::XExpTemplate", "Currently the expression '");
constexpr auto ExpressionSuffix = QT_TRANSLATE_NOOP("PickerCtl::XExpTemplate", "' does not have ");
constexpr auto ValidStatus = QT_TRANSLATE_NOOP("PickerCtl::XExpTemplate", "valid status.");
constexpr auto ReportMayFail = QT_TRANSLATE_NOOP("PickerCtl::XExpTemplate", "The report may fail if the expression is not validated before report is run.");
constexpr auto WantToContinue = QT_TRANSLATE_NOOP("PickerCtl::XExpTemplate", "Do you want to continue?");
constexpr auto Unknown = QT_TRANSLATE_NOOP("PickerCtl::XExpTemplate", "Unknown");
const QString LineBreak = QStringLiteral("\r\n");
const QString ListSeparator = QStringLiteral(",");
const QString ValidCode = QStringLiteral("V");

QString text(const char *source)
{
    return QCoreApplication::translate(Context, source);
}

bool blank(const QString &mask)
{
    for (const QChar c : mask) {
        if (c != QLatin1Char(' '))
            return false;
    }
    return true;
}

} // namespace

QStringList distinctTechnologies(const Fields &fields)
{
    QStringList masks;
    QSet<QString> seen;
    QString previous;
    bool havePrevious = false;
    for (const FieldPtr &field : fields) {
        if (!field)
            continue;
        QString mask;
        try {
            mask = field->TechMask();
        } catch (...) {
            continue;  // a field whose technology cannot be read does not count
        }
        // Templates hold long runs of one technology: the neighbour answers most fields unhashed.
        if (havePrevious && mask == previous)
            continue;
        previous = mask;
        havePrevious = true;
        if (!seen.contains(mask)) {
            seen.insert(mask);
            masks.append(mask);
        }
    }
    return masks;
}

bool sharedTechnology(const QStringList &masks, const TechnologyTypes &types)
{
    for (const TechnologyTypePtr &type : types) {
        if (!type)
            continue;
        const QString code = type->Code();
        bool coversAll = true;
        for (const QString &mask : masks) {
            if (!mask.isEmpty() && !mask.contains(code)) {
                coversAll = false;
                break;
            }
        }
        if (coversAll)
            return true;
    }
    return false;
}

QString technologyListText(const QStringList &masks)
{
    QStringList names;
    names.reserve(masks.size());
    for (const QString &mask : masks)
        names.append(blank(mask) ? text(Unknown) : mask);
    return names.join(ListSeparator);
}

QString technologyQuestion(const QString &listText)
{
    return text(TechnologiesUsed) + LineBreak + listText + LineBreak + text(SureToUse);
}

FieldPtr firstUnvalidatedExpression(const Fields &fields)
{
    for (const FieldPtr &field : fields) {
        if (field && field->IsExpression() && field->ValidationStatus() != ValidCode)
            return field;
    }
    return nullptr;
}

QString expressionWarning(const QString &expressionName)
{
    return text(ExpressionPrefix) + expressionName + text(ExpressionSuffix) + text(ValidStatus) + LineBreak
           + text(ReportMayFail) + LineBreak + text(WantToContinue);
}

QString emptyTemplateMessage()
{
    return text(EmptyTemplate);
}

} // namespace PickerCtl::ExpTemplate
