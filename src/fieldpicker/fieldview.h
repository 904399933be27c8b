#pragma once

#include <PickerCtl/pickerctl_export.h>

#include "fieldpicker/filterpass.h"

#include <PickerCtl/FieldCategory.h>

namespace PickerCtl {
class FieldCatalog;
}

namespace PickerCtl::fieldpicker {

/// True when a busy-hour view bounded by `cluster` may show the fields of `current`: without a
/// cluster, a current category or busy-hour use every view is inside; otherwise `current` or one
/// of its ancestors must be the cluster's entity.
PICKERCTL_AUTOTEST_EXPORT bool insideCluster(const FieldCategoryPtr &current, const FieldCategoryPtr &cluster, bool useForBusyHour);

/**
 * What the list of the field browser shows: the current category, the filter values, the cluster
 * category that bounds a busy-hour view, and the fields of the last fill before filtering. Knows
 * nothing of widgets; the control hands it the application and the tree's state.
 */
class PICKERCTL_AUTOTEST_EXPORT FieldView
{
public:
    const FieldCategoryPtr &currentCategory() const { return m_current; }
    void setCurrentCategory(FieldCategoryPtr category) { m_current = std::move(category); }

    const FieldFilterValues &filters() const { return m_filters; }
    FieldFilterValues &filters() { return m_filters; }

    const FieldCategoryPtr &clusterCategory() const { return m_cluster; }
    void setClusterCategory(FieldCategoryPtr category) { m_cluster = std::move(category); }

    /// True when the list takes the application-wide source: no current category, no selected
    /// tree node, or a current category outside the cluster.
    bool showsApplicationWideList(bool nodeSelected) const;

    /// Decides the source (the current category's fields, or with showAll every field of the
    /// application), keeps it as the shown fields and returns the fields that pass the filters.
    FieldsPtr fill(FieldCatalog &catalog, const QString &appName, bool showAll, bool nodeSelected);

    /// The source of the last fill (the fields of the view before filtering); never null.
    const FieldsPtr &shownFields() const { return m_shown; }

    /// The catalogue changed fields in place: the next fill looks at the whole source again.
    void fieldsChanged() { m_pass.invalidate(); }

private:
    FieldCategoryPtr m_current;
    FieldCategoryPtr m_cluster;
    FieldFilterValues m_filters;
    FieldsPtr m_shown = Fields::create();
    NarrowingFilterPass m_pass;
};

} // namespace PickerCtl::fieldpicker
