#include "exptemplate/exptemplate_p.h"

#include <PickerCtl/FieldCatalog.h>
#include <PickerCtl/ListViewProperties.h>
#include <PickerCtl/XStaticList.h>

#include <QtDebug>

namespace PickerCtl {

namespace {

const QString AvailableStateKey = QStringLiteral("Express Available Properties");
const QString SelectedStateKey = QStringLiteral("Express Selected Properties");

// Column layouts are a convenience: a store that fails keeps the layouts shown and is reported.
template<typename Operation>
void keepingLayouts(const char *what, Operation operation)
{
    try {
        operation();
    } catch (const std::exception &e) {
        qWarning("XExpTemplate: %s failed: %s", what, e.what());
    } catch (...) {
        qWarning("XExpTemplate: %s failed: an exception of unknown type", what);
    }
}

} // namespace

void XExpTemplate::LoadState()
{
    keepingLayouts("loading the column layouts", [this] {
        const PropertyStorePtr store = FieldCatalog::instance()->GetProperties();
        if (!store)
            return;
        // A missing entry hands the layout an empty text, which it refuses, keeping its own.
        d->stlAvailable->ListProperties()->Apply(store->Item(AvailableStateKey).toString());
        d->stlSelected->ListProperties()->Apply(store->Item(SelectedStateKey).toString());
    });
    LoadProperties();
}

void XExpTemplate::SaveState()
{
    SaveProperties();
    keepingLayouts("saving the column layouts", [this] {
        const PropertyStorePtr store = FieldCatalog::instance()->GetProperties();
        if (!store)
            return;
        store->SetItem(AvailableStateKey, d->stlAvailable->ListProperties()->Serialise());
        store->SetItem(SelectedStateKey, d->stlSelected->ListProperties()->Serialise());
    });
}

void XExpTemplate::LoadProperties()
{
    // Each list on its own: a failure in the first leaves the second its chance.
    keepingLayouts("loading the found fields' layout", [this] { d->stlAvailable->LoadProperties(); });
    keepingLayouts("loading the template's layout", [this] { d->stlSelected->LoadProperties(); });
}

void XExpTemplate::SaveProperties()
{
    keepingLayouts("saving the found fields' layout", [this] { d->stlAvailable->SaveProperties(); });
    keepingLayouts("saving the template's layout", [this] { d->stlSelected->SaveProperties(); });
}

} // namespace PickerCtl
