#include "widgets/fieldlistmodel.h"

#include "widgets/fieldlisticons.h"
#include "widgets/fieldlistmodelsort.h"

#include <PickerCtl/FieldCatalog.h>
#include <PickerCtl/TechnologyTypes.h>

#include <QMimeData>
#include <QStringList>
#include <QtDebug>
#include <algorithm>
#include <array>
#include <exception>
#include <numeric>

namespace PickerCtl {

namespace {

// Beyond this many runs of neighbouring rows a removal resets the model: shifting the collection
// once per run would cost runs x items.
constexpr size_t kMaxRemovalRuns = 64;

struct ColumnInfo
{
    const char16_t *id;
    const char *title;
    bool visibleByDefault;
};

constexpr std::array<ColumnInfo, FieldListModel::ColumnCount> kColumns{{
    {u"name", QT_TRANSLATE_NOOP("PickerCtl::FieldListModel", "Name"), true},
    {u"category", QT_TRANSLATE_NOOP("PickerCtl::FieldListModel", "Category"), true},
    {u"type", QT_TRANSLATE_NOOP("PickerCtl::FieldListModel", "Type"), true},
    {u"technology", QT_TRANSLATE_NOOP("PickerCtl::FieldListModel", "Technology"), true},
    {u"owner", QT_TRANSLATE_NOOP("PickerCtl::FieldListModel", "Owner"), true},
    {u"id", QT_TRANSLATE_NOOP("PickerCtl::FieldListModel", "Id"), false},
    {u"description", QT_TRANSLATE_NOOP("PickerCtl::FieldListModel", "Description"), false},
    {u"unit", QT_TRANSLATE_NOOP("PickerCtl::FieldListModel", "Unit"), false},
    {u"status", QT_TRANSLATE_NOOP("PickerCtl::FieldListModel", "Status"), false},
}};

const QString kCounterCode = QStringLiteral("CNT");
const QString kExpressionCode = QStringLiteral("EXP");
const QString kUdcCode = QStringLiteral("UDC");
constexpr auto kCounterText = QT_TRANSLATE_NOOP("PickerCtl::FieldListModel", "Counter");
constexpr auto kExpressionText = QT_TRANSLATE_NOOP("PickerCtl::FieldListModel", "Expression");
constexpr auto kUdcText = QT_TRANSLATE_NOOP("PickerCtl::FieldListModel", "UDC");
const QString kValidStatusCode = QStringLiteral("V");
constexpr auto kValidText = QT_TRANSLATE_NOOP("PickerCtl::FieldListModel", "Valid");
constexpr auto kNotValidatedText = QT_TRANSLATE_NOOP("PickerCtl::FieldListModel", "Not validated");
const QString kTechnologySeparator = QStringLiteral(", ");

QString catalogueTechnologyNames(const QString &mask)
{
    const FieldCatalogPtr catalog = FieldCatalog::instance();
    const TechnologyTypesPtr types = catalog ? catalog->GetTechnologyTypes() : nullptr;
    if (!types)
        return mask;
    QStringList names;
    for (const TechnologyTypePtr &type : *types) {
        if (type && !type->Code().isEmpty() && mask.contains(type->Code()))
            names.append(type->Name());
    }
    return names.join(kTechnologySeparator);
}

// What the exception being handled says; call only inside a catch block.
QString currentExceptionText()
{
    try {
        throw;
    } catch (const std::exception &error) {
        return QString::fromLocal8Bit(error.what());
    } catch (...) {
        return QStringLiteral("an exception of unknown type");
    }
}

} // namespace

FieldListModel::FieldListModel(QObject *parent)
    : QAbstractTableModel(parent)
    , m_technologyNamer(catalogueTechnologyNames)
{
}

FieldListModel::~FieldListModel() = default;

QString FieldListModel::columnId(int column)
{
    if (column < 0 || column >= ColumnCount)
        return {};
    return QString::fromUtf16(kColumns[size_t(column)].id);
}

int FieldListModel::columnFromId(const QString &id)
{
    for (int column = 0; column < ColumnCount; ++column) {
        if (id == QStringView(kColumns[size_t(column)].id))
            return column;
    }
    return -1;
}

QString FieldListModel::columnTitle(int column)
{
    if (column < 0 || column >= ColumnCount)
        return {};
    return tr(kColumns[size_t(column)].title);
}

bool FieldListModel::columnVisibleByDefault(int column)
{
    return column >= 0 && column < ColumnCount && kColumns[size_t(column)].visibleByDefault;
}

QString FieldListModel::typeText(const QString &typeCode)
{
    if (typeCode == kCounterCode)
        return tr(kCounterText);
    if (typeCode == kExpressionCode)
        return tr(kExpressionText);
    if (typeCode == kUdcCode)
        return tr(kUdcText);
    return typeCode;
}

QString FieldListModel::statusText(const Field &field)
{
    if (!field.IsExpression())
        return {};
    return field.ValidationStatus() == kValidStatusCode ? tr(kValidText) : tr(kNotValidatedText);
}

void FieldListModel::setFields(const FieldsPtr &fields)
{
    beginResetModel();
    m_fields = fields;
    m_order = {};
    m_position = {};
    m_sortColumn = -1;
    m_sortOrder = Qt::AscendingOrder;
    endResetModel();
}

FieldPtr FieldListModel::fieldAt(int row) const
{
    if (!m_fields || row < 0 || row >= m_fields->size())
        return nullptr;
    return m_fields->at(sourceRow(row));
}

void FieldListModel::appendFields(const std::vector<FieldPtr> &fields)
{
    if (fields.empty())
        return;
    if (!m_fields)
        m_fields = Fields::create();
    const int first = int(m_fields->size());
    beginInsertRows(QModelIndex(), first, first + int(fields.size()) - 1);
    m_fields->reserve(first + qsizetype(fields.size()));
    for (const FieldPtr &field : fields) {
        const int position = int(m_fields->size());
        m_fields->Add(field);
        if (!m_order.empty() || isSorted()) {
            m_order.push_back(position);
            m_position.push_back(position);
        }
    }
    endInsertRows();
}

void FieldListModel::removeSourceRow(int sourceRowNumber)
{
    if (!m_fields || sourceRowNumber < 0 || sourceRowNumber >= m_fields->size())
        return;
    const int row = viewRow(sourceRowNumber);
    beginRemoveRows(QModelIndex(), row, row);
    m_fields->removeAt(sourceRowNumber);
    if (!m_order.empty()) {
        m_order.erase(m_order.begin() + row);
        for (int &position : m_order) {
            if (position > sourceRowNumber)
                --position;
        }
        rebuildPositions();
    }
    endRemoveRows();
}

void FieldListModel::compactFields(const std::vector<char> &removed)
{
    std::vector<FieldPtr> kept;
    kept.reserve(size_t(m_fields->size()));
    for (qsizetype i = 0; i < m_fields->size(); ++i) {
        if (!removed[size_t(i)])
            kept.push_back(m_fields->at(i));
    }
    m_fields->clear();
    m_fields->reserve(qsizetype(kept.size()));
    for (const FieldPtr &field : kept)
        m_fields->Add(field);
}

void FieldListModel::removeSourceRows(const std::vector<int> &sourcePositions)
{
    if (!m_fields || sourcePositions.empty())
        return;
    const int count = int(m_fields->size());
    std::vector<std::pair<int, int>> runs;
    for (int position : sourcePositions) {
        if (position < 0 || position >= count)
            continue;
        if (!runs.empty() && runs.back().second + 1 == position)
            runs.back().second = position;
        else if (runs.empty() || position > runs.back().second)
            runs.emplace_back(position, position);
    }
    if (runs.empty())
        return;
    if (runs.size() == 1 && runs.front().first == runs.front().second) {
        removeSourceRow(runs.front().first);
        return;
    }
    if (!isSorted() && runs.size() <= kMaxRemovalRuns) {
        // From the last run to the first, so the earlier runs keep their row numbers.
        for (auto run = runs.rbegin(); run != runs.rend(); ++run) {
            beginRemoveRows(QModelIndex(), run->first, run->second);
            std::vector<char> removed(size_t(m_fields->size()), 0);
            std::fill(removed.begin() + run->first, removed.begin() + run->second + 1, 1);
            compactFields(removed);
            endRemoveRows();
        }
        return;
    }
    beginResetModel();
    std::vector<char> removed(size_t(count), 0);
    for (const auto &run : runs)
        std::fill(removed.begin() + run.first, removed.begin() + run.second + 1, 1);
    compactFields(removed);
    if (!m_order.empty()) {
        std::vector<int> newPosition(size_t(count), -1);
        int next = 0;
        for (int position = 0; position < count; ++position) {
            if (!removed[size_t(position)])
                newPosition[size_t(position)] = next++;
        }
        std::vector<int> order;
        order.reserve(size_t(next));
        for (int position : m_order) {
            if (newPosition[size_t(position)] >= 0)
                order.push_back(newPosition[size_t(position)]);
        }
        m_order = std::move(order);
        rebuildPositions();
    }
    endResetModel();
}

void FieldListModel::insertFields(int sourcePosition, const std::vector<FieldPtr> &fields)
{
    if (fields.empty())
        return;
    if (!m_fields)
        m_fields = Fields::create();
    const int count = int(m_fields->size());
    if (isSorted() || sourcePosition < 0 || sourcePosition >= count) {
        appendFields(fields);
        return;
    }
    beginInsertRows(QModelIndex(), sourcePosition, sourcePosition + int(fields.size()) - 1);
    std::vector<FieldPtr> items;
    items.reserve(size_t(count) + fields.size());
    for (int i = 0; i < sourcePosition; ++i)
        items.push_back(m_fields->at(i));
    items.insert(items.end(), fields.begin(), fields.end());
    for (int i = sourcePosition; i < count; ++i)
        items.push_back(m_fields->at(i));
    m_fields->clear();
    m_fields->reserve(qsizetype(items.size()));
    for (const FieldPtr &field : items)
        m_fields->Add(field);
    endInsertRows();
}

bool FieldListModel::moveRowsBy(int first, int last, int delta)
{
    const int neighbour = delta > 0 ? last + 1 : first - 1;
    if (isSorted() || !m_fields || (delta != 1 && delta != -1) || first < 0 || first > last
        || last >= rowCount() || neighbour < 0 || neighbour >= rowCount())
        return false;
    // Qt counts the destination before the move: one further down means two rows past the block.
    const int destination = delta > 0 ? last + 2 : neighbour;
    if (!beginMoveRows(QModelIndex(), first, last, QModelIndex(), destination))
        return false;
    // The block passing its neighbour is the neighbour passing the block: one item moves.
    m_fields->move(neighbour, delta > 0 ? first : last);
    endMoveRows();
    return true;
}

void FieldListModel::setSortingEnabled(bool on)
{
    if (m_sortingEnabled == on)
        return;
    if (!on)
        clearSort();
    m_sortingEnabled = on;
}

void FieldListModel::clearSort()
{
    if (!isSorted())
        return;
    applyOrder({}, -1, Qt::AscendingOrder);
}

void FieldListModel::sort(int column, Qt::SortOrder order)
{
    // A header click calls this from the event loop: a failing field or catalogue keeps the order.
    try {
        sortBy(column, order);
    } catch (...) {
        warnOnce("sorting", currentExceptionText());
    }
}

void FieldListModel::sortBy(int column, Qt::SortOrder order)
{
    if (column < 0) {
        clearSort();
        return;
    }
    if (!m_sortingEnabled || column >= ColumnCount || !m_fields)
        return;

    const int count = rowCount();
    std::vector<int> rows(static_cast<size_t>(count));
    std::iota(rows.begin(), rows.end(), 0);
    const bool ascending = order == Qt::AscendingOrder;

    if (column == IdColumn) {
        std::vector<qint32> ids(static_cast<size_t>(count));
        for (int i = 0; i < count; ++i)
            ids[size_t(i)] = m_fields->at(i)->Id();
        std::stable_sort(rows.begin(), rows.end(), [&ids, ascending](int a, int b) {
            return ascending ? ids[size_t(a)] < ids[size_t(b)] : ids[size_t(b)] < ids[size_t(a)];
        });
    } else {
        std::vector<QString> texts;
        texts.reserve(size_t(count));
        for (int i = 0; i < count; ++i) {
            const FieldPtr &field = m_fields->at(i);
            texts.push_back(field ? cellText(*field, column) : QString());
        }
        rows = FieldListSort::textOrder(texts, ascending);
    }
    applyOrder(std::move(rows), column, order);
}

void FieldListModel::applyOrder(std::vector<int> order, int column, Qt::SortOrder sortOrder)
{
    Q_EMIT layoutAboutToBeChanged({}, QAbstractItemModel::VerticalSortHint);
    const QModelIndexList before = persistentIndexList();
    std::vector<int> sourceRows;
    sourceRows.reserve(size_t(before.size()));
    for (const QModelIndex &index : before)
        sourceRows.push_back(sourceRow(index.row()));

    m_order = std::move(order);
    m_sortColumn = column;
    m_sortOrder = sortOrder;
    rebuildPositions();

    QModelIndexList after;
    after.reserve(before.size());
    for (qsizetype i = 0; i < before.size(); ++i)
        after.append(index(viewRow(sourceRows[size_t(i)]), before.at(i).column()));
    changePersistentIndexList(before, after);
    Q_EMIT layoutChanged({}, QAbstractItemModel::VerticalSortHint);
}

void FieldListModel::rebuildPositions()
{
    m_position.assign(m_order.size(), 0);
    for (size_t row = 0; row < m_order.size(); ++row)
        m_position[size_t(m_order[row])] = int(row);
}

void FieldListModel::setTechnologyNamer(TechnologyNamer namer)
{
    m_technologyNamer = std::move(namer);
    m_technologyCache.clear();
}

void FieldListModel::setRowColors(const std::shared_ptr<ListRowColors> &provider)
{
    m_rowColors = provider;
    refreshLook();
}

void FieldListModel::setFontProvider(const std::shared_ptr<ListFontProvider> &provider)
{
    m_fontProvider = provider;
    refreshLook();
}

void FieldListModel::setIconProvider(const std::shared_ptr<ListIconProvider> &provider)
{
    m_iconProvider = provider;
    refreshLook();
}

void FieldListModel::setLargeIcons(bool large)
{
    if (m_largeIcons == large)
        return;
    m_largeIcons = large;
    refreshLook();
}

void FieldListModel::setBaseFont(const QFont &font)
{
    m_baseFont = font;
    refreshLook();
}

void FieldListModel::refreshLook()
{
    if (rowCount() > 0)
        Q_EMIT dataChanged(index(0, 0), index(rowCount() - 1, ColumnCount - 1),
                           {Qt::DecorationRole, Qt::FontRole, Qt::BackgroundRole});
}

int FieldListModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() || !m_fields ? 0 : int(m_fields->size());
}

int FieldListModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : ColumnCount;
}

QString FieldListModel::technologyText(const QString &mask) const
{
    auto it = m_technologyCache.constFind(mask);
    if (it != m_technologyCache.cend())
        return *it;
    QString text;
    try {
        text = m_technologyNamer ? m_technologyNamer(mask) : mask;
    } catch (...) {
        // Not cached: the catalogue is asked again on the next paint and may have recovered.
        warnOnce("naming technologies", currentExceptionText());
        return {};
    }
    m_technologyCache.insert(mask, text);
    return text;
}

void FieldListModel::warnOnce(const char *activity, const QString &reason) const
{
    if (m_warned)
        return;
    m_warned = true;
    qWarning("Field list: %s failed (%s); affected cells stay empty. Further failures are not logged.",
             activity, qUtf8Printable(reason));
}

QString FieldListModel::cellText(const Field &field, int column) const
{
    switch (column) {
    case NameColumn: return field.Name();
    case CategoryColumn: return field.CategoryName();
    case TypeColumn: return typeText(field.FieldTypeCode());
    case TechnologyColumn: return technologyText(field.TechMask());
    case OwnerColumn: return field.OwnerName();
    case IdColumn: return QString::number(field.Id());
    case DescriptionColumn: return field.Description();
    case UnitColumn: return field.Unit();
    case StatusColumn: return statusText(field);
    default: return {};
    }
}

