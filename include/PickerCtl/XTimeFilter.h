#pragma once

#include <PickerCtl/TimeFilterValue.h>
#include <PickerCtl/pickerctl_export.h>

#include <QWidget>
#include <memory>

namespace PickerCtl {

/**
 * Editor of a time period filter on a date-time field, in one of three forms: all items, a
 * relative period ("during the previous" N minutes, hours, days or months) or an absolute period
 * ("between" a start and an end date and time of day).
 *
 * The host loads a value with SetDateFilter, which raises no Changed; every user edit raises
 * Changed. Before GetTimeFilter the host asks IsValid.
 */
class PICKERCTL_EXPORT XTimeFilter : public QWidget
{
    Q_OBJECT
    Q_PROPERTY(bool IsModified READ IsModified)

public:
    explicit XTimeFilter(QWidget *parent = nullptr);
    ~XTimeFilter() override;

    /// True once the user changed anything since the last SetDateFilter.
    bool IsModified() const;
    /// Checks the count of a relative period (a whole number of at least 1) or an absolute period:
    /// each end must exist in its time zone (not in the hour skipped when summer time begins) and
    /// lie within the dates the pickers show (years 100 to 9999), and the end must not come before
    /// the start (equal ends pass). On failure writes the reason, naming the moment, into
    /// sErrorText and moves the focus to the offending widget.
    bool IsValid(QString &sErrorText);
    bool IsValid();
    /// A new value object of the form shown; under "All items" nothing is set on it.
    TimeFilterValuePtr GetTimeFilter() const;
    /// Loads fltrDate (nullptr: all items); fltrDate is neither written nor kept. An absolute
    /// period with an unset end shows as all items. Each end keeps its time zone or offset, and
    /// an end the pickers cannot show is handed back unchanged until the user picks another.
    void SetDateFilter(const TimeFilterValuePtr &fltrDate);
    /// Back to all items with every count at 1; raises Changed only if that changes a widget.
    void ClearAll();

Q_SIGNALS:
    void Changed();

private:
    struct Private;
    std::unique_ptr<Private> d;
};

} // namespace PickerCtl
