#include "catalog/numbercheck.h"
#include "catalog/variantnumber.h"

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

// A pasted novel must not turn into a message box the size of the screen.
constexpr qsizetype kMaxQuotedLength = 40;


QString quoted(const QVariant &value)
{
    const QString text = value.toString();
    return text.size() > kMaxQuotedLength ? text.left(kMaxQuotedLength) + kEllipsis : text;
}

// Reads a real number from a variant: numbers as they are, texts in the user's locale, then in C.
std::optional<double> readReal(const QVariant &value, const QLocale &locale)
{
    if (holdsNumber(value))
        return value.toDouble();
    const QString text = value.toString().trimmed();
    if (text.isEmpty())
        return std::nullopt;
    bool ok = false;
    double number = locale.toDouble(text, &ok);
    if (!ok)
        number = QLocale::c().toDouble(text, &ok);
    if (!ok || !std::isfinite(number))
        return std::nullopt;
    return number;
}

std::optional<double> rangeEnd(const QVariant &end, const QLocale &locale)
{
    if (!end.isValid() || end.isNull())
        return std::nullopt;
    return readReal(end, locale);
}

QString formatWhole(double number)
{
    return QString::number(qint64(number));
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
    return !holdsNumber(value) && value.toString().trimmed().isEmpty();
}

} // namespace

bool checkWholeNumber(const QVariant &value, const QVariant &rangeMin, const QVariant &rangeMax,
                      const QLocale &locale, qint32 &result, QString &errorText)
{
    const std::optional<double> low = rangeEnd(rangeMin, locale);
    const std::optional<double> high = rangeEnd(rangeMax, locale);
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
    const std::optional<double> low = rangeEnd(rangeMin, locale);
    const std::optional<double> high = rangeEnd(rangeMax, locale);
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
