#pragma once

#include "fieldpicker/designsettings.h"
#include "fieldpicker/fieldactions.h"
#include "fieldpicker/fieldpicker_layout.h"
#include "fieldpicker/fieldview.h"

#include <PickerCtl/CategoryTree.h>
#include <PickerCtl/FieldCatalog.h>
#include <PickerCtl/XFieldPicker.h>

#include <QCursor>
#include <QModelIndex>
#include <QPersistentModelIndex>
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
class Interaction;
}

/// The widgets of the control and the wiring between them. The state of what is shown lives in
/// `view`, the design-time settings in `design`, clipboard, ownership and deletion in `actions`.
struct XFieldPicker::Private
{
    explicit Private(XFieldPicker *owner);
    ~Private();

    // --- construction (fieldpicker.cpp) ---
    void createChildren();
    void createServices();
    void connectTreeNotifications();
    void connectListNotifications();
    void createInteraction();

    // --- layout (fieldpicker_geometry.cpp) ---
    void layout();
    float headerHeightTwips() const;
    void place(QWidget *widget, const std::optional<fieldpicker::TwipsRect> &twips);
    void moveBar(float left, float width);
    QRect barPixels(float left, float width) const;
    float barLeftTwips() const;
    float barWidthTwips() const;
    void attachSplitter();
    void onSplit();

    // --- loading (fieldpicker_loading.cpp) ---
    void load(const QString &appNameA, const QString &categoryNameA, const QString &editorNameA);
    QString keyToShowAfterLoad();
    void selectNode(const QModelIndex &node);
    void onTreeCurrentChanged(const QModelIndex &current);
    void onTreeClicked(const QModelIndex &node);
    QModelIndex selectedNode() const;
    bool showsApplicationWideList() const;
    void fillList();
    void setHeader();
    void refreshView();
    /// Refreshes the view; when the catalogue fails, logs it and shows an empty list.
    void refreshOrShowEmpty(const char *what);
    void applyFullRowSetting();
    void onFieldsChange(qint32 ordEntity);

    // --- filters (fieldpicker_filters.cpp) ---
    /// Stores a filter string and refreshes the view when it changed.
    void setFilter(QString fieldpicker::FieldFilterValues::*member, const QString &value);
    void selectRcvField(const QString &fieldName);

    // --- events (fieldpicker_events.cpp); the menu entries raise theirs in interaction_handlers.cpp ---
    void raiseStateChange();

    /// Runs an operation that Qt or the host calls so that nothing it throws gets out: a failure
    /// is logged and answered with false.
    bool runGuarded(const char *what, const std::function<void()> &operation) const;

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

    fieldpicker::DesignSettings design;
    fieldpicker::FieldView view;
    fieldpicker::FieldActions actions;

    QString appName;
    // False when the catalogue gave no tree to show (none at all, or no branch to a category it
    // did not know), so that the next Load of the application builds the tree anew.
    bool treeHoldsApp = false;
    QString editorName;
    bool dataValid = false;

    // The measures in twips as last put, so that a get right after a put returns the very value;
    // once the bar or the tree has been moved in pixels the gets convert from there.
    float splitterLeftTwips = 0;
    float splitterWidthTwips = 0;
    float indentationTwips = 0;

    std::shared_ptr<AppGeneralState> appGeneralState;
    std::shared_ptr<FieldUpdates> fldUpdates;

    QObject *treeWatcher = nullptr;
    bool selectingNode = false;
    // The node a mouse press made current; the click that ends that press selects nothing more.
    QPersistentModelIndex nodeSelectedByPress;
    bool treePressed = false;

    // Menus, keys, node images and dragging; made last, since it works on all of the above.
    std::unique_ptr<fieldpicker::Interaction> interaction;
};

} // namespace PickerCtl
