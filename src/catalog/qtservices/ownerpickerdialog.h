#pragma once

#include "catalog/core/ownerchoices.h"

#include <PickerCtl/OwnerPicker.h>
#include <PickerCtl/pickerctl_export.h>

#include <QDialog>

class QLabel;
class QListWidget;
class QPushButton;

namespace PickerCtl {

/// The modal list of users behind the default owner picker.
class PICKERCTL_AUTOTEST_EXPORT OwnerPickerDialog : public QDialog
{
public:
    OwnerPickerDialog(const QList<OwnerChoice> &choices, const QString &title, const QString &label,
                      QWidget *parent = nullptr);

    /// Marks the line at that position as chosen (-1: none).
    void setCurrentChoice(qsizetype index);
    /// The user of the chosen line, or null.
    CurrentUserPtr chosenUser() const;

private:
    QList<OwnerChoice> m_choices;
    QLabel *m_lblOwner = nullptr;
    QListWidget *m_lstUsers = nullptr;
    QPushButton *m_cmdOK = nullptr;
};

/// The default owner picker: the catalogue's users in OwnerPickerDialog.
class QtOwnerPicker final : public OwnerPicker
{
public:
    bool PickUser(CurrentUserPtr &picked, const QString &title, const QString &label,
                  qint32 reserved = 0) override;
};

} // namespace PickerCtl
