#pragma once

#include <QString>
#include <QVariant>

namespace PickerCtl {
class AppServices;
}

namespace PickerCtl::Filters {

/// The number types a host hands the number filter; any other value turns validation off.
enum NumberType : qint32 { WholeNumber = 0, RealNumber = 1 };

/// One side of the range as the user left it: switched on by its list, and the typed text.
struct BoundEntry
{
    bool on = false;
    QString text;
};

enum class BoundsVerdict { Valid, BadMinimum, BadMaximum, Reversed };

/**
 * AppServices::IsValidLong and IsValidDouble behind a guard: the check belongs to the host, and a
 * check that throws (whatever it throws) refuses the number with errorText saying the number could
 * not be checked, and is logged, so that nothing escapes into the control's caller.
 */
bool isValidLong(AppServices &services, const QVariant &text, qint32 &parsed, const QVariant &rangeMin,
                 const QVariant &rangeMax, QString &errorText);
bool isValidDouble(AppServices &services, const QVariant &text, double &parsed, const QVariant &rangeMin,
                   const QVariant &rangeMax, QString &errorText);

inline constexpr auto ReversedBoundsMessage =
    QT_TRANSLATE_NOOP("PickerCtl::XNumberFilter", "Minimum value should be less than the maximum value");

/**
 * Checks the bounds the user typed: each bound that is on must be a number of the type within the
 * allowed range (the check and its message belong to AppServices), the lower bound first; then a
 * lower bound above the upper one is refused. Equal bounds pass. errorText is written only on failure.
 */
BoundsVerdict checkBounds(AppServices &services, qint32 numberType, const BoundEntry &minimum,
                          const BoundEntry &maximum, const QVariant &rangeMin, const QVariant &rangeMax,
                          QString &errorText);

/// "Min Value: a, Max Value: b", an open end of the allowed range reading "Any".
QString rangeToolTip(const QVariant &rangeMin, const QVariant &rangeMax);

} // namespace PickerCtl::Filters
