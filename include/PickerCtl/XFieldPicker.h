#pragma once

#include <PickerCtl/Enums.h>
#include <PickerCtl/FieldCategory.h>
#include <PickerCtl/FieldClipData.h>
#include <PickerCtl/PropertyStore.h>
#include <PickerCtl/XStaticList.h>
#include <PickerCtl/pickerctl_export.h>

#include <QColor>
#include <QFont>
#include <QWidget>
#include <memory>

namespace PickerCtl {

class HostSite;
class PropertyBag;

/**
 * The field browser: the category tree of one application ("tvw") beside the fields of the
 * selected category ("stl"), each under a one-line header, with a draggable bar between them.
 *
 * The host creates the control, either calls InitProperties() (a newly placed control) or
 * ReadProperties() (a restored one), loads it with Load() and saves it with WriteProperties().
 * Changes of persisted properties are reported through hostSite()->PropertyChanged(key), under the
 * property's bag key.
 *
 * Measures (Indentation, SplitterWidth, SplitterLeft) are in twips, 1/1440 inch.
 */
class PICKERCTL_EXPORT XFieldPicker : public QWidget
{
    Q_OBJECT
    // The persisted design-time properties, so that form designers show them and .ui files keep
    // them. Enabled and Font are QWidget's own "enabled" and "font": a second property of the same
    // meaning would be offered and saved twice. The measures are twips; designers see them as double.
    Q_PROPERTY(PickerCtl::ETPLTemplateView TemplateView READ TemplateView WRITE setTemplateView)
    Q_PROPERTY(bool CaptionVisible READ CaptionVisible WRITE setCaptionVisible)
    Q_PROPERTY(QColor BackColor READ BackColor WRITE setBackColor)
    Q_PROPERTY(QColor ForeColor READ ForeColor WRITE setForeColor)
    Q_PROPERTY(double Indentation READ Indentation WRITE setIndentation)
    Q_PROPERTY(bool FullRowSelect READ FullRowSelect WRITE setFullRowSelect)
    Q_PROPERTY(double SplitterWidth READ SplitterWidth WRITE setSplitterWidth)
    Q_PROPERTY(double SplitterLeft READ SplitterLeft WRITE setSplitterLeft NOTIFY SplitterAdjustment)
    Q_PROPERTY(bool HideSelection READ HideSelection WRITE setHideSelection)
    Q_PROPERTY(bool UseForBusyHour READ UseForBusyHour WRITE setUseForBusyHour)
    Q_PROPERTY(bool MultiSelect READ MultiSelect WRITE setMultiSelect)
    Q_PROPERTY(QString Caption READ Caption WRITE setCaption)
    Q_PROPERTY(bool AllowContextMenu READ AllowContextMenu WRITE setAllowContextMenu)
    Q_PROPERTY(bool AllowDragDrop READ AllowDragDrop WRITE setAllowDragDrop)
    Q_PROPERTY(bool AllowOpenMenu READ AllowOpenMenu WRITE setAllowOpenMenu)
    Q_PROPERTY(QString OpenMenuCaption READ OpenMenuCaption WRITE setOpenMenuCaption)
    Q_PROPERTY(PickerCtl::ETPLRootLbl RootLbl READ RootLbl WRITE setRootLbl)
    Q_PROPERTY(bool ShowEntityFld READ ShowEntityFld WRITE setShowEntityFld)
    Q_PROPERTY(bool ShowAll READ ShowAll WRITE setShowAll)

public:
    explicit XFieldPicker(QWidget *parent = nullptr);
    ~XFieldPicker() override;

    /// The hosting surface: ambient colours and font, property-change notification, twips.
    HostSite *hostSite() const;

    // --- Properties, in interface order --------------------------------------------------------

    ETPLSingleBranch SingleBranch() const;
    void setSingleBranch(ETPLSingleBranch mode);
    /// "Entities" for tplEntities, "Generic" for tplGeneric, "" for any other RootLbl.
    QString RootLabel() const;
    ETPLRootLbl RootLbl() const;
    void setRootLbl(ETPLRootLbl mode);
    ETPLTemplateView TemplateView() const;
    void setTemplateView(ETPLTemplateView mode);
    XStaticList::EListStyle ListStyle() const;
    void setListStyle(XStaticList::EListStyle style);
    QColor BackColor() const;
    void setBackColor(const QColor &color);
    QColor ForeColor() const;
    void setForeColor(const QColor &color);
    bool Enabled() const;
    /// Also reports "Enabled" to the host; QWidget::setEnabled through a base pointer does not.
    void setEnabled(bool on);
    bool CaptionVisible() const;
    void setCaptionVisible(bool visible);
    bool AllowContextMenu() const;
    void setAllowContextMenu(bool allow);
    bool AllowOpenMenu() const;
    void setAllowOpenMenu(bool allow);
    bool AllowDragDrop() const;
    void setAllowDragDrop(bool allow);
    QString OpenMenuCaption() const;
    void setOpenMenuCaption(const QString &caption);
    bool ShowAll() const;
    void setShowAll(bool showAll);
    bool MultiSelect() const;
    void setMultiSelect(bool on);
    bool ShowEntityFld() const;
    void setShowEntityFld(bool show);
    /// The left header's caption (and tooltip).
    QString Caption() const;
    void setCaption(const QString &caption);
    QFont Font() const;
    /// Sets the surface's font and gives it to the tree and the list.
    void setFont(const QFont &font);
    float Indentation() const;
    void setIndentation(float twips);
    bool FullRowSelect() const;
    void setFullRowSelect(bool on);
    float SplitterWidth() const;
    void setSplitterWidth(float twips);
    float SplitterLeft() const;
    void setSplitterLeft(float twips);
    XStaticList::EArrangeIcons ArrangeIcons() const;
    void setArrangeIcons(XStaticList::EArrangeIcons arrange);
    qint32 ListCount() const;
    quint16 ClipBoardFormatId() const;
    FieldClipDataPtr ClipBoardData() const;
    qint32 SelectionCount() const;
    bool Frozen() const;
    void setFrozen(bool frozen);
    PropertyStorePtr Properties() const;
    void setProperties(const PropertyStorePtr &store);

