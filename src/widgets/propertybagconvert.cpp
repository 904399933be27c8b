#include <PickerCtl/PropertyBag.h>

#include "catalog/core/variantnumber.h"

#include <QApplication>
#include <QColor>
#include <QFont>
#include <QPalette>

#include <cmath>
#include <limits>

namespace PickerCtl {

namespace {

// OLE colours with this bit set name a system colour by its index in the low byte.
constexpr quint32 SystemColorFlag = 0x80000000u;

// The system colours a form commonly stores, by their index, and the palette role that stands
// for each of them here.
struct SystemColor
{
    quint32 index;
    QPalette::ColorGroup group;
    QPalette::ColorRole role;
};

constexpr SystemColor SystemColors[] = {
    {0x01, QPalette::Active, QPalette::Window},          // desktop
    {0x02, QPalette::Active, QPalette::Highlight},       // active caption
    {0x04, QPalette::Active, QPalette::Window},          // menu
    {0x05, QPalette::Active, QPalette::Base},            // window
    {0x06, QPalette::Active, QPalette::Shadow},          // window frame
    {0x07, QPalette::Active, QPalette::WindowText},      // menu text
    {0x08, QPalette::Active, QPalette::Text},            // window text
    {0x09, QPalette::Active, QPalette::HighlightedText}, // caption text
    {0x0D, QPalette::Active, QPalette::Highlight},       // highlight
    {0x0E, QPalette::Active, QPalette::HighlightedText}, // highlight text
    {0x0F, QPalette::Active, QPalette::Button},          // button face
    {0x10, QPalette::Active, QPalette::Dark},            // button shadow
    {0x11, QPalette::Disabled, QPalette::Text},          // grey text
    {0x12, QPalette::Active, QPalette::ButtonText},      // button text
    {0x14, QPalette::Active, QPalette::Light},           // button highlight
    {0x17, QPalette::Active, QPalette::ToolTipText},     // tooltip text
    {0x18, QPalette::Active, QPalette::ToolTipBase},     // tooltip background
};


bool isText(const QVariant &value)
{
    const int id = value.metaType().id();
    return id == QMetaType::QString || id == QMetaType::QByteArray;
}

QString textOf(const QVariant &value)
{
    return value.metaType().id() == QMetaType::QByteArray ? QString::fromUtf8(value.toByteArray())
                                                          : value.toString();
}

std::optional<double> realOf(const QVariant &value)
{
    double result = 0;
    bool ok = false;
    if (holdsNumber(value)) {
        result = value.toDouble(&ok);
    } else if (isText(value)) {
        result = textOf(value).trimmed().toDouble(&ok);
    } else if (value.metaType().id() == QMetaType::Bool) {
        result = value.toBool() ? 1 : 0;
        ok = true;
    }
    if (!ok || !std::isfinite(result))
        return std::nullopt;
    return result;
}

// A real as a single. Nine significant digits name every float exactly, but the text of FLT_MAX
// (3.40282347e+38) reads back as a double just above it: whatever rounds to a finite float is
// that float. Beyond that is out of range.
std::optional<float> singleOf(const QVariant &value)
{
    const std::optional<double> real = realOf(value);
    if (!real)
        return std::nullopt;
    constexpr double Largest = std::numeric_limits<float>::max();
    // Halfway between FLT_MAX and the next power of two: the first double that rounds to infinity.
    const double roundsToInfinity = std::ldexp(1.0, 128) - std::ldexp(1.0, 103);
    if (std::abs(*real) <= Largest)
        return float(*real);
    if (std::abs(*real) < roundsToInfinity)
        return *real > 0 ? float(Largest) : -float(Largest);
    return std::nullopt;
}

std::optional<qint32> int32Of(const QVariant &value)
{
    if (value.metaType().id() == QMetaType::QColor)
        return toOleColor(value.value<QColor>());
    // A colour a bag keeps as "#rrggbb" reads back as its OLE colour number.
    if (isText(value) && textOf(value).startsWith(QLatin1Char('#'))) {
        const QColor color = QColor::fromString(textOf(value).trimmed());
        return color.isValid() ? std::optional<qint32>(toOleColor(color)) : std::nullopt;
    }
    const std::optional<double> real = realOf(value);
    if (!real || std::trunc(*real) != *real || *real < std::numeric_limits<qint32>::min()
        || *real > std::numeric_limits<qint32>::max())
        return std::nullopt;
    return qint32(*real);
}

std::optional<bool> boolOf(const QVariant &value)
{
    if (value.metaType().id() == QMetaType::Bool)
        return value.toBool();
    if (holdsNumber(value))
        return value.toDouble() != 0;
    if (isText(value)) {
        const QString text = textOf(value).trimmed().toLower();
        if (text == QLatin1String("true") || text == QLatin1String("1")
            || text == QLatin1String("-1"))
            return true;
        if (text == QLatin1String("false") || text == QLatin1String("0"))
            return false;
    }
    return std::nullopt;
}

std::optional<QString> stringOf(const QVariant &value)
{
    switch (value.metaType().id()) {
    case QMetaType::QString:
    case QMetaType::QByteArray:
        return textOf(value);
    case QMetaType::Bool:
        return value.toBool() ? QStringLiteral("true") : QStringLiteral("false");
    case QMetaType::Float:
        return QString::number(double(value.toFloat()), 'g', std::numeric_limits<float>::max_digits10);
    case QMetaType::QFont:
        return value.value<QFont>().toString();
    case QMetaType::QColor: {
        const QColor color = value.value<QColor>();
        return color.name(color.alpha() == 255 ? QColor::HexRgb : QColor::HexArgb);
    }
    default:
        if (holdsNumber(value))
            return value.toString();
        return std::nullopt;
    }
}

std::optional<QFont> fontOf(const QVariant &value)
{
    if (value.metaType().id() == QMetaType::QFont)
        return value.value<QFont>();
    if (!isText(value))
        return std::nullopt;
    const QString text = textOf(value);
    QFont font;
    if (text.trimmed().isEmpty() || !font.fromString(text))
        return std::nullopt;
    return font;
}

std::optional<QColor> colorOf(const QVariant &value)
{
    if (value.metaType().id() == QMetaType::QColor) {
        const QColor color = value.value<QColor>();
        return color.isValid() ? std::optional<QColor>(color) : std::nullopt;
    }
    if (isText(value)) {
        const QString text = textOf(value).trimmed();
        const QColor named = QColor::fromString(text);
        if (named.isValid())
            return named;
    }
    if (const std::optional<qint32> ole = int32Of(value)) {
        const QColor color = fromOleColor(*ole);
        if (color.isValid())
            return color;
    }
    return std::nullopt;
}

} // namespace

qint32 toOleColor(const QColor &color)
{
    const QColor rgb = color.toRgb();
    return qint32(quint32(rgb.red()) | quint32(rgb.green()) << 8 | quint32(rgb.blue()) << 16);
}

QColor fromOleColor(qint32 oleColor)
{
    const quint32 bits = quint32(oleColor);
    if (bits & SystemColorFlag) {
        const quint32 index = bits & ~SystemColorFlag;
        for (const SystemColor &system : SystemColors) {
            if (system.index == index)
                return QApplication::palette().color(system.group, system.role);
        }
        return {};
    }
    if (bits > 0x00FFFFFFu)
        return {};
    return QColor(int(bits & 0xFF), int((bits >> 8) & 0xFF), int((bits >> 16) & 0xFF));
}

bool tryConvert(const QVariant &value, QMetaType type, QVariant &out)
{
    if (!value.isValid())
        return false;
    switch (type.id()) {
    case QMetaType::Int:
        if (const auto converted = int32Of(value)) {
            out = *converted;
            return true;
        }
        return false;
    case QMetaType::Bool:
        if (const auto converted = boolOf(value)) {
            out = *converted;
            return true;
        }
        return false;
    case QMetaType::Float:
        if (const auto single = singleOf(value)) {
            out = *single;
            return true;
        }
        return false;
    case QMetaType::Double:
        if (const auto real = realOf(value)) {
            out = *real;
            return true;
        }
        return false;
    case QMetaType::QString:
        if (const auto converted = stringOf(value)) {
            out = *converted;
            return true;
        }
        return false;
    case QMetaType::QFont:
        if (const auto converted = fontOf(value)) {
            out = QVariant::fromValue(*converted);
            return true;
        }
        return false;
    case QMetaType::QColor:
        if (const auto converted = colorOf(value)) {
            out = QVariant::fromValue(*converted);
            return true;
        }
        return false;
    default:
        if (value.metaType() == type) {
            out = value;
            return true;
        }
        QVariant converted = value;
        if (!converted.convert(type))
            return false;
        out = converted;
        return true;
    }
}

bool equalsDefault(const QVariant &value, const QVariant &defaultValue)
{
    if (!defaultValue.isValid() || !value.isValid())
        return value.isValid() == defaultValue.isValid();
    // Single-precision properties compare as singles, whichever side came as a double.
    if (value.metaType().id() == QMetaType::Float || defaultValue.metaType().id() == QMetaType::Float) {
        QVariant left;
        QVariant right;
        return tryConvert(value, QMetaType::fromType<float>(), left)
               && tryConvert(defaultValue, QMetaType::fromType<float>(), right)
               && left.toFloat() == right.toFloat();
    }
    QVariant converted;
    if (!tryConvert(value, defaultValue.metaType(), converted))
        return false;
    return converted == defaultValue;
}

} // namespace PickerCtl
