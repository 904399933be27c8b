#include <PickerCtl/testing/ScriptedOwnerPicker.h>

namespace PickerCtl {

ScriptedOwnerPicker::ScriptedOwnerPicker(CurrentUserPtr choice)
    : m_choice(std::move(choice))
{
}

ScriptedOwnerPicker::~ScriptedOwnerPicker() = default;

bool ScriptedOwnerPicker::PickUser(CurrentUserPtr &picked, const QString &title, const QString &label,
                                   qint32 /*reserved*/)
{
    ++m_calls;
    m_lastTitle = title;
    m_lastLabel = label;
    if (!m_choice)
        return false;
    picked = m_choice;
    return true;
}

} // namespace PickerCtl
