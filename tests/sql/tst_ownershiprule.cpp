// The ownership rule of user-defined calculations, kept alike by the in-memory catalogue and by
// both SQL stores: only a field's owner or an administrator re-owns or deletes it, a read-only user
// changes nothing, a host that names no user has no rights, and a refusal changes nothing at all.
#include "sqlcatalog_helpers.h"

#include <PickerCtl/CatalogError.h>
#include <PickerCtl/SqlCatalog.h>

#include <QTest>

using namespace PickerCtl;
using namespace PickerCtl::test;

namespace {

const auto InMemory = QStringLiteral("in-memory");
const auto Nobody = QStringLiteral("nobody");
const auto Reown = QStringLiteral("re-own");
const auto Delete = QStringLiteral("delete");

struct UserKind
{
    QString name;
    QString user;       ///< a user of the catalogue, or Nobody: the host named none
    qint32 ownField;    ///< a field of his own, or 0
};

const QList<UserKind> UserKinds = {
    {QStringLiteral("administrator"), Admin.name, CounterId},
    {QStringLiteral("owner"), Alice.name, AliceUdcId},
    {QStringLiteral("read-only user"), Viewer.name, ViewerUdcId},
    {QStringLiteral("read-only administrator"), Auditor.name, AuditorUdcId},
    {QStringLiteral("no user named by the host"), Nobody, 0},
};

/// The catalogue at the location; an in-memory one is cut off from its store.
std::shared_ptr<MemoryCatalog> open(const QString &catalogue, const QString &location)
{
    auto catalog = SqlCatalog::open(location);
    if (catalogue == InMemory)
        catalog->setWriter(nullptr);
    return catalog;
}

void logInAs(const QString &name)
{
    UserContext::setInstance(nullptr);  // the default user: the host named none
    for (const UserSpec &user : {Admin, Alice, Bob, Viewer, Auditor}) {
        if (user.name == name)
            logIn(user);
    }
}

/// A "catalogue" and an "operation" column: every catalogue (or only the stores) with both changes.
void addCatalogueAndOperationRows(const QStringList &catalogues)
{
    QTest::addColumn<QString>("catalogue");
    QTest::addColumn<QString>("operation");
    for (const QString &catalogue : catalogues) {
        for (const QString &operation : {Reown, Delete})
            QTest::addRow("%s: %s", qPrintable(catalogue), qPrintable(operation)) << catalogue << operation;
    }
}

/// Re-owns or deletes the fields as the operation says.
void change(MemoryCatalog &catalog, const QString &operation, const FieldsPtr &fields, qint32 newOwner)
{
    if (operation == Reown)
        catalog.ChangeOwner(fields, newOwner);
    else
        catalog.DeleteFields(fields, nullptr);
}

} // namespace

