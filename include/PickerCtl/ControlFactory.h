#pragma once

#include <PickerCtl/pickerctl_export.h>

#include <QList>
#include <QString>

class QWidget;

namespace PickerCtl {

/// What a form designer or a host's toolbox needs to offer one control class.
struct ControlDescription
{
    QString className;   ///< "XFieldPicker"; create() also takes "PickerCtl::XFieldPicker"
    QString includeFile; ///< "PickerCtl/XFieldPicker.h"
    QString toolTip;     ///< one line, translated
    QString whatsThis;   ///< a few sentences, translated
    QString iconPath;    ///< a resource path of an SVG icon
};

/**
 * The library's class factory: every control is creatable by its class name.
 *
 * Controls made here are counted while they live, so that a host which loaded the library at run
 * time can ask canUnload() before it lets the library go. A control constructed directly with
 * `new` is not counted: its host links the library and cannot unload it anyway.
 *
 * All members run on the user-interface thread.
 */
class PICKERCTL_EXPORT ControlFactory
{
public:
    ControlFactory() = delete;

    /// A new control of the named class under parent, or nullptr for a name the library does not
    /// know (or a control that could not be built). The caller (or parent) owns it.
    static QWidget *create(const QString &className, QWidget *parent = nullptr);
    /// Every creatable class, in the library's order.
    static QList<ControlDescription> controls();
    /// Whether create() knows the name.
    static bool contains(const QString &className);
    /// Controls made by create() that are not destroyed yet.
    static int liveCount();
    /// True only when no control made by create() is alive.
    static bool canUnload();
};

} // namespace PickerCtl
