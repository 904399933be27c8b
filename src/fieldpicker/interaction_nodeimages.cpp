#include "fieldpicker/interaction_nodeimages.h"

#include "fieldpicker/fieldpicker_icons.h"

namespace PickerCtl::fieldpicker {

namespace {

constexpr auto EntitiesText = "Entities";
constexpr auto GenericText = "Generic";

} // namespace

QString collapsedNodeImage()
{
    return QLatin1String(ImageClosed);
}

std::optional<QString> expandedNodeImage(bool useEntityView, const QString &nodeText, const QString &parentText)
{
    if (useEntityView
        && (nodeText == QLatin1String(EntitiesText) || nodeText == QLatin1String(GenericText)
            || parentText == QLatin1String(GenericText)))
        return std::nullopt;
    return QLatin1String(ImageOpen);
}

} // namespace PickerCtl::fieldpicker
