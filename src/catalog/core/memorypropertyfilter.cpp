#include "catalog/core/memorypropertyfilter.h"

#include <PickerCtl/ListViewProperties.h>

namespace PickerCtl {

namespace {
const QString kListSeparator = QStringLiteral(",");
}

QString MemoryPropertyFilter::ValueNames(const std::shared_ptr<ListViewProperties> &listProperties,
                                         const QString & /*appName*/) const
{
    return listFor(listProperties).names;
}

QString MemoryPropertyFilter::ValueCodes(const std::shared_ptr<ListViewProperties> &listProperties,
                                         const QString & /*appName*/) const
{
    return listFor(listProperties).codes;
}

void MemoryPropertyFilter::addList(const QString &title, const QStringList &names,
                                   const QStringList &codes)
{
    m_lists.insert(title, {names.join(kListSeparator), codes.join(kListSeparator)});
}

MemoryPropertyFilter::EnumList
MemoryPropertyFilter::listFor(const std::shared_ptr<ListViewProperties> &listProperties) const
{
    return listProperties ? m_lists.value(listProperties->Title()) : EnumList();
}

} // namespace PickerCtl
