#include "fieldpicker/fieldpicker_header.h"

#include <QCoreApplication>

namespace PickerCtl::fieldpicker {

namespace {

constexpr auto Context = "PickerCtl::XFieldPicker";
constexpr auto KindFields = QT_TRANSLATE_NOOP("PickerCtl::XFieldPicker", "Fields");
constexpr auto KindUdcs = QT_TRANSLATE_NOOP("PickerCtl::XFieldPicker", "UDC's");
constexpr auto CaptionWithoutCategory = QT_TRANSLATE_NOOP("PickerCtl::XFieldPicker", "Available %1");
constexpr auto CaptionWithCategory = QT_TRANSLATE_NOOP("PickerCtl::XFieldPicker", "Available %1 %2");
// With its leading blank: only the editor named "... User-Defined Calculation" lists UDCs.
constexpr auto UdcEditorMark = " User-Defined Calculation";

} // namespace

QString kindWord(const QString &editorName)
{
    const bool udcs = editorName.contains(QLatin1String(UdcEditorMark), Qt::CaseSensitive);
    return QCoreApplication::translate(Context, udcs ? KindUdcs : KindFields);
}

QString listHeaderCaption(const QString &editorName, const std::optional<QString> &categoryCaption)
{
    if (categoryCaption)
        return QCoreApplication::translate(Context, CaptionWithCategory).arg(*categoryCaption, kindWord(editorName));
    return QCoreApplication::translate(Context, CaptionWithoutCategory).arg(kindWord(editorName));
}

} // namespace PickerCtl::fieldpicker
