#pragma once

#include "catalog/core/texthash.h"

#include <unordered_map>
#include <utility>

namespace PickerCtl {

/// A map from text to value for the catalogue's look-up tables: the part of QHash's interface
/// they use, hashed with TextHash.
template<typename Value>
class TextMap
{
public:
    Value value(QStringView key) const
    {
        const auto it = m_map.find(key);
        return it == m_map.end() ? Value() : it->second;
    }
    const Value *find(QStringView key) const
    {
        const auto it = m_map.find(key);
        return it == m_map.end() ? nullptr : &it->second;
    }
    bool contains(QStringView key) const { return m_map.find(key) != m_map.end(); }
    void insert(const QString &key, Value value) { m_map.insert_or_assign(key, std::move(value)); }
    /// Adds the entry unless the key is there already; true when added.
    bool insertIfAbsent(const QString &key, Value value) { return m_map.try_emplace(key, std::move(value)).second; }
    qsizetype size() const { return qsizetype(m_map.size()); }

private:
    struct Equal
    {
        using is_transparent = void;
        bool operator()(QStringView a, QStringView b) const noexcept { return a == b; }
    };
    std::unordered_map<QString, Value, TextHash, Equal> m_map;
};

} // namespace PickerCtl