    // --- Loading and view population -----------------------------------------------------------

    /// Fills the control with the application's category tree and shows the named category.
    /// Returns false when a catalogue call failed; IsDataValid() then answers false.
    bool Load(const QString &sAppNameA, const QString &sCategoryNameA,
              const QString &sEditorNameA = QString());
    /// Empties the tree and the list and drops the current category; keeps the application name.
    void ClearAll();
    /// Has the catalogue re-read the shown data, then refills the list and its header.
    /// Returns false when the catalogue failed.
    bool Refresh();
    /// The list's own reset; the tree, category and filters stay.
    void Reset();
    void SetStyleManager();
    void SetClipboardFormat(const QString &sAppNameA, const QString &sEditorNameA = QString());
    /// The fields the list shows now (after filtering).
    FieldsPtr Fields() const;
    /// Shows exactly that collection, unfiltered.
    void setFields(const FieldsPtr &flds);
    void AppendItems(const FieldsPtr &flds);
    void AppendItem(const FieldPtr &fld);
    FieldPtr FocusItem() const;
    /// Name (entity view) or full name of the current category; "" without one.
    QString SelectedCategory() const;
    void setSelectedCategory(const QString &name);

    // --- Filter values handed to every field of the list ---------------------------------------

    QString TechFilter() const;
    void setTechFilter(const QString &filter);
    QString FieldTypeFilter() const;
    void setFieldTypeFilter(const QString &filter);
    QString OwnerFilter() const;
    void setOwnerFilter(const QString &filter);
    QString NameFilter() const;
    void setNameFilter(const QString &filter);
    QString RcvFormFilter() const;
    void setRcvFormFilter(const QString &filter);
    QString RcvFieldFilter() const;
    void setRcvFieldFilter(const QString &filter);
    bool HideSelection() const;
    void setHideSelection(bool on);
    bool UseForBusyHour() const;
    /// A busy-hour pick is always a single field: switching it on switches MultiSelect off.
    void setUseForBusyHour(bool on);
    /// The entity that bounds a busy-hour view; 0 without one. Setting it refreshes the view.
    qint32 ClusterEntityId() const;
    void setClusterEntityId(qint32 entityId);

    // --- Selection, clipboard and deletion -----------------------------------------------------

    void SelectAll();
    void ClearSelection();
    void InvertSelection();
    /// The selected fields in list order (a new collection, empty when nothing is selected).
    FieldsPtr Selection() const;
    /// Shows the field's category and selects the field, scrolled into view.
    void SelectFieldById(qint32 ord);
    /// Selects the field only when it belongs to the category shown now; does not scroll.
    void SelectVisibleFieldById(qint32 ord);
    /// Selects the fields of a FieldsPtr or the one field of a FieldPtr that the list shows and
    /// returns the collection it selected from; anything else selects nothing and returns null.
    QVariant SetSelection(const QVariant &v);
    /// Deletes the selection through the catalogue after the UDC ownership check, leaving out
    /// the fields of fldsException; raises StateChange when the deletion ran.
    void DeleteSelection(const FieldsPtr &fldsException = nullptr);
    /// Copies the selection to the clipboard; an empty selection leaves the clipboard alone.
    void Copy();
    /// Asks for a new owner and gives it the selected fields.
    void ChangeSelectionOwnership();

    // --- Forwarding to the list and status queries ---------------------------------------------

    void LoadProperties();
    void SaveProperties();
    void CustomizeColumnSort();
    void CustomizeColumns();
    void AutoSizeColumns();
    void ClearHeaderIcon();
    bool IsDataValid() const;
    bool IsTreeViewActive() const;
    bool IsListViewActive() const;
    bool IsSelectionEmpty() const;
    bool IsAtRoot() const;
    /// The list's status text, or "Hierarchy incomplete (Load failed/cancelled)." before a good Load.
    QString GetStatus() const;

    // --- Property bag --------------------------------------------------------------------------

    /// Gives a newly placed control its design-time defaults.
    void InitProperties();
    /// Restores the design-time properties; a value that cannot be read keeps the current one.
    void ReadProperties(PropertyBag &bag);
    /// Saves the design-time properties; values equal to their defaults are not stored.
    void WriteProperties(PropertyBag &bag) const;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

Q_SIGNALS:
    void SplitterAdjustment();
    void StateChange();
    void Change();
    void DblClick(const PickerCtl::FieldPtr &fld, const QString &CategoryName);
    void Delete(const PickerCtl::FieldsPtr &flds);
    void Edit(const PickerCtl::FieldsPtr &flds);
    void NewExpression(const QString &CategoryName);
    void ItemClick(const PickerCtl::FieldPtr &fld);
    void CategoryClick(const PickerCtl::FieldCategoryPtr &fc);
    void OpenEditor(const PickerCtl::FieldsPtr &flds, const QString &CategoryName);
    void HandleContextMenu();

protected:
    void showEvent(QShowEvent *event) override;
    void hideEvent(QHideEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    struct Private;
    std::unique_ptr<Private> d;
};

} // namespace PickerCtl
