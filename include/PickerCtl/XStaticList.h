#pragma once

#include <PickerCtl/Fields.h>
#include <PickerCtl/ListStyleManager.h>
#include <PickerCtl/ListViewProperties.h>
#include <PickerCtl/PropertyStore.h>
#include <PickerCtl/pickerctl_export.h>

#include <QWidget>
#include <functional>
#include <memory>

class QMimeData;
class QTreeView;
class QListView;
class QAbstractItemView;
class QDialog;

namespace PickerCtl {

/**
 * The field list of the widget kit: a flat list of catalogue fields with a header of columns
 * (name, category, type, technology, owner, id, description, unit, status).
 *
 * The list shows a Fields collection by reference: it never copies the collection, and sorting
 * goes through a row permutation, so the host's collection keeps its order. Only AppendItem(s),
 * RemoveItem(s), InsertItems and MoveSelectionUp/Down change the collection itself.
 *
 * Child widgets: the report view "lvw" (a tree view used as a flat list), the list/icon view
 * "lvwIcons", the header menu "mnuHeader". Column ids and captions: FieldListColumns in the private
 * model; the name column ("name") is always shown.
 */
class PICKERCTL_EXPORT XStaticList : public QWidget
{
    Q_OBJECT
    Q_PROPERTY(QString Caption READ Caption WRITE setCaption)
    Q_PROPERTY(QString EmptyText READ EmptyText WRITE setEmptyText)
    Q_PROPERTY(bool ShowEmptyText READ ShowEmptyText WRITE setShowEmptyText)
    Q_PROPERTY(bool FullRowSelect READ FullRowSelect WRITE setFullRowSelect)
    Q_PROPERTY(bool HideSelection READ HideSelection WRITE setHideSelection)
    Q_PROPERTY(bool MultiSelect READ MultiSelect WRITE setMultiSelect)
    Q_PROPERTY(bool AllowDragDrop READ AllowDragDrop WRITE setAllowDragDrop)
    Q_PROPERTY(bool SortingEnabled READ SortingEnabled WRITE setSortingEnabled)
    Q_PROPERTY(bool Frozen READ Frozen WRITE setFrozen)
    Q_PROPERTY(EListStyle ListStyle READ ListStyle WRITE setListStyle)
    Q_PROPERTY(EArrangeIcons ArrangeIcons READ ArrangeIcons WRITE setArrangeIcons)

public:
    /// How the items are shown.
    enum EListStyle : qint32 {
        stlReport = 0,      ///< rows with a header of columns
        stlList = 1,        ///< names in columns, small icons
        stlSmallIcons = 2,  ///< small icons in a grid
        stlLargeIcons = 3   ///< large icons in a grid
    };
    Q_ENUM(EListStyle)

    /// How icons are arranged in the two icon styles.
    enum EArrangeIcons : qint32 {
        stlArrangeNone = 0,  ///< icons stay where they were put
        stlArrangeAuto = 1,  ///< icons re-flow, left to right, when the list is resized
        stlArrangeLeft = 2,  ///< icons flow top to bottom, in columns from the left
        stlArrangeTop = 3    ///< icons flow left to right, in rows from the top
    };
    Q_ENUM(EArrangeIcons)

    explicit XStaticList(QWidget *parent = nullptr);
    ~XStaticList() override;

    // --- Items ---------------------------------------------------------------------------------

    /// The shown collection itself (by reference), in its own order; never null.
    FieldsPtr Items() const;
    /// Shows that collection (by reference; null shows a new empty one). Drops the selection and
    /// any sort; the column layout stays.
    void setItems(const FieldsPtr &fields);
    /// Number of items.
    qint32 Count() const;
    qint32 ListCount() const { return Count(); }
    /// True when an item with that key is shown.
    bool Contains(const QString &key) const;
    /// Adds the field at the end of the collection (shown last, also while sorted).
    void AppendItem(const FieldPtr &field);
    /// Adds every field of the collection, in order, as one insertion.
    void AppendItems(const FieldsPtr &fields);
    /// Removes that very object's first position, else the first item with its key; false when
    /// neither is shown.
    bool RemoveItem(const FieldPtr &field);
    /// Removes every given item as successive RemoveItem calls would, in one pass over the list
    /// (a template of 100,000 fields loses a large selection at once); returns how many went.
    qint32 RemoveItems(const FieldsPtr &fields);
    /// Inserts the fields, in order, before the item shown at `row` (Count() or beyond appends),
    /// as one insertion. While sorted they are appended and shown last.
    void InsertItems(qint32 row, const FieldsPtr &fields);

