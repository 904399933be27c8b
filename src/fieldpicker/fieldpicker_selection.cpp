#include "fieldpicker/fieldpicker_p.h"

#include <PickerCtl/AppServices.h>

// The list keeps the selection; the control forwards to it and adds the catalogue's rules.
namespace PickerCtl {

void XFieldPicker::SelectAll()
{
    d->stl->SelectAll();
}

void XFieldPicker::ClearSelection()
{
    d->stl->ClearSelection();
}

void XFieldPicker::InvertSelection()
{
    d->stl->InvertSelection();
}

FieldsPtr XFieldPicker::Selection() const
{
    FieldsPtr selected = d->stl->SelectedItems();
    return selected ? selected : Fields::create();
}

void XFieldPicker::SelectFieldById(qint32 ord)
{
    d->runGuarded("selecting a field by id", [&] {
        const FieldPtr field = FieldCatalog::instance()->GetField(d->appName, ord, 0);
        if (!field)
            return;
        setSelectedCategory(field->CategoryName());
        const FieldsPtr shown = d->stl->Items();
        if (!shown->isEmpty() && shown->contains(field->Key())) {
            d->stl->SelectItems(Fields::create());
            auto one = Fields::create();
            one->Add(field);
            d->stl->SelectItems(one);
            d->stl->EnsureVisible(field);
        }
    });
}

void XFieldPicker::SelectVisibleFieldById(qint32 ord)
{
    d->runGuarded("selecting a shown field by id", [&] {
        const FieldPtr field = FieldCatalog::instance()->GetField(d->appName, ord, 0);
        if (!field || field->CategoryName() != SelectedCategory())
            return;
        const FieldsPtr shown = d->stl->Items();
        if (!shown->isEmpty() && shown->contains(field->Key())) {
            auto one = Fields::create();
            one->Add(field);
            d->stl->SelectItems(one);
        }
    });
}

QVariant XFieldPicker::SetSelection(const QVariant &v)
{
    FieldsPtr fields;
    if (v.metaType() == QMetaType::fromType<FieldsPtr>()) {
        fields = v.value<FieldsPtr>();
    } else if (v.metaType() == QMetaType::fromType<FieldPtr>()) {
        fields = Fields::create();
        if (const FieldPtr field = v.value<FieldPtr>())
            fields->Add(field);
    }
    // A value of any other kind hands the list nothing, which leaves nothing selected.
    d->stl->SelectItems(fields);
    return fields ? QVariant::fromValue(fields) : QVariant();
}

void XFieldPicker::DeleteSelection(const FieldsPtr &fldsException)
{
    bool deleted = false;
    d->runGuarded("deleting the selection",
                  [&] { deleted = d->actions.deleteSelection(Selection(), fldsException); });
    if (deleted)
        d->raiseStateChange();
}

void XFieldPicker::Copy()
{
    d->runGuarded("copying the selection", [this] {
        const FieldsPtr selection = Selection();
        d->stl->NotifyCopy();
        d->actions.copy(selection);
    });
}

void XFieldPicker::ChangeSelectionOwnership()
{
    d->runGuarded("changing the owner of the selection",
                  [this] { d->actions.changeOwnership(Selection()); });
}

void XFieldPicker::SetClipboardFormat(const QString &sAppNameA, const QString &sEditorNameA)
{
    d->actions.setClipboardFormat(sAppNameA, sEditorNameA);
}

} // namespace PickerCtl
