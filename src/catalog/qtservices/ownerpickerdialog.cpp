#include "catalog/qtservices/ownerpickerdialog.h"

#include <PickerCtl/FieldCatalog.h>

#include <QApplication>
#include <QDialogButtonBox>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

namespace PickerCtl {

namespace {
const QString kDialogName = QStringLiteral("OwnerPickerDialog");
const QString kLabelName = QStringLiteral("lblOwner");
const QString kListName = QStringLiteral("lstUsers");
const QString kButtonsName = QStringLiteral("fraButtons");
const QString kOkName = QStringLiteral("cmdOK");
const QString kCancelName = QStringLiteral("cmdCancel");
} // namespace

OwnerPickerDialog::OwnerPickerDialog(const QList<OwnerChoice> &choices, const QString &title,
                                     const QString &label, QWidget *parent)
    : QDialog(parent), m_choices(choices)
{
    setObjectName(kDialogName);
    setWindowTitle(title);

    m_lblOwner = new QLabel(label, this);
    m_lblOwner->setObjectName(kLabelName);
    m_lstUsers = new QListWidget(this);
    m_lstUsers->setObjectName(kListName);
    m_lblOwner->setBuddy(m_lstUsers);
    for (const OwnerChoice &choice : m_choices)
        m_lstUsers->addItem(choice.text);

    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    buttons->setObjectName(kButtonsName);
    m_cmdOK = buttons->button(QDialogButtonBox::Ok);
    m_cmdOK->setObjectName(kOkName);
    buttons->button(QDialogButtonBox::Cancel)->setObjectName(kCancelName);

    auto *layout = new QVBoxLayout(this);
    layout->addWidget(m_lblOwner);
    layout->addWidget(m_lstUsers);
    layout->addWidget(buttons);

    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(m_lstUsers, &QListWidget::itemDoubleClicked, this, &QDialog::accept);
    // OK means "this user": it stays off until a line is chosen.
    connect(m_lstUsers, &QListWidget::currentRowChanged, this,
            [this](int row) { m_cmdOK->setEnabled(row >= 0); });
    m_cmdOK->setEnabled(false);
}

void OwnerPickerDialog::setCurrentChoice(qsizetype index)
{
    m_lstUsers->setCurrentRow(int(index));
}

CurrentUserPtr OwnerPickerDialog::chosenUser() const
{
    const int row = m_lstUsers->currentRow();
    return row >= 0 && row < m_choices.size() ? m_choices[row].user : nullptr;
}

bool QtOwnerPicker::PickUser(CurrentUserPtr &picked, const QString &title, const QString &label,
                             qint32 /*reserved*/)
{
    if (!qobject_cast<QApplication *>(QCoreApplication::instance()))
        return false;
    const QList<OwnerChoice> choices = ownerChoices(FieldCatalog::instance()->Users());
    OwnerPickerDialog dialog(choices, title, label, QApplication::activeWindow());
    const CurrentUserPtr preset = picked ? picked : UserContext::instance()->CurrentUser();
    if (preset)
        dialog.setCurrentChoice(ownerChoiceIndex(choices, preset->UserId()));
    if (dialog.exec() != QDialog::Accepted || !dialog.chosenUser())
        return false;
    picked = dialog.chosenUser();
    return true;
}

} // namespace PickerCtl
