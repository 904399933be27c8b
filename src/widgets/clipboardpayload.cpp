#include "widgets/clipboardpayload.h"

#include <QtEndian>

#include <cstring>

namespace PickerCtl {

namespace {

constexpr char Magic[4] = {'P', 'C', 'F', 'D'};
constexpr quint16 Version = 1;
constexpr qsizetype HeaderSize = sizeof(Magic) + sizeof(quint16) + sizeof(quint32);
// The smallest field record: its id and an empty key's length.
constexpr qsizetype MinRecordSize = sizeof(qint32) + sizeof(quint32);

class Reader
{
public:
    explicit Reader(const QByteArray &bytes)
        : m_bytes(bytes)
    {
    }

    qsizetype remaining() const { return m_bytes.size() - m_position; }

    template<class T>
    std::optional<T> read()
    {
        if (remaining() < qsizetype(sizeof(T)))
            return std::nullopt;
        const T value = qFromLittleEndian<T>(m_bytes.constData() + m_position);
        m_position += sizeof(T);
        return value;
    }

    bool skipMagic()
    {
        if (remaining() < qsizetype(sizeof(Magic))
            || std::memcmp(m_bytes.constData() + m_position, Magic, sizeof(Magic)) != 0)
            return false;
        m_position += sizeof(Magic);
        return true;
    }

    std::optional<QString> readUtf16(quint32 units)
    {
        if (quint64(units) * 2 > quint64(remaining()))
            return std::nullopt;
        QString text(qsizetype(units), Qt::Uninitialized);
        for (quint32 i = 0; i < units; ++i)
            text[i] = QChar(*read<quint16>());
        return text;
    }

private:
    const QByteArray &m_bytes;
    qsizetype m_position = 0;
};

bool isWellFormedUtf16(const QString &text)
{
    for (qsizetype i = 0; i < text.size(); ++i) {
        const QChar c = text.at(i);
        if (c.isHighSurrogate()) {
            if (i + 1 >= text.size() || !text.at(i + 1).isLowSurrogate())
                return false;
            ++i;
        } else if (c.isLowSurrogate()) {
            return false;
        }
    }
    return true;
}

} // namespace

// Sized once and written in place: the payload of a large copy is megabytes.
QByteArray encodeFieldPayload(const QList<FieldRef> &fields)
{
    qsizetype size = HeaderSize;
    for (const FieldRef &field : fields)
        size += MinRecordSize + field.key.size() * qsizetype(sizeof(quint16));
    QByteArray bytes(size, Qt::Uninitialized);
    char *out = bytes.data();
    auto put = [&out](auto value) {
        qToLittleEndian(value, out);
        out += sizeof(value);
    };
    std::memcpy(out, Magic, sizeof(Magic));
    out += sizeof(Magic);
    put(quint16(Version));
    put(quint32(fields.size()));
    for (const FieldRef &field : fields) {
        put(qint32(field.id));
        put(quint32(field.key.size()));
        qToLittleEndian<quint16>(field.key.utf16(), field.key.size(), out);
        out += field.key.size() * qsizetype(sizeof(quint16));
    }
    return bytes;
}

std::optional<QList<FieldRef>> decodeFieldPayload(const QByteArray &bytes)
{
    Reader reader(bytes);
    if (!reader.skipMagic() || reader.read<quint16>() != Version)
        return std::nullopt;
    const std::optional<quint32> count = reader.read<quint32>();
    if (!count || quint64(*count) * MinRecordSize > quint64(reader.remaining()))
        return std::nullopt;

    QList<FieldRef> fields;
    fields.reserve(qsizetype(*count));
    for (quint32 i = 0; i < *count; ++i) {
        const std::optional<qint32> id = reader.read<qint32>();
        const std::optional<quint32> length = reader.read<quint32>();
        if (!id || !length)
            return std::nullopt;
        std::optional<QString> key = reader.readUtf16(*length);
        if (!key || !isWellFormedUtf16(*key))
            return std::nullopt;
        fields.append(FieldRef{*id, std::move(*key)});
    }
    if (reader.remaining() != 0)
        return std::nullopt;
    return fields;
}

QString csvCell(const QString &text)
{
    static const QString Quote = QStringLiteral("\"");
    bool needsQuotes = !text.isEmpty() && (text.front().isSpace() || text.back().isSpace());
    for (qsizetype i = 0; i < text.size() && !needsQuotes; ++i) {
        const char16_t c = text.at(i).unicode();
        needsQuotes = c == u',' || c == u'"' || c == u'\n' || c == u'\r';
    }
    if (!needsQuotes)
        return text;
    QString quoted = text;
    quoted.replace(Quote, Quote + Quote);
    return Quote + quoted + Quote;
}

} // namespace PickerCtl
