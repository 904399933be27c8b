#include <PickerCtl/ListViewProperties.h>

#include <QSet>
#include <QStringList>
#include <algorithm>

namespace PickerCtl {

namespace {

const QString kVersionTag = QStringLiteral("PCLV1");
const QString kSortPrefix = QStringLiteral("sort=");
const QString kColumnsPrefix = QStringLiteral("cols=");
const QString kAscending = QStringLiteral("asc");
const QString kDescending = QStringLiteral("desc");
constexpr int kMaxIdLength = 64;

bool isIdChar(QChar c)
{
    return (c >= u'a' && c <= u'z') || (c >= u'A' && c <= u'Z') || (c >= u'0' && c <= u'9')
        || c == u'_' || c == u'.' || c == u'-';
}

bool columnsAreValid(const QList<ListColumnState> &columns)
{
    if (columns.size() > ListViewProperties::MaxColumns)
        return false;
    QSet<QString> seen;
    for (const ListColumnState &column : columns) {
        if (!ListViewProperties::isValidColumnId(column.id) || seen.contains(column.id))
            return false;
        if (column.width < 0 || column.width > ListViewProperties::MaxColumnWidth)
            return false;
        seen.insert(column.id);
    }
    return true;
}

bool hasColumn(const QList<ListColumnState> &columns, const QString &id)
{
    return std::any_of(columns.begin(), columns.end(),
                       [&id](const ListColumnState &column) { return column.id == id; });
}

// Strict decimal: digits only, so "+5", " 5" or "5px" in a stored layout mark it as foreign.
bool parseWidth(QStringView text, int &width)
{
    if (text.isEmpty() || text.size() > 5)
        return false;
    for (QChar c : text) {
        if (c < u'0' || c > u'9')
            return false;
    }
    width = text.toInt();
    return width <= ListViewProperties::MaxColumnWidth;
}

} // namespace

struct ListViewProperties::Private
{
    QString title;
    QList<ListColumnState> columns;
    QString sortColumn;
    bool sortAscending = true;
    std::vector<std::pair<int, std::function<void()>>> observers;
    int nextTicket = 1;
};

ListViewProperties::ListViewProperties()
    : d(std::make_unique<Private>())
{
}

ListViewProperties::~ListViewProperties() = default;

QString ListViewProperties::Title() const
{
    return d->title;
}

void ListViewProperties::setTitle(const QString &title)
{
    d->title = title;
}

QList<ListColumnState> ListViewProperties::Columns() const
{
    return d->columns;
}

bool ListViewProperties::setColumns(const QList<ListColumnState> &columns)
{
    if (!columnsAreValid(columns))
        return false;
    if (columns == d->columns)
        return true;
    d->columns = columns;
    if (!d->sortColumn.isEmpty() && !hasColumn(d->columns, d->sortColumn))
        d->sortColumn.clear();
    notify();
    return true;
}

QString ListViewProperties::SortColumn() const
{
    return d->sortColumn;
}

bool ListViewProperties::SortAscending() const
{
    return d->sortAscending;
}

bool ListViewProperties::setSort(const QString &columnId, bool ascending)
{
    if (!columnId.isEmpty() && !hasColumn(d->columns, columnId))
        return false;
    const bool effectiveAscending = columnId.isEmpty() ? true : ascending;
    if (columnId == d->sortColumn && effectiveAscending == d->sortAscending)
        return true;
    d->sortColumn = columnId;
    d->sortAscending = effectiveAscending;
    notify();
    return true;
}

bool ListViewProperties::IsEmpty() const
{
    return d->columns.isEmpty();
}

QString ListViewProperties::Serialise() const
{
    QString text = kVersionTag + u';' + kSortPrefix;
    if (!d->sortColumn.isEmpty())
        text += d->sortColumn + u':' + (d->sortAscending ? kAscending : kDescending);
    text += u';' + kColumnsPrefix;
    for (qsizetype i = 0; i < d->columns.size(); ++i) {
        const ListColumnState &column = d->columns.at(i);
        if (i > 0)
            text += u',';
        text += column.id + u':' + (column.visible ? u'1' : u'0') + u':' + QString::number(column.width);
    }
    return text;
}

bool ListViewProperties::Apply(const QString &text)
{
    if (text.isEmpty() || text.size() > MaxSerialisedLength)
        return false;
    const QStringList parts = text.split(u';');
    if (parts.size() != 3 || parts.at(0) != kVersionTag || !parts.at(1).startsWith(kSortPrefix)
        || !parts.at(2).startsWith(kColumnsPrefix))
        return false;

    QList<ListColumnState> columns;
    const QString columnText = parts.at(2).mid(kColumnsPrefix.size());
    if (!columnText.isEmpty()) {
        const QStringList entries = columnText.split(u',');
        if (entries.size() > MaxColumns)
            return false;
        for (const QString &entry : entries) {
            const QStringList fields = entry.split(u':');
            if (fields.size() != 3)
                return false;
            ListColumnState column;
            column.id = fields.at(0);
            if (fields.at(1) == u"1")
                column.visible = true;
            else if (fields.at(1) == u"0")
                column.visible = false;
            else
                return false;
            if (!parseWidth(fields.at(2), column.width))
                return false;
            columns.append(column);
        }
    }
    if (!columnsAreValid(columns))
        return false;

    QString sortColumn;
    bool ascending = true;
    const QString sortText = parts.at(1).mid(kSortPrefix.size());
    if (!sortText.isEmpty()) {
        const QStringList sortFields = sortText.split(u':');
        if (sortFields.size() != 2 || !hasColumn(columns, sortFields.at(0)))
            return false;
        if (sortFields.at(1) == kAscending)
            ascending = true;
        else if (sortFields.at(1) == kDescending)
            ascending = false;
        else
            return false;
        sortColumn = sortFields.at(0);
    }

    const bool changed = columns != d->columns || sortColumn != d->sortColumn || ascending != d->sortAscending;
    d->columns = columns;
    d->sortColumn = sortColumn;
    d->sortAscending = ascending;
    if (changed)
        notify();
    return true;
}

int ListViewProperties::addObserver(std::function<void()> observer)
{
    const int ticket = d->nextTicket++;
    d->observers.emplace_back(ticket, std::move(observer));
    return ticket;
}

void ListViewProperties::removeObserver(int ticket)
{
    std::erase_if(d->observers, [ticket](const auto &entry) { return entry.first == ticket; });
}

bool ListViewProperties::isValidColumnId(const QString &id)
{
    if (id.isEmpty() || id.size() > kMaxIdLength)
        return false;
    return std::all_of(id.begin(), id.end(), isIdChar);
}

void ListViewProperties::notify()
{
    // An observer may remove itself (a list that lets go of the object), so walk a copy.
    const auto observers = d->observers;
    for (const auto &entry : observers)
        entry.second();
}

} // namespace PickerCtl
