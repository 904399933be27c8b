#include "filter_helpers.h"

#include <QApplication>
#include <QLineEdit>
#include <QTest>

namespace FilterTest {

bool showActive(QWidget *editor)
{
    editor->show();
    editor->activateWindow();
    QApplication::setActiveWindow(editor->window());
    return QTest::qWaitForWindowActive(editor->window());
}

bool wholeTextSelected(const QWidget *lineEdit)
{
    const auto *box = qobject_cast<const QLineEdit *>(lineEdit);
    return box && !box->text().isEmpty() && box->selectedText() == box->text();
}

} // namespace FilterTest
