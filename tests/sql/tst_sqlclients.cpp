// Several clients on one SQL catalogue: concurrent re-owning and deleting keep the ownership rule
// and lose nothing, each client sees the others' committed changes after Refresh, a write the
// store refuses or finds nothing to change leaves everything as it was, and a server restart is
// survived.
#include "catalog/sql/sqlconnection.h"
#include "sqlcatalog_helpers.h"

#include <PickerCtl/AppServices.h>
#include <PickerCtl/CatalogError.h>
#include <PickerCtl/FieldCategory.h>
#include <PickerCtl/Notifiers.h>
#include <PickerCtl/SqlCatalog.h>
#include <PickerCtl/testing/CursorLog.h>

#include <QSignalSpy>
#include <QTest>

#include <functional>
#include <latch>
#include <thread>

using namespace PickerCtl;
using namespace PickerCtl::test;

namespace {

const auto Reown = QStringLiteral("re-own");
const auto Delete = QStringLiteral("delete");
constexpr int RacedUdcs = 100;

/// What one client did and saw.
struct ClientRun
{
    QStringList failures;               ///< what should never happen ("database is locked" and the like)
    QSet<qint32> done;                  ///< the UDCs whose change the store accepted
    QStringList refusals;               ///< why the store refused the others
    QHash<qint32, qint32> ownersAfter;  ///< every field the client shows after Refresh, with its owner
};

using ClientWork = std::function<void(MemoryCatalog &, ClientRun &)>;

/// Where the clients wait for each other: all have read the catalogue, all have done their work.
struct Meeting
{
    std::latch opened{3};
    std::latch worked{3};
};

/// Every field of every application, with its owner.
QHash<qint32, qint32> ownersIn(MemoryCatalog &catalog)
{
    QHash<qint32, qint32> owners;
    for (const QString &app : catalog.Applications()) {
        for (const FieldPtr &f : *catalog.GetCategoryTree(app)->AllFields(0))
            owners.insert(f->Id(), f->OwnerId());
    }
    return owners;
}

/// One client on a thread of its own: its own connection, user and cursor. It reads the catalogue,
/// works once every client has read it, waits until every client has worked, refreshes and records
/// what it shows.
void runClient(const QString &location, const UserSpec &user, const ClientWork &work, Meeting &meeting,
               ClientRun &run)
{
    AppServices::setInstance(std::make_shared<CursorLogServices>());
    logIn(user);
    std::shared_ptr<MemoryCatalog> catalog;
    try {
        catalog = SqlCatalog::open(location);
    } catch (const std::exception &e) {
        run.failures << QString::fromLocal8Bit(e.what());
    }
    meeting.opened.arrive_and_wait();
    try {
        if (catalog)
            work(*catalog, run);
    } catch (const std::exception &e) {
        run.failures << QString::fromLocal8Bit(e.what());
    }
    meeting.worked.arrive_and_wait();
    try {
        if (catalog) {
            catalog->Refresh();
            run.ownersAfter = ownersIn(*catalog);
        }
    } catch (const std::exception &e) {
        run.failures << QString::fromLocal8Bit(e.what());
    }
    catalog.reset();
    UserContext::setInstance(nullptr);
    AppServices::setInstance(nullptr);
}

/// Each UDC alone: a refusal by the store is an expected outcome of the race, kept out of done.
ClientWork eachUdc(const std::function<void(MemoryCatalog &, const FieldsPtr &)> &change)
{
    return [change](MemoryCatalog &catalog, ClientRun &run) {
        for (qint32 id = FirstExtraUdcId; id < FirstExtraUdcId + RacedUdcs; ++id) {
            try {
                change(catalog, fieldsWithIds(catalog, {id}));
                run.done.insert(id);
            } catch (const CatalogError &e) {
                run.refusals << e.message();
            }
        }
    };
}

QHash<qint32, qint32> storedOwners(const QString &location)
{
    return ownersIn(*SqlCatalog::open(location));
}

void runSql(const QString &location, const QStringList &statements)
{
    SqlConnection connection(parseSqlLocation(location), SqlConnection::Mode::Existing);
    for (const QString &sql : statements)
        connection.run(sql);
}

/// Makes the store refuse any change to the field, as a failing disk or a constraint would.
void refuseChangesTo(const QString &store, const QString &location, qint32 id)
{
    if (store == SqliteStore) {
        runSql(location, {QStringLiteral("CREATE TRIGGER refuse_delete BEFORE DELETE ON fields WHEN OLD.id = %1 "
                                         "BEGIN SELECT RAISE(ABORT, 'refused'); END").arg(id),
                          QStringLiteral("CREATE TRIGGER refuse_update BEFORE UPDATE ON fields WHEN OLD.id = %1 "
                                         "BEGIN SELECT RAISE(ABORT, 'refused'); END").arg(id)});
    } else {
        runSql(location, {QStringLiteral("CREATE OR REPLACE FUNCTION refuse() RETURNS trigger LANGUAGE plpgsql AS "
                                         "$$ BEGIN RAISE EXCEPTION 'refused'; END $$"),
                          QStringLiteral("CREATE TRIGGER refuse BEFORE UPDATE OR DELETE ON fields FOR EACH ROW "
                                         "WHEN (OLD.id = %1) EXECUTE FUNCTION refuse()").arg(id)});
    }
}

} // namespace

