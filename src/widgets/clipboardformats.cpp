#include <PickerCtl/FieldClipboard.h>

#include <QHash>
#include <QMutex>
#include <QMutexLocker>
#include <QStringList>
#include <QThread>

#if defined(Q_OS_LINUX)
#include <sys/syscall.h>
#include <unistd.h>
#endif

namespace PickerCtl {

namespace {

constexpr int MaxFormats = 0x10000 - FirstClipboardFormatId;
const QLatin1Char FormatNameSeparator(':');

struct Registry
{
    QMutex mutex;
    QHash<QString, quint16> ids;
    QStringList names;
};

Registry &registry()
{
    static Registry instance;
    return instance;
}

} // namespace

quint16 ClipboardFormats::Register(const QString &name)
{
    if (name.isEmpty())
        return 0;
    Registry &reg = registry();
    QMutexLocker lock(&reg.mutex);
    if (const auto it = reg.ids.constFind(name); it != reg.ids.constEnd())
        return it.value();
    if (reg.names.size() >= MaxFormats)
        return 0;
    const auto id = quint16(FirstClipboardFormatId + reg.names.size());
    reg.names.append(name);
    reg.ids.insert(name, id);
    return id;
}

QString ClipboardFormats::Name(quint16 id)
{
    if (id < FirstClipboardFormatId)
        return {};
    Registry &reg = registry();
    QMutexLocker lock(&reg.mutex);
    const int position = id - FirstClipboardFormatId;
    return position < reg.names.size() ? reg.names.at(position) : QString();
}

quint64 currentThreadId()
{
#if defined(Q_OS_LINUX)
    // The kernel's thread id: small and stable for the thread's life, like the id the format
    // names were designed around.
    return quint64(::syscall(SYS_gettid));
#else
    return quint64(reinterpret_cast<quintptr>(QThread::currentThreadId()));
#endif
}

QString clipboardFormatName(const QString &appName, const QString &editorName, quint64 threadId)
{
    return appName + FormatNameSeparator + editorName + FormatNameSeparator
           + QString::number(threadId);
}

} // namespace PickerCtl
