#include "fieldpicker/fieldpicker_p.h"

#include "fieldpicker/categorytreemodel.h"
#include "fieldpicker/fieldpicker_cursors.h"
#include "fieldpicker/fieldpicker_icons.h"
#include "fieldpicker/interaction_handlers.h"

#include <PickerCtl/AppServices.h>
#include <PickerCtl/HostSite.h>
#include <PickerCtl/Notifiers.h>
#include <PickerCtl/Splitter.h>

#include <QEvent>
#include <QFrame>
#include <QHeaderView>
#include <QLabel>
#include <QTreeView>

namespace PickerCtl {

namespace {

constexpr auto DesignFontFamily = "MS Sans Serif";
constexpr auto DesignListTitle = "Fields";
// Spelled so in the design; the Caption property replaces it as soon as properties are set.
constexpr auto DesignLeftHeader = QT_TRANSLATE_NOOP("PickerCtl::XFieldPicker", "Entity Hierachy");
constexpr auto DesignRightHeader = QT_TRANSLATE_NOOP("PickerCtl::XFieldPicker", "Available Fields");
constexpr int ListMinimumNameWidth = 80;
constexpr int ListDefaultNameWidth = 140;
constexpr int HeaderTextIndent = 4;

QLabel *makeHeader(const char *name, const char *text, QWidget *parent)
{
    auto *label = new QLabel(XFieldPicker::tr(text), parent);
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
    tvw->setAccessibleName(XFieldPicker::tr("Categories"));
    tvw->setAccessibleDescription(XFieldPicker::tr("The category tree; selecting a category lists its fields"));
    tvw->setFont(designFont);
    tvw->setHeaderHidden(true);
    tvw->setUniformRowHeights(true);
    tvw->setIconSize(ilsSmall->imageSize());
    tvw->setSelectionMode(QAbstractItemView::SingleSelection);
    tvw->setEditTriggers(QAbstractItemView::NoEditTriggers);
    tvw->setModel(treeModel);

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
    singleFieldDragCursor = fieldpicker::createSingleFieldDragCursor();
    multipleFieldsDragCursor = fieldpicker::createMultipleFieldsDragCursor();

    splitter = new Splitter(q);
    splitter->setObjectName(QStringLiteral("splitter"));
    QObject::connect(splitter, &Splitter::Split, q, [this] { onSplit(); });

    stl->setItems(Fields::create());
    stl->SetSizing(ListMinimumNameWidth, ListDefaultNameWidth);

    // A catalogue or services that fail here leave a control that shows nothing until a Load.
    runGuarded("connecting the general state", [this] {
        appGeneralState = AppServices::instance()->GeneralState();
        if (appGeneralState)
            QObject::connect(appGeneralState.get(), &AppGeneralState::StateChange, q,
                             [this] { runGuarded("applying the general state", [this] { applyFullRowSetting(); }); });
    });
    runGuarded("connecting the catalogue", [this] {
        const FieldCatalogPtr catalog = FieldCatalog::instance();
        actions.createPayloads(*catalog);
        stl->setProperties(catalog->GetProperties());
        fldUpdates = catalog->GetFieldUpdates();
        if (fldUpdates)
            QObject::connect(fldUpdates.get(), &FieldUpdates::FieldsChange, q,
                             [this](qint32 ordEntity) { onFieldsChange(ordEntity); });
    });
}

void XFieldPicker::Private::createInteraction()
{
    interaction = std::make_unique<fieldpicker::Interaction>(
        fieldpicker::InteractionParts{q, tvw, stl, treeModel, singleFieldDragCursor, multipleFieldsDragCursor},
        fieldpicker::InteractionHooks{
            .selection = [this] { return q->Selection(); },
            .viewFields = [this] { return view.shownFields(); },
            .makeCurrent = [this](const QModelIndex &node) { runGuarded("selecting a category", [&] { selectNode(node); }); },
            .copy = [this] { q->Copy(); },
            .selectAll = [this] { q->SelectAll(); },
        });
}

XFieldPicker::Private::~Private()
{
    // The children outlive this object by a little while the surface is destroyed; what they
    // report then must not reach it.
    delete treeWatcher;
    for (QObject *sender : std::initializer_list<QObject *>{tvw, tvw->selectionModel(), stl,
                                                            appGeneralState.get(), fldUpdates.get()}) {
        if (sender)
            QObject::disconnect(sender, nullptr, q, nullptr);
    }
    // Released in this order on purpose: the shown data first, the drag pointers, then the
    // splitter that still watches the bar.
    view.setCurrentCategory(nullptr);
    actions.release();
    singleFieldDragCursor = QCursor();
    multipleFieldsDragCursor = QCursor();
    delete splitter;
    splitter = nullptr;
}

bool XFieldPicker::Private::runGuarded(const char *what, const std::function<void()> &operation) const
{
    try {
        operation();
        return true;
    } catch (const std::exception &error) {
        qWarning("XFieldPicker: %s failed: %s", what, error.what());
    } catch (...) {
        qWarning("XFieldPicker: %s failed", what);
    }
    return false;
}

XFieldPicker::XFieldPicker(QWidget *parent)
    : QWidget(parent)
    , d(std::make_unique<Private>(this))
{
    setAutoFillBackground(true);
    d->createChildren();
    d->createServices();
    d->connectTreeNotifications();
    d->connectListNotifications();
    d->createInteraction();
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

// The headers' height follows the font, and so does the room the control asks for. A font given
// to the control itself (Designer and style sheets set QWidget's "font", not Font) also replaces the
// tree's and the list's design font, family included.
void XFieldPicker::changeEvent(QEvent *event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::FontChange) {
        if (testAttribute(Qt::WA_SetFont)) {
            d->tvw->setFont(font());
            d->stl->setFont(font());
        }
        d->layout();
        updateGeometry();
    }
}

} // namespace PickerCtl
