#include "catalog_test_helpers.h"

#include "catalog/qtservices/qtwaitcursor.h"

#include <PickerCtl/CatalogError.h>
#include <PickerCtl/MessageService.h>
#include <PickerCtl/OwnerPicker.h>
#include <PickerCtl/testing/CursorLog.h>

#include <QTest>

#include <array>
#include <thread>

using namespace PickerCtl;
using namespace PickerCtl::test;

namespace {
/// The calling thread's catalogue, services, user context, message service and owner picker.
using Instances = std::array<const void *, 5>;

Instances current()
{
    return {FieldCatalog::instance().get(), AppServices::instance().get(), UserContext::instance().get(),
            MessageService::instance().get(), OwnerPicker::instance().get()};
}

Instances onAnotherThread()
{
    Instances seen;
    std::thread worker([&seen] { seen = current(); });
    worker.join();
    return seen;
}
} // namespace

class TestServices : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup()
    {
        FieldCatalog::setInstance(nullptr);
        AppServices::setInstance(nullptr);
        UserContext::setInstance(nullptr);
    }

    void shouldKeepAndReplaceOneInstanceOfEachServicePerThread()
    {
        const Instances here = current();
        const Instances again = current();
        const Instances there = onAnotherThread();

        for (size_t i = 0; i < here.size(); ++i) {
            QCOMPARE(again[i], here[i]);
            QVERIFY2(there[i] != here[i], qPrintable(QString::number(i)));
        }

        // Replacing an instance replaces only the calling thread's
        auto mine = sampleCatalog();
        FieldCatalog::setInstance(mine);
        QCOMPARE(FieldCatalog::instance(), std::shared_ptr<FieldCatalog>(mine));
        QVERIFY(onAnotherThread()[0] != mine.get());
    }

    void shouldGiveAHostThatNamesNoUserNoRights()
    {
        // Given a catalogue with administrators, and a host that never set a user
        auto catalog = sampleCatalog();
        FieldCatalog::setInstance(catalog);
        UserContext::setInstance(nullptr);

        // When the controls ask who is logged in
        const CurrentUserPtr user = UserContext::instance()->CurrentUser();

        // Then it is nobody with rights: no administrator, read-only, owning nothing
        QVERIFY(user);
        QCOMPARE(user->UserId(), 0);
        QVERIFY(!user->IsAdministrator());
        QVERIFY(user->IsReadOnly());
        QVERIFY(!user->CanModifyFields());
        const FieldsPtr some = Fields::create();
        some->Add(catalog->GetField(sample::App, 14));
        QVERIFY_THROWS_EXCEPTION(CatalogError, catalog->DeleteFields(some, nullptr));
        QVERIFY_THROWS_EXCEPTION(CatalogError, catalog->ChangeOwner(some, sample::Alice));
        QCOMPARE(catalog->GetField(sample::App, 14)->OwnerId(), sample::Bob);
    }

    void shouldBalanceTheWaitCursorWhenTheOperationThrows()
    {
        auto services = std::make_shared<CursorLogServices>();
        AppServices::setInstance(services);

        try {
            WaitCursorGuard outer;
            WaitCursorGuard inner;
            QCOMPARE(services->log()->Depth(), 2);
            throw CatalogError(QStringLiteral("the database went away"));
        } catch (const CatalogError &) {
        }

        QCOMPARE(services->log()->Depth(), 0);
        QCOMPARE(services->log()->pushed(), (QList<qint16>{WaitCursor::Hourglass, WaitCursor::Hourglass}));
        QCOMPARE(services->log()->popCount(), 2);
        QCOMPARE(services->log()->unbalancedPops(), 0);
    }

    void shouldCountPushesWithoutAGuiAndIgnoreASurplusPop()
    {
        // This test runs without a QGuiApplication: the stack only counts.
        QtWaitCursor cursor;
        cursor.Pop();
        cursor.Push(WaitCursor::Hourglass);
        cursor.Push(2);
        cursor.Pop();
        QCOMPARE(cursor.Depth(), 1);
        cursor.Pop();
        cursor.Pop();
        QCOMPARE(cursor.Depth(), 0);
    }

    void shouldShowTheHourglassForPointerEleven()
    {
        QCOMPARE(cursorShapeFor(WaitCursor::Hourglass), Qt::WaitCursor);
        QCOMPARE(cursorShapeFor(0), Qt::ArrowCursor);
        QCOMPARE(cursorShapeFor(-5), Qt::ArrowCursor);
    }

    void shouldKeepTheEntityViewFlagAndOneGeneralState()
    {
        const auto services = AppServices::instance();
        QVERIFY(services->UseEntityView());
        services->setUseEntityView(false);
        QVERIFY(!AppServices::instance()->UseEntityView());
        QCOMPARE(services->GeneralState(), services->GeneralState());
    }
};

QTEST_GUILESS_MAIN(TestServices)
#include "tst_services.moc"
