#include "technologies_helpers.h"

#include <PickerCtl/XTechnologies.h>
#include <PickerCtl/XTreeOpt.h>

#include <QAbstractItemModelTester>
#include <QApplication>
#include <QRegularExpression>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>

using namespace PickerCtl;
using namespace TechTest;

namespace {

const QString RootKey = QStringLiteral("Tech Types");

// "L" occurs inside "LA": a mask naming only LTE-A ticks LTE as well.
QList<Tech> overlappingTechs()
{
    return {{QStringLiteral("GSM"), QStringLiteral("G"), 1},
            {QStringLiteral("LTE"), QStringLiteral("L"), 4},
            {QStringLiteral("LTE-A"), QStringLiteral("LA"), 16}};
}

struct Fixture
{
    explicit Fixture(const QList<Tech> &techs = distinctTechs())
        : catalog(std::make_shared<TechCatalog>(techs))
        , scope(catalog)
    {
        control.resize(240, 200);
    }

    std::shared_ptr<TechCatalog> catalog;
    CatalogScope scope;
    XTechnologies control;
};

bool showAndExpose(QWidget &widget)
{
    widget.show();
    return QTest::qWaitForWindowExposed(&widget);
}

} // namespace

class XTechnologiesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void shouldBuildOneRootAndOneChildPerTypeInCatalogueOrder()
    {
        // Given a catalogue of four types
        Fixture f;
        QAbstractItemModelTester tester(f.control.tree()->model(),
                                        QAbstractItemModelTester::FailureReportingMode::QtTest);

        // When the tree is built
        QVERIFY(f.control.InitializeTechnologyTypes());

        // Then the root comes first, expanded, with image state 2, and the types follow under it
        XTreeOpt *tvw = f.control.tree();
        QCOMPARE(tvw->objectName(), QStringLiteral("tvw"));
        QVERIFY(!tvw->accessibleName().isEmpty());
        QCOMPARE(tvw->Count(), 5);
        QCOMPARE(tvw->Key(1), RootKey);
        QCOMPARE(tvw->Caption(RootKey), RootKey);
        QCOMPARE(tvw->ImageState(RootKey), 2);
        QVERIFY(tvw->isExpanded(nodeIndex(*tvw, RootKey)));
        QCOMPARE(tvw->CheckValue(RootKey), 0);
        int position = 2;
        for (const Tech &tech : distinctTechs()) {
            QCOMPARE(tvw->Key(position), tech.name);
            QCOMPARE(tvw->Caption(tech.name), tech.name);
            QCOMPARE(tvw->Tag(tech.name), tech.code);
            QCOMPARE(tvw->CheckValue(tech.name), 0);
            QCOMPARE(nodeIndex(*tvw, tech.name).parent(), nodeIndex(*tvw, RootKey));
            ++position;
        }
    }

    void shouldApplyTheHostsOperations_data()
    {
        QTest::addColumn<QList<Tech>>("techs");
        QTest::addColumn<QString>("start");
        QTest::addColumn<QString>("operation");
        QTest::addColumn<QString>("expectedMask");
        QTest::addColumn<qint32>("expectedBits");
        QTest::addColumn<int>("expectedSignals");

        const QList<Tech> d = distinctTechs();
        const QList<Tech> o = overlappingTechs();
        QTest::newRow("SetMask: empty mask clears a full selection") << d << "GULN" << "SetMask " << "" << 0 << 4;
        QTest::newRow("SetMask: reversed codes come back in catalogue order")
            << d << "" << "SetMask NLUG" << "GULN" << 15 << 4;
        QTest::newRow("SetMask: replaces, does not add to, the selection")
            << d << "GULN" << "SetMask U" << "U" << 2 << 3;
        QTest::newRow("SetMask: unknown characters are ignored") << d << "" << "SetMask x-G?zL " << "GL" << 5 << 2;
        QTest::newRow("SetMask: codes are case-sensitive") << d << "" << "SetMask gulN" << "N" << 8 << 1;
        QTest::newRow("SetMask: a repeated code counts once") << d << "" << "SetMask LLL" << "L" << 4 << 1;
        QTest::newRow("SetMask: once per changed type") << d << "G" << "SetMask UL" << "UL" << 6 << 3;
        QTest::newRow("SetMask: the same mask changes nothing") << d << "GU" << "SetMask UG" << "GU" << 3 << 0;
        QTest::newRow("SetMask: a longer code ticks the code inside it") << o << "" << "SetMask LA" << "LLA" << 20 << 2;
        QTest::newRow("SetMask: the shorter code alone leaves the longer one") << o << "" << "SetMask GL" << "GL" << 5 << 2;
        QTest::newRow("SetAll on a cleared tree") << d << "" << "SetAll" << "GULN" << 15 << 1;
        QTest::newRow("SetAll on a full tree changes nothing") << d << "GULN" << "SetAll" << "GULN" << 15 << 0;
        QTest::newRow("ClearAll on a partly ticked tree") << d << "GU" << "ClearAll" << "" << 0 << 1;
        QTest::newRow("ClearAll on a cleared tree changes nothing") << d << "" << "ClearAll" << "" << 0 << 0;
        QTest::newRow("root ticked by the user") << d << "G" << "click root" << "GULN" << 15 << 1;
        QTest::newRow("rebuilding loses every tick and raises nothing") << d << "GU" << "Initialize" << "" << 0 << 0;
        const QList<Tech> huge = {{QStringLiteral("A"), QStringLiteral("A"), 0x40000000},
                                  {QStringLiteral("B"), QStringLiteral("B"), 0x40000000}};
        QTest::newRow("bits past 32 bits wrap instead of overflowing") << huge << "A" << "SetAll" << "AB"
                                                                        << qint32(0x80000000u) << 1;
    }

    void shouldApplyTheHostsOperations()
    {
        QFETCH(QList<Tech>, techs);
        QFETCH(QString, start);
        QFETCH(QString, operation);
        QFETCH(QString, expectedMask);
        QFETCH(qint32, expectedBits);
        QFETCH(int, expectedSignals);
        // Given a built tree with the start mask
        Fixture f(techs);
        QVERIFY(f.control.InitializeTechnologyTypes());
        QVERIFY(f.control.SetMask(start));
        QSignalSpy stateChanged(&f.control, &XTechnologies::StateChanged);

        // When the host runs the operation, or the user ticks the root
        if (operation == QLatin1String("SetAll")) {
            f.control.SetAll();
        } else if (operation == QLatin1String("ClearAll")) {
            f.control.ClearAll();
        } else if (operation == QLatin1String("Initialize")) {
            QVERIFY(f.control.InitializeTechnologyTypes());
        } else if (operation == QLatin1String("click root")) {
            QVERIFY(showAndExpose(f.control));
            XTreeOpt *tvw = f.control.tree();
            QTest::mouseClick(tvw->viewport(), Qt::LeftButton, {}, checkBoxCentre(*tvw, nodeIndex(*tvw, RootKey)));
        } else {
            QVERIFY(f.control.SetMask(operation.sliced(8))); // the mask after "SetMask "
        }

        // Then mask, bits and validity read back the ticked types in catalogue order, each type once,
        // and StateChanged came once per change the tree reports
        bool ok = false;
        QCOMPARE(f.control.GetMask(&ok), expectedMask);
        QVERIFY(ok);
        const QVariant bits = f.control.TechBits();
        QCOMPARE(bits.metaType(), QMetaType::fromType<qint32>());
        QCOMPARE(bits.value<qint32>(), expectedBits);
        QCOMPARE(f.control.IsValid(), !expectedMask.isEmpty());
        QCOMPARE(f.control.tree()->Count(), techs.size() + 1);
        QCOMPARE(stateChanged.count(), expectedSignals);
        // and the mask read back sets the same selection again
        QVERIFY(f.control.SetMask(f.control.GetMask()));
        QCOMPARE(f.control.GetMask(), expectedMask);
    }

    void shouldLetOnlyTheHostChangeTicksWhileLocked_data()
    {
        QTest::addColumn<bool>("locked");
        QTest::addColumn<bool>("useKeyboard");
        QTest::addColumn<QString>("node");
        QTest::addColumn<QString>("expectedMask");
        QTest::addColumn<int>("expectedSignals");

        QTest::newRow("click ticks a type") << false << false << "UMTS" << "GU" << 1;
        QTest::newRow("space ticks a type") << false << true << "UMTS" << "GU" << 1;
        QTest::newRow("click on the root ticks all") << false << false << RootKey << "GULN" << 1;
        QTest::newRow("locked: click on a type is refused") << true << false << "UMTS" << "G" << 0;
        QTest::newRow("locked: space on a type is refused") << true << true << "UMTS" << "G" << 0;
        QTest::newRow("locked: click on the root is refused") << true << false << RootKey << "G" << 0;
        QTest::newRow("locked: click on a ticked type is refused") << true << false << "GSM" << "G" << 0;
    }

    void shouldLetOnlyTheHostChangeTicksWhileLocked()
    {
        QFETCH(bool, locked);
        QFETCH(bool, useKeyboard);
        QFETCH(QString, node);
        QFETCH(QString, expectedMask);
        QFETCH(int, expectedSignals);
        // Given a shown tree with GSM ticked, locked or not before it was built again
        Fixture f;
        QVERIFY(f.control.InitializeTechnologyTypes());
        f.control.setLocked(locked);
        QVERIFY(f.control.InitializeTechnologyTypes());
        QVERIFY(f.control.SetMask(QStringLiteral("G")));
        QCOMPARE(f.control.Locked(), locked);
        QVERIFY(showAndExpose(f.control));
        QSignalSpy stateChanged(&f.control, &XTechnologies::StateChanged);

        // When the user clicks the node's check box or presses Space on it
        XTreeOpt *tvw = f.control.tree();
        const QModelIndex index = nodeIndex(*tvw, node);
        if (useKeyboard) {
            tvw->setCurrentIndex(index);
            tvw->setFocus();
            QTest::keyClick(tvw, Qt::Key_Space);
        } else {
            QTest::mouseClick(tvw->viewport(), Qt::LeftButton, {}, checkBoxCentre(*tvw, index));
        }

        // Then the tick changes only when unlocked
        QCOMPARE(f.control.GetMask(), expectedMask);
        QCOMPARE(stateChanged.count(), expectedSignals);
        // and the host can still set the mask
        QVERIFY(f.control.SetMask(QStringLiteral("LN")));
        QCOMPARE(f.control.GetMask(), QStringLiteral("LN"));
    }

    void shouldLookLockedWhileLocked()
    {
        // Given a shown tree with ticks
        Fixture f;
        QVERIFY(f.control.InitializeTechnologyTypes());
        QVERIFY(f.control.SetMask(QStringLiteral("GL")));
        QVERIFY(showAndExpose(f.control));
        const QImage unlocked = f.control.tree()->grab().toImage();

        // When it is locked, and unlocked again
        f.control.setLocked(true);
        const QImage locked = f.control.tree()->grab().toImage();
        f.control.setLocked(false);
        const QImage unlockedAgain = f.control.tree()->grab().toImage();

        // Then the locked tree is drawn differently, ticks kept, and unlocking restores the look
        QVERIFY(locked != unlocked);
        QCOMPARE(f.control.GetMask(), QStringLiteral("GL"));
        QCOMPARE(unlockedAgain, unlocked);
    }

    void shouldDoNothingBeforeTheTreeIsBuilt()
    {
        // Given a control whose tree was never built
        Fixture f;
        QSignalSpy stateChanged(&f.control, &XTechnologies::StateChanged);

        // When the host clears, sets a mask, ticks all, locks and disables it
        f.control.ClearAll();
        QVERIFY(!f.control.SetMask(QStringLiteral("GULN")));
        f.control.SetAll();
        f.control.setLocked(true);
        f.control.setEnabled(false);

        // Then the properties are kept, nothing is ticked, nothing is raised, and the catalogue is not asked
        QVERIFY(f.control.Locked());
        QVERIFY(!f.control.Enabled());
        bool ok = false;
        QCOMPARE(f.control.GetMask(&ok), QString());
        QVERIFY(ok);
        QCOMPARE(f.control.TechBits(), QVariant::fromValue(qint32(0)));
        QVERIFY(!f.control.IsValid());
        QCOMPARE(f.control.tree()->Count(), 0);
        QCOMPARE(stateChanged.count(), 0);
        QCOMPARE(f.catalog->typeListCalls, 0);
    }

    void shouldSkipTypesAddedAfterTheBuild()
    {
        // Given a tree built from three types, then a catalogue with a fourth
        Fixture f(distinctTechs().mid(0, 3));
        QVERIFY(f.control.InitializeTechnologyTypes());
        CatalogScope changed(std::make_shared<TechCatalog>(distinctTechs()));

        // When the host sets and reads a mask naming every type
        QVERIFY(f.control.SetMask(QStringLiteral("GULN")));

        // Then the type without a node is left out
        QCOMPARE(f.control.GetMask(), QStringLiteral("GUL"));
        QCOMPARE(f.control.TechBits().value<qint32>(), 7);
    }

    void shouldReportAFailingCatalogueAndKeepTheTicks_data()
    {
        QTest::addColumn<QString>("operation");
        QTest::newRow("InitializeTechnologyTypes") << "Initialize";
        QTest::newRow("SetMask") << "SetMask";
    }

    void shouldReportAFailingCatalogueAndKeepTheTicks()
    {
        QFETCH(QString, operation);
        // Given a built tree with ticks whose catalogue then fails
        Fixture f;
        QVERIFY(f.control.InitializeTechnologyTypes());
        QVERIFY(f.control.SetMask(QStringLiteral("UL")));
        f.catalog->fail = true;

        // When the host runs an operation that asks the catalogue
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QStringLiteral("failed")));
        if (operation == QLatin1String("Initialize")) {
            QVERIFY(!f.control.InitializeTechnologyTypes());
        } else if (operation == QLatin1String("SetMask")) {
            QVERIFY(!f.control.SetMask(QStringLiteral("G")));
        } else if (operation == QLatin1String("GetMask")) {
            bool ok = true;
            QCOMPARE(f.control.GetMask(&ok), QString());
            QVERIFY(!ok);
        } else {
            QVERIFY(f.control.TechBits().isNull());
        }

        // Then the failure is reported by the result and the ticks are kept
        f.catalog->fail = false;
        QCOMPARE(f.control.GetMask(), QStringLiteral("UL"));
    }

    void shouldHintASizeThatShowsEveryTypeAndFillTheControlAtEverySize()
    {
        // Given a control before and after the build
        Fixture f;
        const QSize emptyHint = f.control.sizeHint();
        QVERIFY(f.control.InitializeTechnologyTypes());
        const QSize builtHint = f.control.sizeHint();

        // Then the built hint has room for all rows and never falls below the minimum
        XTreeOpt *tvw = f.control.tree();
        const int rowHeight = tvw->sizeHintForRow(0);
        QVERIFY(rowHeight > 0);
        QVERIFY(builtHint.height() >= 5 * rowHeight);
        QVERIFY(builtHint.height() > emptyHint.height());
        QVERIFY(builtHint.width() >= f.control.minimumSizeHint().width());
        QVERIFY(builtHint.height() >= f.control.minimumSizeHint().height());
        QVERIFY(f.control.minimumSizeHint().width() > tvw->fontMetrics().horizontalAdvance(RootKey));
        // and shown at its hint, no type needs scrolling
        f.control.resize(builtHint);
        QVERIFY(showAndExpose(f.control));
        QCOMPARE(tvw->verticalScrollBar()->maximum(), 0);
        // and at any size, also wide and short or tiny, the tree covers the control exactly
        for (const QSize size : {builtHint, QSize(600, 40), QSize(3, 2)}) {
            f.control.resize(size);
            QCoreApplication::sendPostedEvents();
            QApplication::processEvents();
            QCOMPARE(tvw->geometry(), f.control.rect());
        }
    }
};

QTEST_MAIN(XTechnologiesTest)
#include "tst_technologies.moc"
