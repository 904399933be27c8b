#pragma once

#include <QString>
#include <QStringView>

#include <functional>
#include <string_view>

namespace PickerCtl {

inline std::u16string_view textView(QStringView text)
{
    return {reinterpret_cast<const char16_t *>(text.data()), size_t(text.size())};
}

/// Hashes UTF-16 text with the standard library's string hash. QHash's seeded string hash shows
/// up as the largest single cost when a catalogue of a million fields is built, so the catalogue's
/// own look-up tables hash texts with this one.
struct TextHash
{
    using is_transparent = void;
    size_t operator()(std::u16string_view text) const noexcept { return std::hash<std::u16string_view>()(text); }
    size_t operator()(QStringView text) const noexcept { return (*this)(textView(text)); }
    size_t operator()(const QString &text) const noexcept { return (*this)(textView(text)); }
};

} // namespace PickerCtl
