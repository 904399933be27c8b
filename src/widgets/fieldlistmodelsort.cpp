#include "widgets/fieldlistmodelsort.h"

#include <QChar>
#include <algorithm>
#include <array>
#include <cstdint>
#include <limits>
#include <utility>

namespace PickerCtl::FieldListSort {

namespace {

// Units of the case-folded text, one at a time, without building the folded string: a sort
// of a million names must not allocate per row.
class FoldedUnits
{
public:
    explicit FoldedUnits(QStringView text) : m_text(text) {}

    // The next unit, renumbered so that comparing units compares code points (UTF-16 alone
    // would put U+E000..U+FFFF after the surrogates); -1 at the end.
    int next()
    {
        if (m_pendingLow) {
            const char16_t low = m_pendingLow;
            m_pendingLow = 0;
            return codePointOrder(low);
        }
        if (m_pos >= m_text.size())
            return -1;
        char32_t ucs4 = m_text[m_pos++].unicode();
        if (QChar::isHighSurrogate(ucs4) && m_pos < m_text.size() && m_text[m_pos].isLowSurrogate())
            ucs4 = QChar::surrogateToUcs4(char16_t(ucs4), m_text[m_pos++].unicode());
        const char32_t folded = foldCase(ucs4);
        if (QChar::requiresSurrogates(folded)) {
            m_pendingLow = QChar::lowSurrogate(folded);
            return codePointOrder(QChar::highSurrogate(folded));
        }
        return codePointOrder(char16_t(folded));
    }

private:
    // Names are mostly ASCII: those letters fold here instead of through the Unicode tables.
    static char32_t foldCase(char32_t ucs4)
    {
        if (ucs4 < 0x80)
            return ucs4 >= u'A' && ucs4 <= u'Z' ? ucs4 + (u'a' - u'A') : ucs4;
        return QChar::toCaseFolded(ucs4);
    }

    static int codePointOrder(char16_t unit)
    {
        if (unit >= 0xE000)
            return unit - 0x800;
        if (unit >= 0xD800)
            return unit + 0x2000;
        return unit;
    }

