#pragma once

#include <PickerCtl/pickerctl_export.h>

#include <QList>
#include <QString>
#include <functional>
#include <memory>
#include <vector>

namespace PickerCtl {

/// One column of a list's saved layout.
struct PICKERCTL_EXPORT ListColumnState
{
    QString id;            ///< stable column id ("name", "category", ...)
    bool visible = true;
    int width = 0;         ///< in pixels; 0 means "the list's default width"

    bool operator==(const ListColumnState &other) const = default;
};

/**
 * The layout of a field list's columns (order, visibility, widths, sort), kept apart from the
 * widget so that a catalogue can hand one out and a store can keep it as a string.
 *
 * The serialised form is versioned and self-checking:
 *   "PCLV1;sort=<id>:<asc|desc>;cols=<id>:<0|1>:<width>,<id>:<0|1>:<width>,..."
 * with "sort=" left empty when no sort is active. Ids are 1 to 64 characters of [A-Za-z0-9_.-].
 * Apply() takes such a string; a damaged or foreign one (other version, bad numbers, duplicate or
 * empty ids, a sort column that is not listed, widths beyond MaxColumnWidth, more than MaxColumns
 * columns, input longer than MaxSerialisedLength) is refused as a whole and changes nothing.
 * The Title is not part of the serialised form: it names the list's field, not its layout.
 *
 * A list that uses the object observes it, so a state applied here reaches its header at once.
 */
class PICKERCTL_EXPORT ListViewProperties
{
public:
    static constexpr int MaxColumns = 256;
    static constexpr int MaxColumnWidth = 10000;
    static constexpr qsizetype MaxSerialisedLength = 64 * 1024;

    ListViewProperties();
    ~ListViewProperties();
    ListViewProperties(const ListViewProperties &) = delete;
    ListViewProperties &operator=(const ListViewProperties &) = delete;

    /// The name of the field the list describes (the enum filter's root caption).
    QString Title() const;
    void setTitle(const QString &title);

    /// Columns in display order; empty until a list or Apply() has recorded a layout.
    QList<ListColumnState> Columns() const;
    /// Replaces the columns; refused (false, nothing changes) when the list breaks the rules above.
    bool setColumns(const QList<ListColumnState> &columns);

    /// Id of the sort column, "" when the list shows its items' own order.
    QString SortColumn() const;
    /// True for an ascending sort.
    bool SortAscending() const;
    /// Sets the sort; an id that is not one of Columns() (other than "") is refused.
    bool setSort(const QString &columnId, bool ascending = true);

    /// True when no layout has been recorded.
    bool IsEmpty() const;

    QString Serialise() const;
    /// Takes a serialised layout; false (and nothing changed) when the text is not a valid one.
    bool Apply(const QString &text);

    /// Calls the observer after every change of the layout (not of the Title); returns a ticket.
    int addObserver(std::function<void()> observer);
    void removeObserver(int ticket);

    /// True when the id may stand in a layout.
    static bool isValidColumnId(const QString &id);

private:
    void notify();

    struct Private;
    std::unique_ptr<Private> d;
};

using ListViewPropertiesPtr = std::shared_ptr<ListViewProperties>;

} // namespace PickerCtl
