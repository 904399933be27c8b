#pragma once

#include <PickerCtl/pickerctl_export.h>

#include <QHash>
#include <QMetaType>
#include <QString>
#include <QVariant>
#include <optional>

class QSettings;

namespace PickerCtl {

/**
 * The host's store of a control's design-time properties. Keys are exact (case-sensitive).
 *
 * ReadProperty() answers the stored value, or the default when nothing is stored. WriteProperty()
 * stores a value unless it equals its default; a value equal to its default removes any value stored
 * earlier, so a bag never holds a default. Equality compares the value converted to the default's
 * type (see tryConvert), so a float 150.2362f equals a default given as that float or as its text.
 *
 * Subclasses provide the storage primitives only.
 */
class PICKERCTL_EXPORT PropertyBag
{
public:
    virtual ~PropertyBag();

    QVariant ReadProperty(const QString &key, const QVariant &defaultValue = QVariant());
    void WriteProperty(const QString &key, const QVariant &value,
                       const QVariant &defaultValue = QVariant());

    virtual bool contains(const QString &key) const = 0;
    virtual QVariant storedValue(const QString &key) const = 0;
    virtual QStringList keys() const = 0;

protected:
    virtual void store(const QString &key, const QVariant &value) = 0;
    virtual void remove(const QString &key) = 0;
};

/// A bag in memory, for hosts without their own store and for tests.
class PICKERCTL_EXPORT MemoryPropertyBag : public PropertyBag
{
public:
    bool contains(const QString &key) const override;
    QVariant storedValue(const QString &key) const override;
    QStringList keys() const override;
    /// Puts a raw value in, bypassing the default rule (restoring a saved bag, tests).
    void setStoredValue(const QString &key, const QVariant &value);

protected:
    void store(const QString &key, const QVariant &value) override;
    void remove(const QString &key) override;

private:
    QHash<QString, QVariant> m_values;
};

/**
 * A bag in one group of a QSettings (which the caller owns and keeps alive). Fonts are stored in
 * their QFont::toString() form, colours as "#rrggbb" ("#aarrggbb" when not opaque) and floats as
 * nine-digit text, so that an INI file stays readable; tryConvert turns all three back exactly.
 */
class PICKERCTL_EXPORT SettingsPropertyBag : public PropertyBag
{
public:
    SettingsPropertyBag(QSettings &settings, const QString &group);

    bool contains(const QString &key) const override;
    QVariant storedValue(const QString &key) const override;
    QStringList keys() const override;

protected:
    void store(const QString &key, const QVariant &value) override;
    void remove(const QString &key) override;

private:
    QString path(const QString &key) const;

    QSettings &m_settings;
    QString m_group;
};

/**
 * Converts a stored value to a property's type. Supported targets and accepted sources:
 * - int (32-bit; enumerations and OLE colours): whole numbers in range, whole-valued reals, bools,
 *   decimal text, and a QColor or "#rrggbb" text (as its OLE colour 0x00BBGGRR);
 * - bool: bools, numbers (non-zero is true), the texts "true"/"false"/"1"/"0"/"-1" in any case;
 * - float and double: numbers and C-locale decimal text; NaN and infinities are refused, and so
 *   is a value that would round to an infinite float (one that rounds to FLT_MAX is FLT_MAX);
 * - QString from a float: nine significant digits, which read back as exactly that float;
 * - QString: text, numbers, bools, a QFont (its toString() form) and a QColor (its name);
 * - QFont: a QFont or its QFont::toString() text;
 * - QColor: a QColor, "#rrggbb"/"#aarrggbb" or a colour name, or an OLE colour number (system
 *   colours 0x800000nn map to the application palette).
 * Returns false (and leaves out untouched) when the value cannot be converted, so that a reader
 * skips it and keeps its current value.
 */
PICKERCTL_EXPORT bool tryConvert(const QVariant &value, QMetaType type, QVariant &out);

/// True when value, converted to the default's type, equals the default.
PICKERCTL_EXPORT bool equalsDefault(const QVariant &value, const QVariant &defaultValue);

/// The OLE colour number (0x00BBGGRR) of a colour, and back (see tryConvert for system colours).
PICKERCTL_EXPORT qint32 toOleColor(const QColor &color);
PICKERCTL_EXPORT QColor fromOleColor(qint32 oleColor);

/**
 * Reads key with default def and converts it to T. Answers std::nullopt when the stored value
 * cannot be converted, so the caller skips that property.
 */
template<class T>
std::optional<T> readAs(PropertyBag &bag, const QString &key, const T &def)
{
    QVariant converted;
    if (!tryConvert(bag.ReadProperty(key, QVariant::fromValue(def)), QMetaType::fromType<T>(),
                    converted))
        return std::nullopt;
    return converted.value<T>();
}

} // namespace PickerCtl
