#pragma once

#include <PickerCtl/pickerctl_export.h>

#include <PickerCtl/FieldClipData.h>
#include <PickerCtl/UserContext.h>

#include <QString>

namespace PickerCtl {
class FieldCatalog;
class MessageService;
class OwnerPicker;
}

namespace PickerCtl::fieldpicker {

/**
 * The UDC deletion check: every field of `set` owned by another user is put to a user who is no
 * administrator, who may skip it (6), skip it and every further one (8), keep it for deletion (7)
 * or cancel the whole deletion (2). Skipped fields are removed from `set` by key. Answers false
 * after a cancel (with `set` untouched) and when nothing is left to delete.
 */
PICKERCTL_AUTOTEST_EXPORT bool udcDeletionCheck(Fields &set, const CurrentUser &user, MessageService &messages);

/// The text of the question about one foreign field.
PICKERCTL_AUTOTEST_EXPORT QString udcViolationText(const QString &fieldName);

/**
 * Clipboard, ownership and deletion of the selected fields. Keeps the control's clipboard format
 * and the two payloads the catalogue hands every browser: the first is ClipBoardData, which Copy
 * and drags fill; the second is only held, for as long as the control lives.
 */
class PICKERCTL_AUTOTEST_EXPORT FieldActions
{
public:
    /// Makes the two payloads; the catalogue decides their type.
    void createPayloads(FieldCatalog &catalog);

    /// "App:Editor:thread" registered with the clipboard registry.
    void setClipboardFormat(const QString &appName, const QString &editorName);
    quint16 clipboardFormatId() const { return m_formatId; }
    const QString &clipboardFormatName() const { return m_formatName; }
    const FieldClipDataPtr &clipData() const { return m_clipData; }

    /// Puts the selection into the clip data and on the system clipboard; an empty selection
    /// changes nothing. Returns whether anything was copied.
    bool copy(const FieldsPtr &selection);

    /// Runs the UDC check on the selection and deletes what remains through the catalogue.
    /// Returns true when the deletion ran. A refusal of the catalogue is shown to the user.
    bool deleteSelection(const FieldsPtr &selection, const FieldsPtr &exceptions);

    /// Asks for the new owner and hands the selection to the catalogue. Returns true when the
    /// owner was changed; a cancelled pick or a refusal of the catalogue (shown) gives false.
    bool changeOwnership(const FieldsPtr &selection);

    /// Releases the payloads (the control is going away).
    void release();

private:
    QString m_formatName;
    quint16 m_formatId = 0;
    FieldClipDataPtr m_clipData;
    FieldClipDataPtr m_dragClipData;
};

} // namespace PickerCtl::fieldpicker
