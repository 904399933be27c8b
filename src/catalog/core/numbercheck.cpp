#include "catalog/core/numbercheck.h"
#include "catalog/core/variantnumber.h"

#include <cmath>
#include <limits>
#include <optional>

namespace PickerCtl {

namespace {

const QString kNotWhole = QStringLiteral("\"%1\" is not a whole number.");
const QString kNotNumber = QStringLiteral("\"%1\" is not a number.");
const QString kNotWholeWithRange = QStringLiteral("\"%1\" is not a whole number: enter a whole number%2.");
const QString kNotNumberWithRange = QStringLiteral("\"%1\" is not a number: enter a number%2.");
const QString kOutOfRangeWhole = QStringLiteral("\"%1\" is out of range: enter a whole number%2.");
const QString kOutOfRangeReal = QStringLiteral("\"%1\" is out of range: enter a number%2.");
const QString kMissingWhole = QStringLiteral("No value was entered: enter a whole number%1.");
const QString kMissingReal = QStringLiteral("No value was entered: enter a number%1.");
const QString kRangeBoth = QStringLiteral(" from %1 to %2");
const QString kRangeMin = QStringLiteral(" of at least %1");
const QString kRangeMax = QStringLiteral(" of at most %1");
const QString kEllipsis = QStringLiteral("...");
const QString kRangeNotNumber = QStringLiteral("The allowed range is not valid: its %1 end is not a number.");
const QString kLowerEnd = QStringLiteral("lower");
const QString kUpperEnd = QStringLiteral("upper");

// A pasted novel must not turn into a message box the size of the screen.
constexpr qsizetype kMaxQuotedLength = 40;


QString quoted(const QVariant &value)
{
    const QString text = value.toString();
    return text.size() > kMaxQuotedLength ? text.left(kMaxQuotedLength) + kEllipsis : text;
}

// Reads a number from a variant: numbers as they are, texts in the user's locale, then in C.
// NaN and the infinities come back as they are; the callers decide what they mean.
std::optional<double> readAnyReal(const QVariant &value, const QLocale &locale)
{
    if (holdsNumber(value))
        return value.toDouble();
    const QString text = trimSpaces(value.toString());
    // QLocale would skip a tab or a line break around the digits as well; here they are text.
    if (text.isEmpty() || text.front().isSpace() || text.back().isSpace())
        return std::nullopt;
    bool ok = false;
    double number = locale.toDouble(text, &ok);
    if (!ok)
        number = QLocale::c().toDouble(text, &ok);
    if (!ok)
        return std::nullopt;
    return number;
}

// A value to check: only finite numbers are numbers.
std::optional<double> readReal(const QVariant &value, const QLocale &locale)
{
    const std::optional<double> number = readAnyReal(value, locale);
    if (!number || !std::isfinite(*number))
        return std::nullopt;
    return number;
}

// One end of the allowed range: open when null or not a number at all, broken when NaN. An
// infinite end stays a double and compares as one (it never passes through an integer).
struct RangeEnd
{
    std::optional<double> bound;
    bool broken = false;
};

RangeEnd rangeEnd(const QVariant &end, const QLocale &locale)
{
    if (!end.isValid() || end.isNull())
        return {};
    const std::optional<double> number = readAnyReal(end, locale);
    if (number && std::isnan(*number))
        return {std::nullopt, true};
    return {number, false};
}

// True (with the message written) when either end of the range is NaN.
bool brokenRange(const RangeEnd &low, const RangeEnd &high, QString &errorText)
{
    if (!low.broken && !high.broken)
        return false;
    errorText = kRangeNotNumber.arg(low.broken ? kLowerEnd : kUpperEnd);
    return true;
}

QString formatWhole(double number)
{
    // Beyond 2^53 a double holds only whole numbers anyway; printing it as a real avoids an
    // integer conversion that would overflow for the largest ends and the infinities.
    constexpr double kExactLimit = 9007199254740992.0;
    if (std::abs(number) < kExactLimit)
        return QString::number(qint64(number));
    return QString::number(number, 'g', QLocale::FloatingPointShortest);
}

QString formatReal(const QLocale &locale, double number)
{
    return locale.toString(number, 'g', QLocale::FloatingPointShortest);
}

template<typename Format>
QString rangeText(std::optional<double> low, std::optional<double> high, Format format)
{
    if (low && high)
        return kRangeBoth.arg(format(*low), format(*high));
    if (low)
        return kRangeMin.arg(format(*low));
    if (high)
        return kRangeMax.arg(format(*high));
    return QString();
}

bool inRange(double number, std::optional<double> low, std::optional<double> high)
{
    return (!low || number >= *low) && (!high || number <= *high);
}

bool isBlank(const QVariant &value)
{
    return !holdsNumber(value) && trimSpaces(value.toString()).isEmpty();
}

} // namespace

QString trimSpaces(const QString &text)
{
    qsizetype first = 0;
    qsizetype last = text.size();
    while (first < last && text.at(first) == QLatin1Char(' '))
        ++first;
    while (last > first && text.at(last - 1) == QLatin1Char(' '))
        --last;
    return text.mid(first, last - first);
}

bool checkWholeNumber(const QVariant &value, const QVariant &rangeMin, const QVariant &rangeMax,
                      const QLocale &locale, qint32 &result, QString &errorText)
{
    const RangeEnd lowEnd = rangeEnd(rangeMin, locale);
    const RangeEnd highEnd = rangeEnd(rangeMax, locale);
    if (brokenRange(lowEnd, highEnd, errorText))
        return false;
    const std::optional<double> low = lowEnd.bound;
    const std::optional<double> high = highEnd.bound;
    const QString range = rangeText(low, high, formatWhole);
    if (isBlank(value)) {
        errorText = kMissingWhole.arg(range);
        return false;
    }
    const std::optional<double> number = readReal(value, locale);
    if (!number || std::trunc(*number) != *number) {
        errorText = range.isEmpty() ? kNotWhole.arg(quoted(value))
                                  : kNotWholeWithRange.arg(quoted(value), range);
        return false;
    }
    // Whole numbers must fit 32 bits; without a range the 32-bit limits are the range to name.
    constexpr double kLowest = std::numeric_limits<qint32>::min();
    constexpr double kHighest = std::numeric_limits<qint32>::max();
    if (*number < kLowest || *number > kHighest || !inRange(*number, low, high)) {
        const QString allowed = range.isEmpty() ? rangeText(kLowest, kHighest, formatWhole) : range;
        errorText = kOutOfRangeWhole.arg(quoted(value), allowed);
        return false;
    }
    result = qint32(*number);
    return true;
}

bool checkRealNumber(const QVariant &value, const QVariant &rangeMin, const QVariant &rangeMax,
                     const QLocale &locale, double &result, QString &errorText)
{
    const RangeEnd lowEnd = rangeEnd(rangeMin, locale);
    const RangeEnd highEnd = rangeEnd(rangeMax, locale);
    if (brokenRange(lowEnd, highEnd, errorText))
        return false;
    const std::optional<double> low = lowEnd.bound;
    const std::optional<double> high = highEnd.bound;
    const QString range = rangeText(low, high, [&locale](double n) { return formatReal(locale, n); });
    if (isBlank(value)) {
        errorText = kMissingReal.arg(range);
        return false;
    }
    const std::optional<double> number = readReal(value, locale);
    if (!number) {
        errorText = range.isEmpty() ? kNotNumber.arg(quoted(value))
                                  : kNotNumberWithRange.arg(quoted(value), range);
        return false;
    }
    if (!inRange(*number, low, high)) {
        errorText = kOutOfRangeReal.arg(quoted(value), range);
        return false;
    }
    result = *number;
    return true;
}

} // namespace PickerCtl
