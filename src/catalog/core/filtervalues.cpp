#include <PickerCtl/FieldClipData.h>
#include <PickerCtl/NumberFilterValue.h>

namespace PickerCtl {

namespace {
// A bound the user left blank arrives as an empty string, not as a null variant.
bool isBoundSet(const QVariant &bound)
{
    if (bound.isNull())
        return false;
    if (bound.metaType().id() == QMetaType::QString)
        return !bound.toString().isEmpty();
    return true;
}
} // namespace

bool NumberFilterValue::HasMinValue() const
{
    return isBoundSet(m_min);
}

bool NumberFilterValue::HasMaxValue() const
{
    return isBoundSet(m_max);
}

// The payload's collection is often the caller's own selection, so it is replaced, never emptied.
void FieldClipData::Clear()
{
    m_fields = Fields::create();
}

FieldsPtr FieldClipData::Fields() const
{
    return m_fields ? m_fields : Fields::create();
}

} // namespace PickerCtl
