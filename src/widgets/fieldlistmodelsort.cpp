#include "widgets/fieldlistmodelsort.h"

#include "widgets/textgroups.h"

#include <QChar>
#include <algorithm>
#include <array>
#include <cstdint>
#include <limits>
#include <numeric>
#include <optional>
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

// The rank of each group, given the groups in ascending order of their texts: groups whose texts
// compare equal (they differ only in case) share a rank. Descending reverses the ranks.
template<typename Compare>
std::vector<int> ranksOf(const std::vector<int> &ascendingGroups, Compare compareGroups, bool ascending)
{
    std::vector<int> rankOf(ascendingGroups.size());
    int rank = 0;
    for (size_t i = 0; i < ascendingGroups.size(); ++i) {
        if (i > 0 && compareGroups(ascendingGroups[i - 1], ascendingGroups[i]) != 0)
            ++rank;
        rankOf[size_t(ascendingGroups[i])] = rank;
    }
    if (!ascending) {
        for (int &groupRank : rankOf)
            groupRank = rank - groupRank;
    }
    return rankOf;
}

// The positions 0..n-1 ordered by the rank of their group; a stable counting sort, so positions
// of equal rank keep their order.
std::vector<int> dealByRank(const std::vector<int> &groupOf, const std::vector<int> &rankOf)
{
    const int ranks = rankOf.empty() ? 0 : *std::max_element(rankOf.begin(), rankOf.end()) + 1;
    std::vector<int> starts(size_t(ranks) + 1, 0);
    for (int group : groupOf)
        ++starts[size_t(rankOf[size_t(group)]) + 1];
    std::partial_sum(starts.begin(), starts.end(), starts.begin());
    std::vector<int> order(groupOf.size());
    for (size_t i = 0; i < groupOf.size(); ++i)
        order[size_t(starts[size_t(rankOf[size_t(groupOf[i])])]++)] = int(i);
    return order;
}

// Orders a run of entries whose heads tie, by the rest of their texts. The entries of a run come
// in collection order (the radix sort is stable), which equal texts must keep.
class RunSorter
{
public:
    RunSorter(const std::vector<QString> &texts, const std::vector<Prefix> &prefixes, bool ascending)
        : m_texts(texts), m_prefixes(prefixes), m_ascending(ascending)
    {
    }

    void sort(Entry *first, Entry *last) const
    {
        if (last - first <= kSmallRun)
            std::sort(first, last, [this](const Entry &a, const Entry &b) { return before(a, b); });
        else
            sortByDistinctTexts(first, last);
    }

private:
    // Below this many entries a plain comparison sort is cheaper than grouping the texts.
    static constexpr std::ptrdiff_t kSmallRun = 32;

    int compareRows(int a, int b) const
    {
        const int order = comparePrefix(m_prefixes[size_t(a)], m_prefixes[size_t(b)]);
        return order != 0 ? order : compareText(m_texts[size_t(a)], m_texts[size_t(b)]);
    }

    bool before(const Entry &a, const Entry &b) const
    {
        const int order = compareRows(a.row, b.row);
        if (order != 0)
            return m_ascending ? order < 0 : order > 0;
        return a.row < b.row;
    }

    // Catalogues repeat names (the same counter in every cell of a network), so a run may hold
    // thousands of equal texts, and comparing those in full over and over is what made a sort
    // slow. Here each distinct text is compared only with the other distinct texts, and the
    // entries are then dealt out by the rank of their text.
    void sortByDistinctTexts(Entry *first, Entry *last) const
    {
        const size_t count = size_t(last - first);
        TextGroups distinct;
        std::vector<int> firstRows;          // a row of each distinct text, in order of appearance
        std::vector<int> textOf(count);      // entry -> its distinct text
        for (size_t i = 0; i < count; ++i) {
            const int row = first[i].row;
            const int known = distinct.add(m_texts[size_t(row)]);
            if (known == int(firstRows.size()))
                firstRows.push_back(row);
            textOf[i] = known;
        }

        std::vector<int> byText(firstRows.size());
        std::iota(byText.begin(), byText.end(), 0);
        const auto compareGroups = [this, &firstRows](int a, int b) {
            return compareRows(firstRows[size_t(a)], firstRows[size_t(b)]);
        };
        std::sort(byText.begin(), byText.end(), [&compareGroups](int a, int b) { return compareGroups(a, b) < 0; });
        const std::vector<int> order = dealByRank(textOf, ranksOf(byText, compareGroups, m_ascending));
        std::vector<Entry> sorted(count);
        for (size_t i = 0; i < count; ++i)
            sorted[i] = first[order[i]];
        std::copy(sorted.begin(), sorted.end(), first);
    }

    const std::vector<QString> &m_texts;
    const std::vector<Prefix> &m_prefixes;
    bool m_ascending;
};

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

namespace {

// Sorts by packed prefixes: for texts that are mostly distinct.
std::vector<int> orderByPrefixes(const std::vector<QString> &texts, bool ascending)
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
    const RunSorter runs{texts, prefixes, ascending};
    for (auto run = entries.begin(); run != entries.end();) {
        const auto runEnd = std::find_if(run, entries.end(), [run](const Entry &e) { return e.head != run->head; });
        if (runEnd - run > 1)
            runs.sort(&*run, &*run + (runEnd - run));
        run = runEnd;
    }

    std::vector<int> rows(entries.size());
    for (size_t i = 0; i < entries.size(); ++i)
        rows[i] = entries[i].row;
    return rows;
}

// Sorts texts of which many are equal: only the distinct texts are sorted, and the rows then
// dealt out by the rank of their text.
std::vector<int> orderByGroups(const TextGrouping &grouping, bool ascending)
{
    std::vector<QString> distinct(size_t(grouping.groups.count()));
    for (int group = 0; group < grouping.groups.count(); ++group)
        distinct[size_t(group)] = grouping.groups.text(group);
    const std::vector<int> byText = orderByPrefixes(distinct, true);
    const auto compareGroups = [&distinct](int a, int b) { return compareText(distinct[size_t(a)], distinct[size_t(b)]); };
    return dealByRank(grouping.groupOf, ranksOf(byText, compareGroups, ascending));
}

// Grouping pays when each distinct text stands for this many rows or more on average.
constexpr size_t kRowsPerGroup = 8;
// Below this many rows any order is quick.
constexpr size_t kGroupingMinimum = 1024;

} // namespace

std::vector<int> textOrder(const std::vector<QString> &texts, bool ascending)
{
    if (texts.size() >= kGroupingMinimum) {
        if (const std::optional<TextGrouping> grouping = groupTexts(texts, texts.size() / kRowsPerGroup))
            return orderByGroups(*grouping, ascending);
    }
    return orderByPrefixes(texts, ascending);
}

} // namespace PickerCtl::FieldListSort
