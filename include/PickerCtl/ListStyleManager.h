#pragma once

#include <PickerCtl/Field.h>

#include <QBrush>
#include <QFont>
#include <QIcon>
#include <memory>

namespace PickerCtl {

/// Supplies the row colours of a field list.
class PICKERCTL_EXPORT ListRowColors
{
public:
    virtual ~ListRowColors();
    /// Background of the row at that display position; Qt::NoBrush keeps the view's own.
    virtual QBrush RowBackground(qsizetype row, const Field &field) const = 0;
};

/// Supplies the font of each item of a field list.
class PICKERCTL_EXPORT ListFontProvider
{
public:
    virtual ~ListFontProvider();
    /// The font for the field, derived from the list's font.
    virtual QFont ItemFont(const Field &field, const QFont &listFont) const = 0;
};

/// Supplies the icon of each item of a field list.
class PICKERCTL_EXPORT ListIconProvider
{
public:
    virtual ~ListIconProvider();
    /// The icon of the field's kind; large for the large-icon style.
    virtual QIcon ItemIcon(const Field &field, bool large) const = 0;
};

/**
 * The look of the field lists: every second row banded, an italic font for expressions
 * that are not validated, and one icon per field kind (counter, expression, user-defined calculation).
 * One object serves as all three providers of XStaticList.
 */
class PICKERCTL_EXPORT ListStyleManager : public ListRowColors, public ListFontProvider, public ListIconProvider
{
public:
    ListStyleManager();
    ~ListStyleManager() override;

    QBrush RowBackground(qsizetype row, const Field &field) const override;
    QFont ItemFont(const Field &field, const QFont &listFont) const override;
    QIcon ItemIcon(const Field &field, bool large) const override;

    /// A tint of every second row over the list's own banding; invalid (the default) leaves the
    /// banding to the list's palette (AlternateBase).
    QColor AlternateColor() const;
    void setAlternateColor(const QColor &color);

private:
    QColor m_alternate;
};

using ListStyleManagerPtr = std::shared_ptr<ListStyleManager>;

} // namespace PickerCtl
