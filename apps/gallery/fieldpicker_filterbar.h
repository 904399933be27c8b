#pragma once

#include <PickerCtl/FieldCatalog.h>

#include <QPointer>
#include <QWidget>

class QCheckBox;
class QComboBox;
class QLineEdit;

namespace PickerCtl {
class XFieldPicker;
}

/// The filters a host offers over a field browser: a search line for NameFilter (applied as the
/// user types), technology, field type and owner drop-downs and a busy-hour check box.
class FieldPickerFilterBar : public QWidget
{
public:
    FieldPickerFilterBar(const PickerCtl::FieldCatalogPtr &catalog, const QString &appName,
                         QWidget *parent = nullptr);
    /// The browser the filters apply to; the current values are applied to it at once.
    void bind(PickerCtl::XFieldPicker *picker);

private:
    void applyAll();
    QString techFilter() const;
    QString fieldTypeFilter() const;
    QString ownerFilter() const;

    PickerCtl::FieldCatalogPtr m_catalog;
    QString m_appName;
    QLineEdit *m_name = nullptr;
    QComboBox *m_tech = nullptr;
    QComboBox *m_fieldType = nullptr;
    QComboBox *m_owner = nullptr;
    QCheckBox *m_busyHour = nullptr;
    QPointer<PickerCtl::XFieldPicker> m_picker;
};
