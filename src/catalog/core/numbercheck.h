#pragma once

#include <PickerCtl/pickerctl_export.h>

#include <QLocale>
#include <QString>
#include <QVariant>

namespace PickerCtl {

/**
 * The number checks behind AppServices::IsValidLong / IsValidDouble, free of any service so they
 * can be tried with any locale. A value is a number or a text; a text is read in `locale` first and
 * then in the C locale, spaces around it ignored (tabs and line breaks are not). NaN and the
 * infinities are not numbers. A range end that is null (or not a number at all) is open; an end
 * that is NaN fails every check with a message saying so; given ends are inclusive and compare as
 * doubles, however large. On failure `errorText` names the value and the allowed range.
 */
/// `text` without the spaces around it. Only the space character counts as blank around a typed
/// number or count; a tab or a line break is text.
QString trimSpaces(const QString &text);

PICKERCTL_AUTOTEST_EXPORT
bool checkWholeNumber(const QVariant &value, const QVariant &rangeMin, const QVariant &rangeMax,
                      const QLocale &locale, qint32 &result, QString &errorText);
PICKERCTL_AUTOTEST_EXPORT
bool checkRealNumber(const QVariant &value, const QVariant &rangeMin, const QVariant &rangeMax,
                     const QLocale &locale, double &result, QString &errorText);

} // namespace PickerCtl
