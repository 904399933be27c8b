#include "exptemplate/exptemplate_p.h"

#include "exptemplate/templatepayload.h"

#include <PickerCtl/FieldCatalog.h>
#include <PickerCtl/HostSite.h>
#include <PickerCtl/ListViewProperties.h>
#include <PickerCtl/XStaticList.h>

#include <QComboBox>
#include <QEvent>
#include <QFrame>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QStyle>
#include <QToolButton>
#include <QtDebug>

namespace PickerCtl {

namespace {

constexpr auto EntityCaption = QT_TR_NOOP("Fields from:");
constexpr auto EntityTip = QT_TR_NOOP("Entity types");
constexpr auto TechCaption = QT_TR_NOOP("Tech types:");
constexpr auto TechTip = QT_TR_NOOP("Technology types");
constexpr auto FieldTypeCaption = QT_TR_NOOP("Field types:");
constexpr auto FieldTypeTip = QT_TR_NOOP("Field types");
constexpr auto NameCaption = QT_TR_NOOP("Matching name:");
constexpr auto NameTip = QT_TR_NOOP("Expression for matching field names");
constexpr auto ApplyCaption = QT_TR_NOOP("Find");
constexpr auto ApplyTip = QT_TR_NOOP("Find the matching fields");
constexpr auto AvailableCaption = QT_TR_NOOP("Fields matching criteria above:");
constexpr auto SelectedCaption = QT_TR_NOOP("Include these fields in the Template in this order:");
constexpr auto AddTip = QT_TR_NOOP("Move selected fields to template");
constexpr auto RemoveTip = QT_TR_NOOP("Remove selected fields from template");
constexpr auto MoveUpTip = QT_TR_NOOP("Move selected fields up in order");
constexpr auto MoveDownTip = QT_TR_NOOP("Move selected fields down in order");
// The lists' names: they also name each list's own layout entry in the properties store.
const QString AvailableListCaption = QStringLiteral("Available Fields");
const QString SelectedListCaption = QStringLiteral("Selected Fields");

template<typename T>
T *named(T *widget, const char *name)
{
    widget->setObjectName(QLatin1String(name));
    return widget;
}

/// The caption as a screen reader says it: without the colon.
QString spoken(const QString &caption)
{
    QString text = caption;
    if (text.endsWith(QLatin1Char(':')))
        text.chop(1);
    return text;
}

QLabel *criterionLabel(const char *name, const QString &caption, QWidget *buddy, QWidget *parent)
{
    auto *label = named(new QLabel(caption, parent), name);
    label->setBuddy(buddy);
    buddy->setAccessibleName(spoken(caption));
    return label;
}

QComboBox *dropDown(const char *name, const QString &tip, QWidget *parent)
{
    auto *combo = named(new QComboBox(parent), name);
    combo->setToolTip(tip);
    combo->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    return combo;
}

} // namespace

XExpTemplate::Private::Private(XExpTemplate *owner)
    : q(owner)
    , token(ExpTemplate::templateToken(owner))
{
}

void XExpTemplate::Private::build()
{
    site = new HostSite(q);
    frmExpress = named(new QFrame(q), "frmExpress");
    frmExpress->setFrameShape(QFrame::NoFrame);
    buildSearchBand();
    buildLists();
    buildButtons();
    connectChildren();
    enableDragAndDrop();
    watchKeys();
    attachCatalogue();
    updateButtons();
    placeDesign();
}

void XExpTemplate::Private::buildSearchBand()
{
    cboEntityTypes = dropDown("cboEntityTypes", tr(EntityTip), frmExpress);
    cboTechTypes = dropDown("cboTechTypes", tr(TechTip), frmExpress);
    cboFieldTypes = dropDown("cboFieldTypes", tr(FieldTypeTip), frmExpress);
    txtNameFilter = named(new QLineEdit(frmExpress), "txtNameFilter");
    txtNameFilter->setToolTip(tr(NameTip));
    lblEntity = criterionLabel("lblEntity", tr(EntityCaption), cboEntityTypes, frmExpress);
    lblTechTypes = criterionLabel("lblTechTypes", tr(TechCaption), cboTechTypes, frmExpress);
    lblFieldTypes = criterionLabel("lblFieldTypes", tr(FieldTypeCaption), cboFieldTypes, frmExpress);
    lblNameFilter = criterionLabel("lblNameFilter", tr(NameCaption), txtNameFilter, frmExpress);
    cmdApply = named(new QPushButton(tr(ApplyCaption), frmExpress), "cmdApply");
    cmdApply->setToolTip(tr(ApplyTip));
    cmdApply->setAccessibleName(tr(ApplyCaption));
    // Enter in a criterion box runs Find itself; no button of the editor is a default button.
    cmdApply->setAutoDefault(false);
}

void XExpTemplate::Private::buildLists()
{
    stlAvailable = named(new XStaticList(frmExpress), "stlAvailable");
    stlSelected = named(new XStaticList(frmExpress), "stlSelected");
    lblAvailable = named(new QLabel(tr(AvailableCaption), frmExpress), "lblAvailable");
    lblSelected = named(new QLabel(tr(SelectedCaption), frmExpress), "lblSelected");
    stlAvailable->setCaption(AvailableListCaption);
    stlSelected->setCaption(SelectedListCaption);
    for (XStaticList *list : {stlAvailable, stlSelected}) {
        // The available list shows what Remove highlights while the focus stays on the template.
        list->setHideSelection(false);
        list->setFullRowSelect(true);
        list->setMultiSelect(true);
        list->setAllowDragDrop(true);
    }
    // The template's order is the report order: a header click must not reorder it.
    stlSelected->setSortingEnabled(false);
    stlAvailable->setAccessibleName(spoken(lblAvailable->text()));
    stlSelected->setAccessibleName(spoken(lblSelected->text()));
    lblAvailable->setBuddy(stlAvailable);
    lblSelected->setBuddy(stlSelected);
}

void XExpTemplate::Private::buildButtons()
{
    const auto button = [this](const char *name, QStyle::StandardPixmap glyph, const char *tip) {
        auto *tool = named(new QToolButton(frmExpress), name);
        tool->setIcon(q->style()->standardIcon(glyph, nullptr, tool));
        tool->setToolTip(tr(tip));
        tool->setAccessibleName(tr(tip));
        tool->setFocusPolicy(Qt::TabFocus);
        return tool;
    };
    cmdAdd = button("cmdAdd", QStyle::SP_ArrowRight, AddTip);
    cmdRemove = button("cmdRemove", QStyle::SP_ArrowLeft, RemoveTip);
    cmdMoveUp = button("cmdMoveUp", QStyle::SP_ArrowUp, MoveUpTip);
    cmdMoveDown = button("cmdMoveDown", QStyle::SP_ArrowDown, MoveDownTip);
    // The keyboard walks the editor as the eye does: the band, the found fields, the buttons
    // between the lists, then the template.
    QWidget::setTabOrder(stlAvailable, cmdAdd);
    QWidget::setTabOrder(cmdAdd, cmdRemove);
    QWidget::setTabOrder(cmdRemove, cmdMoveUp);
    QWidget::setTabOrder(cmdMoveUp, cmdMoveDown);
    QWidget::setTabOrder(cmdMoveDown, stlSelected);
}

void XExpTemplate::Private::connectChildren()
{
    QObject::connect(cmdApply, &QPushButton::clicked, q, [this] { findForUser(); });
    QObject::connect(cmdAdd, &QToolButton::clicked, q, [this] { add(); });
    QObject::connect(cmdRemove, &QToolButton::clicked, q, [this] { remove(); });
    QObject::connect(cmdMoveUp, &QToolButton::clicked, q, [this] { moveUp(); });
    QObject::connect(cmdMoveDown, &QToolButton::clicked, q, [this] { moveDown(); });
    QObject::connect(stlAvailable, &XStaticList::ItemDblClick, q, [this] { add(); });
    QObject::connect(stlSelected, &XStaticList::ItemDblClick, q, [this] { remove(); });
    for (XStaticList *list : {stlAvailable, stlSelected})
        QObject::connect(list, &XStaticList::SelectionChange, q, [this] { updateButtons(); });
}

void XExpTemplate::Private::attachCatalogue()
{
    // A control is built before its host has a catalogue to hand; without one the lists keep
    // their own layout objects and have no store until Load.
    try {
        const FieldCatalogPtr catalog = FieldCatalog::instance();
        if (!catalog)
            return;
        for (XStaticList *list : {stlAvailable, stlSelected}) {
            list->setListProperties(catalog->NewListProperties());
            list->setProperties(catalog->GetProperties());
        }
    } catch (const std::exception &e) {
        qWarning("XExpTemplate: the catalogue could not be attached: %s", e.what());
    } catch (...) {
        qWarning("XExpTemplate: the catalogue could not be attached: an exception of unknown type");
    }
}

XExpTemplate::XExpTemplate(QWidget *parent)
    : QWidget(parent)
    , d(std::make_unique<Private>(this))
{
    d->build();
}

XExpTemplate::~XExpTemplate() = default;

QString XExpTemplate::TechFilter() const
{
    return d->last.techFilter;
}

void XExpTemplate::setTechFilter(const QString &value)
{
    d->last.techFilter = value;
}

QString XExpTemplate::OwnerFilter() const
{
    return d->ownerFilter;
}

void XExpTemplate::setOwnerFilter(const QString &value)
{
    d->ownerFilter = value;
}

QString XExpTemplate::FieldTypeFilter() const
{
    return d->last.fieldTypeFilter;
}

void XExpTemplate::setFieldTypeFilter(const QString &value)
{
    d->last.fieldTypeFilter = value;
}

QString XExpTemplate::NameFilter() const
{
    return d->last.nameFilter;
}

void XExpTemplate::setNameFilter(const QString &value)
{
    d->last.nameFilter = value;
}

QString XExpTemplate::SelectedCategory() const
{
    return d->last.selectedCategory;
}

void XExpTemplate::setSelectedCategory(const QString &value)
{
    d->last.selectedCategory = value;
}

QString XExpTemplate::AppName() const
{
    return d->appName;
}

void XExpTemplate::setAppName(const QString &value)
{
    d->appName = value;
}

HostSite *XExpTemplate::hostSite() const
{
    return d->site;
}

QSize XExpTemplate::sizeHint() const
{
    return d->preferredSize(false);
}

QSize XExpTemplate::minimumSizeHint() const
{
    return d->preferredSize(true);
}

void XExpTemplate::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    d->layout();
}

void XExpTemplate::changeEvent(QEvent *event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange) {
        d->placeDesign();
        d->layout();
    }
}

bool XExpTemplate::eventFilter(QObject *watched, QEvent *event)
{
    if (d->handleKey(watched, event))
        return true;
    return QWidget::eventFilter(watched, event);
}

} // namespace PickerCtl
