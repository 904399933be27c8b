#pragma once

#include <PickerCtl/Enums.h>

#include <QString>

namespace PickerCtl::fieldpicker {

/// The design-time settings of the field browser that no child widget holds for it. The property
/// bag reads and writes them through the control's public properties.
struct DesignSettings
{
    ETPLSingleBranch singleBranch = tplNormal;
    ETPLRootLbl rootLbl = tplEntities;
    ETPLTemplateView templateView = tplTreeAndList;
    bool captionVisible = false;
    bool allowContextMenu = false;
    bool allowOpenMenu = false;
    QString openMenuCaption;
    bool showAll = false;
    bool showEntityFld = false;
};

} // namespace PickerCtl::fieldpicker
