#include "registration/controlclasses.h"

#include <PickerCtl/XEnumFilter.h>
#include <PickerCtl/XExpTemplate.h>
#include <PickerCtl/XFieldPicker.h>
#include <PickerCtl/XNumberFilter.h>
#include <PickerCtl/XStringFilter.h>
#include <PickerCtl/XTechnologies.h>
#include <PickerCtl/XTimeFilter.h>

#include <QtGlobal>

namespace PickerCtl::Registration {

namespace {

// A control made by name is a newly placed one: it starts with its design-time defaults.
template<typename Control>
QWidget *make(QWidget *parent)
{
    auto *control = new Control(parent);
    if constexpr (requires { control->InitProperties(); })
        control->InitProperties();
    return control;
}

// The tr context of these texts is ControlFactory, which translates them on the way out.
constexpr ControlClass Classes[] = {
    {"XFieldPicker", "PickerCtl/XFieldPicker.h", &make<XFieldPicker>,
     QT_TRANSLATE_NOOP("PickerCtl::ControlFactory", "Field browser: category tree beside a field list"),
     QT_TRANSLATE_NOOP("PickerCtl::ControlFactory",
                       "Browses the field catalogue: the category tree of one application beside the "
                       "fields of the selected category, with filtering, selection, clipboard and "
                       "drag and drop."),
     ":/PickerCtl/registration/xfieldpicker.svg"},
    {"XExpTemplate", "PickerCtl/XExpTemplate.h", &make<XExpTemplate>,
     QT_TRANSLATE_NOOP("PickerCtl::ControlFactory", "Express template editor"),
     QT_TRANSLATE_NOOP("PickerCtl::ControlFactory",
                       "Builds the ordered field list of an express report template: search the "
                       "catalogue, add, remove and reorder fields, and validate the template."),
     ":/PickerCtl/registration/xexptemplate.svg"},
    {"XTechnologies", "PickerCtl/XTechnologies.h", &make<XTechnologies>,
     QT_TRANSLATE_NOOP("PickerCtl::ControlFactory", "Technology selector"),
     QT_TRANSLATE_NOOP("PickerCtl::ControlFactory",
                       "Ticks the technology types a report or filter applies to, read and written "
                       "as a technology mask and as a sum of bits."),
     ":/PickerCtl/registration/xtechnologies.svg"},
    {"XNumberFilter", "PickerCtl/XNumberFilter.h", &make<XNumberFilter>,
     QT_TRANSLATE_NOOP("PickerCtl::ControlFactory", "Number filter editor"),
     QT_TRANSLATE_NOOP("PickerCtl::ControlFactory",
                       "Edits the numeric range filter of one field: an optional lower bound and an "
                       "optional upper bound within the field's allowed range."),
     ":/PickerCtl/registration/xnumberfilter.svg"},
    {"XStringFilter", "PickerCtl/XStringFilter.h", &make<XStringFilter>,
     QT_TRANSLATE_NOOP("PickerCtl::ControlFactory", "Text match filter editor"),
     QT_TRANSLATE_NOOP("PickerCtl::ControlFactory",
                       "Edits the text filter of one field: an expression with the options match "
                       "case, match whole expression and pattern matching."),
     ":/PickerCtl/registration/xstringfilter.svg"},
    {"XTimeFilter", "PickerCtl/XTimeFilter.h", &make<XTimeFilter>,
     QT_TRANSLATE_NOOP("PickerCtl::ControlFactory", "Time filter editor"),
     QT_TRANSLATE_NOOP("PickerCtl::ControlFactory",
                       "Edits the time period filter of one date-time field: all items, the previous "
                       "N minutes, hours, days or months, or between a start and an end."),
     ":/PickerCtl/registration/xtimefilter.svg"},
    {"XEnumFilter", "PickerCtl/XEnumFilter.h", &make<XEnumFilter>,
     QT_TRANSLATE_NOOP("PickerCtl::ControlFactory", "Enumerated value filter editor"),
     QT_TRANSLATE_NOOP("PickerCtl::ControlFactory",
                       "Edits the filter of one enumerated field: the values the field can take as "
                       "check-marked entries of an option tree."),
     ":/PickerCtl/registration/xenumfilter.svg"},
};

} // namespace

std::span<const ControlClass> controlClasses()
{
    return Classes;
}

} // namespace PickerCtl::Registration