    QStringView m_text;
    qsizetype m_pos = 0;
    char16_t m_pendingLow = 0;
};

// The first sixteen folded units packed into four words, first unit highest: most names
// differ within them, so most comparisons of a sort are a few integer compares.
constexpr int kUnitsPerWord = 4;
constexpr int kWords = 4;
using Prefix = std::array<std::uint64_t, kWords>;

// What the sort moves: the first word of the prefix and the row, 16 bytes, so that the
// million-row sort stays in cache; the other words are read only on a tie of the first.
struct Entry
{
    std::uint64_t head;
    int row;
};

// How many leading folded units all texts share ("field " in a list of "Field 1".."Field 9999"):
// the packed prefixes start after them, so that they tell the texts apart.
int sharedUnits(const std::vector<QString> &texts)
{
    if (texts.empty())
        return 0;
    int shared = std::numeric_limits<int>::max();
    for (const QString &text : texts) {
        FoldedUnits first(texts.front());
        FoldedUnits other(text);
        int same = 0;
        for (int unit = first.next(); same < shared && unit >= 0 && unit == other.next(); unit = first.next())
            ++same;
        shared = same;
        if (shared == 0)
            break;
    }
    return shared;
}

Prefix prefixOf(QStringView text, int skip)
{
    FoldedUnits units(text);
    for (int i = 0; i < skip; ++i)
        units.next();
    Prefix prefix{};
    for (std::uint64_t &word : prefix) {
        for (int i = 0; i < kUnitsPerWord; ++i) {
            const int unit = units.next();
            if (unit < 0)
                return prefix;
            // A text that ends early pads with zeros; one that goes on with U+0000 ties with it
            // here and is told apart by the full compare.
            word |= std::uint64_t(unit) << (16 * (kUnitsPerWord - 1 - i));
        }
    }
    return prefix;
}

// Negative, zero or positive, like compareText, for the packed prefixes.
int comparePrefix(const Prefix &a, const Prefix &b)
{
    for (int i = 0; i < kWords; ++i) {
        if (a[size_t(i)] != b[size_t(i)])
            return a[size_t(i)] < b[size_t(i)] ? -1 : 1;
    }
    return 0;
}

constexpr std::uint64_t kHighBytes = 0xFF00FF00FF00FF00ULL;

// The four units of a word whose units are all below 0x100, a byte each.
std::uint64_t narrowed(std::uint64_t word)
{
    return (word >> 24 & 0xFF000000ULL) | (word >> 16 & 0xFF0000ULL) | (word >> 8 & 0xFF00ULL) | (word & 0xFFULL);
}

// Stable least-significant-digit radix sort by head, a byte per pass; a pass whose byte is the
// same in every entry (the high bytes of ASCII units) is skipped.
void radixSortByHead(std::vector<Entry> &entries)
{
    if (entries.size() < 2)
        return;
    std::vector<Entry> buffer(entries.size());
    for (int shift = 0; shift < 64; shift += 8) {
        std::array<size_t, 256> starts{};
        for (const Entry &entry : entries)
            ++starts[(entry.head >> shift) & 0xFF];
        if (starts[(entries.front().head >> shift) & 0xFF] == entries.size())
            continue;
        size_t next = 0;
        for (size_t &start : starts)
            next += std::exchange(start, next);
        for (const Entry &entry : entries)
            buffer[starts[(entry.head >> shift) & 0xFF]++] = entry;
        entries.swap(buffer);
    }
}

} // namespace

int compareText(QStringView a, QStringView b)
{
    FoldedUnits left(a);
    FoldedUnits right(b);
    for (;;) {
        const int l = left.next();
        const int r = right.next();
        if (l != r)
            return l < r ? -1 : 1;
        if (l < 0)
            return 0;
    }
}

std::vector<int> textOrder(const std::vector<QString> &texts, bool ascending)
{
    const int skip = sharedUnits(texts);
    std::vector<Prefix> prefixes(texts.size());
    std::uint64_t wideBits = 0;
    for (size_t i = 0; i < texts.size(); ++i) {
        prefixes[i] = prefixOf(texts[i], skip);
        wideBits |= (prefixes[i][0] | prefixes[i][1]) & kHighBytes;
    }
    // While the first eight units are all Latin-1 (names almost always are), the head holds
    // eight of them a byte each instead of four.
    std::vector<Entry> entries(texts.size());
    for (size_t i = 0; i < texts.size(); ++i) {
        const Prefix &prefix = prefixes[i];
        const std::uint64_t head = wideBits ? prefix[0] : narrowed(prefix[0]) << 32 | narrowed(prefix[1]);
        entries[i] = Entry{head, int(i)};
    }

    // The entries are sorted by their first word with a stable radix sort (no comparisons to
    // mispredict), then each run of equal first words by the rest. The row number is the last
    // key, so equal texts keep their collection order, descending included.
    if (!ascending) {
        for (Entry &entry : entries)
            entry.head = ~entry.head;
    }
    radixSortByHead(entries);
    const auto byRest = [&texts, &prefixes, ascending](const Entry &a, const Entry &b) {
        int order = comparePrefix(prefixes[size_t(a.row)], prefixes[size_t(b.row)]);
        if (order == 0)
            order = compareText(texts[size_t(a.row)], texts[size_t(b.row)]);
        if (order != 0)
            return ascending ? order < 0 : order > 0;
        return a.row < b.row;
    };
    for (auto run = entries.begin(); run != entries.end();) {
        const auto runEnd = std::find_if(run, entries.end(), [run](const Entry &e) { return e.head != run->head; });
        if (runEnd - run > 1)
            std::sort(run, runEnd, byRest);
        run = runEnd;
    }

    std::vector<int> rows(entries.size());
    for (size_t i = 0; i < entries.size(); ++i)
        rows[i] = entries[i].row;
    return rows;
}

} // namespace PickerCtl::FieldListSort
