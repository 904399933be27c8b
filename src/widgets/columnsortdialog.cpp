#include "widgets/columnsortdialog.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

namespace PickerCtl {

namespace {


} // namespace

ColumnSortDialog::ColumnSortDialog(const QList<QPair<QString, QString>> &columns, const QString &currentId,
                                   Qt::SortOrder currentOrder, QWidget *parent)
    : QDialog(parent)
    , m_column(new QComboBox(this))
    , m_ascending(new QRadioButton(tr("&Ascending"), this))
    , m_descending(new QRadioButton(tr("&Descending"), this))
{
    setObjectName(QStringLiteral("dlgSort"));
    setWindowTitle(tr("Sort"));
    m_column->setObjectName(QStringLiteral("cboColumn"));
    m_ascending->setObjectName(QStringLiteral("optAscending"));
    m_descending->setObjectName(QStringLiteral("optDescending"));

    m_column->addItem(tr("(none)"), QString());
    for (const auto &column : columns)
        m_column->addItem(column.second, column.first);
    const int current = m_column->findData(currentId);
    m_column->setCurrentIndex(current >= 0 ? current : 0);
    (currentOrder == Qt::DescendingOrder ? m_descending : m_ascending)->setChecked(true);

    auto updateDirection = [this] {
        const bool sorting = m_column->currentIndex() > 0;
        m_ascending->setEnabled(sorting);
        m_descending->setEnabled(sorting);
    };
    connect(m_column, &QComboBox::currentIndexChanged, this, updateDirection);
    updateDirection();

    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    buttons->button(QDialogButtonBox::Ok)->setObjectName(QStringLiteral("cmdOK"));
    buttons->button(QDialogButtonBox::Cancel)->setObjectName(QStringLiteral("cmdCancel"));
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);

    auto *form = new QFormLayout;
    form->addRow(tr("Sort &by:"), m_column);
    form->addRow(QString(), m_ascending);
    form->addRow(QString(), m_descending);
    auto *layout = new QVBoxLayout(this);
    layout->addLayout(form);
    layout->addWidget(buttons);
}

QString ColumnSortDialog::columnId() const
{
    return m_column->currentData().toString();
}

Qt::SortOrder ColumnSortDialog::order() const
{
    return m_descending->isChecked() ? Qt::DescendingOrder : Qt::AscendingOrder;
}

} // namespace PickerCtl
