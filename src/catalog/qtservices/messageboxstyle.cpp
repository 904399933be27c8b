#include "catalog/qtservices/messageboxstyle.h"

#include <PickerCtl/MessageService.h>

#include <QList>

namespace PickerCtl {

namespace {
constexpr qint32 kButtonMask = 0x0F;
constexpr qint32 kIconMask = 0x70;
constexpr qint32 kDefaultMask = 0x300;
constexpr qint32 kOkCancel = 1;
constexpr qint32 kYesNoCancel = 3;
constexpr qint32 kSecondDefault = 0x100;
constexpr qint32 kThirdDefault = 0x200;

QList<QMessageBox::StandardButton> buttonsInOrder(qint32 set)
{
    switch (set) {
    case kOkCancel: return {QMessageBox::Ok, QMessageBox::Cancel};
    case kYesNoCancel: return {QMessageBox::Yes, QMessageBox::No, QMessageBox::Cancel};
    case MessageService::YesNo: return {QMessageBox::Yes, QMessageBox::No};
    case MessageService::YesYesToAllNoCancel:
        return {QMessageBox::Yes, QMessageBox::YesToAll, QMessageBox::No, QMessageBox::Cancel};
    default: return {QMessageBox::Ok};
    }
}

QMessageBox::Icon iconFor(qint32 iconBits)
{
    switch (iconBits) {
    case MessageService::Critical: return QMessageBox::Critical;
    case MessageService::Question: return QMessageBox::Question;
    case MessageService::Exclamation: return QMessageBox::Warning;
    case MessageService::Information: return QMessageBox::Information;
    default: return QMessageBox::NoIcon;
    }
}
} // namespace

MessageBoxLayout messageBoxLayout(qint32 style)
{
    const QList<QMessageBox::StandardButton> order = buttonsInOrder(style & kButtonMask);
    MessageBoxLayout layout;
    layout.buttons = {};
    for (QMessageBox::StandardButton button : order)
        layout.buttons |= button;
    layout.icon = iconFor(style & kIconMask);
    qsizetype defaultIndex = 0;
    if ((style & kDefaultMask) == kSecondDefault)
        defaultIndex = 1;
    else if ((style & kDefaultMask) == kThirdDefault)
        defaultIndex = 2;
    layout.defaultButton = order.value(defaultIndex, order.first());
    return layout;
}

qint32 messageAnswer(QMessageBox::StandardButton clicked)
{
    switch (clicked) {
    case QMessageBox::Ok: return MessageService::AnswerOk;
    case QMessageBox::Yes: return MessageService::AnswerYes;
    case QMessageBox::No: return MessageService::AnswerNo;
    case QMessageBox::YesToAll: return MessageService::AnswerYesToAll;
    default: return MessageService::AnswerCancel;
    }
}

} // namespace PickerCtl
