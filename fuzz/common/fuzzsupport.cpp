#include "fuzzsupport.h"

#include <QColor>
#include <QDateTime>
#include <QFont>
#include <QTimeZone>

#include <cstdio>
#include <cstdlib>

namespace PickerCtl::fuzz {

QByteArray bytes(const std::uint8_t *data, std::size_t size)
{
    return QByteArray(reinterpret_cast<const char *>(data), qsizetype(size));
}

QList<QByteArray> lines(const std::uint8_t *data, std::size_t size, int maxLines)
{
    QList<QByteArray> result;
    const QByteArray input = bytes(data, size);
    qsizetype start = 0;
    while (result.size() + 1 < maxLines) {
        const qsizetype end = input.indexOf('\n', start);
        if (end < 0)
            break;
        result.append(input.mid(start, end - start));
        start = end + 1;
    }
    result.append(input.mid(start));
    return result;
}

QByteArray lineAt(const QList<QByteArray> &lines, qsizetype index)
{
    return index < lines.size() ? lines.at(index) : QByteArray();
}

QVariant variant(const QByteArray &line)
{
    if (line.isEmpty())
        return {};
    if (line.size() < 2 || line.at(1) != ':')
        return QString::fromUtf8(line);
    const QByteArray payload = line.mid(2);
    switch (line.at(0)) {
    case 'i':
        return payload.toLongLong();
    case 'u':
        return payload.toULongLong();
    case 'd':
        return payload.toDouble();
    case 'f':
        return payload.toFloat();
    case 'b':
        return payload == "1";
    case 's':
        return QString::fromUtf8(payload);
    case 'y':
        return payload;
    case 'c':
        return QColor(QString::fromUtf8(payload));
    case 't': {
        QFont font;
        font.fromString(QString::fromUtf8(payload));
        return font;
    }
    case 'D':
        return QDateTime::fromString(QString::fromUtf8(payload), Qt::ISODateWithMs);
    case 'T': {
        const QList<QByteArray> parts = payload.split(',');
        const qint64 msecs = parts.value(0).toLongLong();
        if (parts.size() < 2)
            return QDateTime::fromMSecsSinceEpoch(msecs);
        return QDateTime::fromMSecsSinceEpoch(msecs, QTimeZone(parts.at(1).toInt()));
    }
    default:
        return QString::fromUtf8(line);
    }
}

void require(bool condition, const char *what)
{
    if (condition)
        return;
    std::fprintf(stderr, "fuzz property broken: %s\n", what);
    std::abort();
}

} // namespace PickerCtl::fuzz
