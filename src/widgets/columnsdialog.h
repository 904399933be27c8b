#pragma once

#include <QDialog>

class QListWidget;
class QPushButton;

namespace PickerCtl {

/// One entry of the column dialog.
struct ColumnChoice
{
    QString id;
    QString title;
    bool visible = true;
    bool canHide = true;
};

/// The column dialog: a check list of the columns in display order, with buttons that move the
/// current column up or down. Child names: "lstColumns", "cmdMoveUp", "cmdMoveDown", "cmdOK", "cmdCancel".
class ColumnsDialog : public QDialog
{
    Q_OBJECT

public:
    explicit ColumnsDialog(const QList<ColumnChoice> &columns, QWidget *parent = nullptr);

    /// The columns as the dialog now shows them.
    QList<ColumnChoice> columns() const;
    /// Moves the current entry by one place (-1 up, +1 down).
    void moveCurrent(int delta);

private:
    void updateButtons();

    QListWidget *m_list;
    QPushButton *m_moveUp;
    QPushButton *m_moveDown;
};

} // namespace PickerCtl
