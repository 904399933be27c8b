#include <PickerCtl/FieldClipboard.h>

#include "widgets/clipboardpayload.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>
#include <QStringList>

namespace PickerCtl {

namespace {

const QString FieldMimePrefix = QStringLiteral("application/x-pickerctl-fields;format=");
const QString PlainTextMime = QStringLiteral("text/plain");
const QString CsvMime = QStringLiteral("text/csv");
const QString CsvHeader = QStringLiteral("Id,Name,Category,Type");
const QString CsvSeparator = QStringLiteral(",");
const QString CsvLineEnd = QStringLiteral("\r\n");
const QString PlainLineEnd = QStringLiteral("\n");

QString csvRow(const Field &field)
{
    return QStringList{QString::number(field.Id()), csvCell(field.Name()),
                       csvCell(field.CategoryName()), csvCell(field.FieldTypeCode())}
        .join(CsvSeparator);
}

} // namespace

QString fieldMimeType(const QString &formatName)
{
    return FieldMimePrefix + formatName;
}

std::unique_ptr<QMimeData> renderFieldClipData(const FieldClipData &data)
{
    auto mime = std::make_unique<QMimeData>();
    const FieldsPtr fields = data.Fields();
    QList<FieldRef> refs;
    QStringList names;
    QStringList csv{CsvHeader};
    for (const FieldPtr &field : *fields) {
        if (!field)
            continue;
        refs.append(FieldRef{field->Id(), field->Key()});
        names.append(field->Name());
        csv.append(csvRow(*field));
    }
    const QString formatName = ClipboardFormats::Name(data.FormatId());
    if (!formatName.isEmpty())
        mime->setData(fieldMimeType(formatName), encodeFieldPayload(refs));
    mime->setData(PlainTextMime, names.join(PlainLineEnd).toUtf8());
    mime->setData(CsvMime, (csv.join(CsvLineEnd) + CsvLineEnd).toUtf8());
    return mime;
}

std::optional<QList<FieldRef>> decodeFieldRefs(const QMimeData *mime, const QString &formatName)
{
    if (!mime || formatName.isEmpty())
        return std::nullopt;
    const QString type = fieldMimeType(formatName);
    if (!mime->hasFormat(type))
        return std::nullopt;
    return decodeFieldPayload(mime->data(type));
}

std::optional<QList<qint32>> decodeFieldIds(const QMimeData *mime, const QString &formatName)
{
    const std::optional<QList<FieldRef>> refs = decodeFieldRefs(mime, formatName);
    if (!refs)
        return std::nullopt;
    QList<qint32> ids;
    ids.reserve(refs->size());
    for (const FieldRef &ref : *refs)
        ids.append(ref.id);
    return ids;
}

bool copyToClipboard(const FieldClipData &data)
{
    QClipboard *clipboard = QGuiApplication::clipboard();
    if (data.IsEmpty() || !clipboard)
        return false;
    clipboard->setMimeData(renderFieldClipData(data).release());
    return true;
}

} // namespace PickerCtl
