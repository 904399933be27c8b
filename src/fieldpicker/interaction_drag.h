#pragma once

#include <PickerCtl/pickerctl_export.h>

#include <PickerCtl/FieldClipData.h>

#include <QCursor>

#include <memory>

class QMimeData;

namespace PickerCtl {
class WaitCursor;
}

namespace PickerCtl::fieldpicker {

/**
 * Fields dragged out of the list. On start the payload takes the clipboard format id and the
 * selection, the data object is told the formats it offers (the field format registered under
 * that id, "text/plain" and "text/csv"), and the drag pointer (one field or several) goes onto
 * the shared cursor stack. Each format is filled in when it is asked for. On completion, whatever
 * the effect, the payload is emptied and the drag pointer popped.
 */
class PICKERCTL_AUTOTEST_EXPORT FieldDrag
{
public:
    /// The pointer code pushed with a drag pointer: the pointer itself travels as the icon.
    static constexpr qint16 CustomPointer = 99;

    FieldDrag(QCursor singleField, QCursor multipleFields);
    ~FieldDrag();
    FieldDrag(const FieldDrag &) = delete;
    FieldDrag &operator=(const FieldDrag &) = delete;

    void start(QMimeData *data, const FieldClipDataPtr &payload, quint16 formatId, const FieldsPtr &selection);
    void fill(QMimeData *data, const QString &format) const;
    void complete();

    /// True between start and complete.
    bool isActive() const { return m_payload != nullptr; }

private:
    QCursor m_singleField;
    QCursor m_multipleFields;
    FieldClipDataPtr m_payload;
    std::unique_ptr<QMimeData> m_rendered;
    // The stack the pointer went onto, so that the pop reaches it even if the services change.
    std::shared_ptr<WaitCursor> m_cursor;
};

} // namespace PickerCtl::fieldpicker
