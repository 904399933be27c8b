#include "fuzzsupport.h"

#include <PickerCtl/MessageService.h>
#include <PickerCtl/testing/CursorLog.h>

#include <QApplication>

#include <memory>

namespace PickerCtl::fuzz {

namespace {

/// Answers every message with Cancel at once and keeps nothing, so a long run neither blocks nor grows.
class SilentMessages : public MessageService
{
public:
    qint32 ShowMessage(const QString &, qint32, const QString &, qint32, qint32) override
    {
        return AnswerCancel;
    }
};

} // namespace

void ensureApplication()
{
    if (QCoreApplication::instance())
        return;
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    // Lives until the replay ends (argc and argv with it), as a host's application does.
    static int argc = 1;
    static char name[] = "pickerctl-fuzz";
    static char *argv[] = {name, nullptr};
    new QApplication(argc, argv);
    MessageService::setInstance(std::make_shared<SilentMessages>());
    AppServices::setInstance(std::make_shared<CursorLogServices>());
}

void processEvents()
{
    QCoreApplication::processEvents();
}

} // namespace PickerCtl::fuzz

// The replay ends the application as a host's main does, while everything it uses is still there
// (at exit, Qt's own globals may already be gone), so what it holds is freed and not reported.
extern "C" void pickerctlFuzzFinish()
{
    PickerCtl::MessageService::setInstance(nullptr);
    PickerCtl::AppServices::setInstance(nullptr);
    delete QCoreApplication::instance();
}
