#include "pickerctldesignerplugin.h"

#include "designercontrol.h"

#include <PickerCtl/ControlFactory.h>

namespace PickerCtl::Designer {

PickerCtlDesignerPlugin::PickerCtlDesignerPlugin(QObject *parent)
    : QObject(parent)
{
    const auto controls = ControlFactory::controls();
    for (const auto &description : controls)
        m_controls.append(new DesignerControl(description, this));
}

QList<QDesignerCustomWidgetInterface *> PickerCtlDesignerPlugin::customWidgets() const
{
    return m_controls;
}

} // namespace PickerCtl::Designer
