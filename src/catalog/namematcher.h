#pragma once

#include <QString>
#include <QStringView>

namespace PickerCtl {

/**
 * The name filter of the catalogue: a case-insensitive pattern found anywhere in a name, in which
 * "*" stands for any run of characters and "?" for exactly one. Every other character is literal,
 * so names with brackets, dots, quotes or SQL in them are matched as written.
 */
class NameMatcher
{
public:
    explicit NameMatcher(const QString &pattern = QString());

    const QString &pattern() const { return m_pattern; }
    bool matches(QStringView name) const;

private:
    QString m_pattern; ///< as given, to recognise the same filter again
    QString m_folded;  ///< case-folded, runs of "*" collapsed
    bool m_hasWildcards = false;
};

/// Matches with a matcher compiled once per distinct filter text on this thread: a list filter
/// asks the same question of a million names.
bool nameFilterMatches(QStringView name, const QString &filter);

} // namespace PickerCtl
