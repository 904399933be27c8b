#pragma once

#include <PickerCtl/OwnerPicker.h>

namespace PickerCtl {

/// An owner picker for tests: "picks" a preset user (or cancels when it has none) and records
/// the title and label it was shown with.
class PICKERCTL_EXPORT ScriptedOwnerPicker : public OwnerPicker
{
public:
    explicit ScriptedOwnerPicker(CurrentUserPtr choice = nullptr);
    ~ScriptedOwnerPicker() override;

    bool PickUser(CurrentUserPtr &picked, const QString &title, const QString &label,
                  qint32 reserved = 0) override;

    void setChoice(CurrentUserPtr choice) { m_choice = std::move(choice); }
    int callCount() const { return m_calls; }
    QString lastTitle() const { return m_lastTitle; }
    QString lastLabel() const { return m_lastLabel; }

private:
    CurrentUserPtr m_choice;
    int m_calls = 0;
    QString m_lastTitle;
    QString m_lastLabel;
};

} // namespace PickerCtl
