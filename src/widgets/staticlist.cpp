#include <PickerCtl/XStaticList.h>

#include "widgets/columnlayout.h"
#include "widgets/columnsdialog.h"
#include "widgets/columnsortdialog.h"
#include "widgets/fieldlistmodel.h"
#include "widgets/staticlistdelegate.h"
#include "widgets/staticlistselection.h"
#include "widgets/staticliststatus.h"
#include "widgets/staticlistviews.h"

#include <PickerCtl/AppServices.h>

#include <QDrag>
#include <QEvent>
#include <QHeaderView>
#include <QMenu>
#include <QMimeData>
#include <QStackedLayout>
#include <QVBoxLayout>
#include <algorithm>

namespace PickerCtl {

namespace {

const QString kPropertiesKeySuffix = QStringLiteral(" Columns");
const QString kColumnEntryPrefix = QStringLiteral("mnuHeaderColumn_");
constexpr int kDefaultNameMinimum = 80;
constexpr int kDefaultNameWidth = 140;
constexpr int kDefaultColumnWidth = 100;
constexpr int kDefaultDescriptionWidth = 200;
constexpr int kDefaultTechnologyWidth = 140;
// Measurement names run long ("DRB.IPThpDl.QCI", "RRC.ConnEstabAtt.Cause"); a fresh list shows
// this many average characters of them before the user sizes the column.
constexpr int kNameDefaultCharacters = 34;
constexpr int kLargeIconSize = 32;
constexpr int kSmallIconSize = 16;

bool isUserInput(QEvent::Type type)
{
    switch (type) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseMove:
    case QEvent::Wheel:
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
    case QEvent::ContextMenu:
    case QEvent::DragEnter:
    case QEvent::Drop:
        return true;
    default:
        return false;
    }
}

} // namespace

struct XStaticList::Private
{
    XStaticList *q;
    FieldListModel *model;
    StaticListViewState viewState;
    StaticListTreeView *tree;
    StaticListIconView *icons;
    StaticListDelegate *treeDelegate;
    StaticListDelegate *iconDelegate;
    QStackedLayout *stack;
    QMenu *headerMenu;
    ListViewPropertiesPtr properties;
    int propertiesTicket = 0;
    PropertyStorePtr store;
    QString caption;
    EListStyle listStyle = stlReport;
    EArrangeIcons arrange = stlArrangeAuto;
    bool multiSelect = true;
    bool allowDragDrop = false;
    XStaticList::DragExecutor dragExecutor;
    bool frozen = false;
    int updateDepth = 0;
    int nameMinimum = kDefaultNameMinimum;
    int nameDefault = kDefaultNameWidth;
    bool syncingLayout = false;
    std::vector<int> lastWidths;

    explicit Private(XStaticList *owner);

    QItemSelectionModel *selection() const { return tree->selectionModel(); }
    RowSpans selectedSpans() const { return rowSpansOf(selection()->selection()); }
    void select(const RowSpans &spans);
    int defaultWidth(int column) const;
    void updateRepaint();
    void applyProperties();
    void recordLayout();
    void watchProperties(const ListViewPropertiesPtr &newProperties);
    void sortKeepingSelection(int column, Qt::SortOrder order);
    void moveSelection(int delta);
    void showSortIndicator();
    void prepareHeaderMenu();
    void runDrag(Qt::DropActions supported);
    Qt::DropAction execDrag(std::unique_ptr<QMimeData> data, Qt::DropActions supported);
    void configureIconView();
};

XStaticList::Private::Private(XStaticList *owner)
    : q(owner)
    , model(new FieldListModel(owner))
    , tree(new StaticListTreeView(viewState, owner))
    , icons(new StaticListIconView(viewState, owner))
    , treeDelegate(new StaticListDelegate(tree))
    , iconDelegate(new StaticListDelegate(icons))
    , stack(new QStackedLayout)
    , headerMenu(new QMenu(owner))
    , lastWidths(FieldListModel::ColumnCount, 0)
{
}

void XStaticList::Private::select(const RowSpans &spans)
{
    if (spans.empty())
        selection()->clearSelection();
    else
        // The ranges already cover whole rows and do not overlap. With the Rows flag Qt would widen
        // and merge them range by range again, which takes minutes for 50,000 scattered rows.
        selection()->select(selectionOf(spans, model), QItemSelectionModel::ClearAndSelect);
}

