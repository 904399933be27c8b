#include "catalog/qtservices/qtmessageservice.h"

#include "catalog/qtservices/messageboxstyle.h"

#include <QApplication>
#include <QPushButton>

namespace PickerCtl {

qint32 QtMessageService::ShowMessage(const QString &text, qint32 style, const QString &title,
                                     qint32 /*helpContext*/, qint32 /*reserved*/)
{
    // Without a widget application there is nobody to ask: the question counts as cancelled.
    if (!qobject_cast<QApplication *>(QCoreApplication::instance()))
        return AnswerCancel;

    const MessageBoxLayout layout = messageBoxLayout(style);
    QMessageBox box(layout.icon, title.isEmpty() ? QCoreApplication::applicationName() : title, text,
                    layout.buttons, QApplication::activeWindow());
    box.setDefaultButton(layout.defaultButton);
    if (layout.buttons.testFlag(QMessageBox::Cancel))
        box.setEscapeButton(QMessageBox::Cancel);
    box.exec();
    QAbstractButton *clicked = box.clickedButton();
    return messageAnswer(clicked ? box.standardButton(clicked) : QMessageBox::Cancel);
}

} // namespace PickerCtl
