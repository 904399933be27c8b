#include "fieldpicker/fieldview.h"

#include <PickerCtl/FieldCatalog.h>

namespace PickerCtl::fieldpicker {

bool insideCluster(const FieldCategoryPtr &current, const FieldCategoryPtr &cluster, bool useForBusyHour)
{
    if (!cluster || !current || !useForBusyHour)
        return true;
    const qint32 clusterEntity = cluster->EntityId();
    // A catalogue whose parents loop would walk forever; no real hierarchy is this deep.
    constexpr int MaxDepth = 1 << 16;
    int depth = 0;
    for (FieldCategoryPtr at = current; at && depth < MaxDepth; at = at->Parent(), ++depth) {
        if (at->EntityId() == clusterEntity)
            return true;
    }
    return false;
}

bool FieldView::showsApplicationWideList(bool nodeSelected) const
{
    return !m_current || !nodeSelected || !insideCluster(m_current, m_cluster, m_filters.useForBusyHour);
}

FieldsPtr FieldView::fill(FieldCatalog &catalog, const QString &appName, bool showAll, bool nodeSelected)
{
    FieldsPtr source;
    if (showsApplicationWideList(nodeSelected)) {
        if (!appName.isEmpty() && showAll) {
            if (const CategoryTreePtr tree = catalog.GetCategoryTree(appName))
                source = tree->AllFields(0);
        }
    } else {
        source = m_current->Fields();
    }
    if (!source)
        source = Fields::create();
    m_shown = source;
    return m_pass.run(source, m_filters);
}

} // namespace PickerCtl::fieldpicker
