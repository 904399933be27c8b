#include "fieldpicker/fieldpicker_p.h"

#include "fieldpicker/categorytreemodel.h"
#include "fieldpicker/fieldpicker_keys.h"
#include "fieldpicker/treeloading.h"

#include <PickerCtl/AppServices.h>

// The filter values are stored as given and handed, untouched, to every field of the list. A
// changed value refills the list at once; the same value again does nothing at all.
namespace PickerCtl {

using fieldpicker::FieldFilterValues;

namespace {

// An empty RCV form and the scenario form share one key of the registry.
constexpr auto ScenarioDataForm = "Scenario Data";
constexpr auto DefaultOnlyFormKey = "DefaultOnly";

QString rcvFormKey(const QString &form)
{
    if (form.isEmpty() || form == QLatin1String(ScenarioDataForm))
        return QLatin1String(DefaultOnlyFormKey);
    return form;
}

} // namespace

void XFieldPicker::Private::setFilter(QString FieldFilterValues::*member, const QString &value)
{
    QString &stored = view.filters().*member;
    if (stored == value)
        return;
    stored = value;
    refreshOrShowEmpty("refreshing after a filter change");
}

QString XFieldPicker::TechFilter() const
{
    return d->view.filters().tech;
}

void XFieldPicker::setTechFilter(const QString &filter)
{
    d->setFilter(&FieldFilterValues::tech, filter);
}

QString XFieldPicker::FieldTypeFilter() const
{
    return d->view.filters().fieldType;
}

void XFieldPicker::setFieldTypeFilter(const QString &filter)
{
    d->setFilter(&FieldFilterValues::fieldType, filter);
}

QString XFieldPicker::OwnerFilter() const
{
    return d->view.filters().owner;
}

void XFieldPicker::setOwnerFilter(const QString &filter)
{
    d->setFilter(&FieldFilterValues::owner, filter);
}

QString XFieldPicker::NameFilter() const
{
    return d->view.filters().name;
}

void XFieldPicker::setNameFilter(const QString &filter)
{
    d->setFilter(&FieldFilterValues::name, filter);
}

QString XFieldPicker::RcvFormFilter() const
{
    return d->view.filters().rcvForm;
}

// Moves the view to the category that stands for the form, then refreshes it.
void XFieldPicker::setRcvFormFilter(const QString &filter)
{
    const FieldCategoryPtr current = d->view.currentCategory();
    if (!current)
        return;
    if (filter == current->RcvFormName() && filter == d->view.filters().rcvForm)
        return;
    d->view.filters().rcvForm = filter;
    d->runGuarded("selecting the category of an RCV form", [&] {
        const RcvRegistryPtr registry = FieldCatalog::instance()->GetRcvRegistry();
        const QString categoryName = registry ? registry->CategoryName(rcvFormKey(filter)) : QString();
        if (!categoryName.isEmpty()) {
            const FieldCategoryPtr category = FieldCatalog::instance()->GetCategory(d->appName, categoryName);
            const QModelIndex node = category ? d->treeModel->indexForKey(category->Key()) : QModelIndex();
            if (node.isValid())
                d->selectNode(node);
            else if (category)
                d->view.setCurrentCategory(category);
        }
        d->refreshView();
    });
}

QString XFieldPicker::RcvFieldFilter() const
{
    return d->view.filters().rcvField;
}

// A one-shot command: finds and selects the RCV field; the stored value never changes.
void XFieldPicker::setRcvFieldFilter(const QString &filter)
{
    if (d->view.filters().rcvForm.isEmpty() || filter == d->view.filters().rcvField)
        return;
    d->runGuarded("selecting an RCV field", [&] { d->selectRcvField(filter); });
}

void XFieldPicker::Private::selectRcvField(const QString &fieldName)
{
    const RcvRegistryPtr registry = FieldCatalog::instance()->GetRcvRegistry();
    const FieldPtr field = registry ? registry->FieldFor(view.filters().rcvForm, fieldName) : nullptr;
    if (!field)
        return;
    const FieldCategoryPtr &current = view.currentCategory();
    if (!current || field->CategoryName() != current->Name())
        q->setSelectedCategory(field->CategoryName());
    stl->ClearSelection();
    q->SelectFieldById(field->Id());
    stl->Redraw();
}

bool XFieldPicker::HideSelection() const
{
    return d->stl->HideSelection();
}

void XFieldPicker::setHideSelection(bool on)
{
    d->stl->setHideSelection(on);
    d->notify(fieldpicker::keys::KeyHideSelection);
}

bool XFieldPicker::UseForBusyHour() const
{
    return d->view.filters().useForBusyHour;
}

void XFieldPicker::setUseForBusyHour(bool on)
{
    d->view.filters().useForBusyHour = on;
    if (on && MultiSelect())
        setMultiSelect(false);
    d->notify(fieldpicker::keys::KeyUseForBusyHour);
}

qint32 XFieldPicker::ClusterEntityId() const
{
    const FieldCategoryPtr &cluster = d->view.clusterCategory();
    return cluster ? cluster->EntityId() : 0;
}

// An entity the catalogue does not know leaves the view without a cluster.
void XFieldPicker::setClusterEntityId(qint32 entityId)
{
    d->view.setClusterCategory(nullptr);
    d->runGuarded("finding the cluster entity", [&] {
        const FieldCatalogPtr catalog = FieldCatalog::instance();
        const QString key = catalog->GetEntityKey(entityId);
        const CategoryTreePtr tree = catalog->GetCategoryTree(d->appName);
        const auto nodes = tree ? tree->Nodes() : nullptr;
        d->view.setClusterCategory(nodes && !key.isEmpty() ? nodes->CategoryByKey(key) : nullptr);
    });
    d->refreshOrShowEmpty("refreshing after a cluster change");
}

} // namespace PickerCtl