QVariant FieldListModel::data(const QModelIndex &index, int role) const
{
    // Views call this while painting: a field or catalogue that throws shows as an empty cell.
    try {
        return cellData(index, role);
    } catch (...) {
        warnOnce("reading a cell", currentExceptionText());
        return {};
    }
}

QVariant FieldListModel::cellData(const QModelIndex &index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid | CheckIndexOption::ParentIsInvalid))
        return {};
    const FieldPtr &field = m_fields->at(sourceRow(index.row()));
    if (!field)
        return {};
    switch (role) {
    case Qt::DisplayRole:
    case Qt::EditRole:
        if (index.column() == IdColumn)
            return field->Id();
        return cellText(*field, index.column());
    case Qt::ToolTipRole:
        return index.column() == DescriptionColumn || index.column() == NameColumn
                   ? QVariant(cellText(*field, index.column()))
                   : QVariant();
    case Qt::DecorationRole:
        if (index.column() != NameColumn)
            return {};
        if (m_iconProvider)
            return m_iconProvider->ItemIcon(*field, m_largeIcons);
        return fieldKindIcon(fieldKindOf(*field));
    case Qt::FontRole:
        if (m_fontProvider)
            return m_fontProvider->ItemFont(*field, m_baseFont);
        return {};
    case Qt::BackgroundRole:
        if (m_rowColors) {
            const QBrush brush = m_rowColors->RowBackground(index.row(), *field);
            if (brush.style() != Qt::NoBrush)
                return brush;
        }
        return {};
    case FieldRole:
        return QVariant::fromValue(field);
    case KeyRole:
        return field->Key();
    default:
        return {};
    }
}

