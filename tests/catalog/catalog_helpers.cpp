#include "catalog_test_helpers.h"

namespace PickerCtl::test {

namespace {
CategorySpec category(const QString &key, const QString &parentKey, const QString &name,
                      qint32 entityId = 0, const QString &nodeKey = QString())
{
    CategorySpec spec;
    spec.key = key;
    spec.parentKey = parentKey;
    spec.name = name;
    spec.entityId = entityId;
    spec.nodeKey = nodeKey;
    return spec;
}

FieldSpec field(qint32 id, const QString &categoryKey, const QString &name, const QString &type,
                qint32 owner, const QString &techMask, bool busyHour = false)
{
    FieldSpec spec;
    spec.id = id;
    spec.categoryKey = categoryKey;
    spec.name = name;
    spec.typeCode = type;
    spec.ownerId = owner;
    spec.techMask = techMask;
    spec.busyHour = busyHour;
    spec.expression = type != QLatin1String("CNT");
    return spec;
}
} // namespace

std::shared_ptr<MemoryCatalog> sampleCatalog()
{
    auto catalog = std::make_shared<MemoryCatalog>();
    catalog->addUser({sample::Admin, QStringLiteral("admin"), true});
    catalog->addUser({sample::Alice, QStringLiteral("Alice"), false});
    catalog->addUser({sample::Bob, QStringLiteral("Bob"), false});
    catalog->addTechnology(QStringLiteral("GSM"), QStringLiteral("G"), 1);
    catalog->addTechnology(QStringLiteral("UMTS"), QStringLiteral("U"), 2);
    catalog->addTechnology(QStringLiteral("LTE"), QStringLiteral("L"), 4);
    catalog->addFieldType(QStringLiteral("CNT"), QStringLiteral("Counter"));
    catalog->addFieldType(QStringLiteral("EXP"), QStringLiteral("Calculated Expression"));
    catalog->addFieldType(QStringLiteral("UDC"), QStringLiteral("User-Defined Calculation"));

    catalog->addApplication(sample::App);
    catalog->addCategory(category(QStringLiteral("ROOT"), QString(), QStringLiteral("Catalogue")));
    catalog->addCategory(category(QStringLiteral("NET"), QStringLiteral("ROOT"), QStringLiteral("Network"),
                                  1, QStringLiteral("Entities")));
    catalog->addCategory(category(QStringLiteral("GEN"), QStringLiteral("ROOT"), QStringLiteral("Generic"),
                                  0, genericLabel()));
    catalog->addCategory(category(QStringLiteral("REG"), QStringLiteral("Entities"), QStringLiteral("Region"), 2));
    catalog->addCategory(category(QStringLiteral("SYS"), genericLabel(), QStringLiteral("SYSTEM")));
    catalog->addCategory(category(QStringLiteral("CELL"), QStringLiteral("REG"), QStringLiteral("Cell"), 3));
    catalog->addCategory(category(QStringLiteral("TRF"), genericLabel(), QStringLiteral("Traffic")));

    catalog->addField(field(10, QStringLiteral("CELL"), QStringLiteral("Call Attempts"), QStringLiteral("CNT"), sample::Admin, QStringLiteral("GUL"), true));
    catalog->addField(field(11, QStringLiteral("CELL"), QStringLiteral("Drop Rate [%]"), QStringLiteral("EXP"), sample::Admin, QStringLiteral("G")));
    catalog->addField(field(12, QStringLiteral("REG"), QStringLiteral("Alice's UDC"), QStringLiteral("UDC"), sample::Alice, QStringLiteral("L")));
    catalog->addField(field(13, QStringLiteral("TRF"), QStringLiteral("Erlang"), QStringLiteral("CNT"), sample::Admin, QStringLiteral("UL")));
    catalog->addField(field(14, QStringLiteral("SYS"), QStringLiteral("Bob's UDC"), QStringLiteral("UDC"), sample::Bob, QStringLiteral("U")));
    catalog->addField(field(15, QStringLiteral("CELL"), QStringLiteral("Handover Success"), QStringLiteral("CNT"), sample::Admin, QStringLiteral("U")));
    return catalog;
}

} // namespace PickerCtl::test
