#include <PickerCtl/SettingsPropertyStore.h>

#include <PickerCtl/CatalogError.h>

#include <QSettings>

namespace PickerCtl {

namespace {
const QChar kGroupSeparator = QLatin1Char('/');
const QString kNotSaved = QStringLiteral("The setting \"%1\" could not be saved to \"%2\": %3");
const QString kAccessError = QStringLiteral("the file cannot be written. The file was left as it was.");
const QString kFormatError = QStringLiteral("the file is damaged. The file was left as it was.");
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
    recoverFromFailure();
    const QString at = path(key);
    const Previous previous{m_settings->contains(at), m_settings->value(at)};
    m_settings->setValue(at, value);
    save(key, at, previous);
}

bool SettingsPropertyStore::Contains(const QString &key) const
{
    return !key.isEmpty() && m_settings->contains(path(key));
}

void SettingsPropertyStore::Remove(const QString &key)
{
    if (key.isEmpty())
        return;
    recoverFromFailure();
    const QString at = path(key);
    const Previous previous{m_settings->contains(at), m_settings->value(at)};
    if (!previous.present)
        return;
    m_settings->remove(at);
    save(key, at, previous);
}

// QSettings writes a new file beside the old one and renames it (atomic sync), so a failed write
// leaves the old file whole. The change is taken back, so the store goes on answering what the
// file holds.
void SettingsPropertyStore::save(const QString &key, const QString &at, const Previous &previous)
{
    m_settings->sync();
    const QSettings::Status status = m_settings->status();
    if (status == QSettings::NoError)
        return;
    if (previous.present)
        m_settings->setValue(at, previous.value);
    else
        m_settings->remove(at);
    throw CatalogError(kNotSaved.arg(key, m_settings->fileName(),
                                     status == QSettings::FormatError ? kFormatError : kAccessError));
}

// QSettings keeps its first error for good: after a failure a fresh one reads the file again, so
// that saving works once the file can be written again.
void SettingsPropertyStore::recoverFromFailure()
{
    if (m_settings->status() != QSettings::NoError)
        m_settings = std::make_unique<QSettings>(m_settings->fileName(), m_settings->format());
}

} // namespace PickerCtl
