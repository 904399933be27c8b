#pragma once

#include <QString>

#include <optional>

namespace PickerCtl::fieldpicker {

/// "UDC's" in the editor of user-defined calculations, "Fields" in every other editor.
QString kindWord(const QString &editorName);

/// The caption over the list: "Available " and the kind word, with the category's caption and a
/// blank in between when a category is shown.
QString listHeaderCaption(const QString &editorName, const std::optional<QString> &categoryCaption);

} // namespace PickerCtl::fieldpicker
