#pragma once

#include <PickerCtl/pickerctl_export.h>

#include <QStringView>

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace PickerCtl {

class NameMatcher;

/**
 * The distinct names of a catalogue's fields, case-folded, one after the other in one buffer, so
 * that a name filter over a million fields asks about each distinct name once, in one block of
 * memory, instead of chasing a million strings. Each field holds the position of its name; names
 * repeat heavily across categories, so the buffer stays small.
 * Only ASCII names are kept (one byte a character, lower case): every other name has position 0,
 * which tells the filter to ask the field's own name, as folding beyond ASCII works on whole code
 * points.
 */
class PICKERCTL_AUTOTEST_EXPORT FoldedNames
{
public:
    /// What a name filter answers for one stored name.
    enum Answer : std::uint8_t { Fails = 0, Passes = 1, AskTheName = 2 };

    FoldedNames();

    /// The position of the folded name, stored if it is new; 0 for a name beyond ASCII.
    quint32 add(QStringView name);
    /// Number of positions (the distinct names and position 0).
    quint32 size() const { return quint32(m_starts.size()); }

    /// The matcher's answer for every position.
    std::vector<Answer> answers(const NameMatcher &matcher) const;

private:
    std::string_view nameAt(quint32 position) const;
    size_t endOf(quint32 position) const;
    void findLiteral(std::string_view folded, std::vector<Answer> &answers) const;
    void insertSlot(quint32 position);
    void grow();

    std::string m_text;             ///< the distinct folded names, end to end
    std::vector<quint32> m_starts;  ///< where each position's name begins in m_text
    std::vector<quint32> m_slots;   ///< open-addressing set of positions, by the hash of their name
    std::string m_scratch;
};

} // namespace PickerCtl
