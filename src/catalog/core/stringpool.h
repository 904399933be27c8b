#pragma once

#include "catalog/core/textmap.h"

#include <QString>

#include <unordered_map>
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
    StringPool(const StringPool &) = delete;
    StringPool &operator=(const StringPool &) = delete;

    quint32 intern(const QString &text)
    {
        // Loaders hand in the same shared text for run after run of fields; that needs no hashing.
        if (text.constData() == m_values[m_last].constData() && text.size() == m_values[m_last].size())
            return m_last;
        // A text whose buffer the pool shares is known by its address: the pool keeps that buffer
        // alive, so no other text can have it. Texts over foreign memory are compared by content.
        const bool owned = text.data_ptr().isMutable();
        if (owned) {
            if (const auto it = m_byBuffer.find(text.constData()); it != m_byBuffer.end())
                return m_last = it->second;
        }
        quint32 position = 0;
        if (const quint32 *known = m_positions.find(text)) {
            position = *known;
        } else {
            position = quint32(m_values.size());
            // The pool keeps its own copy of a text over foreign memory, which may change.
            m_values.push_back(owned ? text : QString(text.constData(), text.size()));
            m_positions.insert(m_values.back(), position);
        }
        if (owned && m_values[position].constData() == text.constData())
            m_byBuffer.emplace(text.constData(), position);
        return m_last = position;
    }

    const QString &at(quint32 position) const { return m_values[position]; }
    quint32 size() const { return quint32(m_values.size()); }

private:
    std::vector<QString> m_values;
    TextMap<quint32> m_positions;
    std::unordered_map<const QChar *, quint32> m_byBuffer;
    quint32 m_last = 0;
};

} // namespace PickerCtl
