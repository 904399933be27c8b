#include <PickerCtl/testing/ScriptedMessageService.h>

namespace PickerCtl {

ScriptedMessageService::ScriptedMessageService(QList<qint32> answers, qint32 answerWhenEmpty)
    : m_answerWhenEmpty(answerWhenEmpty)
{
    for (qint32 answer : answers)
        m_answers.enqueue(answer);
}

ScriptedMessageService::~ScriptedMessageService() = default;

qint32 ScriptedMessageService::ShowMessage(const QString &text, qint32 style, const QString &title,
                                           qint32 /*helpContext*/, qint32 /*reserved*/)
{
    m_calls.append({text, style, title});
    return m_answers.isEmpty() ? m_answerWhenEmpty : m_answers.dequeue();
}

} // namespace PickerCtl
