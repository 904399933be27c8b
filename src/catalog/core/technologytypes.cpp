#include <PickerCtl/TechnologyTypes.h>

namespace PickerCtl {

TechnologyType::TechnologyType(const QString &name, const QString &code, qint32 bit)
    : m_name(name), m_code(code), m_bit(bit)
{
}

void TechnologyTypes::Add(const TechnologyTypePtr &type)
{
    if (type)
        m_types.push_back(type);
}

TechnologyTypePtr TechnologyTypes::Item(qint32 index) const
{
    return index >= 0 && size_t(index) < m_types.size() ? m_types[size_t(index)] : nullptr;
}

TechnologyTypePtr TechnologyTypes::Item(const QString &name) const
{
    for (const TechnologyTypePtr &type : m_types) {
        if (type->Name() == name)
            return type;
    }
    return nullptr;
}

} // namespace PickerCtl
