#include "filters/textboxes.h"

#include <QLineEdit>

#include <limits>

namespace PickerCtl::Filters {

void removeLengthLimit(QLineEdit *box)
{
    box->setMaxLength(std::numeric_limits<int>::max());
}

bool hasOuterWhiteSpace(const QString &trimmed)
{
    return !trimmed.isEmpty() && (trimmed.front().isSpace() || trimmed.back().isSpace());
}

} // namespace PickerCtl::Filters
