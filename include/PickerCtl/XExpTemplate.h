#pragma once

#include <PickerCtl/TemplateFields.h>
#include <PickerCtl/pickerctl_export.h>

#include <QWidget>
#include <memory>

namespace PickerCtl {

class HostSite;

/**
 * The express template editor: search criteria over the catalogue above two field lists, the
 * fields the last search found ("stlAvailable") beside the template's fields in report order
 * ("stlSelected"), and four buttons between them that add, remove and reorder.
 *
 * The host calls Load(app, category, template), lets the user work (each change raises Changed),
 * asks IsValid(title) and reads Fields. Column layouts are kept in the catalogue's properties
 * store by SaveState / LoadState.
 *
 * Beyond the buttons: fields can be dragged from an XFieldPicker of the same application or from
 * the available list into the template, dropping where the mouse is; template rows are reordered
 * by dragging them; Delete removes the selected template fields and Ctrl+Up / Ctrl+Down move them.
 * Each such change raises Changed once. The template list never sorts by a header click: its order
 * is the report order.
 *
 * Child widgets carry their member names: frmExpress, lblEntity, cboEntityTypes, lblTechTypes,
 * cboTechTypes, lblFieldTypes, cboFieldTypes, lblNameFilter, txtNameFilter, cmdApply, lblAvailable,
 * stlAvailable, lblSelected, stlSelected, cmdAdd, cmdRemove, cmdMoveUp, cmdMoveDown.
 */
class PICKERCTL_EXPORT XExpTemplate : public QWidget
{
    Q_OBJECT
    Q_PROPERTY(QString TechFilter READ TechFilter WRITE setTechFilter)
    Q_PROPERTY(QString OwnerFilter READ OwnerFilter WRITE setOwnerFilter)
    Q_PROPERTY(QString FieldTypeFilter READ FieldTypeFilter WRITE setFieldTypeFilter)
    Q_PROPERTY(QString NameFilter READ NameFilter WRITE setNameFilter)
    Q_PROPERTY(QString SelectedCategory READ SelectedCategory WRITE setSelectedCategory)
    Q_PROPERTY(QString AppName READ AppName WRITE setAppName)

public:
    explicit XExpTemplate(QWidget *parent = nullptr);
    ~XExpTemplate() override;

    // The criteria of the last search. Setting one only stores it: nothing is searched and no
    // widget changes, but the next Find compares the widgets against it.
    QString TechFilter() const;
    void setTechFilter(const QString &value);
    /// The owner criterion; no widget sets it.
    QString OwnerFilter() const;
    void setOwnerFilter(const QString &value);
    QString FieldTypeFilter() const;
    void setFieldTypeFilter(const QString &value);
    QString NameFilter() const;
    void setNameFilter(const QString &value);
    /// The category searched; "<All Entity Types>" searches the whole application.
    QString SelectedCategory() const;
    void setSelectedCategory(const QString &value);

    /// Applies both lists' column settings kept in the catalogue's properties store under
    /// "Express Available Properties" and "Express Selected Properties", then LoadProperties().
    void LoadState();
    /// SaveProperties(), then writes both lists' column settings to the properties store.
    void SaveState();
    /// Each list, available first, reads its own saved layout.
    void LoadProperties();
    /// Each list, available first, writes its own layout.
    void SaveProperties();

    /// The template: fresh items in report order, each with include flag true and code "N".
    TemplateFieldsPtr Fields() const;
    /// Shows exactly the given fields, repeated ones included (null empties the template; an item
    /// without a field is left out); flags and codes are not read. Raises no Changed.
    void setFields(const TemplateFieldsPtr &tplfs);

    /// The application whose catalogue is searched; setting it only stores it.
    QString AppName() const;
    void setAppName(const QString &value);

    /**
     * Empties both lists, fills the criteria drop-downs from the catalogue (the entity list is
     * appended to, never cleared), shows tplfs as the template and searches the category
     * sCategoryNameA, or the first category when the catalogue does not know that name. A failing
     * catalogue call propagates (CatalogError) with the wait cursor restored.
     */
    void Load(const QString &sAppNameA, const QString &sCategoryNameA, const TemplateFieldsPtr &tplfs);

    /**
     * Checks the template before a report runs, asking the user through MessageService (every box
     * captioned sMsgTitle): an empty template is refused; with "Warn on Multiple TechTypes" on, a
     * template whose fields share no technology needs a Yes; a field that is a not validated
     * expression needs a Yes. Changes nothing.
     */
    bool IsValid(const QString &sMsgTitle);

    HostSite *hostSite() const;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

Q_SIGNALS:
    /// The template changed by the user: after every add, remove, move, drop or reorder.
    void Changed();

protected:
    void resizeEvent(QResizeEvent *event) override;
    void changeEvent(QEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    struct Private;
    std::unique_ptr<Private> d;
};

} // namespace PickerCtl
