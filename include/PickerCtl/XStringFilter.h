#pragma once

#include <PickerCtl/StringFilterValue.h>
#include <PickerCtl/pickerctl_export.h>

#include <QWidget>
#include <memory>

namespace PickerCtl {

class HostSite;
class PropertyBag;

/**
 * Editor of a text match filter: one expression and three match options (case, whole expression,
 * pattern matching).
 *
 * The host loads a value with SetFilter, which raises no Changed; every user edit raises Changed.
 * Every expression is acceptable, so IsValid always answers true.
 *
 * Two design-time properties persist in the host's property bag: "Label" (the caption before the
 * expression, default "&Matches Expression") and "ExtraControls" (whether the three options show,
 * default true). The host calls InitProperties() on a newly placed control or ReadProperties() on a
 * restored one, and WriteProperties() to save it; changes made through the setters are reported
 * through hostSite()->PropertyChanged(key).
 */
class PICKERCTL_EXPORT XStringFilter : public QWidget
{
    Q_OBJECT
    Q_PROPERTY(bool IsModified READ IsModified)
    Q_PROPERTY(QString Label READ Label WRITE setLabel)
    Q_PROPERTY(bool ExtraControls READ ExtraControls WRITE setExtraControls)

public:
    explicit XStringFilter(QWidget *parent = nullptr);
    ~XStringFilter() override;

    /// True once the user changed anything since the last SetFilter.
    bool IsModified() const;
    /// Always true; sErrorText is never written (checking a pattern is the host's business).
    bool IsValid(QString &sErrorText);
    /// A new value object: the expression without surrounding spaces and the three options.
    StringFilterValuePtr GetFilter() const;
    /// Loads fsValue (nullptr: an empty expression with every option off); fsValue is neither
    /// written nor kept.
    void SetFilter(const StringFilterValuePtr &fsValue);
    /// Empties the expression and clears the options; raises Changed only if that changes a widget.
    void ClearAll();

    /// The caption before the expression box; its access key focuses the box.
    QString Label() const;
    void setLabel(const QString &label);
    /// Whether the three option check boxes show; hidden options still go into GetFilter.
    bool ExtraControls() const;
    void setExtraControls(bool show);

    /// Design-time properties of a newly placed control.
    void InitProperties();
    /// Restores the design-time properties; a missing or unreadable value keeps its default.
    void ReadProperties(PropertyBag &bag);
    /// Saves the design-time properties; a value equal to its default is not stored.
    void WriteProperties(PropertyBag &bag) const;

    HostSite *hostSite() const;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

Q_SIGNALS:
    void Changed();

protected:
    void resizeEvent(QResizeEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    struct Private;
    std::unique_ptr<Private> d;
};

} // namespace PickerCtl
