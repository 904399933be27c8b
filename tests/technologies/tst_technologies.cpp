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

    void shouldRoundTripMasks_data()
    {
        QTest::addColumn<bool>("overlapping");
        QTest::addColumn<QString>("mask");
        QTest::addColumn<QString>("expectedMask");
        QTest::addColumn<qint32>("expectedBits");

        QTest::newRow("empty mask clears a full selection") << false << "" << "" << 0;
        QTest::newRow("all codes tick every type") << false << "GULN" << "GULN" << 15;
        QTest::newRow("reversed codes come back in catalogue order") << false << "NLUG" << "GULN" << 15;
        QTest::newRow("replaces, does not add to, the selection") << false << "U" << "U" << 2;
        QTest::newRow("unknown characters are ignored") << false << "x-G?zL " << "GL" << 5;
        QTest::newRow("codes are case-sensitive") << false << "gulN" << "N" << 8;
        QTest::newRow("a repeated code counts once") << false << "LLL" << "L" << 4;
        QTest::newRow("a longer code ticks the code inside it") << true << "LA" << "LLA" << 20;
        QTest::newRow("the shorter code alone leaves the longer one") << true << "GL" << "GL" << 5;
    }

    void shouldRoundTripMasks()
    {
        QFETCH(bool, overlapping);
        QFETCH(QString, mask);
        QFETCH(QString, expectedMask);
        QFETCH(qint32, expectedBits);
        // Given a built tree with every type ticked
        Fixture f(overlapping ? overlappingTechs() : distinctTechs());
        QVERIFY(f.control.InitializeTechnologyTypes());
        f.control.SetAll();

        // When the host sets the mask
        QVERIFY(f.control.SetMask(mask));

        // Then mask, bits and validity read back the types it names, in catalogue order
        bool ok = false;
        QCOMPARE(f.control.GetMask(&ok), expectedMask);
        QVERIFY(ok);
        const QVariant bits = f.control.TechBits();
        QCOMPARE(bits.metaType(), QMetaType::fromType<qint32>());
        QCOMPARE(bits.value<qint32>(), expectedBits);
        QCOMPARE(f.control.IsValid(), !expectedMask.isEmpty());
        // and the mask read back sets the same selection again
        QVERIFY(f.control.SetMask(f.control.GetMask()));
        QCOMPARE(f.control.GetMask(), expectedMask);
    }

    void shouldSumBitsFollowingTheRoot_data()
    {
        QTest::addColumn<QList<Tech>>("techs");
        QTest::addColumn<QString>("operation");
        QTest::addColumn<qint32>("expectedBits");
        QTest::addColumn<bool>("expectedValid");

        QTest::newRow("root ticked sums every bit") << distinctTechs() << "SetAll" << 15 << true;
        QTest::newRow("root cleared sums nothing") << distinctTechs() << "ClearAll" << 0 << false;
        QTest::newRow("root ticked by the user") << distinctTechs() << "click root" << 15 << true;
        QTest::newRow("partly ticked root sums the ticked types") << distinctTechs() << "SetMask UN" << 10 << true;
        const QList<Tech> huge = {{QStringLiteral("A"), QStringLiteral("A"), 0x40000000},
                                  {QStringLiteral("B"), QStringLiteral("B"), 0x40000000}};
        QTest::newRow("bits past 32 bits wrap instead of overflowing") << huge << "SetAll" << qint32(0x80000000u)
                                                                        << true;
    }

    void shouldSumBitsFollowingTheRoot()
    {
        QFETCH(QList<Tech>, techs);
        QFETCH(QString, operation);
        QFETCH(qint32, expectedBits);
        QFETCH(bool, expectedValid);
        // Given a shown tree with one type ticked
        Fixture f(techs);
        QVERIFY(f.control.InitializeTechnologyTypes());
        f.control.tree()->setCheckValue(techs.first().name, 1);
        QVERIFY(showAndExpose(f.control));

        // When the root is ticked, cleared or the mask set
        if (operation == QLatin1String("SetAll")) {
            f.control.SetAll();
        } else if (operation == QLatin1String("ClearAll")) {
            f.control.ClearAll();
        } else if (operation == QLatin1String("click root")) {
            XTreeOpt *tvw = f.control.tree();
            QTest::mouseClick(tvw->viewport(), Qt::LeftButton, {}, checkBoxCentre(*tvw, nodeIndex(*tvw, RootKey)));
        } else {
            QVERIFY(f.control.SetMask(operation.section(QLatin1Char(' '), 1)));
        }

        // Then the bits follow
        QCOMPARE(f.control.TechBits().value<qint32>(), expectedBits);
        QCOMPARE(f.control.IsValid(), expectedValid);
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
        // Given a shown tree with GSM ticked, locked or not
        Fixture f;
        QVERIFY(f.control.InitializeTechnologyTypes());
        QVERIFY(f.control.SetMask(QStringLiteral("G")));
        f.control.setLocked(locked);
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

    void shouldRaiseStateChangedPerReportedChange_data()
    {
        QTest::addColumn<QString>("start");
        QTest::addColumn<QString>("operation");
        QTest::addColumn<int>("expectedSignals");

        QTest::newRow("SetAll on a cleared tree") << "" << "SetAll" << 1;
        QTest::newRow("SetAll on a full tree changes nothing") << "GULN" << "SetAll" << 0;
        QTest::newRow("ClearAll on a partly ticked tree") << "GU" << "ClearAll" << 1;
        QTest::newRow("ClearAll on a cleared tree changes nothing") << "" << "ClearAll" << 0;
        QTest::newRow("SetMask: once per changed type") << "G" << "SetMask UL" << 3;
        QTest::newRow("SetMask with the same mask changes nothing") << "GU" << "SetMask UG" << 0;
        QTest::newRow("rebuilding raises nothing") << "GU" << "Initialize" << 0;
    }

    void shouldRaiseStateChangedPerReportedChange()
    {
        QFETCH(QString, start);
        QFETCH(QString, operation);
        QFETCH(int, expectedSignals);
        // Given a built tree with the start mask
        Fixture f;
        QVERIFY(f.control.InitializeTechnologyTypes());
        QVERIFY(f.control.SetMask(start));
        QSignalSpy stateChanged(&f.control, &XTechnologies::StateChanged);

        // When the host runs the operation
        if (operation == QLatin1String("SetAll"))
            f.control.SetAll();
        else if (operation == QLatin1String("ClearAll"))
            f.control.ClearAll();
        else if (operation == QLatin1String("Initialize"))
            QVERIFY(f.control.InitializeTechnologyTypes());
        else
            QVERIFY(f.control.SetMask(operation.section(QLatin1Char(' '), 1)));

        // Then StateChanged comes once per change the tree reports
        QCOMPARE(stateChanged.count(), expectedSignals);
    }

    void shouldDoNothingBeforeTheTreeIsBuilt_data()
    {
        QTest::addColumn<QString>("operation");
        QTest::newRow("IsValid") << "IsValid";
        QTest::newRow("SetAll") << "SetAll";
        QTest::newRow("ClearAll") << "ClearAll";
        QTest::newRow("SetMask") << "SetMask";
        QTest::newRow("GetMask") << "GetMask";
        QTest::newRow("TechBits") << "TechBits";
        QTest::newRow("Locked and Enabled") << "Locked";
    }

    void shouldDoNothingBeforeTheTreeIsBuilt()
    {
        QFETCH(QString, operation);
        // Given a control whose tree was never built
        Fixture f;
        QSignalSpy stateChanged(&f.control, &XTechnologies::StateChanged);

        // When the host calls an operation
        if (operation == QLatin1String("SetAll")) {
            f.control.SetAll();
        } else if (operation == QLatin1String("ClearAll")) {
            f.control.ClearAll();
        } else if (operation == QLatin1String("SetMask")) {
            QVERIFY(!f.control.SetMask(QStringLiteral("GULN")));
        } else if (operation == QLatin1String("Locked")) {
            f.control.setLocked(true);
            f.control.setEnabled(false);
            QVERIFY(f.control.Locked());
            QVERIFY(!f.control.Enabled());
        }

        // Then nothing is ticked, nothing is raised, and the catalogue is not asked
        bool ok = false;
        QCOMPARE(f.control.GetMask(&ok), QString());
        QVERIFY(ok);
        QCOMPARE(f.control.TechBits(), QVariant::fromValue(qint32(0)));
        QVERIFY(!f.control.IsValid());
        QCOMPARE(f.control.tree()->Count(), 0);
        QCOMPARE(stateChanged.count(), 0);
        QCOMPARE(f.catalog->typeListCalls, 0);
    }

    void shouldLoseEveryTickOnASecondBuild()
    {
        // Given a built tree with ticks, locked
        Fixture f;
        QVERIFY(f.control.InitializeTechnologyTypes());
        QVERIFY(f.control.SetMask(QStringLiteral("GN")));
        f.control.setLocked(true);

        // When it is built again
        QVERIFY(f.control.InitializeTechnologyTypes());

        // Then every type is there once and none is ticked; the lock stays
        QCOMPARE(f.control.tree()->Count(), 5);
        QCOMPARE(f.control.GetMask(), QString());
        QVERIFY(!f.control.IsValid());
        QVERIFY(f.control.Locked());
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
        QTest::newRow("GetMask") << "GetMask";
        QTest::newRow("TechBits") << "TechBits";
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

    void shouldFillTheControlAtEverySize_data()
    {
        QTest::addColumn<QSize>("size");
        QTest::newRow("normal") << QSize(240, 180);
        QTest::newRow("wide and short") << QSize(600, 40);
        QTest::newRow("tiny") << QSize(3, 2);
    }

    void shouldFillTheControlAtEverySize()
    {
        QFETCH(QSize, size);
        // Given a shown control
        Fixture f;
        QVERIFY(f.control.InitializeTechnologyTypes());
        QVERIFY(showAndExpose(f.control));

        // When it is resized
        f.control.resize(size);
        QCoreApplication::sendPostedEvents();
        QApplication::processEvents();

        // Then the tree covers it exactly
        QCOMPARE(f.control.tree()->geometry(), f.control.rect());
    }

    void shouldHintASizeThatShowsEveryType()
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
    }
};

QTEST_MAIN(XTechnologiesTest)
#include "tst_technologies.moc"