class TestSqlClients : public QObject
{
    Q_OBJECT

private:
    CatalogueStores m_stores;

private slots:
    void cleanup()
    {
        UserContext::setInstance(nullptr);
    }

    void cleanupTestCase()
    {
        m_stores.stop();
    }

    void shouldKeepTheRuleAndLoseNothingWhenClientsRace_data()
    {
        addStoreRows();
    }

    void shouldKeepTheRuleAndLoseNothingWhenClientsRace()
    {
        QFETCH(QString, store);
        // Given Alice's UDCs in the store
        const QString location = m_stores.fresh(store, RacedUdcs);
        QVERIFY2(!location.isEmpty(), qPrintable(m_stores.error()));

        // When Alice deletes them one by one while the administrator gives each to Bob, and a
        // third client refreshes meanwhile
        ClientRun alice, admin, bob;
        {
            Meeting meeting;
            std::thread deleting(runClient, location, Alice,
                                 eachUdc([](MemoryCatalog &c, const FieldsPtr &f) { c.DeleteFields(f, nullptr); }),
                                 std::ref(meeting), std::ref(alice));
            std::thread reowning(runClient, location, Admin,
                                 eachUdc([](MemoryCatalog &c, const FieldsPtr &f) { c.ChangeOwner(f, Bob.id); }),
                                 std::ref(meeting), std::ref(admin));
            std::thread refreshing(runClient, location, Bob,
                                   ClientWork([](MemoryCatalog &c, ClientRun &) {
                                       for (int i = 0; i < RacedUdcs; ++i)
                                           c.Refresh();
                                   }),
                                   std::ref(meeting), std::ref(bob));
            deleting.join();
            reowning.join();
            refreshing.join();
        }

        // Then no client met a lock or any other failure
        for (const ClientRun *run : {&alice, &admin, &bob})
            QVERIFY2(run->failures.isEmpty(), qPrintable(run->failures.join(QLatin1Char('\n'))));
        // And the store refused only what the race allows: Alice a UDC that is Bob's by now, the
        // administrator a UDC that Alice has deleted
        for (const QString &refusal : alice.refusals)
            QVERIFY2(refusal.contains(QLatin1String("belongs to another user")), qPrintable(refusal));
        for (const QString &refusal : admin.refusals)
            QVERIFY2(refusal.contains(QLatin1String("no longer in the catalogue")), qPrintable(refusal));
        // And each UDC was either deleted by its owner or re-owned, never both, never neither
        const QHash<qint32, qint32> stored = storedOwners(location);
        for (qint32 id = FirstExtraUdcId; id < FirstExtraUdcId + RacedUdcs; ++id) {
            QVERIFY2(alice.done.contains(id) != admin.done.contains(id),
                     qPrintable(QString::number(id) + QLatin1Char('\n') + alice.refusals.join(QLatin1Char('\n'))
                                + QLatin1Char('\n') + admin.refusals.join(QLatin1Char('\n'))));
            QCOMPARE(stored.contains(id), admin.done.contains(id));
            if (stored.contains(id))
                QCOMPARE(stored.value(id), Bob.id);
        }
        // And nothing else was touched, and after Refresh every client shows the store as it is
        QCOMPARE(stored.size() - admin.done.size(), smallCatalogueFields().size());
        for (const ClientRun *run : {&alice, &admin, &bob})
            QCOMPARE(run->ownersAfter, stored);
    }

    void shouldShowAnotherClientsChangesWhenACategoryReloads_data()
    {
        addStoreRows();
    }

