#include "catalog_test_helpers.h"

#include <PickerCtl/CatalogError.h>
#include <PickerCtl/FixedUserContext.h>
#include <PickerCtl/Notifiers.h>

#include <QSignalSpy>
#include <QTest>

#include <limits>

using namespace PickerCtl;
using namespace PickerCtl::test;

namespace {

QStringList namesOf(const FieldsPtr &fields)
{
    QStringList names;
    for (const FieldPtr &field : *fields)
        names.append(field->Name());
    return names;
}

QStringList childKeys(const CategoryNodePtr &node)
{
    QStringList keys;
    for (CategoryNodePtr child = node->FirstChild(); child; child = child->NextSibling())
        keys.append(child->Key());
    return keys;
}

void logIn(qint32 id, bool administrator)
{
    UserContext::setInstance(std::make_shared<FixedUserContext>(
        std::make_shared<FixedUser>(UserSpec{id, QStringLiteral("user"), administrator})));
}

/// Records what reaches the store, or refuses every change as a store gone read-only would.
class RecordingWriter : public CatalogWriter
{
public:
    explicit RecordingWriter(bool failing = false) : failing(failing) {}
    void changeOwner(const QList<qint32> &ids, qint32 owner) override { refuseIfFailing(); ownerIds = ids; newOwner = owner; }
    void deleteFields(const QList<qint32> &ids) override { refuseIfFailing(); deletedIds = ids; }
    void refuseIfFailing() const { if (failing) throw CatalogError(QStringLiteral("store is read-only")); }
    bool failing;
    QList<qint32> ownerIds;
    qint32 newOwner = 0;
    QList<qint32> deletedIds;
};

/// The sample catalogue with a writer, as the given user sees it.
std::shared_ptr<MemoryCatalog> sampleFor(qint32 userId, const std::shared_ptr<RecordingWriter> &writer)
{
    logIn(userId, userId == sample::Admin);
    auto catalog = sampleCatalog();
    catalog->setWriter(writer);
    return catalog;
}

FieldsPtr fieldsWithIds(MemoryCatalog &catalog, const QList<qint32> &ids)
{
    auto fields = Fields::create();
    for (const qint32 id : ids)
        fields->Add(catalog.GetField(sample::App, id));
    return fields;
}

} // namespace

