#include <PickerCtl/ControlFactory.h>

#include <QGridLayout>
#include <QLabel>
#include <QTest>

using namespace PickerCtl;

class ControlLayoutTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void shouldAskForAUsableSize_data();
    void shouldAskForAUsableSize();
    void shouldKeepAUsableSizeInAGridLayout_data();
    void shouldKeepAUsableSizeInAGridLayout();
};

void ControlLayoutTest::shouldAskForAUsableSize_data()
{
    QTest::addColumn<QString>("className");
    const auto controls = ControlFactory::controls();
    for (const auto &description : controls)
        QTest::newRow(qPrintable(description.className)) << description.className;
}

void ControlLayoutTest::shouldAskForAUsableSize()
{
    QFETCH(QString, className);
    std::unique_ptr<QWidget> control(ControlFactory::create(className));
    QVERIFY(control);

    const QSize hint = control->sizeHint();
    const QSize minimum = control->minimumSizeHint();
    // An invalid hint makes a layout give the control nothing.
    QVERIFY2(hint.isValid() && !hint.isEmpty(), qPrintable(QStringLiteral("%1x%2").arg(hint.width()).arg(hint.height())));
    QVERIFY(minimum.isValid() && !minimum.isEmpty());
    QVERIFY(minimum.width() <= hint.width());
    QVERIFY(minimum.height() <= hint.height());
}

void ControlLayoutTest::shouldKeepAUsableSizeInAGridLayout_data()
{
    shouldAskForAUsableSize_data();
}

void ControlLayoutTest::shouldKeepAUsableSizeInAGridLayout()
{
    QFETCH(QString, className);

    // Given the control in a grid cell beside a caption, as a host's form places it
    QWidget form;
    auto *grid = new QGridLayout(&form);
    grid->addWidget(new QLabel(QStringLiteral("Caption"), &form), 0, 0);
    QWidget *control = ControlFactory::create(className, &form);
    QVERIFY(control);
    grid->addWidget(control, 0, 1);
    grid->addWidget(new QLabel(QStringLiteral("Below"), &form), 1, 0, 1, 2);

    // When the form takes its own preferred size, and then the smallest the layout allows
    form.show();
    QVERIFY(QTest::qWaitForWindowExposed(&form));
    form.resize(form.sizeHint()); // adjustSize() would clamp to a share of the small test screen
    QApplication::processEvents();
    const QSize preferred = control->size();
    form.resize(form.minimumSizeHint());
    QApplication::processEvents();
    const QSize smallest = control->size();

    // Then the control gets at least its preferred size, and never less than its minimum
    QVERIFY(preferred.width() >= control->sizeHint().width());
    QVERIFY(preferred.height() >= control->sizeHint().height());
    QVERIFY(smallest.width() >= control->minimumSizeHint().width());
    QVERIFY(smallest.height() >= control->minimumSizeHint().height());
}

QTEST_MAIN(ControlLayoutTest)
#include "tst_controllayout.moc"