    void shouldShowAnotherClientsChangesWhenACategoryReloads()
    {
        QFETCH(QString, store);
        const QString location = m_stores.fresh(store);
        QVERIFY2(!location.isEmpty(), qPrintable(m_stores.error()));
        // Given Bob's view of the UDC category, and the administrator's client
        logIn(Bob);
        const auto bobs = SqlCatalog::open(location);
        const FieldCategoryPtr udcs = bobs->GetCategory(App, QStringLiteral("User-Defined Calculations"));
        QSignalSpy changes(bobs->GetFieldUpdates().get(), &FieldUpdates::FieldsChange);
        logIn(Admin);
        const auto admins = SqlCatalog::open(location);

        // When the administrator deletes Alice's UDC and gives the viewer's to Bob
        admins->DeleteFields(fieldsWithIds(*admins, {AliceUdcId}), nullptr);
        admins->ChangeOwner(fieldsWithIds(*admins, {ViewerUdcId}), Bob.id);

        // Then Bob's category shows both once it reloads, as a control's Refresh has it do
        QCOMPARE(udcs->Fields()->Count(), 4);
        logIn(Bob);
        udcs->Reload();
        QCOMPARE(udcs->Fields()->Count(), 3);
        QVERIFY(!bobs->GetField(App, AliceUdcId));
        QCOMPARE(bobs->GetField(App, ViewerUdcId)->OwnerId(), Bob.id);
        QCOMPARE(changes.size(), 2);
        QCOMPARE(changes[0][2].toInt(), qint32(FieldUpdates::Removed));
        QCOMPARE(changes[1][2].toInt(), qint32(FieldUpdates::Changed));
    }

    void shouldLeaveEverythingAsItWasWhenAWriteFails_data()
    {
        QTest::addColumn<QString>("store");
        QTest::addColumn<QString>("fault");
        QTest::addColumn<QString>("operation");
        for (const QString &store : Stores) {
            for (const QString &fault : {QStringLiteral("field deleted meanwhile by another client"),
                                         QStringLiteral("store refuses one field"),
                                         QStringLiteral("store refuses the last of 500 fields, in a later batch")}) {
                for (const QString &operation : {Reown, Delete}) {
                    QTest::addRow("%s: %s, %s", qPrintable(store), qPrintable(fault), qPrintable(operation))
                        << store << fault << operation;
                }
            }
        }
    }

    void shouldLeaveEverythingAsItWasWhenAWriteFails()
    {
        QFETCH(QString, store);
        QFETCH(QString, fault);
        QFETCH(QString, operation);
        const bool many = fault.contains(QLatin1String("500"));
        const QString location = m_stores.fresh(store, many ? 500 : 0);
        QVERIFY2(!location.isEmpty(), qPrintable(m_stores.error()));

        // Given the administrator's catalogue and a fault on the last of the fields he changes
        logIn(Admin);
        const auto catalog = SqlCatalog::open(location);
        QList<qint32> ids{CounterId, AliceUdcId};
        if (many) {
            for (qint32 i = 0; i < 500; ++i)
                ids.append(FirstExtraUdcId + i);
        }
        const qint32 faulty = ids.last();
        if (fault.startsWith(QLatin1String("field deleted")))
            SqlCatalog::open(location)->DeleteFields(fieldsWithIds(*catalog, {faulty}), nullptr);
        else
            refuseChangesTo(store, location, faulty);
        const QHash<qint32, qint32> before = storedOwners(location);

        // When he re-owns or deletes them all
        const FieldsPtr fields = fieldsWithIds(*catalog, ids);
        try {
            if (operation == Reown)
                catalog->ChangeOwner(fields, Bob.id);
            else
                catalog->DeleteFields(fields, nullptr);
            QFAIL("a failed write was reported as done");
        } catch (const CatalogError &e) {
            QVERIFY(!e.message().isEmpty());
        }

        // Then the store and the catalogue in memory are as they were
        QCOMPARE(storedOwners(location), before);
        for (const qint32 id : ids) {
            const FieldPtr f = catalog->GetField(App, id);
            QVERIFY2(f, qPrintable(QString::number(id)));
            QCOMPARE(f->OwnerId(), id == CounterId ? Admin.id : Alice.id);
        }
    }

    void shouldWriteAgainAfterTheServerRestarted()
    {
        // Given a catalogue open on the PostgreSQL server
        const QString location = m_stores.fresh(PostgresStore);
        QVERIFY2(!location.isEmpty(), qPrintable(m_stores.error()));
        logIn(Admin);
        const auto catalog = SqlCatalog::open(location);

        // When the server restarts, which drops every connection
        QVERIFY2(m_stores.postgres().restart(), qPrintable(m_stores.postgres().error()));

        // Then the catalogue connects again for the next refresh and write
        catalog->Refresh();
        catalog->ChangeOwner(fieldsWithIds(*catalog, {CounterId}), Alice.id);
        QCOMPARE(storedOwners(location).value(CounterId), Alice.id);
    }
};

QTEST_GUILESS_MAIN(TestSqlClients)
#include "tst_sqlclients.moc"
