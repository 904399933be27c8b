#include "exptemplate/exptemplate_p.h"

#include <PickerCtl/XStaticList.h>

#include <QSet>
#include <QToolButton>

namespace PickerCtl {

void XExpTemplate::Private::add()
{
    const FieldsPtr source = stlAvailable->SelectedItems();
    if (!source)
        return;
    stlSelected->BeginUpdate();
    // One insertion for the whole source: appending field by field would make the views follow
    // 100,000 single-row insertions. Fields already in the template are skipped, so adding never
    // creates a duplicate; a search lists each catalogue field once, so a field repeated within
    // the source is the same object and is told apart by identity, without building its key again.
    FieldsPtr added = Fields::create();
    added->reserve(source->size());
    QSet<const Field *> taken;
    taken.reserve(source->size());
    for (const FieldPtr &field : *source) {
        if (!field || stlSelected->Contains(field->Key()))
            continue;
        if (taken.contains(field.get()))
            continue;
        taken.insert(field.get());
        added->Add(field);
    }
    stlSelected->AppendItems(added);
    stlSelected->SelectItems(source);
    stlSelected->EndUpdate();
    stlSelected->Redraw();
    Q_EMIT q->Changed();
}

void XExpTemplate::Private::remove()
{
    const FieldsPtr source = stlSelected->SelectedItems();
    if (!source)
        return;
    stlSelected->BeginUpdate();
    stlSelected->RemoveItems(source);
    stlAvailable->SelectItems(source);
    stlSelected->EndUpdate();
    Q_EMIT q->Changed();
}

void XExpTemplate::Private::moveUp()
{
    stlSelected->MoveSelectionUp();
    stlSelected->Redraw();
    Q_EMIT q->Changed();
}

void XExpTemplate::Private::moveDown()
{
    stlSelected->MoveSelectionDown();
    stlSelected->Redraw();
    Q_EMIT q->Changed();
}

void XExpTemplate::Private::updateButtons()
{
    cmdAdd->setEnabled(stlAvailable->SelectedCount() >= 1);
    cmdRemove->setEnabled(stlSelected->SelectedCount() >= 1);
    cmdMoveUp->setEnabled(stlSelected->CanMoveUp());
    cmdMoveDown->setEnabled(stlSelected->CanMoveDown());
}

} // namespace PickerCtl
