// The express template editor beside a field browser to drag from, and the technology selector
// with its mask and bits shown live, all on the sample catalogue. The template and its column
// layouts are kept in the gallery's settings, so they survive a restart.
#include "gallerypages.h"

#include <PickerCtl/AppServices.h>
#include <PickerCtl/FieldCategory.h>
#include <PickerCtl/SettingsPropertyStore.h>
#include <PickerCtl/XExpTemplate.h>
#include <PickerCtl/XFieldPicker.h>
#include <PickerCtl/XTechnologies.h>

#include <QCheckBox>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QSettings>
#include <QSplitter>
#include <QVBoxLayout>

using namespace PickerCtl;

namespace {

constexpr auto TechnologiesTitle = "Technologies";
constexpr auto MaskFormat = "Mask: \"%1\"   Bits: %2";
constexpr auto BrowserTitle = "Drag fields from here";
constexpr auto TemplateTitle = "Express template";
constexpr auto ValidateCaption = "&Validate";
constexpr auto WarnCaption = "&Warn on multiple technologies";
constexpr auto ValidationTitle = "Express Template";
constexpr auto StatusFormat = "%1 fields in the template   |   changes: %2   |   %3";
constexpr auto NotValidated = "not validated yet";
constexpr auto Valid = "the template is valid";
constexpr auto NotValid = "the template is not valid";
// Where the page keeps what must survive a restart: the template's field ids and the two
// column layouts the editor saves in the catalogue's store.
constexpr auto SettingsOrganisation = "PickerCtl";
constexpr auto SettingsApplication = "pickerctl-gallery";
constexpr auto SettingsGroup = "Templates";
constexpr int BrowserShare = 3;
constexpr int TemplateShare = 5;
constexpr int SplitterUnit = 1000;
// A first run starts with a few fields of the start category, so there is a template to try.
constexpr int FirstRunFields = 4;
const QString TemplateKey = QStringLiteral("Template Field Ids");
const QString WarnKey = QStringLiteral("Warn on Multiple TechTypes");
const QStringList StateKeys{QStringLiteral("Express Available Properties"), QStringLiteral("Express Selected Properties")};

QGroupBox *group(const char *name, const char *title, QWidget *content)
{
    auto *box = new QGroupBox(QString::fromLatin1(title));
    box->setObjectName(QLatin1String(name));
    auto *layout = new QVBoxLayout(box);
    layout->addWidget(content);
    return box;
}

/// A category with fields, to start both controls on something to see.
QString startCategory(FieldCatalog &catalog, const QString &appName)
{
    const QList<FieldCategoryPtr> categories = catalog.Categories(appName);
    for (const FieldCategoryPtr &category : categories) {
        if (category->Parent() && category->Fields()->Count() > 0)
            return AppServices::instance()->UseEntityView() ? category->Name() : category->FullName();
    }
    return QString();
}

class TemplatesPage : public QWidget
{
public:
    explicit TemplatesPage(const GalleryContext &context)
        : m_context(context)
        , m_settings(std::make_unique<SettingsPropertyStore>(
              std::make_unique<QSettings>(QSettings::IniFormat, QSettings::UserScope,
                                          QLatin1String(SettingsOrganisation), QLatin1String(SettingsApplication)),
              QLatin1String(SettingsGroup)))
    {
        auto *layout = new QVBoxLayout(this);
        layout->addWidget(group("fraTechnologies", TechnologiesTitle, makeTechnologies()));

        auto *splitter = new QSplitter;
        splitter->setObjectName(QStringLiteral("splitter"));
        splitter->addWidget(group("fraBrowser", BrowserTitle, makeBrowser()));
        splitter->addWidget(group("fraTemplate", TemplateTitle, makeTemplate()));
        splitter->setStretchFactor(0, 3);
        splitter->setStretchFactor(1, 5);
        splitter->setSizes({BrowserShare * SplitterUnit, TemplateShare * SplitterUnit});
        layout->addWidget(splitter, 1);
        showStatus();
    }

    ~TemplatesPage() override { saveState(); }

private:
    QWidget *makeTechnologies()
    {
        auto *strip = new QWidget;
        auto *row = new QHBoxLayout(strip);
        row->setContentsMargins(0, 0, 0, 0);
        auto *technologies = new XTechnologies;
        technologies->setObjectName(QStringLiteral("technologies"));
        technologies->InitializeTechnologyTypes();
        auto *mask = new QLabel;
        mask->setObjectName(QStringLiteral("lblMask"));
        mask->setTextInteractionFlags(Qt::TextSelectableByMouse);
        const auto show = [technologies, mask] {
            const QString bits = QVariant(technologies->TechBits()).toString();
            mask->setText(QString::fromLatin1(MaskFormat).arg(technologies->GetMask(), bits));
        };
        connect(technologies, &XTechnologies::StateChanged, mask, show);
        show();
        row->addWidget(technologies, 1);
        row->addWidget(mask, 1);
        return strip;
    }

