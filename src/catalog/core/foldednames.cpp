#include "catalog/core/foldednames.h"

#include "catalog/core/namematcher.h"

#include <functional>

namespace PickerCtl {

namespace {
constexpr char16_t kFirstNonAscii = 0x80;
constexpr quint32 kBeyondAscii = 0;
constexpr quint32 kEmptySlot = kBeyondAscii; // never stored in a slot
constexpr size_t kFirstSlots = 1024;

inline char foldedAscii(char16_t c)
{
    return char(c >= u'A' && c <= u'Z' ? c + (u'a' - u'A') : c);
}

inline quint32 hashOf(std::string_view text)
{
    const size_t hash = std::hash<std::string_view>()(text);
    return quint32(hash ^ (hash >> 32));
}

} // namespace

FoldedNames::FoldedNames()
    : m_starts{0}, // position 0: the names beyond ASCII, which keep no text here
      m_slots(kFirstSlots, kEmptySlot)
{
}

quint32 FoldedNames::add(QStringView name)
{
    m_scratch.clear();
    for (const QChar c : name) {
        if (c.unicode() >= kFirstNonAscii)
            return kBeyondAscii;
        m_scratch.push_back(foldedAscii(c.unicode()));
    }
    const size_t mask = m_slots.size() - 1;
    for (size_t i = hashOf(m_scratch) & mask;; i = (i + 1) & mask) {
        const quint32 known = m_slots[i];
        if (known == kEmptySlot)
            break;
        if (nameAt(known) == m_scratch)
            return known;
    }
    const quint32 position = quint32(m_starts.size());
    m_starts.push_back(quint32(m_text.size()));
    m_text += m_scratch;
    // At most two thirds full, so that a probe ends soon at an empty slot.
    if (size_t(m_starts.size()) * 3 > m_slots.size() * 2)
        grow();
    else
        insertSlot(position);
    return position;
}

void FoldedNames::insertSlot(quint32 position)
{
    const size_t mask = m_slots.size() - 1;
    size_t i = hashOf(nameAt(position)) & mask;
    while (m_slots[i] != kEmptySlot)
        i = (i + 1) & mask;
    m_slots[i] = position;
}

// The slots hold positions only (a million distinct names cost 4 bytes a slot), so growing hashes
// the stored names again.
void FoldedNames::grow()
{
    m_slots.assign(m_slots.size() * 2, kEmptySlot);
    for (quint32 position = kBeyondAscii + 1; position < size(); ++position)
        insertSlot(position);
}

size_t FoldedNames::endOf(quint32 position) const
{
    return position + 1 < m_starts.size() ? size_t(m_starts[position + 1]) : m_text.size();
}

std::string_view FoldedNames::nameAt(quint32 position) const
{
    const size_t start = m_starts[position];
    return std::string_view(m_text).substr(start, endOf(position) - start);
}

std::vector<FoldedNames::Answer> FoldedNames::answers(const NameMatcher &matcher) const
{
    std::vector<Answer> result(m_starts.size(), Fails);
    result[kBeyondAscii] = AskTheName;
    if (matcher.asciiLiteral()) {
        std::string folded;
        folded.reserve(size_t(matcher.foldedPattern().size()));
        for (const QChar c : matcher.foldedPattern())
            folded.push_back(char(c.unicode()));
        findLiteral(folded, result);
        return result;
    }
    for (quint32 i = kBeyondAscii + 1; i < size(); ++i) {
        if (matcher.matchesFoldedAscii(nameAt(i)))
            result[i] = Passes;
    }
    return result;
}

// One search through all names at once; a find that runs over the end of its name is no match.
void FoldedNames::findLiteral(std::string_view folded, std::vector<Answer> &answers) const
{
    const std::string_view text(m_text);
    quint32 name = kBeyondAscii + 1;
    size_t from = 0;
    while (name < size()) {
        const size_t found = text.find(folded, from);
        if (found == std::string_view::npos)
            return;
        while (endOf(name) <= found)
            ++name;
        const size_t end = endOf(name);
        if (found + folded.size() <= end) {
            answers[name] = Passes;
            from = end;
        } else {
            from = found + 1;
        }
    }
}

} // namespace PickerCtl
