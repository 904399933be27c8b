// The field browser on the sample catalogue as a host uses it: a tool strip for its view and tree
// modes, the filters, the actions on the selection and a log of every event it raises.
#include "fieldpicker_eventlog.h"
#include "fieldpicker_filterbar.h"
#include "gallerypages.h"

#include <PickerCtl/AppServices.h>
#include <PickerCtl/UserContext.h>
#include <PickerCtl/XFieldPicker.h>

#include <QCheckBox>
#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPointer>
#include <QPushButton>
#include <QSplitter>
#include <QVBoxLayout>

#include <algorithm>

using namespace PickerCtl;

namespace {

constexpr auto ViewLabel = "View:";
constexpr auto RootLabelLabel = "Root:";
constexpr auto BranchLabel = "Branch:";
constexpr auto CaptionsLabel = "Captions";
constexpr auto EntityViewLabel = "Entity view";
constexpr auto ShowAllLabel = "Show all at the root";
constexpr auto StatusFormat = "%1   |   selected: %2   |   splitter left: %3 twips   |   category: %4";
// Lets a screenshot run start in one view mode: both, list or tree (the order of ViewModes).
constexpr auto InitialViewVariable = "PICKERCTL_GALLERY_VIEW";
const QStringList InitialViewNames{QStringLiteral("both"), QStringLiteral("list"), QStringLiteral("tree")};
const QStringList ViewModes{QStringLiteral("Tree and list"), QStringLiteral("List only"),
                            QStringLiteral("Tree only")};
const QStringList RootModes{QStringLiteral("Entities"), QStringLiteral("Generic")};
const QStringList BranchModes{QStringLiteral("Whole tree"), QStringLiteral("Single branch"),
                              QStringLiteral("Single branch with children")};

constexpr int EventLogShare = 1;
constexpr int BrowserShare = 3;
constexpr int PaneUnit = 300;

QPushButton *makeButton(const char *name, const QString &text, const QString &tip)
{
    auto *button = new QPushButton(text);
    button->setObjectName(QLatin1String(name));
    button->setToolTip(tip);
    button->setEnabled(false);
    return button;
}

// The user may change the catalogue: in the entity view with the field-modification right,
// otherwise unless read-only; as the browser's own menus decide.
bool userMayEdit()
{
    const auto context = UserContext::instance();
    const CurrentUserPtr user = context ? context->CurrentUser() : nullptr;
    if (!user)
        return false;
    return AppServices::instance()->UseEntityView() ? user->CanModifyFields() : !user->IsReadOnly();
}

QComboBox *makeChoice(const char *name, const QStringList &entries)
{
    auto *combo = new QComboBox;
    combo->setObjectName(QLatin1String(name));
    combo->addItems(entries);
    return combo;
}

/// The page: the tool strip, the browser and its status line. The browser is built anew whenever
/// a mode changes, as a host does, since a loaded browser keeps the tree of its application.
class FieldPickerPage : public QWidget
{
public:
    explicit FieldPickerPage(const GalleryContext &context)
        : m_context(context)
    {
        auto *strip = new QHBoxLayout;
        m_view = makeChoice("cboViewMode", ViewModes);
        m_root = makeChoice("cboRootLabel", RootModes);
        m_branch = makeChoice("cboBranch", BranchModes);
        m_captions = new QCheckBox(QLatin1String(CaptionsLabel));
        m_captions->setObjectName(QStringLiteral("chkCaptions"));
        m_captions->setChecked(true);
        m_entityView = new QCheckBox(QLatin1String(EntityViewLabel));
        m_entityView->setObjectName(QStringLiteral("chkEntityView"));
        m_entityView->setChecked(AppServices::instance()->UseEntityView());
        m_showAll = new QCheckBox(QLatin1String(ShowAllLabel));
        m_showAll->setObjectName(QStringLiteral("chkShowAll"));
        strip->addWidget(new QLabel(QLatin1String(ViewLabel)));
        strip->addWidget(m_view);
        strip->addWidget(new QLabel(QLatin1String(RootLabelLabel)));
        strip->addWidget(m_root);
        strip->addWidget(new QLabel(QLatin1String(BranchLabel)));
        strip->addWidget(m_branch);
        strip->addWidget(m_captions);
        strip->addWidget(m_entityView);
        strip->addWidget(m_showAll);
        strip->addStretch();

        m_filters = new FieldPickerFilterBar(m_context.catalog, m_context.appName);

        auto *actions = new QHBoxLayout;
        m_copy = makeButton("cmdCopy", tr("&Copy"), tr("Copy the selected fields to the clipboard"));
        m_delete = makeButton("cmdDelete", tr("&Delete"), tr("Delete the selected fields from the catalogue"));
        m_changeOwner = makeButton("cmdChangeOwner", tr("Change &owner..."),
                                   tr("Give the selected fields another owner"));
        actions->addWidget(m_copy);
        actions->addWidget(m_delete);
        actions->addWidget(m_changeOwner);
        actions->addStretch();
        connect(m_copy, &QPushButton::clicked, this, [this] {
            if (m_picker)
                m_picker->Copy();
        });
        connect(m_delete, &QPushButton::clicked, this, [this] { deleteSelection(); });
        connect(m_changeOwner, &QPushButton::clicked, this, [this] {
            if (m_picker)
                m_picker->ChangeSelectionOwnership();
        });

        m_status = new QLabel;
        m_status->setObjectName(QStringLiteral("lblStatus"));
        m_status->setTextInteractionFlags(Qt::TextSelectableByMouse);

        m_browserPane = new QWidget;
        m_browserPane->setObjectName(QStringLiteral("fraBrowser"));
        m_browserLayout = new QVBoxLayout(m_browserPane);
        m_browserLayout->setContentsMargins(0, 0, 0, 0);
        m_events = new FieldPickerEventLog;
        auto *panes = new QSplitter(Qt::Horizontal);
        panes->setObjectName(QStringLiteral("splPanes"));
        panes->addWidget(m_browserPane);
        panes->addWidget(m_events);
        panes->setStretchFactor(0, BrowserShare);
        panes->setStretchFactor(1, EventLogShare);
        panes->setCollapsible(0, false);
        // The browser is created later and asks for no room of its own; share the width now.
        panes->setSizes({BrowserShare * PaneUnit, EventLogShare * PaneUnit});

        m_layout = new QVBoxLayout(this);
        m_layout->addLayout(strip);
        m_layout->addWidget(m_filters);
        m_layout->addWidget(panes, 1);
        m_layout->addLayout(actions);
        m_layout->addWidget(m_status);

        m_view->setCurrentIndex(std::max<qsizetype>(
            0, InitialViewNames.indexOf(qEnvironmentVariable(InitialViewVariable).trimmed().toLower())));
        for (QComboBox *combo : {m_view, m_root, m_branch})
            connect(combo, &QComboBox::currentIndexChanged, this, [this] { rebuild(); });
        for (QCheckBox *check : {m_captions, m_entityView, m_showAll})
            connect(check, &QCheckBox::toggled, this, [this] { rebuild(); });
        rebuild();
    }

private:
    QString startCategory() const
    {
        if (m_picker && !m_picker->SelectedCategory().isEmpty())
            return m_picker->SelectedCategory();
        // A category a few levels down, so that the single-branch modes have a branch to show.
        const QList<FieldCategoryPtr> categories = m_context.catalog->Categories(m_context.appName);
        for (const FieldCategoryPtr &category : categories) {
            if (category->Parent() && category->Parent()->Parent() && category->Fields()->Count() > 0)
                return AppServices::instance()->UseEntityView() ? category->Name() : category->FullName();
        }
        return QString();
    }

