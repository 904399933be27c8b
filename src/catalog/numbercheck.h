#pragma once

#include <QLocale>
#include <QString>
#include <QVariant>

namespace PickerCtl {

/**
 * The number checks behind AppServices::IsValidLong / IsValidDouble, free of any service so they
 * can be tried with any locale. A value is a number or a text; a text is read in `locale` first and
 * then in the C locale, blanks around it ignored. A range end that is null (or not a number) is
 * open; given ends are inclusive. On failure `errorText` names the value and the allowed range.
 */
bool checkWholeNumber(const QVariant &value, const QVariant &rangeMin, const QVariant &rangeMax,
                      const QLocale &locale, qint32 &result, QString &errorText);
bool checkRealNumber(const QVariant &value, const QVariant &rangeMin, const QVariant &rangeMax,
                     const QLocale &locale, double &result, QString &errorText);

} // namespace PickerCtl