class TestMemoryCatalog : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { UserContext::setInstance(nullptr); }

    void shouldBuildTheSampleShapeAndFindNodesByNodeKeyAndCategoriesByKey()
    {
        auto catalog = sampleCatalog();
        const auto nodes = catalog->GetCategoryTree(sample::App)->Nodes();

        QCOMPARE(nodes->Root()->Key(), QStringLiteral("ROOT"));
        QCOMPARE(childKeys(nodes->Root()), (QStringList{QStringLiteral("Entities"), genericLabel()}));
        QCOMPARE(childKeys(nodes->Find(genericLabel())), (QStringList{QStringLiteral("SYS"), QStringLiteral("TRF")}));
        QCOMPARE(nodes->Find(QStringLiteral("Entities"))->Category()->Name(), QStringLiteral("Network"));
        QCOMPARE(genericLabel(), QStringLiteral("Generic Categories"));
        // The entity branch's node is keyed "Entities"; its category keeps its own key.
        QVERIFY(nodes->Find(QStringLiteral("NET")) == nullptr);
        QCOMPARE(nodes->CategoryByKey(QStringLiteral("NET"))->Name(), QStringLiteral("Network"));
        QVERIFY(nodes->CategoryByKey(QStringLiteral("Entities")) == nullptr);
        QCOMPARE(nodes->CategoryByKey(QStringLiteral("REG"))->ParentKey(), QStringLiteral("NET"));
        QVERIFY(nodes->Find(QStringLiteral("CELL"), QStringLiteral("REG")) != nullptr);
        QVERIFY(nodes->Find(QStringLiteral("CELL"), QStringLiteral("ROOT")) == nullptr);
    }

    void shouldResolveCategoryNames_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("expectedKey");
        QTest::newRow("full name") << QStringLiteral("Catalogue\\Network\\Region\\Cell") << QStringLiteral("CELL");
        QTest::newRow("name") << QStringLiteral("Region") << QStringLiteral("REG");
        QTest::newRow("a full name wins over another category's equal name")
            << QStringLiteral("Catalogue\\Generic\\Traffic") << QStringLiteral("TRF");
        QTest::newRow("name differs in case") << QStringLiteral("region") << QString();
        QTest::newRow("unknown") << QStringLiteral("Nowhere") << QString();
        QTest::newRow("empty") << QString() << QString();
    }

    void shouldResolveCategoryNames()
    {
        QFETCH(QString, name);
        QFETCH(QString, expectedKey);
        auto catalog = sampleCatalog();
        // A category whose name equals another category's full name
        catalog->addCategory(categorySpec(QStringLiteral("CLASH"), QStringLiteral("TRF"),
                                          QStringLiteral("Catalogue\\Generic\\Traffic")));
        const FieldCategoryPtr category = catalog->GetCategory(sample::App, name);
        QCOMPARE(category ? category->Key() : QString(), expectedKey);
        QVERIFY(catalog->GetCategory(QStringLiteral("Other"), name) == nullptr);
    }

    void shouldRefuseBadCategories_data()
    {
        QTest::addColumn<QString>("key");
        QTest::addColumn<QString>("parentKey");
        QTest::addColumn<QString>("nodeKey");
        QTest::newRow("duplicate category key") << QStringLiteral("REG") << QStringLiteral("ROOT") << QString();
        QTest::newRow("duplicate node key") << QStringLiteral("NEW") << QStringLiteral("ROOT") << QStringLiteral("Entities");
        QTest::newRow("node key equals a category key") << QStringLiteral("NEW") << QStringLiteral("ROOT") << QStringLiteral("CELL");
        QTest::newRow("second root") << QStringLiteral("NEW") << QString() << QString();
        QTest::newRow("unknown parent") << QStringLiteral("NEW") << QStringLiteral("NOPE") << QString();
        QTest::newRow("empty key") << QString() << QStringLiteral("ROOT") << QString();
    }

    void shouldRefuseBadCategories()
    {
        QFETCH(QString, key);
        QFETCH(QString, parentKey);
        QFETCH(QString, nodeKey);
        auto catalog = sampleCatalog();
        const qsizetype before = catalog->Categories(sample::App).size();
        QVERIFY_THROWS_EXCEPTION(CatalogError,
                                 catalog->addCategory(categorySpec(key, parentKey, QStringLiteral("New"), 0, nodeKey)));
        QCOMPARE(catalog->Categories(sample::App).size(), before);
    }

    void shouldListAllFieldsInCatalogueOrderAndShareTheList()
    {
        auto catalog = sampleCatalog();
        const auto tree = catalog->GetCategoryTree(sample::App);

        // Pre-order: Network > Region > Cell, then Generic > SYSTEM, Traffic.
        QCOMPARE(namesOf(tree->AllFields(0)),
                 (QStringList{QStringLiteral("Alice's UDC"), QStringLiteral("Call Attempts"),
                              QStringLiteral("Drop Rate [%]"), QStringLiteral("Handover Success"),
                              QStringLiteral("Bob's UDC"), QStringLiteral("Erlang")}));
        QCOMPARE(tree->AllFields(0), tree->AllFields(0));
        QCOMPARE(catalog->NewCategoryTree(sample::App)->AllFields(0), tree->AllFields(0));
    }

    void shouldBuildASingleBranchTree()
    {
        auto catalog = sampleCatalog();
        const auto full = catalog->GetCategoryTree(sample::App)->Nodes();
        const auto branch = catalog->NewCategoryTree(sample::App);

        branch->Add(full->CategoryByKey(QStringLiteral("REG")), QString());
        branch->Add(full->CategoryByKey(QStringLiteral("CELL")), QStringLiteral("REG"));

        QCOMPARE(branch->Nodes()->Root()->Key(), QStringLiteral("REG"));
        QCOMPARE(childKeys(branch->Nodes()->Root()), QStringList{QStringLiteral("CELL")});
        QVERIFY_THROWS_EXCEPTION(CatalogError,
                                 branch->Add(full->CategoryByKey(QStringLiteral("CELL")), QStringLiteral("REG")));
    }

    void shouldFindFieldsByIdOnlyInTheirApplication_data()
    {
        QTest::addColumn<QString>("app");
        QTest::addColumn<QVariant>("id");
        QTest::addColumn<QString>("expectedName");
        QTest::newRow("number") << sample::App << QVariant(13) << QStringLiteral("Erlang");
        QTest::newRow("numeric text") << sample::App << QVariant(QStringLiteral("13")) << QStringLiteral("Erlang");
        QTest::newRow("unknown id") << sample::App << QVariant(99) << QString();
        QTest::newRow("not a number") << sample::App << QVariant(QStringLiteral("F13")) << QString();
        QTest::newRow("other application") << QStringLiteral("Other") << QVariant(13) << QString();
    }

    void shouldFindFieldsByIdOnlyInTheirApplication()
    {
        QFETCH(QString, app);
        QFETCH(QVariant, id);
        QFETCH(QString, expectedName);
        auto catalog = sampleCatalog();
        catalog->addApplication(QStringLiteral("Other"));
        const FieldPtr field = catalog->GetField(app, id, 0);
        QCOMPARE(field ? field->Name() : QString(), expectedName);
    }

    void shouldFindEveryFieldByIdHoweverTheIdsAreSpread_data()
    {
        QTest::addColumn<QList<qint32>>("ids");
        QTest::addColumn<QList<qint32>>("absent");
        QList<qint32> fromOne, descending, farThenNear{100000};
        for (qint32 id = 1; id <= 5000; ++id)
            fromOne << id;
        for (qint32 id = 5000; id >= 1; --id)
            descending << id;
        for (qint32 id = 1; id <= 60000; ++id)
            farThenNear << id;  // the far id first lands where large ids go, then the near ones reach it
        QTest::newRow("numbered from one") << fromOne << QList<qint32>{0, 5001, -1};
        QTest::newRow("descending") << descending << QList<qint32>{0, 5001};
        QTest::newRow("far id before near ones") << farThenNear << QList<qint32>{60001, 99999, 100001};
        QTest::newRow("zero, negative and extreme")
            << QList<qint32>{0, -5, 7, std::numeric_limits<qint32>::min(), std::numeric_limits<qint32>::max()}
            << QList<qint32>{-4, 8, std::numeric_limits<qint32>::max() - 1};
    }

    void shouldFindEveryFieldByIdHoweverTheIdsAreSpread()
    {
        QFETCH(QList<qint32>, ids);
        QFETCH(QList<qint32>, absent);
        MemoryCatalog catalog;
        catalog.addUser({1, QStringLiteral("admin"), true});
        catalog.addApplication(sample::App);
        catalog.addCategory(categorySpec(QStringLiteral("ROOT"), QString(), sample::App));
        for (const qint32 id : ids)
            catalog.addField(fieldSpec(id, QStringLiteral("ROOT"), QString::number(id), QStringLiteral("CNT"), 1, QString()));

        for (const qint32 id : ids) {
            const FieldPtr field = catalog.GetField(sample::App, id);
            QVERIFY2(field && field->Name() == QString::number(id), qPrintable(QString::number(id)));
        }
        for (const qint32 id : absent)
            QVERIFY2(!catalog.GetField(sample::App, id), qPrintable(QString::number(id)));
        // Every id is refused a second time, wherever the first one went
        for (const qint32 id : {ids.first(), ids.last()}) {
            QVERIFY_THROWS_EXCEPTION(CatalogError, catalog.addField(fieldSpec(id, QStringLiteral("ROOT"), QStringLiteral("again"),
                                                                              QStringLiteral("CNT"), 1, QString())));
            QCOMPARE(catalog.GetField(sample::App, id)->Name(), QString::number(id));
        }
        QCOMPARE(catalog.GetCategoryTree(sample::App)->AllFields(0)->Count(), qint32(ids.size()));
    }

    void shouldDeleteFieldsExceptTheExceptionsAndTellPerCategory()
    {
        // Given an administrator deleting three fields of two categories, one of them excepted
        auto writer = std::make_shared<RecordingWriter>();
        auto catalog = sampleFor(sample::Admin, writer);
        const auto all = catalog->GetCategoryTree(sample::App)->AllFields(0);
        QSignalSpy changes(catalog->GetFieldUpdates().get(), &FieldUpdates::FieldsChange);

        // When
        catalog->DeleteFields(fieldsWithIds(*catalog, {10, 12, 11}), fieldsWithIds(*catalog, {11}));

        // Then the writer, the categories, the shared AllFields and the notifier all agree
        QCOMPARE(writer->deletedIds, (QList<qint32>{10, 12}));
        QCOMPARE(catalog->GetCategoryTree(sample::App)->AllFields(0), all);
        QCOMPARE(namesOf(all), (QStringList{QStringLiteral("Drop Rate [%]"), QStringLiteral("Handover Success"),
                                            QStringLiteral("Bob's UDC"), QStringLiteral("Erlang")}));
        QVERIFY(catalog->GetField(sample::App, 10) == nullptr);
        QCOMPARE(namesOf(catalog->GetCategory(sample::App, QStringLiteral("Cell"))->Fields()),
                 (QStringList{QStringLiteral("Drop Rate [%]"), QStringLiteral("Handover Success")}));
        QCOMPARE(changes.size(), 2);
        QCOMPARE(changes[0][0].toInt(), 3); // Cell's entity
        QCOMPARE(namesOf(changes[0][1].value<FieldsPtr>()), QStringList{QStringLiteral("Call Attempts")});
        QCOMPARE(changes[0][2].toInt(), qint32(FieldUpdates::Removed));
        QCOMPARE(changes[1][0].toInt(), 2); // Region's entity
    }

    void shouldRefuseAForeignFieldToANonAdministratorAndChangeNothing()
    {
        // Given Alice, who owns field 12 but not field 14
        auto writer = std::make_shared<RecordingWriter>();
        auto catalog = sampleFor(sample::Alice, writer);
        const FieldsPtr doomed = fieldsWithIds(*catalog, {12, 14});

        try {
            catalog->DeleteFields(doomed, nullptr);
            QFAIL("a foreign field was deleted");
        } catch (const CatalogError &error) {
            QVERIFY2(error.message().contains(QStringLiteral("'Bob's UDC'")), qPrintable(error.message()));
        }
        QVERIFY(writer->deletedIds.isEmpty());
        QVERIFY(catalog->GetField(sample::App, 12) != nullptr);
        QCOMPARE(catalog->GetCategoryTree(sample::App)->AllFields(0)->Count(), 6);

        // Her own field alone goes
        doomed->Remove(QStringLiteral("F14"));
        catalog->DeleteFields(doomed, nullptr);
        QVERIFY(catalog->GetField(sample::App, 12) == nullptr);
    }

    void shouldLeaveTheCatalogueAloneWhenTheWriterFails()
    {
        auto catalog = sampleFor(sample::Admin, std::make_shared<RecordingWriter>(true));
        const FieldsPtr some = fieldsWithIds(*catalog, {14});

        QVERIFY_THROWS_EXCEPTION(CatalogError, catalog->DeleteFields(some, nullptr));
        QVERIFY_THROWS_EXCEPTION(CatalogError, catalog->ChangeOwner(some, sample::Alice));
        QCOMPARE(catalog->GetField(sample::App, 14)->OwnerId(), sample::Bob);
    }

    void shouldChangeOwnerToAKnownUserOnly()
    {
        auto writer = std::make_shared<RecordingWriter>();
        auto catalog = sampleFor(sample::Admin, writer);
        const FieldsPtr some = fieldsWithIds(*catalog, {14, 13});
        const CurrentUserPtr alice = catalog->Users().at(1);

        catalog->ChangeOwner(some, alice->Identity());

        QCOMPARE(writer->ownerIds, (QList<qint32>{14, 13}));
        QCOMPARE(writer->newOwner, sample::Alice);
        QCOMPARE(catalog->GetField(sample::App, 14)->OwnerName(), QStringLiteral("Alice"));
        QVERIFY_THROWS_EXCEPTION(CatalogError, catalog->ChangeOwner(some, 42));
        QVERIFY_THROWS_EXCEPTION(CatalogError, catalog->ChangeOwner(some, QStringLiteral("Alice")));
        QCOMPARE(catalog->GetField(sample::App, 13)->OwnerId(), sample::Alice);
    }

    void shouldOfferComboEntriesAndMapFieldTypeNamesBack()
    {
        auto catalog = sampleCatalog();
        QCOMPARE(catalog->TechnologyComboEntries(),
                 (QStringList{QStringLiteral("<All Tech Types>"), QStringLiteral("GSM"), QStringLiteral("UMTS"), QStringLiteral("LTE")}));
        QCOMPARE(catalog->FieldTypeComboEntries(sample::App).first(), QStringLiteral("<All Field Types>"));
        QCOMPARE(catalog->FieldTypeCode(sample::App, QStringLiteral("User-Defined Calculation")), QStringLiteral("UDC"));
        QCOMPARE(catalog->FieldTypeCode(sample::App, QStringLiteral("<All Field Types>")), QString());
    }

    void shouldKeepFieldsReadableAfterTheCatalogueIsGone()
    {
        FieldPtr kept;
        {
            auto catalog = sampleCatalog();
            kept = catalog->GetField(sample::App, 14);
        }
        QCOMPARE(kept->CategoryName(), QStringLiteral("SYSTEM"));
        QCOMPARE(kept->OwnerName(), QStringLiteral("Bob"));
        QCOMPARE(kept->Key(), QStringLiteral("F14"));
    }
};

QTEST_GUILESS_MAIN(TestMemoryCatalog)
#include "tst_memorycatalog.moc"