    // --- Selection -------------------------------------------------------------------------------

    /// A new collection of the selected fields in display order, or null when nothing is selected.
    FieldsPtr SelectedItems() const;
    qint32 SelectedCount() const;
    qint32 SelectionCount() const { return SelectedCount(); }
    void SelectAll();
    void ClearSelection();
    /// Selects exactly the rows that are not selected (range-wise, fast on huge lists).
    void InvertSelection();
    /// Selects exactly the given fields that the list shows, matched by key (first occurrence);
    /// the previous selection is dropped. Null or empty selects nothing.
    void SelectItems(const FieldsPtr &fields);
    /// The field that has the keyboard focus, or null.
    FieldPtr FocusItem() const;
    /// Makes the field the current item and scrolls it into view; false when it is not shown.
    bool EnsureVisible(const FieldPtr &field);
    bool ScrollIntoView(const FieldPtr &field) { return EnsureVisible(field); }

    /// Moves every selected row one place up; a selected block at the top edge stays, the others
    /// move past the unselected row before them. The selection follows. Nothing moves while a
    /// sort is active.
    void MoveSelectionUp();
    void MoveSelectionDown();
    bool CanMoveUp() const;
    bool CanMoveDown() const;

    // --- Updating and drawing ------------------------------------------------------------------

    /// Suspends repainting until the matching EndUpdate; calls nest.
    void BeginUpdate();
    void EndUpdate();
    /// Repaints the list now.
    void Redraw();
    /// The list's own reset: no sort, no selection, scrolled to the top.
    void Reset();
    /// While frozen the list neither repaints nor takes mouse or keyboard input.
    bool Frozen() const;
    void setFrozen(bool frozen);

    // --- Texts -----------------------------------------------------------------------------------

    /// The list's name; also names its column layout in the properties store.
    QString Caption() const;
    void setCaption(const QString &caption);
    QString EmptyText() const;
    void setEmptyText(const QString &text);
    /// True: the view shows EmptyText (centred, word-wrapped) instead of items.
    bool ShowEmptyText() const;
    void setShowEmptyText(bool show);
    /// "3 of 1,204 fields selected", "1,204 fields", "1 field", or "No fields" when empty.
    QString StatusText() const;

    // --- Display ---------------------------------------------------------------------------------

    /// True: the whole row is highlighted; false: only the name cell.
    bool FullRowSelect() const;
    void setFullRowSelect(bool on);
    /// True: the selection is not drawn while the list has no focus; false: drawn inactive.
    bool HideSelection() const;
    void setHideSelection(bool on);
    /// True: extended selection (Shift/Ctrl); false: one item at a time.
    bool MultiSelect() const;
    void setMultiSelect(bool on);
    /// True: selected items can be dragged out of the list.
    bool AllowDragDrop() const;
    void setAllowDragDrop(bool on);
    /// Carries out a drag of `data` offering `allowed` and returns the drop's effect.
    using DragExecutor = std::function<Qt::DropAction(std::unique_ptr<QMimeData> data, Qt::DropActions allowed)>;
    /// Replaces the modal QDrag::exec (a null executor restores it): an embedding that drags by
    /// its own means, or a test that must not block, supplies the effect itself.
    void setDragExecutor(DragExecutor executor);
    /// Drags the selection as the views do when the mouse pulls it: nothing happens unless
    /// AllowDragDrop is on and an item is selected; otherwise DragStarted, DragDataRequested for
    /// each format, the drag itself and DragCompleted once.
    void startDrag(Qt::DropActions allowed);
    /// Decides a drop of `data` before the row `row` (Count() for the end): `apply` false only
    /// asks whether the data could be dropped (while the mouse moves), true carries the drop out.
    using DropHandler = std::function<bool(const QMimeData *data, qint32 row, bool apply)>;
    /// With a handler the list accepts drops between its rows and on its empty area, shows where
    /// the drop would land and scrolls near its edges; null makes it refuse drops again.
    void setDropHandler(DropHandler handler);
    EListStyle ListStyle() const;
    void setListStyle(EListStyle style);
    EArrangeIcons ArrangeIcons() const;
    void setArrangeIcons(EArrangeIcons arrange);
    /// The sizing operation: minimum and default width of the name column, in pixels.
    void SetSizing(int minimumNameWidth, int defaultNameWidth);

