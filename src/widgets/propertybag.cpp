#include <PickerCtl/PropertyBag.h>

#include <QSettings>

namespace PickerCtl {

PropertyBag::~PropertyBag() = default;

QVariant PropertyBag::ReadProperty(const QString &key, const QVariant &defaultValue)
{
    return contains(key) ? storedValue(key) : defaultValue;
}

void PropertyBag::WriteProperty(const QString &key, const QVariant &value,
                                const QVariant &defaultValue)
{
    if (equalsDefault(value, defaultValue)) {
        if (contains(key))
            remove(key);
        return;
    }
    store(key, value);
}

bool MemoryPropertyBag::contains(const QString &key) const
{
    return m_values.contains(key);
}

QVariant MemoryPropertyBag::storedValue(const QString &key) const
{
    return m_values.value(key);
}

QStringList MemoryPropertyBag::keys() const
{
    return m_values.keys();
}

void MemoryPropertyBag::setStoredValue(const QString &key, const QVariant &value)
{
    m_values.insert(key, value);
}

void MemoryPropertyBag::store(const QString &key, const QVariant &value)
{
    m_values.insert(key, value);
}

void MemoryPropertyBag::remove(const QString &key)
{
    m_values.remove(key);
}

SettingsPropertyBag::SettingsPropertyBag(QSettings &settings, const QString &group)
    : m_settings(settings)
    , m_group(group)
{
}

QString SettingsPropertyBag::path(const QString &key) const
{
    return m_group.isEmpty() ? key : m_group + QLatin1Char('/') + key;
}

bool SettingsPropertyBag::contains(const QString &key) const
{
    return m_settings.contains(path(key));
}

QVariant SettingsPropertyBag::storedValue(const QString &key) const
{
    return m_settings.value(path(key));
}

QStringList SettingsPropertyBag::keys() const
{
    m_settings.beginGroup(m_group);
    const QStringList result = m_settings.childKeys();
    m_settings.endGroup();
    return result;
}

void SettingsPropertyBag::store(const QString &key, const QVariant &value)
{
    QVariant text;
    switch (value.metaType().id()) {
    case QMetaType::QFont:
    case QMetaType::QColor:
    case QMetaType::Float: // nine digits, not the seventeen of the single widened to a double
        tryConvert(value, QMetaType::fromType<QString>(), text);
        m_settings.setValue(path(key), text);
        break;
    default:
        m_settings.setValue(path(key), value);
        break;
    }
}

void SettingsPropertyBag::remove(const QString &key)
{
    m_settings.remove(path(key));
}

} // namespace PickerCtl
