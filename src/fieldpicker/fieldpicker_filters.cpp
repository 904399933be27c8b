#include "fieldpicker/fieldpicker_p.h"

// The filter values are stored as given and handed, untouched, to every field of the next fill.
namespace PickerCtl {

QString XFieldPicker::TechFilter() const
{
    return d->techFilter;
}

void XFieldPicker::setTechFilter(const QString &filter)
{
    d->techFilter = filter;
}

QString XFieldPicker::FieldTypeFilter() const
{
    return d->fieldTypeFilter;
}

void XFieldPicker::setFieldTypeFilter(const QString &filter)
{
    d->fieldTypeFilter = filter;
}

QString XFieldPicker::OwnerFilter() const
{
    return d->ownerFilter;
}

void XFieldPicker::setOwnerFilter(const QString &filter)
{
    d->ownerFilter = filter;
}

QString XFieldPicker::NameFilter() const
{
    return d->nameFilter;
}

void XFieldPicker::setNameFilter(const QString &filter)
{
    d->nameFilter = filter;
}

QString XFieldPicker::RcvFormFilter() const
{
    return d->rcvFormFilter;
}

void XFieldPicker::setRcvFormFilter(const QString &filter)
{
    d->rcvFormFilter = filter;
}

QString XFieldPicker::RcvFieldFilter() const
{
    return d->rcvFieldFilter;
}

void XFieldPicker::setRcvFieldFilter(const QString &filter)
{
    d->rcvFieldFilter = filter;
}

} // namespace PickerCtl
