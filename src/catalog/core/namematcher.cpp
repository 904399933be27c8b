#include "catalog/core/namematcher.h"

namespace PickerCtl {

namespace {
constexpr char16_t kAnyRun = u'*';
constexpr char16_t kAnyOne = u'?';
constexpr char16_t kFirstNonAscii = 0x80;

// Names are almost always ASCII: those units fold here, inline, instead of through Qt's tables.
inline char16_t folded(char16_t c)
{
    if (c < kFirstNonAscii)
        return c >= u'A' && c <= u'Z' ? char16_t(c + (u'a' - u'A')) : c;
    return QChar::toCaseFolded(c);
}

inline bool isAscii(QStringView text)
{
    char16_t units = 0;
    for (const QChar c : text)
        units |= c.unicode();
    return units < kFirstNonAscii;
}

// The bit that tells an ASCII letter's two cases apart: a name unit matches a folded pattern
// letter when it equals it with that bit set.
constexpr char16_t kCaseBit = 0x20;

inline char16_t caseBitFor(char16_t foldedUnit)
{
    return foldedUnit >= u'a' && foldedUnit <= u'z' ? kCaseBit : 0;
}

// Finds an ASCII folded pattern in an ASCII name without folding the name.
bool containsAscii(QStringView name, QStringView foldedPattern)
{
    const qsizetype m = foldedPattern.size();
    const qsizetype last = name.size() - m;
    const char16_t *text = name.utf16();
    const char16_t *pattern = foldedPattern.utf16();
    const char16_t first = pattern[0];
    const char16_t firstBit = caseBitFor(first);
    for (qsizetype i = 0; i <= last; ++i) {
        if (char16_t(text[i] | firstBit) != first)
            continue;
        qsizetype j = 1;
        while (j < m && char16_t(text[i + j] | caseBitFor(pattern[j])) == pattern[j])
            ++j;
        if (j == m)
            return true;
    }
    return false;
}

// Glob match of "*pattern*" over a folded pattern; same(unit, at) tells whether a name unit
// matches the literal pattern unit at that position. On a mismatch the last "*" (the leading
// implicit one at first) swallows one more character and the match tries again from there.
template<typename Unit, typename Same>
bool globMatch(const Unit *text, qsizetype n, QStringView pattern, Same same)
{
    const qsizetype p = pattern.size();
    const char16_t *pat = pattern.utf16();
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
        if (ni < n && (pat[pi] == kAnyOne || same(text[ni], pi))) {
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
    m_asciiLiteral = !m_hasWildcards && !m_folded.isEmpty() && isAscii(m_folded);
    m_caseBits.reserve(size_t(m_folded.size()));
    for (const QChar c : m_folded)
        m_caseBits.push_back(caseBitFor(c.unicode()));
}

bool NameMatcher::matches(QStringView name) const
{
    if (!m_hasWildcards) {
        // Qt's search folds whole code points, which only matters beyond ASCII.
        if (m_asciiLiteral && isAscii(name))
            return containsAscii(name, m_folded);
        return name.contains(m_folded, Qt::CaseInsensitive);
    }

    if (isAscii(name)) {
        return globMatch(name.utf16(), name.size(), m_folded, [this](char16_t unit, qsizetype at) {
            return char16_t(unit | m_caseBits[size_t(at)]) == m_folded[at].unicode();
        });
    }
    return globMatch(name.utf16(), name.size(), m_folded,
                     [this](char16_t unit, qsizetype at) { return folded(unit) == m_folded[at].unicode(); });
}

bool NameMatcher::matchesFoldedAscii(std::string_view foldedName) const
{
    if (!m_hasWildcards) {
        // Folding is idempotent: a pattern unit beyond ASCII never folds to an ASCII one, so such
        // a pattern finds nothing in an ASCII name.
        return m_asciiLiteral && foldedName.find(m_folded.toLatin1().toStdString()) != std::string_view::npos;
    }
    return globMatch(foldedName.data(), qsizetype(foldedName.size()), m_folded, [this](char unit, qsizetype at) {
        return char16_t(static_cast<unsigned char>(unit)) == m_folded[at].unicode();
    });
}

bool nameFilterMatches(QStringView name, const QString &filter)
{
    thread_local NameMatcher matcher;
    // The list hands the very same filter string to every field. A buffer the matcher shares
    // cannot change under it (a write detaches), so the same buffer is the same filter; text over
    // foreign memory is compared in full.
    const QString &known = matcher.pattern();
    const bool sameBuffer = known.data_ptr().isMutable() && known.constData() == filter.constData()
                            && known.size() == filter.size();
    if (!sameBuffer && known != filter)
        matcher = NameMatcher(filter);
    return matcher.matches(name);
}

} // namespace PickerCtl
