#pragma once

#include <PickerCtl/MessageService.h>

#include <QList>
#include <QQueue>

namespace PickerCtl {

/// A message service for tests: answers from a queue instead of a modal box and records every
/// message it was asked to show.
class PICKERCTL_EXPORT ScriptedMessageService : public MessageService
{
public:
    struct Call
    {
        QString text;
        qint32 style = 0;
        QString title;
    };

    /// answerWhenEmpty answers once the queued answers are used up (Cancel unless told).
    explicit ScriptedMessageService(QList<qint32> answers = {}, qint32 answerWhenEmpty = AnswerCancel);
    ~ScriptedMessageService() override;

    qint32 ShowMessage(const QString &text, qint32 style, const QString &title,
                       qint32 helpContext = 0, qint32 reserved = 0) override;

    void queueAnswer(qint32 answer) { m_answers.enqueue(answer); }
    const QList<Call> &calls() const { return m_calls; }
    void clearCalls() { m_calls.clear(); }

private:
    QQueue<qint32> m_answers;
    qint32 m_answerWhenEmpty;
    QList<Call> m_calls;
};

} // namespace PickerCtl
