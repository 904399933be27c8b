#include <PickerCtl/ControlFactory.h>

#include "registration/controlclasses.h"

#include <QCoreApplication>
#include <QWidget>

namespace PickerCtl {

namespace {

// Designer and uic name the classes with their namespace; hosts mostly without.
const QString NamespacePrefix = QStringLiteral("PickerCtl::");

// Only the user-interface thread creates and destroys controls.
int liveControls = 0;

const Registration::ControlClass *findClass(const QString &className)
{
    const QString bare = className.startsWith(NamespacePrefix) ? className.mid(NamespacePrefix.size())
                                                               : className;
    for (const auto &cls : Registration::controlClasses()) {
        if (bare == QLatin1String(cls.className))
            return &cls;
    }
    return nullptr;
}

QString translated(const char *source)
{
    return QCoreApplication::translate("PickerCtl::ControlFactory", source);
}

} // namespace

QWidget *ControlFactory::create(const QString &className, QWidget *parent)
{
    const auto *cls = findClass(className);
    if (!cls)
        return nullptr;
    QWidget *control = nullptr;
    try {
        control = cls->create(parent);
    } catch (...) {
        // A host asking by name (Designer, a form loader) gets no control rather than an exception.
        return nullptr;
    }
    ++liveControls;
    QObject::connect(control, &QObject::destroyed, [] { --liveControls; });
    return control;
}

QList<ControlDescription> ControlFactory::controls()
{
    QList<ControlDescription> result;
    for (const auto &cls : Registration::controlClasses()) {
        result.append({QLatin1String(cls.className), QLatin1String(cls.includeFile), translated(cls.toolTip),
                       translated(cls.whatsThis), QLatin1String(cls.iconPath)});
    }
    return result;
}

bool ControlFactory::contains(const QString &className)
{
    return findClass(className) != nullptr;
}

int ControlFactory::liveCount()
{
    return liveControls;
}

bool ControlFactory::canUnload()
{
    return liveControls == 0;
}

} // namespace PickerCtl
