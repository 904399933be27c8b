#pragma once

#include <PickerCtl/pickerctl_export.h>

#include <QString>

#include <optional>

namespace PickerCtl::fieldpicker {

/// "UDC's" in the editor of user-defined calculations, "Fields" in every other editor.
PICKERCTL_AUTOTEST_EXPORT
QString kindWord(const QString &editorName);

/// The caption over the list: "Available " and the kind word, with the category's caption and a
/// blank in between when a category is shown.
PICKERCTL_AUTOTEST_EXPORT
QString listHeaderCaption(const QString &editorName, const std::optional<QString> &categoryCaption);

} // namespace PickerCtl::fieldpicker
