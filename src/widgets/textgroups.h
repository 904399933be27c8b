#pragma once

#include <PickerCtl/pickerctl_export.h>

#include <QString>

#include <cstdint>
#include <optional>
#include <vector>

namespace PickerCtl {

/**
 * Numbers texts so that equal texts (exactly equal, case included) get the same number: 0 for
 * the first distinct text added, 1 for the next, and so on.
 *
 * An open-addressing table with a cheap hash: Qt's string hash, built to withstand hostile keys,
 * costs more than a whole sort of the names of one catalogue.
 */
class PICKERCTL_AUTOTEST_EXPORT TextGroups
{
public:
    /// Room for that many distinct texts without growing.
    explicit TextGroups(size_t expected = 0);

    /// The number of the text's group; a new number when no equal text was added before.
    int add(const QString &text);
    /// Number of distinct texts so far.
    int count() const { return int(m_texts.size()); }
    /// The first text added to the group.
    const QString &text(int group) const { return m_texts[size_t(group)]; }

private:
    static std::uint64_t hashOf(QStringView text);
    void grow();

    std::vector<int> m_slots;
    size_t m_mask = 0;
    std::vector<std::uint64_t> m_hashes;
    std::vector<QString> m_texts;
};

/// The texts grouped as TextGroups does, and the group of each text.
struct TextGrouping
{
    TextGroups groups;
    std::vector<int> groupOf;
};

/// Groups the texts, or gives up (nothing) as soon as it is clear that there are more than
/// maxGroups distinct texts, where grouping would not pay.
PICKERCTL_AUTOTEST_EXPORT std::optional<TextGrouping> groupTexts(const std::vector<QString> &texts, size_t maxGroups);

} // namespace PickerCtl
