#include "fieldpicker/interaction_drag.h"

#include <PickerCtl/AppServices.h>
#include <PickerCtl/FieldClipboard.h>

#include <QMimeData>
#include <QVariant>

#include <utility>

namespace PickerCtl::fieldpicker {

FieldDrag::FieldDrag(QCursor singleField, QCursor multipleFields)
    : m_singleField(std::move(singleField))
    , m_multipleFields(std::move(multipleFields))
{
}

FieldDrag::~FieldDrag()
{
    complete();
}

void FieldDrag::start(QMimeData *data, const FieldClipDataPtr &payload, quint16 formatId, const FieldsPtr &selection)
{
    complete();
    if (!data || !payload)
        return;
    m_payload = payload;
    m_payload->Clear();
    m_payload->setFormatId(formatId);
    m_payload->setFields(selection ? selection : Fields::create());
    m_rendered = renderFieldClipData(*m_payload);
    // The formats are declared now and filled when the drop target asks for them.
    for (const QString &format : m_rendered->formats())
        data->setData(format, QByteArray());

    const qsizetype count = m_payload->Fields()->size();
    if (count == 0)
        return;
    m_cursor = AppServices::instance()->Cursor();
    if (m_cursor)
        m_cursor->Push(CustomPointer, QVariant::fromValue(count == 1 ? m_singleField : m_multipleFields));
}

void FieldDrag::fill(QMimeData *data, const QString &format) const
{
    if (data && m_rendered && m_rendered->hasFormat(format))
        data->setData(format, m_rendered->data(format));
}

void FieldDrag::complete()
{
    if (m_payload)
        m_payload->Clear();
    m_payload.reset();
    m_rendered.reset();
    if (m_cursor)
        std::exchange(m_cursor, nullptr)->Pop();
}

} // namespace PickerCtl::fieldpicker
