#pragma once

#include <PickerCtl/Fields.h>

namespace PickerCtl {

/// The payload the field browser puts on the clipboard or into a drag: the fields and the id of
/// the clipboard format they are offered under. Rendering to QMimeData lives with the clipboard code.
class PICKERCTL_EXPORT FieldClipData
{
public:
    void Clear();
    bool IsEmpty() const { return !m_fields || m_fields->isEmpty(); }
    quint16 FormatId() const { return m_formatId; }
    void setFormatId(quint16 id) { m_formatId = id; }
    /// The fields of the payload (never null).
    FieldsPtr Fields() const;
    void setFields(const FieldsPtr &fields) { m_fields = fields; }

private:
    quint16 m_formatId = 0;
    FieldsPtr m_fields;
};

using FieldClipDataPtr = std::shared_ptr<FieldClipData>;

} // namespace PickerCtl
