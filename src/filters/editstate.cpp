#include "filters/editstate.h"

#include <utility>

namespace PickerCtl::Filters {

EditState::EditState(std::function<void()> raiseChanged)
    : m_raiseChanged(std::move(raiseChanged))
{
}

void EditState::setModified(bool modified)
{
    m_modified = modified;
    if (!m_loading && m_raiseChanged)
        m_raiseChanged();
}

EditState::LoadingScope::LoadingScope(EditState &state)
    : m_state(state)
    , m_wasLoading(state.m_loading)
{
    m_state.m_loading = true;
}

EditState::LoadingScope::~LoadingScope()
{
    m_state.m_loading = m_wasLoading;
}

} // namespace PickerCtl::Filters
