#pragma once

#include <PickerCtl/Fields.h>
#include <PickerCtl/ListStyleManager.h>
#include <PickerCtl/pickerctl_export.h>

#include <QAbstractTableModel>
#include <QFont>
#include <QHash>

class QMimeData;
#include <functional>
#include <vector>

namespace PickerCtl {

/**
 * Table model over a Fields collection held by reference: every cell asks its field, nothing is
 * copied per row. A sort only builds a permutation of row numbers; the collection keeps its
 * order, because it is the host's (a template's order is its report order).
 *
 * Rows of the model are display rows; sourceRow()/viewRow() translate to and from positions in
 * the collection.
 *
 * Fields and the technology namer belong to the host's catalogue and may throw anything; what
 * Qt calls (data, headerData, sort) catches it, shows an empty cell or keeps the order, and
 * logs the first failure with qWarning.
 */
class PICKERCTL_AUTOTEST_EXPORT FieldListModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    enum Column {
        NameColumn,
        CategoryColumn,
        TypeColumn,
        TechnologyColumn,
        OwnerColumn,
        IdColumn,
        DescriptionColumn,
        UnitColumn,
        StatusColumn,
        ColumnCount
    };

    enum Role {
        FieldRole = Qt::UserRole + 1,  ///< the FieldPtr of the row
        KeyRole,                       ///< the field's key
        ColumnIdRole                   ///< header data: the column's stable id
    };

    /// Turns a technology mask into the names of its technologies, for the "technology" column.
    using TechnologyNamer = std::function<QString(const QString &mask)>;

    explicit FieldListModel(QObject *parent = nullptr);
    ~FieldListModel() override;

    static QString columnId(int column);
    /// The column with that id, or -1.
    static int columnFromId(const QString &id);
    static QString columnTitle(int column);
    /// Whether a column is shown in a list that has no saved layout.
    static bool columnVisibleByDefault(int column);
    static QString typeText(const QString &typeCode);
    static QString statusText(const Field &field);

    FieldsPtr fields() const { return m_fields; }
    /// Shows the collection by reference (null: nothing); drops the sort.
    void setFields(const FieldsPtr &fields);
    FieldPtr fieldAt(int row) const;

    int sourceRow(int row) const { return m_order.empty() ? row : m_order[size_t(row)]; }
    int viewRow(int sourceRowNumber) const
    {
        return m_order.empty() ? sourceRowNumber : m_position[size_t(sourceRowNumber)];
    }

    /// Appends to the collection; the new rows are shown last, also while sorted.
    void appendFields(const std::vector<FieldPtr> &fields);
    /// Removes the collection's item at that position.
    void removeSourceRow(int sourceRowNumber);
    /// Removes the items at those collection positions (ascending, no repeats) in one pass over the
    /// collection per run of neighbouring rows; scattered positions reset the model instead of
    /// shifting the collection once per run. A sort stays in force.
    void removeSourceRows(const std::vector<int> &sourcePositions);
    /// Inserts the fields before that collection position (its end appends), in one insertion;
    /// while sorted they are appended and shown last, as appendFields does.
    void insertFields(int sourcePosition, const std::vector<FieldPtr> &fields);
    /// Moves one row by one place (up when delta is -1, down when +1); only while unsorted.
    bool moveRowBy(int row, int delta) { return moveRowsBy(row, row, delta); }
    /// Moves the rows first..last together by one place; only while unsorted.
    bool moveRowsBy(int first, int last, int delta);

    bool isSortingEnabled() const { return m_sortingEnabled; }
    /// Switching sorting off also drops an active sort.
    void setSortingEnabled(bool on);
    /// -1 when the items stand in their own order.
    int sortColumn() const { return m_sortColumn; }
    Qt::SortOrder sortOrder() const { return m_sortOrder; }
    bool isSorted() const { return m_sortColumn >= 0; }
    /// Returns to the items' own order.
    void clearSort();

    void setTechnologyNamer(TechnologyNamer namer);
    void setRowColors(const std::shared_ptr<ListRowColors> &provider);
    void setFontProvider(const std::shared_ptr<ListFontProvider> &provider);
    void setIconProvider(const std::shared_ptr<ListIconProvider> &provider);
    void setLargeIcons(bool large);
    void setBaseFont(const QFont &font);

    int rowCount(const QModelIndex &parent = QModelIndex()) const override;
    int columnCount(const QModelIndex &parent = QModelIndex()) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;
    QModelIndex sibling(int row, int column, const QModelIndex &index) const override;
    /// Sorts when sorting is enabled; a column of -1 returns to the items' own order. A field or
    /// technology namer that throws leaves the order as it was.
    void sort(int column, Qt::SortOrder order = Qt::AscendingOrder) override;

    /// Decides a drop before display row `row` (rowCount() for the end); `apply` false only asks.
    using DropHandler = std::function<bool(const QMimeData *data, int row, bool apply)>;
    /// A list with a handler accepts drops between its rows and on its empty area.
    void setDropHandler(DropHandler handler);
    bool hasDropHandler() const { return bool(m_dropHandler); }
    Qt::DropActions supportedDropActions() const override;
    Qt::DropActions supportedDragActions() const override;
    bool canDropMimeData(const QMimeData *data, Qt::DropAction action, int row, int column,
                         const QModelIndex &parent) const override;
    bool dropMimeData(const QMimeData *data, Qt::DropAction action, int row, int column,
                      const QModelIndex &parent) override;

private:
    void sortBy(int column, Qt::SortOrder order);
    QVariant cellData(const QModelIndex &index, int role) const;
    /// Logs the first failure of a field or the technology namer; the rest would flood the log.
    void warnOnce(const char *activity, const QString &reason) const;
    QString technologyText(const QString &mask) const;
    QString cellText(const Field &field, int column) const;
    void applyOrder(std::vector<int> order, int column, Qt::SortOrder sortOrder);
    void rebuildPositions();
    void refreshLook();
    /// Keeps the collection's items whose flag in `removed` is not set, in order.
    void compactFields(const std::vector<char> &removed);
    int dropRow(int row, const QModelIndex &parent) const;

    FieldsPtr m_fields;
    std::vector<int> m_order;     ///< display row -> collection position; empty while unsorted
    std::vector<int> m_position;  ///< collection position -> display row; empty while unsorted
    int m_sortColumn = -1;
    Qt::SortOrder m_sortOrder = Qt::AscendingOrder;
    bool m_sortingEnabled = true;
    TechnologyNamer m_technologyNamer;
    mutable QHash<QString, QString> m_technologyCache;
    mutable bool m_warned = false;
    std::shared_ptr<ListRowColors> m_rowColors;
    std::shared_ptr<ListFontProvider> m_fontProvider;
    std::shared_ptr<ListIconProvider> m_iconProvider;
    bool m_largeIcons = false;
    QFont m_baseFont;
    DropHandler m_dropHandler;
};

} // namespace PickerCtl