class TestOwnershipRule : public QObject
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

    void shouldLetOnlyTheOwnerOrAnAdministratorChangeAField_data()
    {
        QTest::addColumn<QString>("catalogue");
        QTest::addColumn<QString>("user");
        QTest::addColumn<qint32>("fieldId");
        QTest::addColumn<QString>("operation");
        QTest::addColumn<bool>("allowed");

        for (const QString &catalogue : QStringList{InMemory} + Stores) {
            for (const UserKind &kind : UserKinds) {
                const bool mayChange = kind.name == QLatin1String("administrator") || kind.name == QLatin1String("owner");
                for (const QString &operation : {Reown, Delete}) {
                    if (kind.ownField != 0) {
                        QTest::addRow("%s: %s, own field, %s", qPrintable(catalogue), qPrintable(kind.name),
                                      qPrintable(operation))
                            << catalogue << kind.user << kind.ownField << operation << mayChange;
                    }
                    // Bob's UDC belongs to none of them
                    QTest::addRow("%s: %s, another user's UDC, %s", qPrintable(catalogue), qPrintable(kind.name),
                                  qPrintable(operation))
                        << catalogue << kind.user << BobUdcId << operation
                        << (kind.name == QLatin1String("administrator"));
                }
            }
        }
    }

    void shouldLetOnlyTheOwnerOrAnAdministratorChangeAField()
    {
        QFETCH(QString, catalogue);
        QFETCH(QString, user);
        QFETCH(qint32, fieldId);
        QFETCH(QString, operation);
        QFETCH(bool, allowed);

        // Given the catalogue (an in-memory one has no store behind it) and the user
        const QString location = m_stores.fresh(catalogue == InMemory ? SqliteStore : catalogue);
        QVERIFY2(!location.isEmpty(), qPrintable(m_stores.error()));
        const auto catalog = open(catalogue, location);
        logInAs(user);
        const qint32 owner = catalog->GetField(App, fieldId)->OwnerId();
        const qint32 newOwner = owner == Alice.id ? Bob.id : Alice.id;

        // When the user re-owns or deletes the field
        const FieldsPtr fields = fieldsWithIds(*catalog, {fieldId});
        QString refusal;
        try {
            change(*catalog, operation, fields, newOwner);
        } catch (const CatalogError &e) {
            refusal = e.message();
        }

        // Then it is done, or refused with a message and nothing changed, in memory and in the store
        QVERIFY2(refusal.isEmpty() == allowed, qPrintable(refusal));
        const FieldPtr inMemory = catalog->GetField(App, fieldId);
        const FieldPtr stored = SqlCatalog::open(location)->GetField(App, fieldId);
        if (operation == Delete) {
            QCOMPARE(!inMemory, allowed);
            QCOMPARE(!stored, allowed && catalogue != InMemory);
        } else {
            QCOMPARE(inMemory->OwnerId(), allowed ? newOwner : owner);
            QCOMPARE(stored->OwnerId(), allowed && catalogue != InMemory ? newOwner : owner);
        }
    }

    void shouldRefuseAWholeCallForOneForeignField_data()
    {
        addCatalogueAndOperationRows(QStringList{InMemory} + Stores);
    }

    void shouldRefuseAWholeCallForOneForeignField()
    {
        QFETCH(QString, catalogue);
        QFETCH(QString, operation);
        const QString location = m_stores.fresh(catalogue == InMemory ? SqliteStore : catalogue);
        QVERIFY2(!location.isEmpty(), qPrintable(m_stores.error()));
        const auto catalog = open(catalogue, location);

        // Given Alice, When she re-owns or deletes her UDC together with Bob's
        logIn(Alice);
        const FieldsPtr fields = fieldsWithIds(*catalog, {AliceUdcId, BobUdcId});
        try {
            change(*catalog, operation, fields, Viewer.id);
            QFAIL("another user's UDC was changed");
        } catch (const CatalogError &e) {
            // Then the message names Bob's UDC, and her own UDC is untouched too
            QVERIFY2(e.message().contains(QLatin1String("Bob's")), qPrintable(e.message()));
        }
        QCOMPARE(catalog->GetField(App, AliceUdcId)->OwnerId(), Alice.id);
        QCOMPARE(SqlCatalog::open(location)->GetField(App, AliceUdcId)->OwnerId(), Alice.id);
    }

    void shouldCheckTheStoreNotAStaleCopy_data()
    {
        addCatalogueAndOperationRows(Stores);
    }

    void shouldCheckTheStoreNotAStaleCopy()
    {
        QFETCH(QString, catalogue);
        QFETCH(QString, operation);
        const QString location = m_stores.fresh(catalogue);
        QVERIFY2(!location.isEmpty(), qPrintable(m_stores.error()));

        // Given Alice's catalogue, read while she owned her UDC, and the administrator giving it to Bob since
        logIn(Alice);
        const auto alices = SqlCatalog::open(location);
        logIn(Admin);
        SqlCatalog::open(location)->ChangeOwner(fieldsWithIds(*SqlCatalog::open(location), {AliceUdcId}), Bob.id);

        // When Alice, whose copy still says the UDC is hers, re-owns or deletes it
        logIn(Alice);
        QVERIFY_THROWS_EXCEPTION(CatalogError, change(*alices, operation, fieldsWithIds(*alices, {AliceUdcId}), Viewer.id));

        // Then the store refused it; after Refresh her copy shows Bob as the owner
        QCOMPARE(SqlCatalog::open(location)->GetField(App, AliceUdcId)->OwnerId(), Bob.id);
        QCOMPARE(alices->GetField(App, AliceUdcId)->OwnerId(), Alice.id);
        alices->Refresh();
        QCOMPARE(alices->GetField(App, AliceUdcId)->OwnerId(), Bob.id);
    }
};

QTEST_GUILESS_MAIN(TestOwnershipRule)
#include "tst_ownershiprule.moc"
