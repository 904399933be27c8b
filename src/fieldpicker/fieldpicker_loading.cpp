#include "fieldpicker/fieldpicker_p.h"

#include "fieldpicker/categorytreemodel.h"
#include "fieldpicker/fieldpicker_header.h"
#include "fieldpicker/fieldpicker_icons.h"

#include <PickerCtl/AppServices.h>
#include <PickerCtl/CatalogError.h>
#include <PickerCtl/FieldClipboard.h>
#include <PickerCtl/ListStyleManager.h>

#include <QLabel>
#include <QScopedValueRollback>
#include <QSet>
#include <QTreeView>

#include <optional>
#include <vector>

namespace PickerCtl {

using fieldpicker::CategoryTreeModel;

namespace {

constexpr auto EmptyViewText = "There are no fields/expressions to show in this view.";
constexpr auto FullRowSelectionSetting = "Full Row Selection";
// A single branch ends at the built-in system category even when that has a parent.
constexpr auto SystemCategoryName = "SYSTEM";

bool useEntityView()
{
    const auto services = AppServices::instance();
    return services && services->UseEntityView();
}

QString displayName(const FieldCategory &category)
{
    return useEntityView() ? category.Name() : category.FullName();
}

bool isNodeOf(const CategoryNodePtr &node, const FieldCategory &category)
{
    const FieldCategoryPtr held = node ? node->Category() : nullptr;
    return held && held->Key() == category.Key();
}

// The catalogue node of a category: found by its key, except for the nodes that start a branch
// under a fixed label, which are searched for.
CategoryNodePtr nodeOfCategory(const CategoryNodes &nodes, const FieldCategory &category)
{
    CategoryNodePtr node = nodes.Find(category.Key(), QString());
    if (isNodeOf(node, category))
        return node;
    std::vector<CategoryNodePtr> pending;
    if (CategoryNodePtr root = nodes.Root())
        pending.push_back(std::move(root));
    while (!pending.empty()) {
        node = std::move(pending.back());
        pending.pop_back();
        if (isNodeOf(node, category))
            return node;
        for (CategoryNodePtr child = node->FirstChild(); child; child = child->NextSibling())
            pending.push_back(child);
    }
    return nullptr;
}

} // namespace

// --- Loading ---------------------------------------------------------------------------------------

bool XFieldPicker::Load(const QString &sAppNameA, const QString &sCategoryNameA,
                        const QString &sEditorNameA)
{
    const bool done = d->runGuarded([&] { d->load(sAppNameA, sCategoryNameA, sEditorNameA); });
    d->dataValid = done;
    if (!done) {
        // The tree may hold half a catalogue; the next Load of the application builds it anew.
        d->appName.clear();
    }
    return done;
}

bool XFieldPicker::Private::runGuarded(const std::function<void()> &operation)
{
    try {
        operation();
        return true;
    } catch (const std::exception &) {
        return false;
    }
}

void XFieldPicker::Private::load(const QString &appNameA, const QString &categoryNameA,
                                 const QString &editorNameA)
{
    WaitCursorGuard wait;
    editorName = editorNameA;
    stl->setEmptyText(QLatin1String(EmptyViewText));
    q->SetStyleManager();
    q->SetClipboardFormat(appNameA, editorNameA);

    const FieldCatalogPtr catalog = FieldCatalog::instance();
    const CategoryTreePtr tree = singleBranch == tplNormal
                                     ? catalog->GetCategoryTree(appNameA)
                                     : singleBranchTree(*catalog, appNameA, categoryNameA);

    QString keyToShow;
    {
        // Only a new application rebuilds the tree, in one model reset.
        std::optional<CategoryTreeModel::Batch> rebuild;
        if (appNameA != appName) {
            rebuild.emplace(*treeModel);
            q->ClearAll();
            appName = appNameA;
            buildTree(tree, categoryNameA);
        } else {
            currentCategory = catalog->GetCategory(appName, categoryNameA);
        }
        keyToShow = keyToShowAfterLoad();
    }
    // A category that the tree does not hold (another branch, an emptied tree) is shown as an
    // unknown one: by the node the load would show without a category.
    QModelIndex node;
    if (currentCategory)
        node = treeModel->indexForKey(currentCategory->Key());
    if (!node.isValid())
        node = treeModel->indexForKey(keyToShow);
    selectNode(node);
    applyFullRowSetting();
}

void XFieldPicker::Private::buildTree(const CategoryTreePtr &tree, const QString &categoryNameA)
{
    const QString rootLabel = q->RootLabel();
    treeModel->addTopNode(rootLabel, rootLabel, QLatin1String(fieldpicker::ImageXClosed),
                          QLatin1String(fieldpicker::ImageXOpen), nullptr);
    currentCategory = FieldCatalog::instance()->GetCategory(appName, categoryNameA);
    if (!tree)
        return;

    CategoryNodePtr start;
    QString startLabel = rootLabel;
    if (useEntityView()) {
        if (rootLbl == tplGeneric) {
            startLabel = genericLabel();
            treeModel->addNode(rootLabel, startLabel, startLabel, QLatin1String(fieldpicker::ImageXClosed),
                               QLatin1String(fieldpicker::ImageXOpen), nullptr);
        }
        if (const auto nodes = tree->Nodes())
            start = nodes->Find(startLabel, QString());
    } else if (const auto nodes = tree->Nodes()) {
        start = nodes->Root();
    }
    buildCategoryNodes(start, startLabel);
}

// Depth first, pre-order, with an explicit stack so that a deep catalogue cannot exhaust the
// call stack. A node without a category adds nothing, and its children are not visited. The walk
// only collects; the model then takes the whole branch with room reserved for it at once.
void XFieldPicker::Private::buildCategoryNodes(const CategoryNodePtr &start, const QString &parentKey)
{
    using BranchNode = CategoryTreeModel::BranchNode;
    std::vector<BranchNode> branch;
    std::vector<std::pair<CategoryNodePtr, qsizetype>> pending;
    if (start)
        pending.emplace_back(start, BranchNode::NoParent);
    std::vector<CategoryNodePtr> children;
    while (!pending.empty()) {
        auto [node, parent] = std::move(pending.back());
        pending.pop_back();
        FieldCategoryPtr category = node->Category();
        if (!category)
            continue;
        const auto position = qsizetype(branch.size());
        branch.push_back({parent, std::move(category)});
        if (node->ChildCount() <= 0)
            continue;
        children.clear();
        for (CategoryNodePtr child = node->FirstChild(); child; child = child->NextSibling())
            children.push_back(child);
        for (auto it = children.rbegin(); it != children.rend(); ++it)
            pending.emplace_back(std::move(*it), position);
    }
    treeModel->addBranch(parentKey, branch, QLatin1String(fieldpicker::ImageClosed),
                         QLatin1String(fieldpicker::ImageOpen));
}

CategoryTreePtr XFieldPicker::Private::singleBranchTree(FieldCatalog &catalog, const QString &appNameA,
                                                        const QString &categoryNameA) const
{
    const CategoryTreePtr full = catalog.GetCategoryTree(appNameA);
    const FieldCategoryPtr target = catalog.GetCategory(appNameA, categoryNameA);
    const auto fullNodes = full ? full->Nodes() : nullptr;

    std::vector<FieldCategoryPtr> path;
    QSet<QString> seen;
    for (FieldCategoryPtr at = target; at && !seen.contains(at->Key());) {
        seen.insert(at->Key());
        path.push_back(at);
        if (at->ParentKey().isEmpty()
            || displayName(*at).toUpper() == QLatin1String(SystemCategoryName) || !fullNodes)
            break;
        at = fullNodes->CategoryByKey(at->ParentKey());
    }

    const CategoryTreePtr branch = catalog.NewCategoryTree(appNameA);
    QString parentKey;
    for (auto it = path.rbegin(); it != path.rend(); ++it) {
        branch->Add(*it, parentKey);
        parentKey = (*it)->Key();
    }
    if (singleBranch == tplSinglechildren && target && fullNodes) {
        if (const CategoryNodePtr node = nodeOfCategory(*fullNodes, *target)) {
            for (CategoryNodePtr child = node->FirstChild(); child; child = child->NextSibling()) {
                if (const FieldCategoryPtr category = child->Category())
                    branch->Add(category, target->Key());
            }
        }
    }
    return branch;
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
    currentCategory = treeModel->tag(node);
    if (templateView != tplTreeOnly)
        refreshView();
    Q_EMIT q->CategoryClick(currentCategory);
}

void XFieldPicker::Private::onTreeCurrentChanged(const QModelIndex &current)
{
    if (selectingNode || !current.isValid())
        return;
    runGuarded([&] { selectNode(current); });
}

QModelIndex XFieldPicker::Private::selectedNode() const
{
    const QModelIndexList selected = tvw->selectionModel()->selectedIndexes();
    return selected.isEmpty() ? QModelIndex() : selected.first();
}

// --- Filling the list --------------------------------------------------------------------------------

bool XFieldPicker::Private::isInsideCluster() const
{
    return true;
}

bool XFieldPicker::Private::showsApplicationWideList() const
{
    return !currentCategory || !selectedNode().isValid() || !isInsideCluster();
}

void XFieldPicker::Private::fillList()
{
    const FieldsPtr result = Fields::create();

    FieldsPtr source;
    if (showsApplicationWideList()) {
        if (!appName.isEmpty() && showAll) {
            if (const CategoryTreePtr tree = FieldCatalog::instance()->GetCategoryTree(appName))
                source = tree->AllFields(0);
        }
    } else {
        source = currentCategory->Fields();
    }
    if (!source)
        source = Fields::create();

    // The fields of a whole application lie far apart in memory; asking for a field a few steps
    // ahead keeps the filter pass from waiting on each one in turn.
    constexpr qsizetype PrefetchDistance = 16;
    constexpr int CacheLine = 64;
    const qsizetype count = source->size();
    result->reserve(count);
    for (qsizetype i = 0; i < count; ++i) {
        if (i + PrefetchDistance < count) {
            const auto *ahead = reinterpret_cast<const char *>(source->at(i + PrefetchDistance).get());
            __builtin_prefetch(ahead);
            __builtin_prefetch(ahead + CacheLine);
        }
        const FieldPtr &field = source->at(i);
        if (field->PassesFilter(techFilter, fieldTypeFilter, ownerFilter, nameFilter, useForBusyHour,
                                rcvFormFilter, rcvFieldFilter))
            result->Add(field);
    }

    stl->setItems(result);
    stl->setShowEmptyText(result->isEmpty());
}

void XFieldPicker::Private::setHeader()
{
    std::optional<QString> categoryCaption;
    if (currentCategory && selectedNode().isValid())
        categoryCaption = currentCategory->Caption();
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

void XFieldPicker::Private::onFieldsChange(qint32 ordEntity)
{
    if (currentCategory && currentCategory->EntityId() == ordEntity)
        runGuarded([this] { refreshView(); });
}

// --- Clearing and re-running -----------------------------------------------------------------------

void XFieldPicker::ClearAll()
{
    d->treeModel->clear();
    d->stl->setItems(Fields::create());
    d->currentCategory.reset();
}

bool XFieldPicker::Refresh()
{
    return d->runGuarded([this] {
        WaitCursorGuard wait;
        // The catalogue-wide list is fetched anew by the fill itself; a category re-reads its fields.
        if (!d->showsApplicationWideList())
            d->currentCategory->Reload();
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

void XFieldPicker::SetClipboardFormat(const QString &sAppNameA, const QString &sEditorNameA)
{
    d->clipboardFormatName = clipboardFormatName(sAppNameA, sEditorNameA, currentThreadId());
    d->clipboardFormatId = ClipboardFormats::Register(d->clipboardFormatName);
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
    if (!d->currentCategory)
        return QString();
    return displayName(*d->currentCategory);
}

void XFieldPicker::setSelectedCategory(const QString &name)
{
    d->runGuarded([&] {
        d->currentCategory = FieldCatalog::instance()->GetCategory(d->appName, name);
        if (d->currentCategory) {
            const QModelIndex node = d->treeModel->indexForKey(d->currentCategory->Key());
            if (node.isValid())
                d->selectNode(node);
        }
        // A name that finds no category falls back to the node that is selected already.
        d->selectNode(d->selectedNode());
    });
}

} // namespace PickerCtl
