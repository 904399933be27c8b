#include <PickerCtl/SettingsPropertyStore.h>

#include <QSettings>

namespace PickerCtl {

namespace {
const QChar kGroupSeparator = QLatin1Char('/');
}

SettingsPropertyStore::SettingsPropertyStore(const QString &group)
    : SettingsPropertyStore(std::make_unique<QSettings>(), group)
{
}

SettingsPropertyStore::SettingsPropertyStore(std::unique_ptr<QSettings> settings, const QString &group)
    : m_settings(settings ? std::move(settings) : std::make_unique<QSettings>()), m_group(group)
{
}

SettingsPropertyStore::~SettingsPropertyStore() = default;

QString SettingsPropertyStore::path(const QString &key) const
{
    return m_group.isEmpty() ? key : m_group + kGroupSeparator + key;
}

// An empty key would address the whole group (and Remove would wipe it), so it is never used.
QVariant SettingsPropertyStore::Item(const QString &key) const
{
    if (key.isEmpty())
        return QVariant();
    return m_settings->value(path(key));
}

void SettingsPropertyStore::SetItem(const QString &key, const QVariant &value)
{
    if (key.isEmpty())
        return;
    m_settings->setValue(path(key), value);
}

bool SettingsPropertyStore::Contains(const QString &key) const
{
    return !key.isEmpty() && m_settings->contains(path(key));
}

void SettingsPropertyStore::Remove(const QString &key)
{
    if (key.isEmpty())
        return;
    m_settings->remove(path(key));
}

} // namespace PickerCtl
