#include "exptemplate/exptemplate_p.h"

#include "exptemplate/templatepayload.h"

#include <PickerCtl/FieldCatalog.h>
#include <PickerCtl/FieldClipboard.h>
#include <PickerCtl/XStaticList.h>

#include <QHash>
#include <QMimeData>
#include <QSet>
#include <QtDebug>

#include <algorithm>

namespace PickerCtl {

namespace {

/// Positions in `items` of the fields of `picked`, each object taken as often as it was picked.
std::vector<int> positionsOf(const Fields &items, const Fields &picked)
{
    QHash<const Field *, int> wanted;
    for (const FieldPtr &field : picked)
        ++wanted[field.get()];
    std::vector<int> positions;
    positions.reserve(size_t(picked.size()));
    for (qsizetype i = 0; i < items.size(); ++i) {
        auto it = wanted.find(items.at(i).get());
        if (it != wanted.end() && it.value() > 0) {
            --it.value();
            positions.push_back(int(i));
        }
    }
    return positions;
}

} // namespace

void XExpTemplate::Private::enableDragAndDrop()
{
    QObject::connect(stlAvailable, &XStaticList::DragStarted, q,
                     [this](QMimeData *data) { fillDrag(stlAvailable, data, false); });
    QObject::connect(stlSelected, &XStaticList::DragStarted, q,
                     [this](QMimeData *data) { fillDrag(stlSelected, data, true); });
    stlSelected->setDropHandler([this](const QMimeData *data, qint32 row, bool apply) {
        try {
            return drop(data, row, apply);
        } catch (const std::exception &e) {
            qWarning("XExpTemplate: the dropped fields could not be read: %s", e.what());
            return false;
        } catch (...) {
            qWarning("XExpTemplate: the dropped fields could not be read: an exception of unknown type");
            return false;
        }
    });
}

void XExpTemplate::Private::fillDrag(XStaticList *source, QMimeData *data, bool rows)
{
    const FieldsPtr fields = source->SelectedItems();
    if (!fields || !data)
        return;
    // The fields travel as the field browser sends them, under this editor's own format, so
    // other editors of the application can take them as well.
    FieldClipData clip;
    clip.setFormatId(ClipboardFormats::Register(
        clipboardFormatName(appName, ExpTemplate::dragEditorName(), currentThreadId())));
    clip.setFields(fields);
    const std::unique_ptr<QMimeData> rendered = renderFieldClipData(clip);
    const QStringList formats = rendered->formats();
    for (const QString &format : formats)
        data->setData(format, rendered->data(format));
    if (rows)
        data->setData(ExpTemplate::templateRowsFormat(), token);
}

bool XExpTemplate::Private::drop(const QMimeData *data, int row, bool apply)
{
    if (ExpTemplate::isRowDragOf(data, token))
        return !apply || reorder(row);
    if (ExpTemplate::acceptedFieldFormat(data, appName).isEmpty())
        return false;
    if (!apply)
        return true;
    const FieldsPtr fields = ExpTemplate::payloadFields(data, appName, *FieldCatalog::instance());
    return fields && !fields->isEmpty() && insertDropped(fields, row);
}

bool XExpTemplate::Private::insertDropped(const FieldsPtr &fields, int row)
{
    FieldsPtr added = Fields::create();
    QSet<QString> addedKeys;
    for (const FieldPtr &field : *fields) {
        const QString key = field->Key();
        if (stlSelected->Contains(key) || addedKeys.contains(key))
            continue;
        addedKeys.insert(key);
        added->Add(field);
    }
    stlSelected->BeginUpdate();
    stlSelected->InsertItems(row, added);
    stlSelected->SelectItems(fields);
    stlSelected->EndUpdate();
    stlSelected->Redraw();
    if (!added->isEmpty())
        Q_EMIT q->Changed();
    return true;
}

bool XExpTemplate::Private::reorder(int row)
{
    const FieldsPtr moving = stlSelected->SelectedItems();
    if (!moving)
        return false;
    const std::vector<int> positions = positionsOf(*stlSelected->Items(), *moving);
    if (positions.empty())
        return false;
    const int before = int(std::lower_bound(positions.begin(), positions.end(), row) - positions.begin());
    const int target = row - before;
    const bool inOneBlock = positions.back() - positions.front() + 1 == int(positions.size());
    if (inOneBlock && positions.front() == target)
        return true;  // dropped onto itself: the order stays
    stlSelected->BeginUpdate();
    stlSelected->RemoveItems(moving);
    stlSelected->InsertItems(target, moving);
    stlSelected->SelectItems(moving);
    stlSelected->EndUpdate();
    stlSelected->Redraw();
    Q_EMIT q->Changed();
    return true;
}

} // namespace PickerCtl
