#include "filters/numberbounds.h"

#include <PickerCtl/AppServices.h>

namespace PickerCtl::Filters {

namespace {

const QString MinValueCaption = QStringLiteral("Min Value: ");
const QString MaxValueCaption = QStringLiteral(", Max Value: ");
const QString OpenEndText = QStringLiteral("Any");

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
        return services.IsValidLong(text, parsed, rangeMin, rangeMax, errorText);
    else
        return services.IsValidDouble(text, parsed, rangeMin, rangeMax, errorText);
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
        errorText = QString::fromLatin1(ReversedBoundsMessage);
        return BoundsVerdict::Reversed;
    }
    return BoundsVerdict::Valid;
}

} // namespace

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
    const auto endText = [](const QVariant &end) { return isEmptyValue(end) ? OpenEndText : end.toString(); };
    return MinValueCaption + endText(rangeMin) + MaxValueCaption + endText(rangeMax);
}

} // namespace PickerCtl::Filters
