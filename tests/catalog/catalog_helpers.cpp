#include "catalog_test_helpers.h"

namespace PickerCtl::test {

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
    catalog->addCategory(categorySpec(QStringLiteral("ROOT"), QString(), QStringLiteral("Catalogue")));
    catalog->addCategory(categorySpec(QStringLiteral("NET"), QStringLiteral("ROOT"), QStringLiteral("Network"),
                                      1, QStringLiteral("Entities")));
    catalog->addCategory(categorySpec(QStringLiteral("GEN"), QStringLiteral("ROOT"), QStringLiteral("Generic"),
                                      0, genericLabel()));
    catalog->addCategory(categorySpec(QStringLiteral("REG"), QStringLiteral("Entities"), QStringLiteral("Region"), 2));
    catalog->addCategory(categorySpec(QStringLiteral("SYS"), genericLabel(), QStringLiteral("SYSTEM")));
    catalog->addCategory(categorySpec(QStringLiteral("CELL"), QStringLiteral("REG"), QStringLiteral("Cell"), 3));
    catalog->addCategory(categorySpec(QStringLiteral("TRF"), genericLabel(), QStringLiteral("Traffic")));

    catalog->addField(fieldSpec(10, QStringLiteral("CELL"), QStringLiteral("Call Attempts"), QStringLiteral("CNT"), sample::Admin, QStringLiteral("GUL"), true));
    catalog->addField(fieldSpec(11, QStringLiteral("CELL"), QStringLiteral("Drop Rate [%]"), QStringLiteral("EXP"), sample::Admin, QStringLiteral("G")));
    catalog->addField(fieldSpec(12, QStringLiteral("REG"), QStringLiteral("Alice's UDC"), QStringLiteral("UDC"), sample::Alice, QStringLiteral("L")));
    catalog->addField(fieldSpec(13, QStringLiteral("TRF"), QStringLiteral("Erlang"), QStringLiteral("CNT"), sample::Admin, QStringLiteral("UL")));
    catalog->addField(fieldSpec(14, QStringLiteral("SYS"), QStringLiteral("Bob's UDC"), QStringLiteral("UDC"), sample::Bob, QStringLiteral("U")));
    catalog->addField(fieldSpec(15, QStringLiteral("CELL"), QStringLiteral("Handover Success"), QStringLiteral("CNT"), sample::Admin, QStringLiteral("U")));
    return catalog;
}

} // namespace PickerCtl::test
