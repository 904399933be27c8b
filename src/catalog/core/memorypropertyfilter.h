#pragma once

#include <PickerCtl/PropertyFilter.h>

#include <QHash>
#include <QStringList>

namespace PickerCtl {

/// The property filter of the in-memory catalogue: enumeration lists addressed by the title of
/// the list-view properties. An unknown title has no values.
class MemoryPropertyFilter final : public PropertyFilter
{
public:
    QString ValueNames(const std::shared_ptr<ListViewProperties> &listProperties,
                       const QString &appName) const override;
    QString ValueCodes(const std::shared_ptr<ListViewProperties> &listProperties,
                       const QString &appName) const override;

    void addList(const QString &title, const QStringList &names, const QStringList &codes);

private:
    struct EnumList
    {
        QString names;
        QString codes;
    };
    EnumList listFor(const std::shared_ptr<ListViewProperties> &listProperties) const;

    QHash<QString, EnumList> m_lists;
};

} // namespace PickerCtl