QVariant FieldListModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    // Painted by the header like data(): nothing may escape into the event loop from here either.
    try {
        if (orientation != Qt::Horizontal || section < 0 || section >= ColumnCount)
            return QAbstractTableModel::headerData(section, orientation, role);
        if (role == Qt::DisplayRole)
            return columnTitle(section);
        if (role == ColumnIdRole)
            return columnId(section);
    } catch (...) {
        warnOnce("reading a column title", currentExceptionText());
    }
    return {};
}

Qt::ItemFlags FieldListModel::flags(const QModelIndex &index) const
{
    // Drops land between rows or on the empty area, never on an item.
    if (!index.isValid())
        return m_dropHandler ? Qt::ItemIsDropEnabled : Qt::NoItemFlags;
    return Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsDragEnabled | Qt::ItemNeverHasChildren;
}

QModelIndex FieldListModel::sibling(int row, int column, const QModelIndex &index) const
{
    Q_UNUSED(index);
    return row >= 0 && row < rowCount() && column >= 0 && column < ColumnCount ? createIndex(row, column)
                                                                              : QModelIndex();
}

void FieldListModel::setDropHandler(DropHandler handler)
{
    m_dropHandler = std::move(handler);
}

Qt::DropActions FieldListModel::supportedDropActions() const
{
    return m_dropHandler ? Qt::CopyAction | Qt::MoveAction : Qt::CopyAction;
}

Qt::DropActions FieldListModel::supportedDragActions() const
{
    // A drag out of a list offers a copy: the list never gives its fields away.
    return Qt::CopyAction;
}

int FieldListModel::dropRow(int row, const QModelIndex &parent) const
{
    if (parent.isValid())
        return parent.row();
    return row < 0 || row > rowCount() ? rowCount() : row;
}

bool FieldListModel::canDropMimeData(const QMimeData *data, Qt::DropAction action, int row, int column,
                                     const QModelIndex &parent) const
{
    Q_UNUSED(action);
    Q_UNUSED(column);
    return m_dropHandler && data && m_dropHandler(data, dropRow(row, parent), false);
}

bool FieldListModel::dropMimeData(const QMimeData *data, Qt::DropAction action, int row, int column,
                                  const QModelIndex &parent)
{
    Q_UNUSED(action);
    Q_UNUSED(column);
    return m_dropHandler && data && m_dropHandler(data, dropRow(row, parent), true);
}

} // namespace PickerCtl