int XStaticList::Private::defaultWidth(int column) const
{
    if (column == FieldListModel::NameColumn)
        return qMax(nameDefault, q->fontMetrics().averageCharWidth() * kNameDefaultCharacters);
    if (column == FieldListModel::DescriptionColumn)
        return kDefaultDescriptionWidth;
    if (column == FieldListModel::TechnologyColumn)
        return kDefaultTechnologyWidth;
    return kDefaultColumnWidth;
}

void XStaticList::Private::updateRepaint()
{
    q->setUpdatesEnabled(!frozen && updateDepth == 0);
}

void XStaticList::Private::applyProperties()
{
    if (syncingLayout)
        return;
    syncingLayout = true;
    const auto placement = resolveColumnLayout(properties->Columns(),
                                               [this](int column) { return defaultWidth(column); });
    applyColumnPlacement(tree->header(), placement);
    for (const ColumnPlacement &place : placement)
        lastWidths[size_t(place.column)] = place.width;
    const int sortColumn = FieldListModel::columnFromId(properties->SortColumn());
    if (sortColumn >= 0 && model->isSortingEnabled())
        sortKeepingSelection(sortColumn, properties->SortAscending() ? Qt::AscendingOrder : Qt::DescendingOrder);
    else
        sortKeepingSelection(-1, Qt::AscendingOrder);
    syncingLayout = false;
}

void XStaticList::Private::recordLayout()
{
    if (syncingLayout)
        return;
    syncingLayout = true;
    properties->setColumns(captureColumnLayout(tree->header(), lastWidths));
    properties->setSort(FieldListModel::columnId(model->sortColumn()), model->sortOrder() == Qt::AscendingOrder);
    syncingLayout = false;
}

void XStaticList::Private::watchProperties(const ListViewPropertiesPtr &newProperties)
{
    if (properties)
        properties->removeObserver(propertiesTicket);
    properties = newProperties ? newProperties : std::make_shared<ListViewProperties>();
    propertiesTicket = properties->addObserver([this] { applyProperties(); });
}

void XStaticList::Private::sortKeepingSelection(int column, Qt::SortOrder order)
{
    if (column >= 0 && (column == model->sortColumn() && order == model->sortOrder()))
        return;
    if (column < 0 && !model->isSorted()) {
        showSortIndicator();
        return;
    }
    // Reordering a catalogue-wide list takes a noticeable moment.
    const WaitCursorGuard wait;
    // The selection is carried over by collection position: huge selections would otherwise be
    // split into one persistent index per row while the rows are reordered.
    std::vector<int> selectedSources;
    for (const auto &span : selectedSpans()) {
        for (int row = span.first; row <= span.second; ++row)
            selectedSources.push_back(model->sourceRow(row));
    }
    const QModelIndex current = selection()->currentIndex();
    const int currentSource = current.isValid() ? model->sourceRow(current.row()) : -1;
    {
        const QSignalBlocker blocker(selection());
        selection()->clear();
        model->sort(column, order);
        std::vector<int> rows;
        rows.reserve(selectedSources.size());
        for (int source : selectedSources)
            rows.push_back(model->viewRow(source));
        select(rowSpansOfRows(std::move(rows)));
        if (currentSource >= 0)
            selection()->setCurrentIndex(model->index(model->viewRow(currentSource), 0), QItemSelectionModel::NoUpdate);
    }
    tree->viewport()->update();
    icons->viewport()->update();
    showSortIndicator();
    recordLayout();
}

void XStaticList::Private::moveSelection(int delta)
{
    const RowSpans spans = selectedSpans();
    const RowSpans moving = movingSpans(spans, model->rowCount(), delta);
    for (const auto &span : moving)
        model->moveRowsBy(span.first, span.second, delta);
    select(movedSpans(spans, moving, delta));
}

void XStaticList::Private::showSortIndicator()
{
    QHeaderView *header = tree->header();
    header->setSortIndicatorShown(model->isSortingEnabled());
    header->setSortIndicator(model->isSorted() ? model->sortColumn() : -1, model->sortOrder());
}

