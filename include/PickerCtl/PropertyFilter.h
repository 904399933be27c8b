#pragma once

#include <PickerCtl/pickerctl_export.h>

#include <QString>
#include <memory>

namespace PickerCtl {

class ListViewProperties;

/// Describes the values of an enumerated field; the field is named by the list-view properties' Title.
class PICKERCTL_EXPORT PropertyFilter
{
public:
    virtual ~PropertyFilter();
    /// The value names (node keys and captions), joined by "," without blanks.
    virtual QString ValueNames(const std::shared_ptr<ListViewProperties> &listProperties,
                               const QString &appName) const = 0;
    /// The value codes at the same positions, joined by ","; read whole, the default selection.
    virtual QString ValueCodes(const std::shared_ptr<ListViewProperties> &listProperties,
                               const QString &appName) const = 0;
};

using PropertyFilterPtr = std::shared_ptr<PropertyFilter>;

} // namespace PickerCtl
