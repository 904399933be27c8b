#pragma once

#include <PickerCtl/EnumFilterValue.h>
#include <PickerCtl/PropertyFilter.h>
#include <PickerCtl/pickerctl_export.h>

#include <QWidget>
#include <memory>

namespace PickerCtl {

class ListViewProperties;
class XTreeOpt;

/**
 * Editor of a filter on an enumerated field: the field's values are check-marked children of one
 * root node (the field's title) in an option tree, and the filter selects the checked values.
 *
 * The values come from the property filter, asked with the list-view properties (whose Title names
 * the field) and the application's name. A selection is the codes of the checked values joined by
 * ","; an empty selection means every value, and is also what the editor hands back when the user
 * has checked every value by hand.
 *
 * The host loads a value with SetFilter, which raises no Changed; every check or click in the tree
 * raises Changed. IsValid tells the user itself, through the application's MessageService, when no
 * value is checked.
 */
class PICKERCTL_EXPORT XEnumFilter : public QWidget
{
    Q_OBJECT
    Q_PROPERTY(bool IsModified READ IsModified)

public:
    explicit XEnumFilter(QWidget *parent = nullptr);
    ~XEnumFilter() override;

    /// False, after telling the user and focusing the tree, when no value is checked.
    bool IsValid();
    /**
     * Builds the value tree from propFilterA and checks the values selected by fltrEnum (nullptr:
     * every value). sErrorMessageTitle titles IsValid's message. fltrEnum is neither written nor kept.
     */
    void SetFilter(const EnumFilterValuePtr &fltrEnum, const QString &sAppNameA,
                   const std::shared_ptr<ListViewProperties> &lvpA, const PropertyFilterPtr &propFilterA,
                   const QString &sErrorMessageTitle = QStringLiteral("Filter"));
    /// A new value object of the checked values, or nullptr when IsValid fails.
    EnumFilterValuePtr GetFilter();
    /// Checks every value (no restriction) and raises Changed.
    void ClearFilter();
    /// Lets go of the property filter before the control is destroyed.
    void Clear();
    /// True once the user changed anything since the last SetFilter.
    bool IsModified() const;

    /// The option tree (`tvwOpt`).
    XTreeOpt *tree() const;

Q_SIGNALS:
    void Changed();

private:
    struct Private;
    std::unique_ptr<Private> d;
};

} // namespace PickerCtl