void XStaticList::Private::prepareHeaderMenu()
{
    headerMenu->clear();
    QHeaderView *header = tree->header();
    for (int position = 0; position < header->count(); ++position) {
        const int column = header->logicalIndex(position);
        const QString id = FieldListModel::columnId(column);
        QAction *entry = headerMenu->addAction(FieldListModel::columnTitle(column));
        entry->setObjectName(kColumnEntryPrefix + id);
        entry->setCheckable(true);
        entry->setChecked(!header->isSectionHidden(column));
        entry->setEnabled(column != FieldListModel::NameColumn);
        QObject::connect(entry, &QAction::toggled, q, [this, id](bool on) { q->setColumnVisible(id, on); });
    }
    headerMenu->addSeparator();
    QAction *customize = headerMenu->addAction(XStaticList::tr("Customize Columns..."), q, &XStaticList::CustomizeColumns);
    customize->setObjectName(QStringLiteral("mnuHeaderCustomize"));
    QAction *sort = headerMenu->addAction(XStaticList::tr("Sort..."), q, &XStaticList::CustomizeColumnSort);
    sort->setObjectName(QStringLiteral("mnuHeaderSort"));
    sort->setEnabled(model->isSortingEnabled());
    QAction *autoSize = headerMenu->addAction(XStaticList::tr("Auto-size Columns"), q, &XStaticList::AutoSizeColumns);
    autoSize->setObjectName(QStringLiteral("mnuHeaderAutoSize"));
    QAction *clearSort = headerMenu->addAction(XStaticList::tr("Clear Sort"), q, &XStaticList::ClearHeaderIcon);
    clearSort->setObjectName(QStringLiteral("mnuHeaderClearSort"));
    clearSort->setEnabled(model->isSorted());
}

void XStaticList::Private::runDrag(Qt::DropActions supported)
{
    if (!allowDragDrop || frozen || !selection()->hasSelection())
        return;
    auto data = std::make_unique<QMimeData>();
    Q_EMIT q->DragStarted(data.get(), supported);
    const QStringList formats = data->formats();
    for (const QString &format : formats)
        Q_EMIT q->DragDataRequested(data.get(), format);
    const Qt::DropAction effect = dragExecutor ? dragExecutor(std::move(data), supported)
                                               : execDrag(std::move(data), supported);
    Q_EMIT q->DragCompleted(effect);
}

Qt::DropAction XStaticList::Private::execDrag(std::unique_ptr<QMimeData> data, Qt::DropActions supported)
{
    // The drag owns its data and deletes itself when exec returns.
    auto *drag = new QDrag(q->view());
    drag->setMimeData(data.release());
    return drag->exec(supported, Qt::CopyAction);
}

void XStaticList::Private::configureIconView()
{
    const bool large = listStyle == stlLargeIcons;
    model->setLargeIcons(large);
    if (listStyle == stlList) {
        icons->setViewMode(QListView::ListMode);
        icons->setFlow(QListView::TopToBottom);
        icons->setWrapping(true);
        icons->setResizeMode(QListView::Adjust);
        icons->setIconSize(QSize(kSmallIconSize, kSmallIconSize));
        return;
    }
    icons->setViewMode(QListView::IconMode);
    icons->setIconSize(large ? QSize(kLargeIconSize, kLargeIconSize) : QSize(kSmallIconSize, kSmallIconSize));
    icons->setMovement(arrange == stlArrangeNone ? QListView::Free : QListView::Static);
    icons->setResizeMode(arrange == stlArrangeNone ? QListView::Fixed : QListView::Adjust);
    icons->setFlow(arrange == stlArrangeLeft ? QListView::TopToBottom : QListView::LeftToRight);
    icons->setWrapping(true);
}

