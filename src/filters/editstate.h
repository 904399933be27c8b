#pragma once

#include <functional>

namespace PickerCtl::Filters {

/**
 * The Modified / Loading pair of a filter editor. Assigning Modified raises Changed every time,
 * also when the value does not change, except while the editor loads a value object: the host
 * must never hear about changes it made itself.
 */
class EditState
{
public:
    explicit EditState(std::function<void()> raiseChanged);

    bool isModified() const { return m_modified; }
    void setModified(bool modified);

    /// Marks the editor as loading for its lifetime; nests, and unwinds on exceptions.
    class LoadingScope
    {
    public:
        explicit LoadingScope(EditState &state);
        ~LoadingScope();
        LoadingScope(const LoadingScope &) = delete;
        LoadingScope &operator=(const LoadingScope &) = delete;

    private:
        EditState &m_state;
        bool m_wasLoading;
    };

private:
    std::function<void()> m_raiseChanged;
    bool m_modified = false;
    bool m_loading = false;
};

} // namespace PickerCtl::Filters
