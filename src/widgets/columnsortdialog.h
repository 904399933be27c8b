#pragma once

#include <QDialog>

class QComboBox;
class QRadioButton;

namespace PickerCtl {

/// The sort dialog: a column (or none) and a direction.
/// Child names: "cboColumn", "optAscending", "optDescending", "cmdOK", "cmdCancel".
class ColumnSortDialog : public QDialog
{
    Q_OBJECT

public:
    /// columns: (id, title) pairs in display order; the current sort preselected ("" for none).
    ColumnSortDialog(const QList<QPair<QString, QString>> &columns, const QString &currentId,
                     Qt::SortOrder currentOrder, QWidget *parent = nullptr);

    /// The chosen column id, "" for no sort.
    QString columnId() const;
    Qt::SortOrder order() const;

private:
    QComboBox *m_column;
    QRadioButton *m_ascending;
    QRadioButton *m_descending;
};

} // namespace PickerCtl