XStaticList::XStaticList(QWidget *parent)
    : QWidget(parent)
    , d(std::make_unique<Private>(this))
{
    d->tree->setObjectName(QStringLiteral("lvw"));
    d->icons->setObjectName(QStringLiteral("lvwIcons"));
    d->headerMenu->setObjectName(QStringLiteral("mnuHeader"));

    d->tree->setModel(d->model);
    d->tree->setRootIsDecorated(false);
    d->tree->setItemsExpandable(false);
    d->tree->setUniformRowHeights(true);
    d->tree->setAllColumnsShowFocus(true);
    d->tree->setItemDelegate(d->treeDelegate);
    d->icons->setModel(d->model);
    QItemSelectionModel *ownSelection = d->icons->selectionModel();
    d->icons->setSelectionModel(d->tree->selectionModel());
    delete ownSelection;
    d->icons->setItemDelegate(d->iconDelegate);
    d->icons->setUniformItemSizes(true);

    for (QAbstractItemView *itemView : {static_cast<QAbstractItemView *>(d->tree), static_cast<QAbstractItemView *>(d->icons)}) {
        itemView->setAccessibleName(tr("Fields"));
        itemView->setAccessibleDescription(tr("The fields shown; select them to copy, drag or open them"));
        itemView->setSelectionBehavior(QAbstractItemView::SelectRows);
        itemView->setSelectionMode(QAbstractItemView::ExtendedSelection);
        itemView->setEditTriggers(QAbstractItemView::NoEditTriggers);
        itemView->setDragDropMode(QAbstractItemView::DragOnly);
        itemView->setDragEnabled(false);
        itemView->setContextMenuPolicy(Qt::CustomContextMenu);
        itemView->installEventFilter(this);
        itemView->viewport()->installEventFilter(this);
        connect(itemView, &QAbstractItemView::customContextMenuRequested, this, [this, itemView](QPoint pos) {
            Q_EMIT ContextMenuRequested(itemView->viewport()->mapToGlobal(pos));
        });
        connect(itemView, &QAbstractItemView::clicked, this,
                [this](const QModelIndex &index) { Q_EMIT ItemClick(d->model->fieldAt(index.row())); });
        connect(itemView, &QAbstractItemView::doubleClicked, this,
                [this](const QModelIndex &index) { Q_EMIT ItemDblClick(d->model->fieldAt(index.row())); });
    }
    d->viewState.startDrag = [this](Qt::DropActions supported) { d->runDrag(supported); };
    connect(d->selection(), &QItemSelectionModel::selectionChanged, this, [this] { Q_EMIT SelectionChange(); });

    QHeaderView *header = d->tree->header();
    header->setSectionsMovable(true);
    header->setSectionsClickable(true);
    header->setStretchLastSection(true);
    header->setContextMenuPolicy(Qt::CustomContextMenu);
    header->installEventFilter(this);
    header->viewport()->installEventFilter(this);
    connect(header, &QHeaderView::customContextMenuRequested, this, [this, header](QPoint pos) {
        d->prepareHeaderMenu();
        d->headerMenu->popup(header->mapToGlobal(pos));
    });
    connect(header, &QHeaderView::sectionClicked, this, [this](int column) {
        if (!d->model->isSortingEnabled())
            return;
        const bool flip = d->model->sortColumn() == column && d->model->sortOrder() == Qt::AscendingOrder;
        d->sortKeepingSelection(column, flip ? Qt::DescendingOrder : Qt::AscendingOrder);
    });
    connect(header, &QHeaderView::sectionResized, this, [this, header](int column, int, int newSize) {
        if (column == FieldListModel::NameColumn && newSize > 0 && newSize < d->nameMinimum) {
            header->resizeSection(column, d->nameMinimum);
            return;
        }
        if (newSize > 0 && size_t(column) < d->lastWidths.size())
            d->lastWidths[size_t(column)] = newSize;
        d->recordLayout();
    });
    connect(header, &QHeaderView::sectionMoved, this, [this] { d->recordLayout(); });
    connect(d->headerMenu, &QMenu::aboutToShow, this, [this] { d->prepareHeaderMenu(); });

    d->stack->addWidget(d->tree);
    d->stack->addWidget(d->icons);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addLayout(d->stack);

    d->model->setFields(Fields::create());
    d->watchProperties(nullptr);
    d->applyProperties();
    d->treeDelegate->setFullRowSelect(false);
    d->configureIconView();
}

XStaticList::~XStaticList()
{
    if (d->properties)
        d->properties->removeObserver(d->propertiesTicket);
}

FieldsPtr XStaticList::Items() const
{
    return d->model->fields();
}

void XStaticList::setItems(const FieldsPtr &fields)
{
    const bool hadSelection = d->selection()->hasSelection();
    d->model->setFields(fields ? fields : Fields::create());
    d->showSortIndicator();
    d->recordLayout();
    if (hadSelection)
        Q_EMIT SelectionChange();
}

qint32 XStaticList::Count() const
{
    return d->model->rowCount();
}

bool XStaticList::Contains(const QString &key) const
{
    return d->model->fields()->contains(key);
}

void XStaticList::AppendItem(const FieldPtr &field)
{
    if (field)
        d->model->appendFields({field});
}

void XStaticList::AppendItems(const FieldsPtr &fields)
{
    if (!fields)
        return;
    std::vector<FieldPtr> added;
    added.reserve(size_t(fields->size()));
    for (const FieldPtr &field : *fields) {
        if (field)
            added.push_back(field);
    }
    d->model->appendFields(added);
}

