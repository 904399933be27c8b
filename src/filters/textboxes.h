#pragma once

#include "catalog/core/numbercheck.h"

#include <QString>

class QLineEdit;

namespace PickerCtl::Filters {

/// Lifts QLineEdit's default cap of 32,767 characters, which cut long expressions and bounds
/// without a word: a box holds as much as a QString does.
void removeLengthLimit(QLineEdit *box);

/// trimSpaces (numbercheck.h) takes the spaces off a typed text.
/// True when the text, spaces trimmed, still starts or ends with other white space, which the
/// number readers of Qt would skip silently.
bool hasOuterWhiteSpace(const QString &trimmed);

} // namespace PickerCtl::Filters
