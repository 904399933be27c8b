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
const QString CsvHeader = QStringLiteral("Key,Name,Category,Technology,Type,Owner");
const QString CsvSeparator = QStringLiteral(",");
const QString CsvLineEnd = QStringLiteral("\r\n");
const QString PlainLineEnd = QStringLiteral("\n");

// Appends one CSV row to out; cells are quoted only where RFC 4180 needs it.
void appendCsvRow(QString &out, const Field &field)
{
    out += csvCell(field.Key());
    out += CsvSeparator;
    out += csvCell(field.Name());
    out += CsvSeparator;
    out += csvCell(field.CategoryName());
    out += CsvSeparator;
    out += csvCell(field.TechMask());
    out += CsvSeparator;
    out += csvCell(field.FieldTypeCode());
    out += CsvSeparator;
    out += csvCell(field.OwnerName());
    out += CsvLineEnd;
}

} // namespace

QString fieldMimeType(const QString &formatName)
{
    return FieldMimePrefix + formatName;
}

// One pass over the fields builds the three renderings; a copy of a hundred thousand fields
// must not keep the user waiting.
std::unique_ptr<QMimeData> renderFieldClipData(const FieldClipData &data)
{
    // Rough room per field, so that the texts grow a few times at most.
    constexpr qsizetype NameRoom = 24;
    constexpr qsizetype CsvRoom = 64;
    auto mime = std::make_unique<QMimeData>();
    const FieldsPtr fields = data.Fields();
    QList<FieldRef> refs;
    refs.reserve(fields->size());
    QString names;
    names.reserve(fields->size() * NameRoom);
    QString csv = CsvHeader + CsvLineEnd;
    csv.reserve(fields->size() * CsvRoom);
    for (const FieldPtr &field : *fields) {
        if (!field)
            continue;
        refs.append(FieldRef{field->Id(), field->Key()});
        if (refs.size() > 1)
            names += PlainLineEnd;
        names += field->Name();
        appendCsvRow(csv, *field);
    }
    const QString formatName = ClipboardFormats::Name(data.FormatId());
    if (!formatName.isEmpty())
        mime->setData(fieldMimeType(formatName), encodeFieldPayload(refs));
    mime->setData(PlainTextMime, names.toUtf8());
    mime->setData(CsvMime, csv.toUtf8());
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