namespace {

// Where RemoveItem finds its item: that very object's first position still shown, else the first
// item with its key. The key index finds the first candidate at once; identical objects and equal
// keys stand at or after it, so a scan is only needed when a key is repeated.
// `gone` (may be null) marks the items an unfinished batch has already taken.
qsizetype removalPosition(const Fields &items, const FieldPtr &field, const std::vector<char> *gone)
{
    const auto taken = [gone](qsizetype i) { return gone && (*gone)[size_t(i)]; };
    const qsizetype first = items.indexOf(field->Key());
    if (first < 0)
        return -1;
    if (!taken(first) && items.at(first) == field)
        return first;
    for (qsizetype i = first; i < items.size(); ++i) {
        if (!taken(i) && items.at(i) == field)
            return i;
    }
    const QString key = field->Key();
    for (qsizetype i = first; i < items.size(); ++i) {
        if (!taken(i) && items.at(i) && items.at(i)->Key() == key)
            return i;
    }
    return -1;
}

} // namespace

bool XStaticList::RemoveItem(const FieldPtr &field)
{
    if (!field)
        return false;
    const FieldsPtr items = d->model->fields();
    const qsizetype position = removalPosition(*items, field, nullptr);
    if (position < 0)
        return false;
    d->model->removeSourceRow(int(position));
    return true;
}

qint32 XStaticList::RemoveItems(const FieldsPtr &fields)
{
    if (!fields || fields->isEmpty())
        return 0;
    const FieldsPtr items = d->model->fields();
    std::vector<char> gone(size_t(items->size()), 0);
    std::vector<int> positions;
    positions.reserve(size_t(fields->size()));
    for (const FieldPtr &field : *fields) {
        if (!field)
            continue;
        const qsizetype position = removalPosition(*items, field, &gone);
        if (position < 0)
            continue;
        gone[size_t(position)] = 1;
        positions.push_back(int(position));
    }
    std::sort(positions.begin(), positions.end());
    d->model->removeSourceRows(positions);
    return qint32(positions.size());
}

void XStaticList::InsertItems(qint32 row, const FieldsPtr &fields)
{
    if (!fields)
        return;
    std::vector<FieldPtr> added;
    added.reserve(size_t(fields->size()));
    for (const FieldPtr &field : *fields) {
        if (field)
            added.push_back(field);
    }
    const int position = row >= 0 && row < Count() ? d->model->sourceRow(row) : Count();
    d->model->insertFields(position, added);
}

FieldsPtr XStaticList::SelectedItems() const
{
    const RowSpans spans = d->selectedSpans();
    if (spans.empty())
        return nullptr;
    FieldsPtr selected = Fields::create();
    selected->reserve(rowCountOf(spans));
    for (const auto &span : spans) {
        for (int row = span.first; row <= span.second; ++row)
            selected->Add(d->model->fieldAt(row));
    }
    return selected;
}

qint32 XStaticList::SelectedCount() const
{
    return qint32(rowCountOf(d->selectedSpans()));
}

void XStaticList::SelectAll()
{
    if (!d->multiSelect)
        return;
    d->select(Count() > 0 ? RowSpans{{0, Count() - 1}} : RowSpans{});
}

void XStaticList::ClearSelection()
{
    d->selection()->clearSelection();
}

void XStaticList::InvertSelection()
{
    if (!d->multiSelect)
        return;
    d->select(invertedSpans(d->selectedSpans(), Count()));
}

void XStaticList::SelectItems(const FieldsPtr &fields)
{
    std::vector<int> rows;
    if (fields) {
        const FieldsPtr items = d->model->fields();
        rows.reserve(size_t(fields->size()));
        for (const FieldPtr &field : *fields) {
            const qsizetype position = field ? items->indexOf(field->Key()) : -1;
            if (position >= 0)
                rows.push_back(d->model->viewRow(int(position)));
        }
    }
    if (!d->multiSelect && rows.size() > 1)
        rows.erase(rows.begin() + 1, rows.end());
    d->select(rowSpansOfRows(std::move(rows)));
}

FieldPtr XStaticList::FocusItem() const
{
    const QModelIndex current = d->selection()->currentIndex();
    return current.isValid() ? d->model->fieldAt(current.row()) : nullptr;
}

