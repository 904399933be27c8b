#include "fieldpicker/fieldactions.h"

#include <PickerCtl/AppServices.h>
#include <PickerCtl/CatalogError.h>
#include <PickerCtl/FieldCatalog.h>
#include <PickerCtl/FieldClipboard.h>
#include <PickerCtl/MessageService.h>
#include <PickerCtl/OwnerPicker.h>

#include <QCoreApplication>
#include <QSet>
#include <QtDebug>

namespace PickerCtl::fieldpicker {

namespace {

constexpr qint32 UdcQuestionStyle = MessageService::YesYesToAllNoCancel + MessageService::Question;
constexpr auto UdcQuestionTitle = QT_TRANSLATE_NOOP("PickerCtl::XFieldPicker", "User Defined Calculation Access Violation");
constexpr auto UdcQuestionText =
    QT_TRANSLATE_NOOP("PickerCtl::XFieldPicker", "'%1' cannot be deleted.\r\nSkip this UDC and continue?");
constexpr auto OwnerPickerTitle = QT_TRANSLATE_NOOP("PickerCtl::XFieldPicker", "Change Owner");
constexpr auto OwnerPickerLabel = QT_TRANSLATE_NOOP("PickerCtl::XFieldPicker", "Owner");
constexpr auto DeleteRefusalTitle = QT_TRANSLATE_NOOP("PickerCtl::XFieldPicker", "Delete Fields");

QString tr(const char *text)
{
    return QCoreApplication::translate("PickerCtl::XFieldPicker", text);
}

// A refused change leaves the catalogue as it was; the user learns why from the catalogue's own words.
void showRefusal(const CatalogError &error, const char *title)
{
    qWarning("XFieldPicker: %s refused: %s", title, error.what());
    if (const auto messages = MessageService::instance())
        messages->ShowMessage(error.message(), MessageService::OkOnly + MessageService::Critical, tr(title));
}

} // namespace

QString udcViolationText(const QString &fieldName)
{
    return tr(UdcQuestionText).arg(fieldName);
}

bool udcDeletionCheck(Fields &set, const CurrentUser &user, MessageService &messages)
{
    QSet<QString> skipped;
    bool skipAll = false;
    const qint32 userId = user.UserId();
    const bool administrator = user.IsAdministrator();
    for (const FieldPtr &field : set) {
        if (!field || field->OwnerId() == userId || administrator)
            continue;
        if (skipAll) {
            skipped.insert(field->Key());
            continue;
        }
        switch (messages.ShowMessage(udcViolationText(field->Name()), UdcQuestionStyle,
                                     tr(UdcQuestionTitle), 0, 0)) {
        case MessageService::AnswerYes:
            skipped.insert(field->Key());
            break;
        case MessageService::AnswerYesToAll:
            skipped.insert(field->Key());
            skipAll = true;
            break;
        case MessageService::AnswerCancel:
            return false;
        default:
            break;
        }
    }
    for (const QString &key : std::as_const(skipped)) {
        while (set.contains(key))
            set.Remove(key);
    }
    return !set.isEmpty();
}

void FieldActions::createPayloads(FieldCatalog &catalog)
{
    m_clipData = catalog.NewClipData(true);
    m_dragClipData = catalog.NewClipData(false);
}

void FieldActions::setClipboardFormat(const QString &appName, const QString &editorName)
{
    m_formatName = PickerCtl::clipboardFormatName(appName, editorName, currentThreadId());
    m_formatId = ClipboardFormats::Register(m_formatName);
}

bool FieldActions::copy(const FieldsPtr &selection)
{
    if (!selection || selection->isEmpty() || !m_clipData)
        return false;
    WaitCursorGuard wait;
    m_clipData->Clear();
    m_clipData->setFormatId(m_formatId);
    m_clipData->setFields(selection);
    copyToClipboard(*m_clipData);
    return true;
}

bool FieldActions::deleteSelection(const FieldsPtr &selection, const FieldsPtr &exceptions)
{
    if (!selection)
        return false;
    const auto catalog = FieldCatalog::instance();
    const auto context = UserContext::instance();
    const CurrentUserPtr user = context ? context->CurrentUser() : nullptr;
    const auto messages = MessageService::instance();
    if (!catalog || !user || !messages)
        return false;
    if (!udcDeletionCheck(*selection, *user, *messages))
        return false;
    try {
        catalog->DeleteFields(selection, exceptions);
    } catch (const CatalogError &error) {
        showRefusal(error, DeleteRefusalTitle);
        return false;
    }
    return true;
}

bool FieldActions::changeOwnership(const FieldsPtr &selection)
{
    const auto picker = OwnerPicker::instance();
    const auto catalog = FieldCatalog::instance();
    if (!picker || !catalog)
        return false;
    CurrentUserPtr owner;
    if (!picker->PickUser(owner, tr(OwnerPickerTitle), tr(OwnerPickerLabel)) || !owner)
        return false;
    try {
        catalog->ChangeOwner(selection ? selection : Fields::create(), owner->Identity());
    } catch (const CatalogError &error) {
        showRefusal(error, OwnerPickerTitle);
        return false;
    }
    return true;
}

void FieldActions::release()
{
    m_clipData.reset();
    m_dragClipData.reset();
}

} // namespace PickerCtl::fieldpicker
