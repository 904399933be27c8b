#include "fieldpicker/treeloading.h"

#include "fieldpicker/categorytreemodel.h"
#include "fieldpicker/fieldpicker_icons.h"

#include <PickerCtl/AppServices.h>
#include <PickerCtl/FieldCatalog.h>

#include <QSet>

#include <vector>

namespace PickerCtl::fieldpicker {

namespace {

// A single branch ends at the built-in system category even when that has a parent.
constexpr auto SystemCategoryName = "SYSTEM";

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

// Depth first, pre-order, with an explicit stack so that a deep catalogue cannot exhaust the
// call stack. A node without a category adds nothing, and its children are not visited. The walk
// only collects; the model then takes the whole branch with room reserved for it at once.
void buildCategoryNodes(CategoryTreeModel &model, const CategoryNodePtr &start, const QString &parentKey)
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
    model.addBranch(parentKey, branch, QLatin1String(ImageClosed), QLatin1String(ImageOpen));
}

} // namespace

bool useEntityView()
{
    const auto services = AppServices::instance();
    return services && services->UseEntityView();
}

QString displayName(const FieldCategory &category)
{
    return useEntityView() ? category.Name() : category.FullName();
}

CategoryTreePtr singleBranchTree(FieldCatalog &catalog, ETPLSingleBranch mode, const QString &appName,
                                 const QString &categoryName)
{
    const CategoryTreePtr full = catalog.GetCategoryTree(appName);
    if (!full)
        return nullptr;
    const FieldCategoryPtr target = catalog.GetCategory(appName, categoryName);
    if (!target)
        return nullptr;
    const auto fullNodes = full->Nodes();

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

    const CategoryTreePtr branch = catalog.NewCategoryTree(appName);
    if (!branch)
        return nullptr;
    QString parentKey;
    for (auto it = path.rbegin(); it != path.rend(); ++it) {
        branch->Add(*it, parentKey);
        parentKey = (*it)->Key();
    }
    if (mode == tplSinglechildren && fullNodes) {
        if (const CategoryNodePtr node = nodeOfCategory(*fullNodes, *target)) {
            for (CategoryNodePtr child = node->FirstChild(); child; child = child->NextSibling()) {
                if (const FieldCategoryPtr category = child->Category())
                    branch->Add(category, target->Key());
            }
        }
    }
    return branch;
}

void buildTreeNodes(CategoryTreeModel &model, const CategoryTreePtr &tree, const QString &rootLabel,
                    ETPLRootLbl rootLbl)
{
    model.addTopNode(rootLabel, rootLabel, QLatin1String(ImageXClosed), QLatin1String(ImageXOpen), nullptr);
    if (!tree)
        return;

    CategoryNodePtr start;
    QString startLabel = rootLabel;
    if (useEntityView()) {
        if (rootLbl == tplGeneric) {
            startLabel = genericLabel();
            model.addNode(rootLabel, startLabel, startLabel, QLatin1String(ImageXClosed),
                          QLatin1String(ImageXOpen), nullptr);
        }
        if (const auto nodes = tree->Nodes())
            start = nodes->Find(startLabel, QString());
    } else if (const auto nodes = tree->Nodes()) {
        start = nodes->Root();
    }
    buildCategoryNodes(model, start, startLabel);
}

} // namespace PickerCtl::fieldpicker
