#include "exptemplate/templatepayload.h"

#include <PickerCtl/FieldClipboard.h>

#include <QCoreApplication>
#include <QMimeData>

namespace PickerCtl::ExpTemplate {

namespace {

const QString FormatSeparator = QStringLiteral(":");

} // namespace

QString dragEditorName()
{
    return QStringLiteral("ExpTemplate");
}

QString acceptedFieldFormat(const QMimeData *data, const QString &appName)
{
    if (!data || appName.isEmpty())
        return QString();
    const QString prefix = fieldMimeType(QString());
    const QString appPrefix = appName + FormatSeparator;
    const QString threadSuffix = FormatSeparator + QString::number(currentThreadId());
    const QStringList formats = data->formats();
    for (const QString &format : formats) {
        if (!format.startsWith(prefix))
            continue;
        const QString name = format.mid(prefix.size());
        if (name.startsWith(appPrefix) && name.endsWith(threadSuffix)
            && name.size() >= appPrefix.size() + threadSuffix.size())
            return name;
    }
    return QString();
}

FieldsPtr payloadFields(const QMimeData *data, const QString &appName, FieldCatalog &catalog)
{
    const QString format = acceptedFieldFormat(data, appName);
    if (format.isEmpty())
        return nullptr;
    const std::optional<QList<FieldRef>> refs = decodeFieldRefs(data, format);
    if (!refs)
        return nullptr;
    FieldsPtr fields = Fields::create();
    fields->reserve(refs->size());
    for (const FieldRef &ref : *refs) {
        const FieldPtr field = catalog.GetField(appName, QVariant(ref.id));
        if (field && field->Key() == ref.key)
            fields->Add(field);
    }
    return fields;
}

QString templateRowsFormat()
{
    return QStringLiteral("application/x-pickerctl-template-rows");
}

QByteArray templateToken(const void *editor)
{
    // The process id keeps a row drag of another running program from passing for our own.
    return QByteArray::number(QCoreApplication::applicationPid()) + ':' + QByteArray::number(quintptr(editor), 16);
}

bool isRowDragOf(const QMimeData *data, const QByteArray &token)
{
    return data && data->hasFormat(templateRowsFormat()) && data->data(templateRowsFormat()) == token;
}

} // namespace PickerCtl::ExpTemplate
