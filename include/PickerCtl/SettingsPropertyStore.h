#pragma once

#include <PickerCtl/PropertyStore.h>

#include <QString>
#include <QVariant>
#include <memory>

class QSettings;

namespace PickerCtl {

/**
 * A properties store kept in the application's QSettings (organisation and application name of
 * QCoreApplication), optionally under a group, so column layouts and user settings survive a restart.
 * Keys are used as they are; QSettings treats "/" in a key as a sub-group.
 *
 * SetItem and Remove write the settings file at once. When it cannot be written (an unwritable
 * place, a damaged file) they throw CatalogError naming the file: the file keeps its previous
 * content whole and the store answers as before the call.
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
    struct Previous
    {
        bool present = false;
        QVariant value;
    };

    QString path(const QString &key) const;
    void save(const QString &key, const QString &at, const Previous &previous);
    void recoverFromFailure();

    std::unique_ptr<QSettings> m_settings;
    QString m_group;
};

} // namespace PickerCtl
