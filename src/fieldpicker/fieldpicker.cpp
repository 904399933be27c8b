#include "fieldpicker/fieldpicker_p.h"

#include "fieldpicker/categorytreemodel.h"
#include "fieldpicker/fieldpicker_cursors.h"
#include "fieldpicker/fieldpicker_icons.h"

#include <PickerCtl/AppServices.h>
#include <PickerCtl/HostSite.h>
#include <PickerCtl/Notifiers.h>
#include <PickerCtl/Splitter.h>

#include <QFrame>
#include <QHeaderView>
#include <QLabel>
#include <QTreeView>

namespace PickerCtl {

namespace {

constexpr auto DesignFontFamily = "MS Sans Serif";
constexpr auto DesignListTitle = "Fields";
// Spelled so in the design; the Caption property replaces it as soon as properties are set.
constexpr auto DesignLeftHeader = "Entity Hierachy";
constexpr auto DesignRightHeader = "Available Fields";
constexpr int ListMinimumNameWidth = 80;
constexpr int ListDefaultNameWidth = 140;
constexpr int HeaderTextIndent = 4;

QLabel *makeHeader(const char *name, const char *text, QWidget *parent)
{
    auto *label = new QLabel(QString::fromLatin1(text), parent);
    label->setObjectName(QLatin1String(name));
    label->setToolTip(label->text());
    label->setIndent(HeaderTextIndent);
    label->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    label->setFrameShape(QFrame::StyledPanel);
    label->setFrameShadow(QFrame::Raised);
    label->setMinimumSize(0, 0);
    label->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Ignored);
    return label;
}

} // namespace

XFieldPicker::Private::Private(XFieldPicker *owner)
    : q(owner)
{
}

void XFieldPicker::Private::createChildren()
{
    site = new HostSite(q);
    const QFont designFont(QString::fromLatin1(DesignFontFamily));

    ilsSmall = fieldpicker::createSmallImages(q);
    ilsLarge = fieldpicker::createLargeImages(q);
    treeModel = new fieldpicker::CategoryTreeModel(ilsSmall, q);
    treeModel->setObjectName(QStringLiteral("tvwModel"));

    tvw = new QTreeView(q);
    tvw->setObjectName(QStringLiteral("tvw"));
    tvw->setFont(designFont);
    tvw->setHeaderHidden(true);
    tvw->setUniformRowHeights(true);
    tvw->setIconSize(ilsSmall->imageSize());
    tvw->setSelectionMode(QAbstractItemView::SingleSelection);
    tvw->setEditTriggers(QAbstractItemView::NoEditTriggers);
    tvw->setModel(treeModel);
    QObject::connect(tvw->selectionModel(), &QItemSelectionModel::currentChanged, q,
                     [this](const QModelIndex &current) { onTreeCurrentChanged(current); });

    stl = new XStaticList(q);
    stl->setObjectName(QStringLiteral("stl"));
    stl->setFont(designFont);
    stl->setCaption(QString::fromLatin1(DesignListTitle));
    stl->setHideSelection(true);
    stl->setAllowDragDrop(true);
    stl->setSortingEnabled(true);

    lblHeaderLeft = makeHeader("lblHeaderLeft", DesignLeftHeader, q);
    lblHeaderRight = makeHeader("lblHeaderRight", DesignRightHeader, q);

    lblSplitter = new QFrame(q);
    lblSplitter->setObjectName(QStringLiteral("lblSplitter"));
    lblSplitter->setAutoFillBackground(true);
    lblSplitter->setFrameShape(QFrame::NoFrame);
    // Tree-only mode leaves the bar as it was; beneath the panes it cannot show through the tree.
    lblSplitter->lower();

    // The scratch surface the splitter may draw a ghost bar on while the bar is dragged.
    pbTemp = new QFrame(q);
    pbTemp->setObjectName(QStringLiteral("pbTemp"));
    pbTemp->setAutoFillBackground(true);
    pbTemp->setBackgroundRole(QPalette::Dark);
    pbTemp->hide();
}

void XFieldPicker::Private::createServices()
{
    const FieldCatalogPtr catalog = FieldCatalog::instance();

    clipData = catalog->NewClipData(true);
    dragClipData = catalog->NewClipData(false);
    appGeneralState = AppServices::instance()->GeneralState();
    if (appGeneralState)
        QObject::connect(appGeneralState.get(), &AppGeneralState::StateChange, q,
                         [this] { applyFullRowSetting(); });

    singleFieldDragCursor = fieldpicker::createSingleFieldDragCursor();
    multipleFieldsDragCursor = fieldpicker::createMultipleFieldsDragCursor();

    splitter = new Splitter(q);
    splitter->setObjectName(QStringLiteral("splitter"));
    QObject::connect(splitter, &Splitter::Split, q, [this] { onSplit(); });

    stl->setProperties(catalog->GetProperties());

    fldUpdates = catalog->GetFieldUpdates();
    if (fldUpdates)
        QObject::connect(fldUpdates.get(), &FieldUpdates::FieldsChange, q,
                         [this](qint32 ordEntity) { onFieldsChange(ordEntity); });

    stl->setItems(Fields::create());
    stl->SetSizing(ListMinimumNameWidth, ListDefaultNameWidth);
}

XFieldPicker::Private::~Private()
{
    // Released in this order on purpose: the shown data first, the drag pointers, then the
    // splitter that still watches the bar.
    currentCategory.reset();
    clipData.reset();
    dragClipData.reset();
    singleFieldDragCursor = QCursor();
    multipleFieldsDragCursor = QCursor();
    delete splitter;
    splitter = nullptr;
}

XFieldPicker::XFieldPicker(QWidget *parent)
    : QWidget(parent)
    , d(std::make_unique<Private>(this))
{
    setAutoFillBackground(true);
    d->createChildren();
    d->createServices();
    d->moveBar(d->splitterLeftTwips, d->splitterWidthTwips);
}

XFieldPicker::~XFieldPicker() = default;

HostSite *XFieldPicker::hostSite() const
{
    return d->site;
}

void XFieldPicker::showEvent(QShowEvent *event)
{
    QWidget::showEvent(event);
    d->attachSplitter();
}

void XFieldPicker::hideEvent(QHideEvent *event)
{
    QWidget::hideEvent(event);
    d->splitter->Detach();
}

void XFieldPicker::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    d->layout();
}

} // namespace PickerCtl
