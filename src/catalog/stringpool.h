#pragma once

#include <QHash>
#include <QString>
#include <vector>

namespace PickerCtl {

/// Keeps each distinct text once and hands out its position, so a million fields that share a
/// few hundred technology masks or units carry a small number instead of a string each.
class StringPool
{
public:
    StringPool() { intern(QString()); } // position 0 is the empty text

    quint32 intern(const QString &text)
    {
        const auto it = m_positions.constFind(text);
        if (it != m_positions.cend())
            return *it;
        const quint32 position = quint32(m_values.size());
        m_values.push_back(text);
        m_positions.insert(text, position);
        return position;
    }

    const QString &at(quint32 position) const { return m_values[position]; }
    quint32 size() const { return quint32(m_values.size()); }

private:
    std::vector<QString> m_values;
    QHash<QString, quint32> m_positions;
};

} // namespace PickerCtl
