#include "catalog/qtservices/messageboxstyle.h"
#include "catalog/qtservices/ownerpickerdialog.h"

#include <PickerCtl/FixedUserContext.h>
#include <PickerCtl/testing/ScriptedMessageService.h>

#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QTest>

using namespace PickerCtl;

class TestMessageBox : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void shouldMapStylesToButtonsIconsAndDefaults_data()
    {
        QTest::addColumn<int>("style");
        QTest::addColumn<QMessageBox::StandardButtons>("buttons");
        QTest::addColumn<QMessageBox::Icon>("icon");
        QTest::addColumn<QMessageBox::StandardButton>("defaultButton");
        const QMessageBox::StandardButtons all4 = QMessageBox::Yes | QMessageBox::YesToAll | QMessageBox::No | QMessageBox::Cancel;

        QTest::newRow("0 OK") << 0 << QMessageBox::StandardButtons(QMessageBox::Ok) << QMessageBox::NoIcon << QMessageBox::Ok;
        QTest::newRow("16 OK, stop") << 16 << QMessageBox::StandardButtons(QMessageBox::Ok) << QMessageBox::Critical << QMessageBox::Ok;
        QTest::newRow("36 Yes/No, question") << 36 << (QMessageBox::Yes | QMessageBox::No) << QMessageBox::Question << QMessageBox::Yes;
        QTest::newRow("39 UDC check") << 39 << all4 << QMessageBox::Question << QMessageBox::Yes;
        QTest::newRow("52 Yes/No, exclamation") << 52 << (QMessageBox::Yes | QMessageBox::No) << QMessageBox::Warning << QMessageBox::Yes;
        QTest::newRow("68 Yes/No, information") << 68 << (QMessageBox::Yes | QMessageBox::No) << QMessageBox::Information << QMessageBox::Yes;
        QTest::newRow("292 Yes/No, No default") << 292 << (QMessageBox::Yes | QMessageBox::No) << QMessageBox::Question << QMessageBox::No;
        QTest::newRow("unknown set falls back to OK") << 6 << QMessageBox::StandardButtons(QMessageBox::Ok) << QMessageBox::NoIcon << QMessageBox::Ok;
    }

    void shouldMapStylesToButtonsIconsAndDefaults()
    {
        QFETCH(int, style);
        QFETCH(QMessageBox::StandardButtons, buttons);
        QFETCH(QMessageBox::Icon, icon);
        QFETCH(QMessageBox::StandardButton, defaultButton);
        const MessageBoxLayout layout = messageBoxLayout(style);
        QCOMPARE(layout.buttons, buttons);
        QCOMPARE(layout.icon, icon);
        QCOMPARE(layout.defaultButton, defaultButton);
    }

    void shouldAnswerWithTheCodesOfTheButtons_data()
    {
        QTest::addColumn<QMessageBox::StandardButton>("button");
        QTest::addColumn<int>("answer");
        QTest::newRow("OK") << QMessageBox::Ok << 1;
        QTest::newRow("Cancel") << QMessageBox::Cancel << 2;
        QTest::newRow("Yes") << QMessageBox::Yes << 6;
        QTest::newRow("No") << QMessageBox::No << 7;
        QTest::newRow("Yes to All") << QMessageBox::YesToAll << 8;
        QTest::newRow("closed without a button") << QMessageBox::NoButton << 2;
    }

    void shouldAnswerWithTheCodesOfTheButtons()
    {
        QFETCH(QMessageBox::StandardButton, button);
        QFETCH(int, answer);
        QCOMPARE(messageAnswer(button), answer);
    }

    void shouldScriptAnswersAndRecordCalls()
    {
        ScriptedMessageService messages({MessageService::AnswerYes});
        QCOMPARE(messages.ShowMessage(QStringLiteral("first"), 39, QStringLiteral("Title")), 6);
        QCOMPARE(messages.ShowMessage(QStringLiteral("second"), 16, QString()), 2);
        QCOMPARE(messages.calls().size(), 2);
        QCOMPARE(messages.calls()[0].style, 39);
        QCOMPARE(messages.calls()[0].title, QStringLiteral("Title"));
    }

    void shouldOfferTheCataloguesUsersInTheOwnerPicker()
    {
        const QList<CurrentUserPtr> users{
            std::make_shared<FixedUser>(UserSpec{1, QStringLiteral("admin"), true}), nullptr,
            std::make_shared<FixedUser>(UserSpec{42, QStringLiteral("jsmith"), false})};
        const QList<OwnerChoice> choices = ownerChoices(users);

        OwnerPickerDialog dialog(choices, QStringLiteral("Change Owner"), QStringLiteral("Owner"));
        auto *list = dialog.findChild<QListWidget *>(QStringLiteral("lstUsers"));
        auto *ok = dialog.findChild<QPushButton *>(QStringLiteral("cmdOK"));

        QCOMPARE(dialog.objectName(), QStringLiteral("OwnerPickerDialog"));
        QCOMPARE(dialog.windowTitle(), QStringLiteral("Change Owner"));
        QCOMPARE(dialog.findChild<QLabel *>(QStringLiteral("lblOwner"))->text(), QStringLiteral("Owner"));
        QCOMPARE(list->count(), 2);
        QCOMPARE(list->item(1)->text(), QStringLiteral("jsmith (42)"));
        QVERIFY(!ok->isEnabled());
        QVERIFY(dialog.chosenUser() == nullptr);

        dialog.setCurrentChoice(ownerChoiceIndex(choices, 42));
        QVERIFY(ok->isEnabled());
        QCOMPARE(dialog.chosenUser()->UserId(), 42);
        QCOMPARE(ownerChoiceIndex(choices, 7), -1);
    }
};

QTEST_MAIN(TestMessageBox)
#include "tst_messagebox.moc"
