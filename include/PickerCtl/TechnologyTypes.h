#pragma once

#include <PickerCtl/pickerctl_export.h>

#include <QString>
#include <memory>
#include <vector>

namespace PickerCtl {

/// A technology type ("Tech Type") of the catalogue: GSM, UMTS, LTE, NR ...
class PICKERCTL_EXPORT TechnologyType
{
public:
    TechnologyType(const QString &name, const QString &code, qint32 bit);

    QString Name() const { return m_name; }
    /// Short code used in technology masks; codes never occur inside one another.
    QString Code() const { return m_code; }
    /// Bit value of the type (a power of two in the shipped catalogues).
    qint32 Bit() const { return m_bit; }

private:
    QString m_name;
    QString m_code;
    qint32 m_bit;
};

using TechnologyTypePtr = std::shared_ptr<TechnologyType>;

/// The catalogue's technology types in catalogue order, also addressable by name.
class PICKERCTL_EXPORT TechnologyTypes
{
public:
    using const_iterator = std::vector<TechnologyTypePtr>::const_iterator;

    void Add(const TechnologyTypePtr &type);
    qint32 Count() const { return qint32(m_types.size()); }
    /// The type at that 0-based position, or null.
    TechnologyTypePtr Item(qint32 index) const;
    /// The type with that name (exact), or null.
    TechnologyTypePtr Item(const QString &name) const;
    const_iterator begin() const { return m_types.begin(); }
    const_iterator end() const { return m_types.end(); }

private:
    std::vector<TechnologyTypePtr> m_types;
};

using TechnologyTypesPtr = std::shared_ptr<TechnologyTypes>;

} // namespace PickerCtl
