// The field browser on the sample catalogue, with a tool strip for its view and tree modes.
#include "gallerypages.h"

#include <PickerCtl/AppServices.h>
#include <PickerCtl/XFieldPicker.h>

#include <QCheckBox>
#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPointer>
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

        m_status = new QLabel;
        m_status->setObjectName(QStringLiteral("lblStatus"));
        m_status->setTextInteractionFlags(Qt::TextSelectableByMouse);

        m_layout = new QVBoxLayout(this);
        m_layout->addLayout(strip);
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
        m_picker->setRootLbl(ETPLRootLbl(m_root->currentIndex()));
        m_picker->setSingleBranch(ETPLSingleBranch(m_branch->currentIndex()));
        m_picker->setShowAll(m_showAll->isChecked());
        m_picker->setTemplateView(ETPLTemplateView(m_view->currentIndex()));
        m_picker->setCaptionVisible(m_captions->isChecked());
        m_layout->insertWidget(1, m_picker, 1);
        m_picker->Load(m_context.appName, category);
        for (auto signal : {&XFieldPicker::StateChange, &XFieldPicker::SplitterAdjustment})
            connect(m_picker, signal, this, [this] { showStatus(); });
        connect(m_picker, &XFieldPicker::CategoryClick, this, [this] { showStatus(); });
        showStatus();
    }

    void showStatus()
    {
        if (!m_picker)
            return;
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
    QLabel *m_status = nullptr;
    QPointer<XFieldPicker> m_picker;
};

} // namespace

QWidget *makeFieldPickerPage(const GalleryContext &context)
{
    return new FieldPickerPage(context);
}