    QWidget *makeBrowser()
    {
        auto *picker = new XFieldPicker;
        picker->setObjectName(QStringLiteral("fieldPicker"));
        picker->InitProperties();
        picker->setAllowDragDrop(true);
        picker->setTemplateView(tplTreeAndList);
        picker->Load(m_context.appName, startCategory(*m_context.catalog, m_context.appName));
        return picker;
    }

    QWidget *makeTemplate()
    {
        auto *pane = new QWidget;
        auto *column = new QVBoxLayout(pane);
        column->setContentsMargins(0, 0, 0, 0);

        m_editor = new XExpTemplate;
        m_editor->setObjectName(QStringLiteral("expTemplate"));
        restoreState();
        connect(m_editor, &XExpTemplate::Changed, this, [this] {
            ++m_changes;
            m_verdict = QString::fromLatin1(NotValidated);
            saveTemplate();
            showStatus();
        });

        auto *strip = new QHBoxLayout;
        auto *validate = new QPushButton(QString::fromLatin1(ValidateCaption));
        validate->setObjectName(QStringLiteral("cmdValidate"));
        connect(validate, &QPushButton::clicked, this, [this] {
            const bool valid = m_editor->IsValid(QString::fromLatin1(ValidationTitle));
            m_verdict = QString::fromLatin1(valid ? Valid : NotValid);
            showStatus();
        });
        auto *warn = new QCheckBox(QString::fromLatin1(WarnCaption));
        warn->setObjectName(QStringLiteral("chkWarn"));
        const PropertyStorePtr store = m_context.catalog->GetProperties();
        warn->setChecked(store && store->Item(WarnKey).toBool());
        connect(warn, &QCheckBox::toggled, this, [this](bool on) {
            if (const PropertyStorePtr catalogStore = m_context.catalog->GetProperties())
                catalogStore->SetItem(WarnKey, on);
        });
        m_status = new QLabel;
        m_status->setObjectName(QStringLiteral("lblStatus"));
        strip->addWidget(validate);
        strip->addWidget(warn);
        strip->addWidget(m_status, 1);

        column->addWidget(m_editor, 1);
        column->addLayout(strip);
        return pane;
    }

    /// The template of the last run and the column layouts the editor saved then.
    void restoreState()
    {
        const PropertyStorePtr store = m_context.catalog->GetProperties();
        const QString category = startCategory(*m_context.catalog, m_context.appName);
        TemplateFieldsPtr tplfs = TemplateFields::create();
        const auto add = [&tplfs](const FieldPtr &field) {
            auto item = std::make_shared<TemplateField>();
            item->setField(field);
            tplfs->Add(item);
        };
        if (m_settings->Contains(TemplateKey)) {
            const QStringList ids = m_settings->Item(TemplateKey).toStringList();
            for (const QString &id : ids) {
                if (const FieldPtr field = m_context.catalog->GetField(m_context.appName, id.toInt()))
                    add(field);
            }
        } else if (const FieldCategoryPtr first = m_context.catalog->GetCategory(m_context.appName, category)) {
            const FieldsPtr fields = first->Fields();
            for (qsizetype i = 0; i < fields->size() && i < FirstRunFields; ++i)
                add(fields->at(i));
        }
        m_editor->Load(m_context.appName, category, tplfs);
        if (store) {
            for (const QString &key : StateKeys) {
                if (m_settings->Contains(key))
                    store->SetItem(key, m_settings->Item(key));
            }
        }
        m_editor->LoadState();
    }

    void saveTemplate()
    {
        QStringList ids;
        const TemplateFieldsPtr tplfs = m_editor->Fields();
        for (const TemplateFieldPtr &item : *tplfs)
            ids.append(QString::number(item->Field()->Id()));
        m_settings->SetItem(TemplateKey, ids);
    }

    void saveState()
    {
        saveTemplate();
        m_editor->SaveState();
        if (const PropertyStorePtr store = m_context.catalog->GetProperties()) {
            for (const QString &key : StateKeys)
                m_settings->SetItem(key, store->Item(key));
        }
    }

    void showStatus()
    {
        if (!m_status || !m_editor)
            return;
        m_status->setText(QString::fromLatin1(StatusFormat)
                              .arg(m_editor->Fields()->Count())
                              .arg(m_changes)
                              .arg(m_verdict));
    }

    GalleryContext m_context;
    std::unique_ptr<SettingsPropertyStore> m_settings;
    XExpTemplate *m_editor = nullptr;
    QLabel *m_status = nullptr;
    int m_changes = 0;
    QString m_verdict = QString::fromLatin1(NotValidated);
};

} // namespace

QWidget *makeTemplatesPage(const GalleryContext &context)
{
    return new TemplatesPage(context);
}
