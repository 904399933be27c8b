#pragma once

#include <PickerCtl/Field.h>

#include <vector>

namespace PickerCtl {

/// One field of an express report template, with its include flag and one-character code.
class PICKERCTL_EXPORT TemplateField
{
public:
    FieldPtr Field() const { return m_field; }
    void setField(const FieldPtr &field) { m_field = field; }
    bool Include() const { return m_include; }
    void setInclude(bool include) { m_include = include; }
    QString Code() const { return m_code; }
    void setCode(const QString &code) { m_code = code; }

private:
    FieldPtr m_field;
    bool m_include = false;
    QString m_code;
};

using TemplateFieldPtr = std::shared_ptr<TemplateField>;

/// The ordered fields of an express report template.
class PICKERCTL_EXPORT TemplateFields
{
public:
    using const_iterator = std::vector<TemplateFieldPtr>::const_iterator;

    static std::shared_ptr<TemplateFields> create() { return std::make_shared<TemplateFields>(); }
    void Add(const TemplateFieldPtr &item) { m_items.push_back(item); }
    qint32 Count() const { return qint32(m_items.size()); }
    /// The item at that 0-based position, or null.
    TemplateFieldPtr Item(qint32 index) const
    {
        return index >= 0 && size_t(index) < m_items.size() ? m_items[size_t(index)] : nullptr;
    }
    const_iterator begin() const { return m_items.begin(); }
    const_iterator end() const { return m_items.end(); }

private:
    std::vector<TemplateFieldPtr> m_items;
};

using TemplateFieldsPtr = std::shared_ptr<TemplateFields>;

} // namespace PickerCtl
