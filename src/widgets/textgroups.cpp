#include "widgets/textgroups.h"

#include <bit>
#include <cstring>

namespace PickerCtl {

namespace {

constexpr int kEmpty = -1;
constexpr size_t kSmallestTable = 16;

} // namespace

TextGroups::TextGroups(size_t expected)
{
    size_t capacity = kSmallestTable;
    while (capacity < 2 * expected)
        capacity *= 2;
    m_slots.assign(capacity, kEmpty);
    m_mask = capacity - 1;
    m_hashes.reserve(expected);
    m_texts.reserve(expected);
}

int TextGroups::add(const QString &text)
{
    const std::uint64_t hash = hashOf(text);
    for (size_t slot = size_t(hash) & m_mask;; slot = (slot + 1) & m_mask) {
        const int known = m_slots[slot];
        if (known == kEmpty) {
            m_slots[slot] = count();
            m_hashes.push_back(hash);
            m_texts.push_back(text);
            // At most half full, so that a probe soon meets an empty slot.
            if (2 * m_texts.size() > m_slots.size())
                grow();
            return count() - 1;
        }
        if (m_hashes[size_t(known)] == hash && m_texts[size_t(known)] == text)
            return known;
    }
}

std::uint64_t TextGroups::hashOf(QStringView text)
{
    constexpr std::uint64_t kMultiplier = 0x9E3779B97F4A7C15ULL;
    constexpr int kRotation = 29;
    const auto *bytes = reinterpret_cast<const unsigned char *>(text.data());
    const size_t size = size_t(text.size()) * sizeof(QChar);
    std::uint64_t hash = size * kMultiplier;
    size_t at = 0;
    for (; at + sizeof(std::uint64_t) <= size; at += sizeof(std::uint64_t)) {
        std::uint64_t chunk;
        std::memcpy(&chunk, bytes + at, sizeof chunk);
        hash = std::rotl((hash ^ chunk) * kMultiplier, kRotation);
    }
    if (at < size) {
        std::uint64_t chunk = 0;
        std::memcpy(&chunk, bytes + at, size - at);
        hash = std::rotl((hash ^ chunk) * kMultiplier, kRotation);
    }
    return (hash ^ (hash >> 32)) * kMultiplier;
}

void TextGroups::grow()
{
    m_slots.assign(2 * m_slots.size(), kEmpty);
    m_mask = m_slots.size() - 1;
    for (size_t group = 0; group < m_hashes.size(); ++group) {
        size_t slot = size_t(m_hashes[group]) & m_mask;
        while (m_slots[slot] != kEmpty)
            slot = (slot + 1) & m_mask;
        m_slots[slot] = int(group);
    }
}

std::optional<TextGrouping> groupTexts(const std::vector<QString> &texts, size_t maxGroups)
{
    TextGrouping grouping{TextGroups(std::min(texts.size(), maxGroups)), std::vector<int>(texts.size())};
    for (size_t i = 0; i < texts.size(); ++i) {
        grouping.groupOf[i] = grouping.groups.add(texts[i]);
        if (size_t(grouping.groups.count()) > maxGroups)
            return std::nullopt;
    }
    return grouping;
}

} // namespace PickerCtl
