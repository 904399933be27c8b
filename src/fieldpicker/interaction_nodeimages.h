#pragma once

#include <PickerCtl/pickerctl_export.h>

#include <QString>

#include <optional>

namespace PickerCtl::fieldpicker {

/// The image a category node takes when the user collapses it: always "Closed", also on a node
/// drawn as one that takes no fields ("XClosed", "XOpen").
PICKERCTL_AUTOTEST_EXPORT QString collapsedNodeImage();

/// The image a category node takes when it is expanded: "Open" (never an X image), except in the
/// entity view for the nodes "Entities" and "Generic" and the children of "Generic", which keep
/// theirs (nothing). parentText is empty for a node at the top of the tree.
PICKERCTL_AUTOTEST_EXPORT std::optional<QString> expandedNodeImage(bool useEntityView, const QString &nodeText, const QString &parentText);

} // namespace PickerCtl::fieldpicker
