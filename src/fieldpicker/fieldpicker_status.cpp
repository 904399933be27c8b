#include "fieldpicker/fieldpicker_p.h"

#include <QApplication>
#include <QTreeView>

namespace PickerCtl {

namespace {

constexpr auto HierarchyIncompleteStatus =
    QT_TRANSLATE_NOOP("PickerCtl::XFieldPicker", "Hierarchy incomplete (Load failed/cancelled).");

// The active child of the surface: the focused widget, or the child of the surface that holds it.
bool isActiveChild(const QWidget *surface, const QWidget *child)
{
    const QWidget *focus = QApplication::focusWidget();
    while (focus && focus != surface) {
        if (focus == child)
            return true;
        focus = focus->parentWidget();
    }
    return false;
}

} // namespace

// The properties store belongs to the application; a store that fails keeps the column layout as it is.
void XFieldPicker::LoadProperties()
{
    d->runGuarded("reading the column layout", [this] { d->stl->LoadProperties(); });
}

void XFieldPicker::SaveProperties()
{
    d->runGuarded("saving the column layout", [this] { d->stl->SaveProperties(); });
}

void XFieldPicker::CustomizeColumnSort()
{
    d->stl->CustomizeColumnSort();
}

void XFieldPicker::CustomizeColumns()
{
    d->stl->CustomizeColumns();
}

void XFieldPicker::AutoSizeColumns()
{
    d->stl->AutoSizeColumns();
}

void XFieldPicker::ClearHeaderIcon()
{
    d->stl->ClearHeaderIcon();
}

bool XFieldPicker::IsDataValid() const
{
    return d->dataValid;
}

bool XFieldPicker::IsTreeViewActive() const
{
    return isActiveChild(this, d->tvw);
}

bool XFieldPicker::IsListViewActive() const
{
    return isActiveChild(this, d->stl);
}

bool XFieldPicker::IsSelectionEmpty() const
{
    return SelectionCount() == 0;
}

bool XFieldPicker::IsAtRoot() const
{
    return !d->view.currentCategory();
}

QString XFieldPicker::GetStatus() const
{
    if (IsDataValid())
        return d->stl->StatusText();
    return tr(HierarchyIncompleteStatus);
}

} // namespace PickerCtl
