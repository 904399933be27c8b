#pragma once

#include <PickerCtl/pickerctl_export.h>

#include <QString>
#include <memory>

namespace PickerCtl {

/**
 * The application's modal message box. A style adds a button set (low bits) and an icon:
 * buttons 0 OK, 4 Yes/No, 7 Yes / Yes to All / No / Cancel; icons 16 stop, 32 question,
 * 48 exclamation, 64 information. Answers: 1 OK, 2 cancel, 6 yes, 7 no, 8 yes to all.
 */
class PICKERCTL_EXPORT MessageService
{
public:
    enum Style : qint32 {
        OkOnly = 0, YesNo = 4, YesYesToAllNoCancel = 7,
        Critical = 16, Question = 32, Exclamation = 48, Information = 64
    };
    enum Answer : qint32 { AnswerOk = 1, AnswerCancel = 2, AnswerYes = 6, AnswerNo = 7, AnswerYesToAll = 8 };

    virtual ~MessageService();
    virtual qint32 ShowMessage(const QString &text, qint32 style, const QString &title,
                               qint32 helpContext = 0, qint32 reserved = 0) = 0;

    static std::shared_ptr<MessageService> instance();
    static void setInstance(std::shared_ptr<MessageService> service);
};

} // namespace PickerCtl
