#pragma once

#include <PickerCtl/NumberFilterValue.h>
#include <PickerCtl/pickerctl_export.h>

#include <QVariant>
#include <QWidget>
#include <memory>

namespace PickerCtl {

/**
 * Editor of a numeric range filter: an optional lower bound ("at least") and an optional upper
 * bound ("at most") for the values of one numeric field.
 *
 * The host loads a value with SetFilter, which raises no Changed; every user edit raises Changed.
 * Before GetFilter the host asks IsValid, which checks the bounds by the number type given to
 * SetFilter (0 whole, 1 real, anything else unchecked) against the allowed range.
 * The bounds are handed back as the text the user typed.
 */
class PICKERCTL_EXPORT XNumberFilter : public QWidget
{
    Q_OBJECT
    Q_PROPERTY(bool IsModified READ IsModified)

public:
    explicit XNumberFilter(QWidget *parent = nullptr);
    ~XNumberFilter() override;

    /// True once the user changed anything since the last SetFilter.
    bool IsModified() const;
    /// Checks the bounds that are on; on failure writes the reason into sErrorText and puts the
    /// focus into the offending box. sErrorText is left alone on success.
    bool IsValid(QString &sErrorText);
    /// A new value object: each bound that is on as the text of its box, the others empty.
    NumberFilterValuePtr GetFilter() const;
    /// Loads fnValue (nullptr: no bounds) with its number type and allowed range; fnValue is
    /// neither written nor kept.
    void SetFilter(const NumberFilterValuePtr &fnValue, qint32 eTypeA, const QVariant &vRangeMinA = {},
                   const QVariant &vRangeMaxA = {});
    /// Switches both bounds off; always raises Changed.
    void ClearAll();

Q_SIGNALS:
    void Changed();

private:
    struct Private;
    std::unique_ptr<Private> d;
};

} // namespace PickerCtl
