#include "catalog/namematcher.h"

namespace PickerCtl {

namespace {
constexpr char16_t kAnyRun = u'*';
constexpr char16_t kAnyOne = u'?';

inline char16_t folded(char16_t c)
{
    return QChar::toCaseFolded(c);
}
} // namespace

NameMatcher::NameMatcher(const QString &pattern)
    : m_pattern(pattern)
{
    m_folded.reserve(pattern.size());
    for (QChar c : pattern) {
        const char16_t u = c.unicode();
        if (u == kAnyRun && m_folded.endsWith(QChar(kAnyRun)))
            continue;
        m_hasWildcards = m_hasWildcards || u == kAnyRun || u == kAnyOne;
        m_folded.append(QChar(folded(u)));
    }
}

bool NameMatcher::matches(QStringView name) const
{
    if (!m_hasWildcards)
        return name.contains(m_folded, Qt::CaseInsensitive);

    // Glob match of "*pattern*": on a mismatch, let the last "*" (the leading implicit one at
    // first) swallow one more character and try again from there.
    const qsizetype n = name.size();
    const qsizetype p = m_folded.size();
    const char16_t *pat = reinterpret_cast<const char16_t *>(m_folded.constData());
    qsizetype ni = 0;
    qsizetype pi = 0;
    qsizetype starPi = 0;   // pattern position after the last star (the implicit one at 0)
    qsizetype starNi = 0;   // name position that star has swallowed up to
    while (pi < p || ni < n) {
        if (pi == p)
            return true; // the implicit trailing "*" takes the rest
        if (pat[pi] == kAnyRun) {
            starPi = ++pi;
            starNi = ni;
            continue;
        }
        if (ni < n && (pat[pi] == kAnyOne || pat[pi] == folded(name[ni].unicode()))) {
            ++pi;
            ++ni;
            continue;
        }
        if (starNi < n) {
            pi = starPi;
            ni = ++starNi;
            continue;
        }
        return false;
    }
    return true;
}

bool nameFilterMatches(QStringView name, const QString &filter)
{
    thread_local NameMatcher matcher;
    if (matcher.pattern() != filter)
        matcher = NameMatcher(filter);
    return matcher.matches(name);
}

} // namespace PickerCtl
