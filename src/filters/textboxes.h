#pragma once

#include <QString>

class QLineEdit;

namespace PickerCtl::Filters {

/// Lifts QLineEdit's default cap of 32,767 characters, which cut long expressions and bounds
/// without a word: a box holds as much as a QString does.
void removeLengthLimit(QLineEdit *box);

/// The text without the space characters (U+0020) at either end; tabs, line breaks and other
/// white space are part of what the user typed and stay.
QString trimSpaces(const QString &text);

/// True when the text, spaces trimmed, still starts or ends with other white space, which the
/// number readers of Qt would skip silently.
bool hasOuterWhiteSpace(const QString &trimmed);

} // namespace PickerCtl::Filters
