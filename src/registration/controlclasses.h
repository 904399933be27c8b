#pragma once

#include <span>

class QWidget;

namespace PickerCtl::Registration {

/// One creatable control. The texts are untranslated sources for ControlFactory's tr context.
struct ControlClass
{
    const char *className;
    const char *includeFile;
    QWidget *(*create)(QWidget *parent);
    const char *toolTip;
    const char *whatsThis;
    const char *iconPath;
};

/// The table of every creatable control; a new control is one more row in controlclasses.cpp.
std::span<const ControlClass> controlClasses();

} // namespace PickerCtl::Registration
