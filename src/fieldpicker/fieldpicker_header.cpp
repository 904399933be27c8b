#include "fieldpicker/fieldpicker_header.h"

namespace PickerCtl::fieldpicker {

namespace {

constexpr auto HeaderPrefix = "Available ";
constexpr auto KindFields = "Fields";
constexpr auto KindUdcs = "UDC's";
// With its leading blank: only the editor named "... User-Defined Calculation" lists UDCs.
constexpr auto UdcEditorMark = " User-Defined Calculation";

} // namespace

QString kindWord(const QString &editorName)
{
    return QLatin1String(editorName.contains(QLatin1String(UdcEditorMark), Qt::CaseSensitive) ? KindUdcs
                                                                                                : KindFields);
}

QString listHeaderCaption(const QString &editorName, const std::optional<QString> &categoryCaption)
{
    QString caption = QLatin1String(HeaderPrefix);
    if (categoryCaption)
        caption += *categoryCaption + QLatin1Char(' ');
    return caption + kindWord(editorName);
}

} // namespace PickerCtl::fieldpicker
