#include "widgets/staticliststatus.h"

#include <QCoreApplication>

namespace PickerCtl {

namespace {

// The status line belongs to the field list: its texts are translated in the list's context.
constexpr auto Context = "PickerCtl::XStaticList";
constexpr auto NoFieldsText = QT_TRANSLATE_NOOP("PickerCtl::XStaticList", "No fields");
constexpr auto OneFieldText = QT_TRANSLATE_NOOP("PickerCtl::XStaticList", "field");
constexpr auto ManyFieldsText = QT_TRANSLATE_NOOP("PickerCtl::XStaticList", "fields");
constexpr auto CountOnlyText = QT_TRANSLATE_NOOP("PickerCtl::XStaticList", "%1 %2");
constexpr auto CountSelectedText = QT_TRANSLATE_NOOP("PickerCtl::XStaticList", "%1 of %2 %3 selected");

QString translated(const char *text)
{
    return QCoreApplication::translate(Context, text);
}

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
        return translated(NoFieldsText);
    const QString noun = translated(count == 1 ? OneFieldText : ManyFieldsText);
    if (selected <= 0)
        return translated(CountOnlyText).arg(grouped(count, locale), noun);
    return translated(CountSelectedText).arg(grouped(selected, locale), grouped(count, locale), noun);
}

} // namespace PickerCtl
