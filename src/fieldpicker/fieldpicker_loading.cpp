#include "fieldpicker/fieldpicker_p.h"

#include "fieldpicker/categorytreemodel.h"
#include "fieldpicker/fieldpicker_header.h"
#include "fieldpicker/fieldpicker_icons.h"
#include "fieldpicker/treeloading.h"

#include <PickerCtl/AppServices.h>
#include <PickerCtl/CatalogError.h>
#include <PickerCtl/ListStyleManager.h>

#include <QLabel>
#include <QScopedValueRollback>
#include <QTreeView>

#include <optional>

namespace PickerCtl {

using fieldpicker::CategoryTreeModel;

using fieldpicker::displayName;

namespace {

constexpr auto EmptyViewText =
    QT_TRANSLATE_NOOP("PickerCtl::XFieldPicker", "There are no fields/expressions to show in this view.");
constexpr auto FullRowSelectionSetting = "Full Row Selection";

} // namespace

// --- Loading ---------------------------------------------------------------------------------------

bool XFieldPicker::Load(const QString &sAppNameA, const QString &sCategoryNameA,
                        const QString &sEditorNameA)
{
    const bool done = d->runGuarded("loading", [&] { d->load(sAppNameA, sCategoryNameA, sEditorNameA); });
    d->dataValid = done;
    if (!done) {
        // The tree may hold half a catalogue; the next Load of the application builds it anew.
        d->appName.clear();
    }
    return done;
}

void XFieldPicker::Private::load(const QString &appNameA, const QString &categoryNameA,
                                 const QString &editorNameA)
{
    WaitCursorGuard wait;
    editorName = editorNameA;
    stl->setEmptyText(XFieldPicker::tr(EmptyViewText));
    q->SetStyleManager();
    q->SetClipboardFormat(appNameA, editorNameA);

    const FieldCatalogPtr catalog = FieldCatalog::instance();
    const CategoryTreePtr tree = design.singleBranch == tplNormal
                                     ? catalog->GetCategoryTree(appNameA)
                                     : fieldpicker::singleBranchTree(*catalog, design.singleBranch,
                                                                     appNameA, categoryNameA);

    QString keyToShow;
    {
        // Only a new application rebuilds the tree, in one model reset.
        std::optional<CategoryTreeModel::Batch> rebuild;
        if (appNameA != appName || !treeHoldsApp) {
            rebuild.emplace(*treeModel);
            q->ClearAll();
            appName = appNameA;
            // Without a tree the root stands alone, and the next Load asks the catalogue again.
            treeHoldsApp = tree != nullptr;
            if (!treeHoldsApp)
                qWarning("XFieldPicker: the catalogue gave no category tree to show for \"%s\"; only the "
                         "root is shown",
                         qPrintable(appNameA));
            fieldpicker::buildTreeNodes(*treeModel, tree, q->RootLabel(), design.rootLbl);
        }
        view.setCurrentCategory(catalog->GetCategory(appName, categoryNameA));
        keyToShow = keyToShowAfterLoad();
    }
    // A category that the tree does not hold (another branch, an emptied tree) is shown as an
    // unknown one: by the node the load would show without a category.
    QModelIndex node;
    if (const FieldCategoryPtr &current = view.currentCategory())
        node = treeModel->indexForKey(current->Key());
    if (!node.isValid())
        node = treeModel->indexForKey(keyToShow);
    selectNode(node);
    applyFullRowSetting();
}

// With several nodes: sort, then show the first node added under the root; else the root itself.
QString XFieldPicker::Private::keyToShowAfterLoad()
{
    if (treeModel->nodeCount() > 1) {
        treeModel->sortNodesWithSeveralChildren();
        return treeModel->keyAt(1);
    }
    return q->RootLabel();
}

void XFieldPicker::Private::applyFullRowSetting()
{
    const PropertyStorePtr settings = FieldCatalog::instance()->GetProperties();
    if (settings)
        stl->setFullRowSelect(settings->Item(QLatin1String(FullRowSelectionSetting)).toBool());
}

// --- Selecting a category node ---------------------------------------------------------------------

void XFieldPicker::Private::selectNode(const QModelIndex &node)
{
    {
        const QScopedValueRollback<bool> selecting(selectingNode, true);
        if (node.isValid()) {
            tvw->setCurrentIndex(node);
            tvw->expand(node);
            tvw->scrollTo(node);
        } else {
            tvw->selectionModel()->clear();
        }
    }
    view.setCurrentCategory(treeModel->tag(node));
    if (design.templateView != tplTreeOnly)
        refreshView();
    Q_EMIT q->CategoryClick(view.currentCategory());
}

void XFieldPicker::Private::onTreeCurrentChanged(const QModelIndex &current)
{
    if (selectingNode || !current.isValid())
        return;
    if (treePressed)
        nodeSelectedByPress = current;
    runGuarded("selecting a category", [&] { selectNode(current); });
}

// A click on the node that is current already selects it again (refilling the list); a click
// that made its node current has selected it on the press.
void XFieldPicker::Private::onTreeClicked(const QModelIndex &node)
{
    const bool selectedByPress = nodeSelectedByPress.isValid() && nodeSelectedByPress == node;
    nodeSelectedByPress = QPersistentModelIndex();
    if (node.isValid() && !selectedByPress)
        runGuarded("selecting a category", [&] { selectNode(node); });
    raiseStateChange();
}

QModelIndex XFieldPicker::Private::selectedNode() const
{
    const QModelIndexList selected = tvw->selectionModel()->selectedIndexes();
    return selected.isEmpty() ? QModelIndex() : selected.first();
}

// --- Filling the list --------------------------------------------------------------------------------

bool XFieldPicker::Private::showsApplicationWideList() const
{
    return view.showsApplicationWideList(selectedNode().isValid());
}

void XFieldPicker::Private::fillList()
{
    WaitCursorGuard wait;
    const FieldsPtr result = view.fill(*FieldCatalog::instance(), appName, design.showAll,
                                       selectedNode().isValid());
    stl->setItems(result);
    stl->setShowEmptyText(result->isEmpty());
}

void XFieldPicker::Private::setHeader()
{
    std::optional<QString> categoryCaption;
    if (view.currentCategory() && selectedNode().isValid())
        categoryCaption = view.currentCategory()->Caption();
    const QString caption = fieldpicker::listHeaderCaption(editorName, categoryCaption);
    lblHeaderRight->setText(caption);
    lblHeaderRight->setToolTip(caption);
}

void XFieldPicker::Private::refreshView()
{
    WaitCursorGuard wait;
    fillList();
    setHeader();
}

void XFieldPicker::Private::refreshOrShowEmpty(const char *what)
{
    if (runGuarded(what, [this] { refreshView(); }))
        return;
    // What the list showed may no longer be in the catalogue; an empty list says so.
    stl->setItems(Fields::create());
    stl->setShowEmptyText(true);
}

// Every change of the catalogue may have renamed, moved or re-owned fields of the last fill; only a
// change of the current category's entity rebuilds the list.
void XFieldPicker::Private::onFieldsChange(qint32 ordEntity)
{
    view.fieldsChanged();
    bool concernsView = false;
    runGuarded("reading the entity of the current category", [&] {
        const FieldCategoryPtr &current = view.currentCategory();
        concernsView = current && current->EntityId() == ordEntity;
    });
    if (concernsView)
        refreshOrShowEmpty("rebuilding the list after a catalogue change");
}

// --- Clearing and re-running -----------------------------------------------------------------------

void XFieldPicker::ClearAll()
{
    d->treeModel->clear();
    d->stl->setItems(Fields::create());
    d->view.setCurrentCategory(nullptr);
}

bool XFieldPicker::Refresh()
{
    return d->runGuarded("refreshing", [this] {
        WaitCursorGuard wait;
        d->view.fieldsChanged();
        // The catalogue-wide list is fetched anew by the fill itself; a category re-reads its fields.
        if (!d->showsApplicationWideList())
            d->view.currentCategory()->Reload();
        d->refreshView();
    });
}

void XFieldPicker::Reset()
{
    d->stl->Reset();
}

void XFieldPicker::SetStyleManager()
{
    const auto manager = std::make_shared<ListStyleManager>();
    d->stl->setRowColorProvider(manager);
    d->stl->setFontProvider(manager);
    if (!d->stl->setIconProvider(manager))
        d->stl->setIconProvider(nullptr);
}

// --- The shown fields ----------------------------------------------------------------------------

FieldsPtr XFieldPicker::Fields() const
{
    return d->stl->Items();
}

void XFieldPicker::setFields(const FieldsPtr &flds)
{
    d->stl->setItems(flds);
    d->stl->setShowEmptyText(d->stl->Count() == 0);
}

void XFieldPicker::AppendItems(const FieldsPtr &flds)
{
    if (!flds)
        return;
    d->stl->AppendItems(flds);
    if (d->stl->Count() > 0)
        d->stl->setShowEmptyText(false);
}

void XFieldPicker::AppendItem(const FieldPtr &fld)
{
    if (!fld)
        return;
    d->stl->AppendItem(fld);
    d->stl->setShowEmptyText(false);
}

FieldPtr XFieldPicker::FocusItem() const
{
    return d->stl->FocusItem();
}

// --- The current category ------------------------------------------------------------------------

QString XFieldPicker::SelectedCategory() const
{
    const FieldCategoryPtr &current = d->view.currentCategory();
    return current ? displayName(*current) : QString();
}

void XFieldPicker::setSelectedCategory(const QString &name)
{
    d->runGuarded("selecting a category by name", [&] {
        d->view.setCurrentCategory(FieldCatalog::instance()->GetCategory(d->appName, name));
        if (const FieldCategoryPtr current = d->view.currentCategory()) {
            const QModelIndex node = d->treeModel->indexForKey(current->Key());
            if (node.isValid())
                d->selectNode(node);
        }
        // A name that finds no category falls back to the node that is selected already.
        d->selectNode(d->selectedNode());
    });
}

} // namespace PickerCtl
