#pragma once

#include <PickerCtl/PropertyStore.h>

#include <QString>
#include <memory>

class QSettings;

namespace PickerCtl {

/**
 * A properties store kept in the application's QSettings (organisation and application name of
 * QCoreApplication), optionally under a group, so column layouts and user settings survive a restart.
 * Keys are used as they are; QSettings treats "/" in a key as a sub-group.
 */
class PICKERCTL_EXPORT SettingsPropertyStore : public PropertyStore
{
public:
    explicit SettingsPropertyStore(const QString &group = QString());
    /// Uses the given settings (for a host with its own settings file); the store takes ownership.
    SettingsPropertyStore(std::unique_ptr<QSettings> settings, const QString &group);
    ~SettingsPropertyStore() override;

    QVariant Item(const QString &key) const override;
    void SetItem(const QString &key, const QVariant &value) override;
    bool Contains(const QString &key) const override;
    void Remove(const QString &key) override;

private:
    QString path(const QString &key) const;

    std::unique_ptr<QSettings> m_settings;
    QString m_group;
};

} // namespace PickerCtl
