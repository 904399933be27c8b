#pragma once

#include "fieldpicker/fieldpicker_layout.h"

#include <PickerCtl/CategoryTree.h>
#include <PickerCtl/FieldCatalog.h>
#include <PickerCtl/XFieldPicker.h>

#include <QCursor>
#include <QModelIndex>
#include <QString>

#include <functional>
#include <optional>

class QFrame;
class QLabel;
class QTreeView;

namespace PickerCtl {

class AppGeneralState;
class FieldUpdates;
class HostSite;
class Splitter;

namespace fieldpicker {
class CategoryTreeModel;
class ImageList;
}

struct XFieldPicker::Private
{
    explicit Private(XFieldPicker *owner);
    ~Private();

    // --- construction (fieldpicker.cpp) ---
    void createChildren();
    void createServices();

    // --- layout (fieldpicker_geometry.cpp) ---
    void layout();
    void place(QWidget *widget, const std::optional<fieldpicker::TwipsRect> &twips);
    void moveBar(float left, float width);
    QRect barPixels(float left, float width) const;
    float barLeftTwips() const;
    float barWidthTwips() const;
    void attachSplitter();
    void onSplit();

    // --- loading (fieldpicker_loading.cpp) ---
    void load(const QString &appNameA, const QString &categoryNameA, const QString &editorNameA);
    CategoryTreePtr singleBranchTree(FieldCatalog &catalog, const QString &appNameA,
                                     const QString &categoryNameA) const;
    void buildTree(const CategoryTreePtr &tree, const QString &categoryNameA);
    void buildCategoryNodes(const CategoryNodePtr &start, const QString &parentKey);
    QString keyToShowAfterLoad();
    void selectNode(const QModelIndex &node);
    void onTreeCurrentChanged(const QModelIndex &current);
    QModelIndex selectedNode() const;
    bool showsApplicationWideList() const;
    void fillList();
    void setHeader();
    void refreshView();
    void applyFullRowSetting();
    void onFieldsChange(qint32 ordEntity);
    bool runGuarded(const std::function<void()> &operation);

    // --- seams for the filtering rules ---
    /// False when the busy-hour view is bounded by a cluster entity that the current category
    /// lies outside of.
    bool isInsideCluster() const;

    void notify(const char *key) const;

    XFieldPicker *q;
    HostSite *site = nullptr;

    QTreeView *tvw = nullptr;
    XStaticList *stl = nullptr;
    QLabel *lblHeaderLeft = nullptr;
    QLabel *lblHeaderRight = nullptr;
    QFrame *lblSplitter = nullptr;
    QWidget *pbTemp = nullptr;
    fieldpicker::ImageList *ilsSmall = nullptr;
    fieldpicker::ImageList *ilsLarge = nullptr;
    fieldpicker::CategoryTreeModel *treeModel = nullptr;
    Splitter *splitter = nullptr;

    QCursor singleFieldDragCursor;
    QCursor multipleFieldsDragCursor;

    ETPLSingleBranch singleBranch = tplNormal;
    ETPLRootLbl rootLbl = tplEntities;
    ETPLTemplateView templateView = tplTreeAndList;
    bool captionVisible = false;
    bool allowContextMenu = false;
    bool allowOpenMenu = false;
    QString openMenuCaption;
    bool showAll = false;
    bool showEntityFld = false;
    bool dataValid = false;

    QString appName;
    QString editorName;
    QString clipboardFormatName;
    FieldCategoryPtr currentCategory;
    quint16 clipboardFormatId = 0;
    FieldClipDataPtr clipData;
    FieldClipDataPtr dragClipData;

    QString techFilter;
    QString fieldTypeFilter;
    QString ownerFilter;
    QString nameFilter;
    QString rcvFormFilter;
    QString rcvFieldFilter;
    bool useForBusyHour = false;

    // The measures in twips as last put, so that a get right after a put returns the very value;
    // once the bar or the tree has been moved in pixels the gets convert from there.
    float splitterLeftTwips = 0;
    float splitterWidthTwips = 0;
    float indentationTwips = 0;

    std::shared_ptr<AppGeneralState> appGeneralState;
    std::shared_ptr<FieldUpdates> fldUpdates;

    bool selectingNode = false;
};

} // namespace PickerCtl
