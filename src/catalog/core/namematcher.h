#pragma once

#include <PickerCtl/pickerctl_export.h>

#include <QString>
#include <QStringView>

#include <string_view>
#include <vector>

namespace PickerCtl {

/**
 * The name filter of the catalogue: a case-insensitive pattern found anywhere in a name, in which
 * "*" stands for any run of characters and "?" for exactly one. Every other character is literal,
 * so names with brackets, dots, quotes or SQL in them are matched as written.
 */
class PICKERCTL_AUTOTEST_EXPORT NameMatcher
{
public:
    explicit NameMatcher(const QString &pattern = QString());

    const QString &pattern() const { return m_pattern; }
    bool matches(QStringView name) const;

    /// The pattern case-folded, runs of "*" collapsed.
    const QString &foldedPattern() const { return m_folded; }
    /// True for a pattern without wildcards and with only ASCII characters once folded.
    bool asciiLiteral() const { return m_asciiLiteral; }
    /// The same answer as matches() for an ASCII name, given here already folded to lower case.
    bool matchesFoldedAscii(std::string_view foldedName) const;

private:
    QString m_pattern; ///< as given, to recognise the same filter again
    QString m_folded;  ///< case-folded, runs of "*" collapsed
    bool m_hasWildcards = false;
    bool m_asciiLiteral = false; ///< no wildcards and only ASCII: the fast search applies
    std::vector<char16_t> m_caseBits; ///< per folded unit, the bit an ASCII name unit may differ by
};

/// Matches with a matcher compiled once per distinct filter text on this thread: a list filter
/// asks the same question of a million names.
PICKERCTL_AUTOTEST_EXPORT bool nameFilterMatches(QStringView name, const QString &filter);

} // namespace PickerCtl
