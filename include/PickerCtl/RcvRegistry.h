#pragma once

#include <PickerCtl/Field.h>

namespace PickerCtl {

/// Maps RCV forms to categories and RCV form fields to catalogue fields.
class PICKERCTL_EXPORT RcvRegistry
{
public:
    virtual ~RcvRegistry();
    /// Name of the category that stands for the form key, or "" when there is none.
    virtual QString CategoryName(const QString &formKey) const = 0;
    /// The catalogue field behind (form, field name), or null.
    virtual FieldPtr FieldFor(const QString &form, const QString &fieldName) const = 0;
};

using RcvRegistryPtr = std::shared_ptr<RcvRegistry>;

} // namespace PickerCtl