    void rebuild()
    {
        const QString category = startCategory();
        AppServices::instance()->setUseEntityView(m_entityView->isChecked());
        delete m_picker;
        m_picker = new XFieldPicker;
        m_picker->setObjectName(QStringLiteral("fieldPicker"));
        m_picker->InitProperties();
        m_picker->setAllowContextMenu(true);
        m_events->watch(m_picker);
        m_picker->setRootLbl(ETPLRootLbl(m_root->currentIndex()));
        m_picker->setSingleBranch(ETPLSingleBranch(m_branch->currentIndex()));
        m_picker->setShowAll(m_showAll->isChecked());
        m_picker->setTemplateView(ETPLTemplateView(m_view->currentIndex()));
        m_picker->setCaptionVisible(m_captions->isChecked());
        m_browserLayout->addWidget(m_picker);
        m_picker->Load(m_context.appName, category);
        m_filters->bind(m_picker);
        for (auto signal : {&XFieldPicker::StateChange, &XFieldPicker::SplitterAdjustment})
            connect(m_picker, signal, this, [this] { showStatus(); });
        connect(m_picker, &XFieldPicker::CategoryClick, this, [this] { showStatus(); });
        // The browser's Delete entry asks the host, which deletes as its own button does.
        connect(m_picker, &XFieldPicker::Delete, this, [this] { deleteSelection(); });
        showStatus();
    }

    void deleteSelection()
    {
        if (m_picker && userMayEdit())
            m_picker->DeleteSelection(nullptr);
    }

    void showStatus()
    {
        if (!m_picker)
            return;
        const bool selected = !m_picker->IsSelectionEmpty();
        const bool mayEdit = userMayEdit();
        m_copy->setEnabled(selected);
        // A user who may not edit does not see the editing actions at all.
        m_delete->setVisible(mayEdit);
        m_changeOwner->setVisible(mayEdit);
        m_delete->setEnabled(selected && mayEdit);
        m_changeOwner->setEnabled(selected && mayEdit);
        m_status->setText(QString::fromLatin1(StatusFormat)
                              .arg(m_picker->GetStatus())
                              .arg(m_picker->SelectionCount())
                              .arg(double(m_picker->SplitterLeft()), 0, 'f', 0)
                              .arg(m_picker->SelectedCategory()));
    }

    GalleryContext m_context;
    QVBoxLayout *m_layout = nullptr;
    QComboBox *m_view = nullptr;
    QComboBox *m_root = nullptr;
    QComboBox *m_branch = nullptr;
    QCheckBox *m_captions = nullptr;
    QCheckBox *m_entityView = nullptr;
    QCheckBox *m_showAll = nullptr;
    FieldPickerFilterBar *m_filters = nullptr;
    QPushButton *m_copy = nullptr;
    QPushButton *m_delete = nullptr;
    QPushButton *m_changeOwner = nullptr;
    QWidget *m_browserPane = nullptr;
    QVBoxLayout *m_browserLayout = nullptr;
    FieldPickerEventLog *m_events = nullptr;
    QLabel *m_status = nullptr;
    QPointer<XFieldPicker> m_picker;
};

} // namespace

QWidget *makeFieldPickerPage(const GalleryContext &context)
{
    return new FieldPickerPage(context);
}