bool XStaticList::EnsureVisible(const FieldPtr &field)
{
    if (!field)
        return false;
    const qsizetype position = d->model->fields()->indexOf(field->Key());
    if (position < 0)
        return false;
    const QModelIndex index = d->model->index(d->model->viewRow(int(position)), 0);
    d->selection()->setCurrentIndex(index, QItemSelectionModel::NoUpdate);
    view()->scrollTo(index);
    return true;
}

void XStaticList::MoveSelectionUp()
{
    if (CanMoveUp())
        d->moveSelection(-1);
}

void XStaticList::MoveSelectionDown()
{
    if (CanMoveDown())
        d->moveSelection(1);
}

bool XStaticList::CanMoveUp() const
{
    if (d->model->isSorted())
        return false;
    const RowSpans spans = d->selectedSpans();
    return !spans.empty() && !(spans.size() == 1 && spans.front().first == 0);
}

bool XStaticList::CanMoveDown() const
{
    if (d->model->isSorted())
        return false;
    const RowSpans spans = d->selectedSpans();
    return !spans.empty() && !(spans.size() == 1 && spans.back().second == Count() - 1);
}

void XStaticList::BeginUpdate()
{
    ++d->updateDepth;
    d->updateRepaint();
}

void XStaticList::EndUpdate()
{
    if (d->updateDepth == 0)
        return;
    --d->updateDepth;
    d->updateRepaint();
}

void XStaticList::Redraw()
{
    view()->viewport()->update();
    d->tree->header()->viewport()->update();
}

void XStaticList::Reset()
{
    d->sortKeepingSelection(-1, Qt::AscendingOrder);
    d->selection()->clear();
    d->tree->scrollToTop();
    d->icons->scrollToTop();
}

bool XStaticList::Frozen() const
{
    return d->frozen;
}

void XStaticList::setFrozen(bool frozen)
{
    if (d->frozen == frozen)
        return;
    d->frozen = frozen;
    d->updateRepaint();
}

QString XStaticList::Caption() const
{
    return d->caption;
}

void XStaticList::setCaption(const QString &caption)
{
    d->caption = caption;
    // A screen reader tells two lists of one form apart by their captions.
    const QString spoken = caption.isEmpty() ? tr("Fields") : caption;
    d->tree->setAccessibleName(spoken);
    d->icons->setAccessibleName(spoken);
}

QString XStaticList::EmptyText() const
{
    return d->viewState.emptyText;
}

void XStaticList::setEmptyText(const QString &text)
{
    if (d->viewState.emptyText == text)
        return;
    d->viewState.emptyText = text;
    Redraw();
}

bool XStaticList::ShowEmptyText() const
{
    return d->viewState.showEmptyText;
}

void XStaticList::setShowEmptyText(bool show)
{
    if (d->viewState.showEmptyText == show)
        return;
    d->viewState.showEmptyText = show;
    Redraw();
}

QString XStaticList::StatusText() const
{
    return staticListStatusText(Count(), SelectedCount(), locale());
}

bool XStaticList::FullRowSelect() const
{
    return d->treeDelegate->fullRowSelect();
}

void XStaticList::setFullRowSelect(bool on)
{
    d->treeDelegate->setFullRowSelect(on);
    Redraw();
}

bool XStaticList::HideSelection() const
{
    return d->treeDelegate->hideSelection();
}

void XStaticList::setHideSelection(bool on)
{
    d->treeDelegate->setHideSelection(on);
    d->iconDelegate->setHideSelection(on);
    Redraw();
}

bool XStaticList::MultiSelect() const
{
    return d->multiSelect;
}

void XStaticList::setMultiSelect(bool on)
{
    if (d->multiSelect == on)
        return;
    d->multiSelect = on;
    const auto mode = on ? QAbstractItemView::ExtendedSelection : QAbstractItemView::SingleSelection;
    d->tree->setSelectionMode(mode);
    d->icons->setSelectionMode(mode);
    if (!on && SelectedCount() > 1) {
        const QModelIndex current = d->selection()->currentIndex();
        const int keep = current.isValid() && d->selection()->isRowSelected(current.row()) ? current.row()
                                                                                            : d->selectedSpans().front().first;
        d->select({{keep, keep}});
    }
}

