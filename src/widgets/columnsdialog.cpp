#include "widgets/columnsdialog.h"

#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

namespace PickerCtl {

namespace {

constexpr int kIdRole = Qt::UserRole + 1;
constexpr int kCanHideRole = Qt::UserRole + 2;

} // namespace

ColumnsDialog::ColumnsDialog(const QList<ColumnChoice> &columns, QWidget *parent)
    : QDialog(parent)
    , m_list(new QListWidget(this))
    , m_moveUp(new QPushButton(tr("Move &Up"), this))
    , m_moveDown(new QPushButton(tr("Move &Down"), this))
{
    setObjectName(QStringLiteral("dlgColumns"));
    setWindowTitle(tr("Customize Columns"));
    m_list->setObjectName(QStringLiteral("lstColumns"));
    m_moveUp->setObjectName(QStringLiteral("cmdMoveUp"));
    m_moveDown->setObjectName(QStringLiteral("cmdMoveDown"));

    for (const ColumnChoice &choice : columns) {
        auto *item = new QListWidgetItem(choice.title, m_list);
        item->setData(kIdRole, choice.id);
        item->setData(kCanHideRole, choice.canHide);
        // A column that cannot be hidden stays checked: the user cannot take it away.
        Qt::ItemFlags flags = Qt::ItemIsSelectable | Qt::ItemIsEnabled;
        if (choice.canHide)
            flags |= Qt::ItemIsUserCheckable;
        item->setFlags(flags);
        item->setCheckState(choice.visible || !choice.canHide ? Qt::Checked : Qt::Unchecked);
    }
    if (m_list->count() > 0)
        m_list->setCurrentRow(0);

    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    buttons->button(QDialogButtonBox::Ok)->setObjectName(QStringLiteral("cmdOK"));
    buttons->button(QDialogButtonBox::Cancel)->setObjectName(QStringLiteral("cmdCancel"));
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(m_moveUp, &QPushButton::clicked, this, [this] { moveCurrent(-1); });
    connect(m_moveDown, &QPushButton::clicked, this, [this] { moveCurrent(1); });
    connect(m_list, &QListWidget::currentRowChanged, this, &ColumnsDialog::updateButtons);

    auto *side = new QVBoxLayout;
    side->addWidget(m_moveUp);
    side->addWidget(m_moveDown);
    side->addStretch();
    auto *body = new QHBoxLayout;
    body->addWidget(m_list);
    body->addLayout(side);
    auto *layout = new QVBoxLayout(this);
    layout->addLayout(body);
    layout->addWidget(buttons);
    updateButtons();
}

QList<ColumnChoice> ColumnsDialog::columns() const
{
    QList<ColumnChoice> result;
    for (int row = 0; row < m_list->count(); ++row) {
        const QListWidgetItem *item = m_list->item(row);
        ColumnChoice choice;
        choice.id = item->data(kIdRole).toString();
        choice.title = item->text();
        choice.canHide = item->data(kCanHideRole).toBool();
        choice.visible = item->checkState() == Qt::Checked || !choice.canHide;
        result.append(choice);
    }
    return result;
}

void ColumnsDialog::moveCurrent(int delta)
{
    const int row = m_list->currentRow();
    const int target = row + delta;
    if (row < 0 || target < 0 || target >= m_list->count())
        return;
    QListWidgetItem *item = m_list->takeItem(row);
    m_list->insertItem(target, item);
    m_list->setCurrentRow(target);
}

void ColumnsDialog::updateButtons()
{
    const int row = m_list->currentRow();
    m_moveUp->setEnabled(row > 0);
    m_moveDown->setEnabled(row >= 0 && row < m_list->count() - 1);
}

} // namespace PickerCtl
