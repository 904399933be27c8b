#include "sqlcatalog_helpers.h"

#include <PickerCtl/FixedUserContext.h>
#include <PickerCtl/SqlCatalog.h>

#include <QTest>

namespace PickerCtl::test {

namespace {
const auto CatalogueDatabase = QStringLiteral("catalog");
}

FieldSpec field(qint32 id, const QString &categoryKey, const QString &name, const QString &type, qint32 owner,
                const QString &mask)
{
    FieldSpec f = fieldSpec(id, categoryKey, name, type, owner, mask);
    f.description = name + QStringLiteral(" described");
    f.unit = type == QLatin1String("CNT") ? QStringLiteral("ms") : QString();
    return f;
}

QList<FieldSpec> smallCatalogueFields()
{
    FieldSpec expression = field(ExpressionId, QStringLiteral("R:CELL"), QStringLiteral("Drop Rate"),
                                 QStringLiteral("EXP"), Admin.id, QStringLiteral("LN"));
    expression.validationStatus = QStringLiteral("I");
    expression.busyHour = true;
    const QString udcs = QStringLiteral("R:UDC");
    const QString udc = QStringLiteral("UDC");
    return {
        field(CounterId, QStringLiteral("R:CELL"), QStringLiteral("DRB.AirIfDelayDl"), QStringLiteral("CNT"),
              Admin.id, QStringLiteral("N")),
        expression,
        field(AliceUdcId, udcs, QStringLiteral("Alice's Ratio"), udc, Alice.id, QStringLiteral("GUL")),
        field(BobUdcId, udcs, QStringLiteral("Bob's \"quoted\" 'Ratio'; DROP TABLE fields"), udc, Bob.id,
              QStringLiteral("L")),
        field(ViewerUdcId, udcs, QStringLiteral("Viewer's Sum"), udc, Viewer.id, QStringLiteral("G")),
        field(AuditorUdcId, udcs, QStringLiteral("Auditor's Check"), udc, Auditor.id, QStringLiteral("U")),
        field(ScenarioFieldId, QStringLiteral("R:SCN"), QStringLiteral("Subscribers"), QStringLiteral("CNT"),
              Admin.id, QStringLiteral("GULNC")),
        field(OtherAppFieldId, QStringLiteral("B:SYS"), QStringLiteral("Date"), QStringLiteral("CNT"), Admin.id,
              QStringLiteral("G")),
    };
}

void writeSmallCatalogue(const QString &location, int extraAliceUdcs)
{
    SqlCatalogBuilder b(location);
    for (const UserSpec &user : {Admin, Alice, Bob, Viewer, Auditor})
        b.addUser(user);
    b.addTechnology(QStringLiteral("GSM"), QStringLiteral("G"), 1);
    b.addTechnology(QStringLiteral("UMTS"), QStringLiteral("U"), 2);
    b.addTechnology(QStringLiteral("LTE"), QStringLiteral("L"), 4);
    b.addTechnology(QStringLiteral("NR"), QStringLiteral("N"), 8);
    b.addTechnology(QStringLiteral("5GC"), QStringLiteral("C"), 16);
    b.addFieldType(QStringLiteral("CNT"), QStringLiteral("Counter"));
    b.addFieldType(QStringLiteral("EXP"), QStringLiteral("Calculated Expression"));
    b.addFieldType(QStringLiteral("UDC"), QStringLiteral("User-Defined Calculation"));

    b.addApplication(App);
    b.addCategory(categorySpec(QStringLiteral("R:ROOT"), QString(), App));
    CategorySpec network = categorySpec(QStringLiteral("R:NET"), QStringLiteral("R:ROOT"), QStringLiteral("Network"), 1);
    network.nodeKey = QStringLiteral("Entities");
    b.addCategory(network);
    CategorySpec cell = categorySpec(QStringLiteral("R:CELL"), QStringLiteral("Entities"), QStringLiteral("Cell A"), 2);
    cell.caption = QStringLiteral("Cell A (NR)");
    b.addCategory(cell);
    CategorySpec generic = categorySpec(QStringLiteral("R:GEN"), QStringLiteral("R:ROOT"), QStringLiteral("Generic"));
    generic.nodeKey = genericLabel();
    b.addCategory(generic);
    b.addCategory(categorySpec(QStringLiteral("R:SYS"), genericLabel(), QStringLiteral("SYSTEM")));
    CategorySpec scenario = categorySpec(QStringLiteral("R:SCN"), genericLabel(), QStringLiteral("Scenario Data"));
    scenario.rcvFormName = QStringLiteral("SCENARIO");
    b.addCategory(scenario);
    b.addCategory(categorySpec(QStringLiteral("R:UDC"), genericLabel(), QStringLiteral("User-Defined Calculations")));

    b.addApplication(OtherApp);
    b.addCategory(categorySpec(QStringLiteral("B:ROOT"), QString(), OtherApp));
    b.addCategory(categorySpec(QStringLiteral("B:SYS"), QStringLiteral("B:ROOT"), QStringLiteral("SYSTEM")));

    for (const FieldSpec &f : smallCatalogueFields())
        b.addField(f);
    for (int i = 0; i < extraAliceUdcs; ++i) {
        b.addField(field(FirstExtraUdcId + i, QStringLiteral("R:UDC"), QStringLiteral("Alice's UDC %1").arg(i),
                         QStringLiteral("UDC"), Alice.id, QStringLiteral("L")));
    }
    b.addRcvForm(QStringLiteral("SCENARIO"), QStringLiteral("Scenario Data"));
    b.addRcvField(QStringLiteral("SCENARIO"), QStringLiteral("SUBS"), ScenarioFieldId);
    b.addEnumList(QStringLiteral("Priority"), {QStringLiteral("Low"), QStringLiteral("Normal"), QStringLiteral("High")},
                  {QStringLiteral("1"), QStringLiteral("2"), QStringLiteral("3")});
    b.setProperty(QStringLiteral("Full Row Selection"), true);
    b.setProperty(QStringLiteral("Column Width"), 120);
    b.setProperty(QStringLiteral("Layout"), QStringLiteral("a,b;c"));
    b.commit();
}

FieldsPtr fieldsWithIds(FieldCatalog &catalog, const QList<qint32> &ids)
{
    auto fields = Fields::create();
    for (const qint32 id : ids) {
        if (FieldPtr f = catalog.GetField(App, id))
            fields->Add(f);
    }
    return fields;
}

void logIn(const UserSpec &user)
{
    UserContext::setInstance(std::make_shared<FixedUserContext>(std::make_shared<FixedUser>(user)));
}

void addStoreRows()
{
    QTest::addColumn<QString>("store");
    for (const QString &store : Stores)
        QTest::newRow(qPrintable(store)) << store;
}

QString CatalogueStores::fresh(const QString &store, int extraAliceUdcs)
{
    QString location;
    if (store == SqliteStore) {
        location = m_dir.filePath(QStringLiteral("catalog.sqlite"));
    } else {
        // A missing server is a failure of the test, never a reason to skip it.
        if (!m_postgresReady) {
            m_postgresReady = m_postgres.start() && m_postgres.createDatabase(CatalogueDatabase);
            if (!m_postgresReady) {
                m_error = QStringLiteral("No PostgreSQL server for the test: %1").arg(m_postgres.error());
                return QString();
            }
        }
        location = m_postgres.location(CatalogueDatabase);
    }
    writeSmallCatalogue(location, extraAliceUdcs);
    return location;
}

} // namespace PickerCtl::test