    // --- Columns and sorting -------------------------------------------------------------------

    /// True: a header click sorts (through a permutation; the items keep their order).
    /// Switching it off also clears an active sort.
    bool SortingEnabled() const;
    void setSortingEnabled(bool on);
    /// Sorts by the column with that id; false for an unknown id or while sorting is disabled.
    bool SortByColumn(const QString &columnId, Qt::SortOrder order = Qt::AscendingOrder);
    /// Id of the sort column, "" when unsorted.
    QString SortColumn() const;
    Qt::SortOrder SortOrder() const;
    /// Ids of the shown columns, in display order.
    QStringList VisibleColumns() const;
    /// Shows or hides a column; the name column cannot be hidden.
    bool setColumnVisible(const QString &columnId, bool visible);
    /// The column dialog (a check list with up/down buttons); applies on OK.
    void CustomizeColumns();
    /// The sort dialog (column, ascending/descending, or none); applies on OK.
    void CustomizeColumnSort();
    /// Fits the shown columns to their header and the visible rows; the last column stretches.
    void AutoSizeColumns();
    /// Removes the sort indicator and returns to the items' own order.
    void ClearHeaderIcon();
    /// Builds the dialogs that CustomizeColumns / CustomizeColumnSort run (not shown); each
    /// applies itself to the list when accepted.
    QDialog *createColumnsDialog(QWidget *parent = nullptr);
    QDialog *createSortDialog(QWidget *parent = nullptr);

    // --- Saved state -----------------------------------------------------------------------------

    /// The column layout object; the list keeps it in step with its header and applies every
    /// layout given to it. Never null.
    ListViewPropertiesPtr ListProperties() const;
    /// Uses that object (null: a new one); its layout, when it has one, is applied at once.
    void setListProperties(const ListViewPropertiesPtr &properties);
    PropertyStorePtr Properties() const;
    void setProperties(const PropertyStorePtr &store);
    /// Key of the layout in the properties store: Caption() + " Columns".
    QString PropertiesKey() const;
    /// Reads the layout from the properties store; a missing or damaged entry keeps the current one.
    void LoadProperties();
    /// Writes the layout to the properties store (nothing without a store).
    void SaveProperties();

    // --- Look ----------------------------------------------------------------------------------

    void setRowColorProvider(const std::shared_ptr<ListRowColors> &provider);
    void setFontProvider(const std::shared_ptr<ListFontProvider> &provider);
    /// Refused (false, nothing changes) while the list is frozen, since the icons of a frozen
    /// list could not be redrawn; null returns to the built-in icons.
    bool setIconProvider(const std::shared_ptr<ListIconProvider> &provider);

    // --- Interaction ---------------------------------------------------------------------------

    /// The owner tells the list that a copy of the selection starts; emits CopyStarting.
    void NotifyCopy();

    /// The view that shows the items now ("lvw" in report style, "lvwIcons" otherwise).
    QAbstractItemView *view() const;
    QTreeView *reportView() const;

Q_SIGNALS:
    /// Right click or the context-menu key on the items (not on the header).
    void ContextMenuRequested(QPoint globalPos);
    void ItemClick(PickerCtl::FieldPtr field);
    void ItemDblClick(PickerCtl::FieldPtr field);
    void SelectionChange();
    /// A drag of the selection begins; the owner fills `data` (which the list owns until the drag
    /// ends) and may narrow nothing: `allowed` is what the list offers.
    void DragStarted(QMimeData *data, Qt::DropActions allowed);
    /// Emitted right after DragStarted once for every format that `data` then offers.
    void DragDataRequested(QMimeData *data, const QString &format);
    void DragCompleted(Qt::DropAction effect);
    void CopyStarting();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    struct Private;
    std::unique_ptr<Private> d;
};

} // namespace PickerCtl
