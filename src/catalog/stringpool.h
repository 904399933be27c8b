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
    StringPool() // position 0 is the empty text
    {
        m_values.emplace_back();
        m_positions.insert(QString(), 0);
    }

    quint32 intern(const QString &text)
    {
        // Loaders hand in the same shared text for run after run of fields; that needs no hashing.
        if (text.constData() == m_values[m_last].constData() && text.size() == m_values[m_last].size())
            return m_last;
        const auto it = m_positions.constFind(text);
        if (it != m_positions.cend())
            return m_last = *it;
        const quint32 position = quint32(m_values.size());
        m_values.push_back(text);
        m_positions.insert(text, position);
        return m_last = position;
    }

    const QString &at(quint32 position) const { return m_values[position]; }
    quint32 size() const { return quint32(m_values.size()); }

private:
    std::vector<QString> m_values;
    QHash<QString, quint32> m_positions;
    quint32 m_last = 0;
};

} // namespace PickerCtl
