#include "fieldpicker_filterbar.h"

#include <PickerCtl/XFieldPicker.h>

#include <QCheckBox>
#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>

using namespace PickerCtl;

FieldPickerFilterBar::FieldPickerFilterBar(const FieldCatalogPtr &catalog, const QString &appName, QWidget *parent)
    : QWidget(parent)
    , m_catalog(catalog)
    , m_appName(appName)
{
    setObjectName(QStringLiteral("fraFilters"));
    m_name = new QLineEdit(this);
    m_name->setObjectName(QStringLiteral("txtNameFilter"));
    m_name->setPlaceholderText(tr("Search field names (* and ? as wildcards)"));
    m_name->setAccessibleName(tr("Name filter"));
    m_name->setClearButtonEnabled(true);

    m_tech = new QComboBox(this);
    m_tech->setObjectName(QStringLiteral("cboTechFilter"));
    m_tech->setAccessibleName(tr("Technology filter"));
    m_tech->addItems(catalog->TechnologyComboEntries());

    m_fieldType = new QComboBox(this);
    m_fieldType->setObjectName(QStringLiteral("cboFieldTypeFilter"));
    m_fieldType->setAccessibleName(tr("Field type filter"));
    m_fieldType->addItems(catalog->FieldTypeComboEntries(appName));

    m_owner = new QComboBox(this);
    m_owner->setObjectName(QStringLiteral("cboOwnerFilter"));
    m_owner->setAccessibleName(tr("Owner filter"));
    m_owner->addItem(tr("<All Owners>"), QString());
    for (const CurrentUserPtr &user : catalog->Users())
        m_owner->addItem(user->Name(), QString::number(user->UserId()));

    m_busyHour = new QCheckBox(tr("Busy hour"), this);
    m_busyHour->setObjectName(QStringLiteral("chkUseForBusyHour"));

    auto *row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    auto *searchLabel = new QLabel(tr("&Search:"), this);
    searchLabel->setBuddy(m_name);
    row->addWidget(searchLabel);
    row->addWidget(m_name, 1);
    row->addWidget(m_tech);
    row->addWidget(m_fieldType);
    row->addWidget(m_owner);
    row->addWidget(m_busyHour);

    connect(m_name, &QLineEdit::textChanged, this, [this](const QString &text) {
        if (m_picker)
            m_picker->setNameFilter(text);
    });
    connect(m_tech, &QComboBox::currentIndexChanged, this, [this] {
        if (m_picker)
            m_picker->setTechFilter(techFilter());
    });
    connect(m_fieldType, &QComboBox::currentIndexChanged, this, [this] {
        if (m_picker)
            m_picker->setFieldTypeFilter(fieldTypeFilter());
    });
    connect(m_owner, &QComboBox::currentIndexChanged, this, [this] {
        if (m_picker)
            m_picker->setOwnerFilter(ownerFilter());
    });
    connect(m_busyHour, &QCheckBox::toggled, this, [this](bool on) {
        if (!m_picker)
            return;
        // The flag itself refills nothing; the host refreshes to show its effect.
        m_picker->setUseForBusyHour(on);
        m_picker->Refresh();
    });
}

void FieldPickerFilterBar::bind(XFieldPicker *picker)
{
    m_picker = picker;
    applyAll();
}

void FieldPickerFilterBar::applyAll()
{
    if (!m_picker)
        return;
    m_picker->setNameFilter(m_name->text());
    m_picker->setTechFilter(techFilter());
    m_picker->setFieldTypeFilter(fieldTypeFilter());
    m_picker->setOwnerFilter(ownerFilter());
    if (m_busyHour->isChecked()) {
        m_picker->setUseForBusyHour(true);
        m_picker->Refresh();
    }
}

// The first entry of each drop-down stands for "any".
QString FieldPickerFilterBar::techFilter() const
{
    if (m_tech->currentIndex() <= 0)
        return QString();
    const TechnologyTypesPtr types = m_catalog->GetTechnologyTypes();
    const TechnologyTypePtr type = types ? types->Item(m_tech->currentText()) : nullptr;
    return type ? type->Code() : QString();
}

QString FieldPickerFilterBar::fieldTypeFilter() const
{
    if (m_fieldType->currentIndex() <= 0)
        return QString();
    return m_catalog->FieldTypeCode(m_appName, m_fieldType->currentText());
}

QString FieldPickerFilterBar::ownerFilter() const
{
    return m_owner->currentData().toString();
}