void XStaticList::setDropHandler(DropHandler handler)
{
    const bool accepts = bool(handler);
    d->model->setDropHandler(std::move(handler));
    for (QAbstractItemView *itemView : {static_cast<QAbstractItemView *>(d->tree), static_cast<QAbstractItemView *>(d->icons)}) {
        // Drops are delivered to the viewport, which takes them only when it accepts drops itself.
        itemView->setAcceptDrops(accepts);
        itemView->viewport()->setAcceptDrops(accepts);
        itemView->setDropIndicatorShown(accepts);
        itemView->setDragDropMode(accepts ? QAbstractItemView::DragDrop : QAbstractItemView::DragOnly);
        itemView->setDragEnabled(d->allowDragDrop);
    }
}

void XStaticList::setDragExecutor(DragExecutor executor)
{
    d->dragExecutor = std::move(executor);
}

void XStaticList::startDrag(Qt::DropActions allowed)
{
    d->runDrag(allowed);
}

bool XStaticList::AllowDragDrop() const
{
    return d->allowDragDrop;
}

void XStaticList::setAllowDragDrop(bool on)
{
    d->allowDragDrop = on;
    d->tree->setDragEnabled(on);
    d->icons->setDragEnabled(on);
}

XStaticList::EListStyle XStaticList::ListStyle() const
{
    return d->listStyle;
}

void XStaticList::setListStyle(EListStyle style)
{
    if (style < stlReport || style > stlLargeIcons || style == d->listStyle)
        return;
    d->listStyle = style;
    d->configureIconView();
    d->stack->setCurrentWidget(style == stlReport ? static_cast<QWidget *>(d->tree) : d->icons);
}

XStaticList::EArrangeIcons XStaticList::ArrangeIcons() const
{
    return d->arrange;
}

void XStaticList::setArrangeIcons(EArrangeIcons arrange)
{
    if (arrange < stlArrangeNone || arrange > stlArrangeTop || arrange == d->arrange)
        return;
    d->arrange = arrange;
    d->configureIconView();
}

void XStaticList::SetSizing(int minimumNameWidth, int defaultNameWidth)
{
    d->nameMinimum = qMax(0, minimumNameWidth);
    d->nameDefault = qMax(d->nameMinimum, defaultNameWidth);
    QHeaderView *header = d->tree->header();
    if (header->sectionSize(FieldListModel::NameColumn) < d->nameMinimum
        || d->properties->IsEmpty())
        header->resizeSection(FieldListModel::NameColumn, d->defaultWidth(FieldListModel::NameColumn));
}

bool XStaticList::SortingEnabled() const
{
    return d->model->isSortingEnabled();
}

void XStaticList::setSortingEnabled(bool on)
{
    if (!on)
        d->sortKeepingSelection(-1, Qt::AscendingOrder);
    d->model->setSortingEnabled(on);
    d->showSortIndicator();
}

bool XStaticList::SortByColumn(const QString &columnId, Qt::SortOrder order)
{
    const int column = FieldListModel::columnFromId(columnId);
    if (column < 0 || !d->model->isSortingEnabled())
        return false;
    d->sortKeepingSelection(column, order);
    return true;
}

QString XStaticList::SortColumn() const
{
    return FieldListModel::columnId(d->model->sortColumn());
}

Qt::SortOrder XStaticList::SortOrder() const
{
    return d->model->sortOrder();
}

QStringList XStaticList::VisibleColumns() const
{
    QStringList ids;
    const QHeaderView *header = d->tree->header();
    for (int position = 0; position < header->count(); ++position) {
        const int column = header->logicalIndex(position);
        if (!header->isSectionHidden(column))
            ids.append(FieldListModel::columnId(column));
    }
    return ids;
}

bool XStaticList::setColumnVisible(const QString &columnId, bool visible)
{
    const int column = FieldListModel::columnFromId(columnId);
    if (column < 0 || (column == FieldListModel::NameColumn && !visible))
        return false;
    QHeaderView *header = d->tree->header();
    if (header->isSectionHidden(column) == !visible)
        return true;
    header->setSectionHidden(column, !visible);
    if (visible) {
        const int width = d->lastWidths[size_t(column)];
        header->resizeSection(column, width > 0 ? width : d->defaultWidth(column));
    }
    d->recordLayout();
    return true;
}

QDialog *XStaticList::createColumnsDialog(QWidget *parent)
{
    QList<ColumnChoice> choices;
    const QHeaderView *header = d->tree->header();
    for (int position = 0; position < header->count(); ++position) {
        const int column = header->logicalIndex(position);
        choices.append({FieldListModel::columnId(column), FieldListModel::columnTitle(column),
                        !header->isSectionHidden(column), column != FieldListModel::NameColumn});
    }
    auto *dialog = new ColumnsDialog(choices, parent);
    connect(dialog, &QDialog::accepted, this, [this, dialog] {
        QList<ListColumnState> layout;
        for (const ColumnChoice &choice : dialog->columns()) {
            const int column = FieldListModel::columnFromId(choice.id);
            layout.append({choice.id, choice.visible, d->lastWidths[size_t(column)]});
        }
        d->recordLayout();
        d->properties->setColumns(layout);
    });
    return dialog;
}

