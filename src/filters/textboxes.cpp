#include "filters/textboxes.h"

#include <QLineEdit>

#include <limits>

namespace PickerCtl::Filters {

void removeLengthLimit(QLineEdit *box)
{
    box->setMaxLength(std::numeric_limits<int>::max());
}

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

bool hasOuterWhiteSpace(const QString &trimmed)
{
    return !trimmed.isEmpty() && (trimmed.front().isSpace() || trimmed.back().isSpace());
}

} // namespace PickerCtl::Filters
