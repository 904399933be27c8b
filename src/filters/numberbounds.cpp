#include "filters/numberbounds.h"

#include <PickerCtl/AppServices.h>

#include <QCoreApplication>
#include <exception>

namespace PickerCtl::Filters {

namespace {

// The bounds' texts are the number filter's: they are translated in its context.
constexpr auto Context = "PickerCtl::XNumberFilter";
constexpr auto RangeToolTipText = QT_TRANSLATE_NOOP("PickerCtl::XNumberFilter", "Min Value: %1, Max Value: %2");
constexpr auto OpenEndText = QT_TRANSLATE_NOOP("PickerCtl::XNumberFilter", "Any");

const QString UncheckedNumber = QStringLiteral("The number \"%1\" could not be checked: %2");

bool refuseUnchecked(const QVariant &text, const QString &why, QString &errorText)
{
    qWarning("Number filter: checking \"%s\" failed: %s", qPrintable(text.toString()), qPrintable(why));
    errorText = UncheckedNumber.arg(text.toString(), why);
    return false;
}

template<typename Check>
bool guardedCheck(const QVariant &text, QString &errorText, Check check)
{
    try {
        return check();
    } catch (const std::exception &error) {
        return refuseUnchecked(text, QString::fromUtf8(error.what()), errorText);
    } catch (...) {
        return refuseUnchecked(text, QStringLiteral("an exception of unknown type"), errorText);
    }
}

bool isEmptyValue(const QVariant &value)
{
    return value.isNull() || !value.isValid();
}

template<typename Number>
bool parseBound(AppServices &services, const BoundEntry &bound, Number &parsed, const QVariant &rangeMin,
                const QVariant &rangeMax, QString &errorText)
{
    const QVariant text(bound.text);
    if constexpr (std::is_same_v<Number, qint32>)
        return isValidLong(services, text, parsed, rangeMin, rangeMax, errorText);
    else
        return isValidDouble(services, text, parsed, rangeMin, rangeMax, errorText);
}

template<typename Number>
BoundsVerdict checkTyped(AppServices &services, const BoundEntry &minimum, const BoundEntry &maximum,
                         const QVariant &rangeMin, const QVariant &rangeMax, QString &errorText)
{
    Number low{};
    Number high{};
    if (minimum.on && !parseBound(services, minimum, low, rangeMin, rangeMax, errorText))
        return BoundsVerdict::BadMinimum;
    if (maximum.on && !parseBound(services, maximum, high, rangeMin, rangeMax, errorText))
        return BoundsVerdict::BadMaximum;
    if (minimum.on && maximum.on && low > high) {
        errorText = QCoreApplication::translate(Context, ReversedBoundsMessage);
        return BoundsVerdict::Reversed;
    }
    return BoundsVerdict::Valid;
}

} // namespace

bool isValidLong(AppServices &services, const QVariant &text, qint32 &parsed, const QVariant &rangeMin,
                 const QVariant &rangeMax, QString &errorText)
{
    return guardedCheck(text, errorText,
                        [&] { return services.IsValidLong(text, parsed, rangeMin, rangeMax, errorText); });
}

bool isValidDouble(AppServices &services, const QVariant &text, double &parsed, const QVariant &rangeMin,
                   const QVariant &rangeMax, QString &errorText)
{
    return guardedCheck(text, errorText,
                        [&] { return services.IsValidDouble(text, parsed, rangeMin, rangeMax, errorText); });
}

BoundsVerdict checkBounds(AppServices &services, qint32 numberType, const BoundEntry &minimum,
                          const BoundEntry &maximum, const QVariant &rangeMin, const QVariant &rangeMax,
                          QString &errorText)
{
    switch (numberType) {
    case WholeNumber:
        return checkTyped<qint32>(services, minimum, maximum, rangeMin, rangeMax, errorText);
    case RealNumber:
        return checkTyped<double>(services, minimum, maximum, rangeMin, rangeMax, errorText);
    default:
        return BoundsVerdict::Valid;
    }
}

QString rangeToolTip(const QVariant &rangeMin, const QVariant &rangeMax)
{
    const auto endText = [](const QVariant &end) {
        return isEmptyValue(end) ? QCoreApplication::translate(Context, OpenEndText) : end.toString();
    };
    return QCoreApplication::translate(Context, RangeToolTipText).arg(endText(rangeMin), endText(rangeMax));
}

} // namespace PickerCtl::Filters