QDialog *XStaticList::createSortDialog(QWidget *parent)
{
    QList<QPair<QString, QString>> columns;
    const QHeaderView *header = d->tree->header();
    for (int position = 0; position < header->count(); ++position) {
        const int column = header->logicalIndex(position);
        if (!header->isSectionHidden(column))
            columns.append({FieldListModel::columnId(column), FieldListModel::columnTitle(column)});
    }
    auto *dialog = new ColumnSortDialog(columns, SortColumn(), SortOrder(), parent);
    connect(dialog, &QDialog::accepted, this, [this, dialog] {
        if (dialog->columnId().isEmpty())
            ClearHeaderIcon();
        else
            SortByColumn(dialog->columnId(), dialog->order());
    });
    return dialog;
}

void XStaticList::CustomizeColumns()
{
    std::unique_ptr<QDialog> dialog(createColumnsDialog(this));
    dialog->exec();
}

void XStaticList::CustomizeColumnSort()
{
    if (!d->model->isSortingEnabled())
        return;
    std::unique_ptr<QDialog> dialog(createSortDialog(this));
    dialog->exec();
}

void XStaticList::AutoSizeColumns()
{
    QHeaderView *header = d->tree->header();
    for (int position = 0; position < header->count(); ++position) {
        const int column = header->logicalIndex(position);
        if (!header->isSectionHidden(column))
            d->tree->resizeColumnToContents(column);
    }
}

void XStaticList::ClearHeaderIcon()
{
    d->sortKeepingSelection(-1, Qt::AscendingOrder);
}

ListViewPropertiesPtr XStaticList::ListProperties() const
{
    return d->properties;
}

void XStaticList::setListProperties(const ListViewPropertiesPtr &properties)
{
    if (properties && properties == d->properties)
        return;
    d->watchProperties(properties);
    if (d->properties->IsEmpty())
        d->recordLayout();
    else
        d->applyProperties();
}

PropertyStorePtr XStaticList::Properties() const
{
    return d->store;
}

void XStaticList::setProperties(const PropertyStorePtr &store)
{
    d->store = store;
}

QString XStaticList::PropertiesKey() const
{
    return d->caption + kPropertiesKeySuffix;
}

void XStaticList::LoadProperties()
{
    if (!d->store)
        return;
    const QVariant value = d->store->Item(PropertiesKey());
    if (value.canConvert<QString>())
        d->properties->Apply(value.toString());
}

void XStaticList::SaveProperties()
{
    if (!d->store)
        return;
    d->recordLayout();
    d->store->SetItem(PropertiesKey(), d->properties->Serialise());
}

void XStaticList::setRowColorProvider(const std::shared_ptr<ListRowColors> &provider)
{
    d->model->setRowColors(provider);
}

void XStaticList::setFontProvider(const std::shared_ptr<ListFontProvider> &provider)
{
    d->model->setBaseFont(font());
    d->model->setFontProvider(provider);
}

bool XStaticList::setIconProvider(const std::shared_ptr<ListIconProvider> &provider)
{
    if (d->frozen)
        return false;
    d->model->setIconProvider(provider);
    return true;
}

void XStaticList::NotifyCopy()
{
    Q_EMIT CopyStarting();
}

QAbstractItemView *XStaticList::view() const
{
    return d->listStyle == stlReport ? static_cast<QAbstractItemView *>(d->tree) : d->icons;
}

QTreeView *XStaticList::reportView() const
{
    return d->tree;
}

bool XStaticList::eventFilter(QObject *watched, QEvent *event)
{
    if (d->frozen && isUserInput(event->type()))
        return true;
    if (event->type() == QEvent::FocusIn || event->type() == QEvent::FocusOut) {
        if (d->treeDelegate->hideSelection())
            Redraw();
    }
    if (event->type() == QEvent::FontChange && watched == d->tree)
        d->model->setBaseFont(d->tree->font());
    return QWidget::eventFilter(watched, event);
}

} // namespace PickerCtl
