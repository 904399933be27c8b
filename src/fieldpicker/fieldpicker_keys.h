#pragma once

// Keys under which the field browser keeps its design-time properties in the host's bag; a
// changed property is reported to the host under the same key. Several keys deliberately differ
// from the property names (RootLbl, AllowContextMenu, ShowEntityFld).
namespace PickerCtl::fieldpicker::keys {

inline constexpr auto KeyTemplateView = "TemplateView";
inline constexpr auto KeyCaptionVisible = "CaptionVisible";
inline constexpr auto KeyBackColor = "BackColor";
inline constexpr auto KeyForeColor = "ForeColor";
inline constexpr auto KeyFont = "Font";
inline constexpr auto KeyEnabled = "Enabled";
inline constexpr auto KeyIndentation = "Indentation";
inline constexpr auto KeyFullRowSelect = "FullRowSelect";
inline constexpr auto KeySplitterWidth = "SplitterWidth";
inline constexpr auto KeySplitterLeft = "SplitterLeft";
inline constexpr auto KeyHideSelection = "HideSelection";
inline constexpr auto KeyUseForBusyHour = "UseForBusyHour";
inline constexpr auto KeyMultiSelect = "MultiSelect";
inline constexpr auto KeyCaption = "Caption";
inline constexpr auto KeyContextMenu = "ContextMenu";
inline constexpr auto KeyAllowDragDrop = "AllowDragDrop";
inline constexpr auto KeyAllowOpenMenu = "AllowOpenMenu";
inline constexpr auto KeyOpenMenuCaption = "OpenMenuCaption";
inline constexpr auto KeyRootLabel = "RootLabel";
inline constexpr auto KeyShowEntityField = "ShowEntityField";
inline constexpr auto KeyShowAll = "ShowAll";

} // namespace PickerCtl::fieldpicker::keys
