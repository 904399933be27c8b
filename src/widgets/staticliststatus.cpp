#include "widgets/staticliststatus.h"

namespace PickerCtl {

namespace {

const QString kNoFields = QStringLiteral("No fields");
const QString kOneField = QStringLiteral("field");
const QString kManyFields = QStringLiteral("fields");
const QString kCountOnly = QStringLiteral("%1 %2");
const QString kCountSelected = QStringLiteral("%1 of %2 %3 selected");

QString grouped(qint64 number, const QLocale &locale)
{
    QLocale withGroups = locale;
    withGroups.setNumberOptions(locale.numberOptions() & ~QLocale::OmitGroupSeparator);
    return withGroups.toString(number);
}

} // namespace

QString staticListStatusText(qint64 count, qint64 selected, const QLocale &locale)
{
    if (count <= 0)
        return kNoFields;
    const QString noun = count == 1 ? kOneField : kManyFields;
    if (selected <= 0)
        return kCountOnly.arg(grouped(count, locale), noun);
    return kCountSelected.arg(grouped(selected, locale), grouped(count, locale), noun);
}

} // namespace PickerCtl
