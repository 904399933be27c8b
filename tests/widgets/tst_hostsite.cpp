#include <PickerCtl/HostSite.h>

#include <QTest>
#include <QWidget>

using namespace PickerCtl;

class HostSiteTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void shouldTakeAmbientsFromTheParentUnlessTheHostSetsThem()
    {
        // Given a host form with its own colours and font
        QWidget form;
        QPalette palette = form.palette();
        palette.setColor(QPalette::Window, QColor(0x20, 0x40, 0x60));
        palette.setColor(QPalette::WindowText, QColor(0xF0, 0xF0, 0x00));
        form.setPalette(palette);
        QFont font(QStringLiteral("Courier"), 11);
        form.setFont(font);
        auto *control = new QWidget(&form);
        HostSite site(control);

        // Then the control's ambients are the form's
        QCOMPARE(site.AmbientBackColor(), QColor(0x20, 0x40, 0x60));
        QCOMPARE(site.AmbientForeColor(), QColor(0xF0, 0xF0, 0x00));
        QCOMPARE(site.AmbientFont(), font);

        // When the host overrides one, that one wins until reset
        site.setAmbientBackColor(Qt::white);
        QCOMPARE(site.AmbientBackColor(), QColor(Qt::white));
        site.setAmbientBackColor(QColor());
        QCOMPARE(site.AmbientBackColor(), QColor(0x20, 0x40, 0x60));
    }

    void shouldBalanceNestedRedrawRequests_data()
    {
        QTest::addColumn<QList<bool>>("requests");
        QTest::addColumn<bool>("painting");
        QTest::newRow("off") << QList<bool>{false} << false;
        QTest::newRow("off on") << QList<bool>{false, true} << true;
        QTest::newRow("nested off off on") << QList<bool>{false, false, true} << false;
        QTest::newRow("nested pairs") << QList<bool>{false, false, true, true} << true;
        QTest::newRow("stray on") << QList<bool>{true, false, true} << true;
    }

    void shouldBalanceNestedRedrawRequests()
    {
        QFETCH(QList<bool>, requests);
        QFETCH(bool, painting);
        QWidget tree;
        for (bool on : requests)
            HostSite::setRedraw(&tree, on);
        QCOMPARE(tree.updatesEnabled(), painting);
        QCOMPARE(HostSite::isRedrawOff(&tree), !painting);
    }

    void shouldMeasureTheControlInTwips()
    {
        QWidget control;
        control.resize(192, 96);
        HostSite site(&control);
        const double dpi = control.logicalDpiX();
        QCOMPARE(site.ScaleWidth(), 192 * 1440.0 / dpi);
        QCOMPARE(site.twipsToPixelsX(site.pixelsToTwipsX(37)), 37);
    }
};

QTEST_MAIN(HostSiteTest)
#include "tst_hostsite.moc"
