// Filter strings as a host or a saved view passes them to Field::PassesFilter, one a line:
// technology mask, field types, owner, name pattern, busy hour ("1"), RCV form, RCV field.
#include "fuzzsupport.h"

#include <PickerCtl/CategoryTree.h>
#include <PickerCtl/Fields.h>
#include <PickerCtl/MemoryCatalog.h>
#include <PickerCtl/testing/CatalogSpecs.h>

using namespace PickerCtl;

namespace {

const QString App = QStringLiteral("Reports");

// Names with the characters a pattern translation is most likely to get wrong.
std::shared_ptr<MemoryCatalog> makeCatalog()
{
    auto catalog = std::make_shared<MemoryCatalog>();
    catalog->addUser({1, QStringLiteral("admin"), true});
    catalog->addUser({2, QStringLiteral("Ünïcode"), false});
    catalog->addUser({3, QStringLiteral("42"), false});
    catalog->addTechnology(QStringLiteral("GSM"), QStringLiteral("G"), 1);
    catalog->addTechnology(QStringLiteral("UMTS"), QStringLiteral("U"), 2);
    catalog->addTechnology(QStringLiteral("LTE"), QStringLiteral("LT"), 4);
    catalog->addFieldType(QStringLiteral("CNT"), QStringLiteral("Counter"));
    catalog->addFieldType(QStringLiteral("EXP"), QStringLiteral("Calculated Expression"));
    catalog->addFieldType(QStringLiteral("UDC"), QStringLiteral("User-Defined Calculation"));
    catalog->addApplication(App);
    catalog->addCategory(categorySpec(QStringLiteral("ROOT"), QString(), QStringLiteral("Catalogue")));
    CategorySpec network = categorySpec(QStringLiteral("NET"), QStringLiteral("ROOT"), QStringLiteral("Network"), 0,
                                        QStringLiteral("Entities"));
    network.rcvFormName = QStringLiteral("FORM1");
    catalog->addCategory(network);
    catalog->addCategory(categorySpec(QStringLiteral("GEN"), QStringLiteral("ROOT"), QStringLiteral("Generic"), 0,
                                      genericLabel()));
    catalog->addField(fieldSpec(1, QStringLiteral("NET"), QStringLiteral("Call Attempts"), QStringLiteral("CNT"), 1,
                                QStringLiteral("GULT"), true));
    catalog->addField(fieldSpec(2, QStringLiteral("NET"), QStringLiteral("Drop [%] (a|b)*?"), QStringLiteral("EXP"), 2,
                                QStringLiteral("G"), false));
    catalog->addField(fieldSpec(3, QStringLiteral("GEN"), QStringLiteral("O'Brien; DROP TABLE fields; --"),
                                QStringLiteral("UDC"), 3, QString(), false));
    catalog->addField(fieldSpec(4, QStringLiteral("GEN"), QStringLiteral("\\d+ ^$ . \U0001F600 ß"), QStringLiteral("UDC"), 2,
                                QStringLiteral("LT"), true));
    catalog->addField(fieldSpec(5, QStringLiteral("GEN"), QString(), QStringLiteral("CNT"), 1, QStringLiteral("U"), false));
    catalog->addRcvForm(QStringLiteral("FORM2"), QStringLiteral("Generic"));
    catalog->addRcvField(QStringLiteral("FORM2"), QStringLiteral("attempts"), 1);
    catalog->addRcvField(QString(), QStringLiteral("drop"), 2);
    return catalog;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    static const std::shared_ptr<MemoryCatalog> catalog = makeCatalog();
    static const FieldsPtr fields = catalog->GetCategoryTree(App)->AllFields();

    const QList<QByteArray> lines = fuzz::lines(data, size, 7);
    const auto text = [&lines](int index) { return QString::fromUtf8(fuzz::lineAt(lines, index)); };
    const bool busyHour = fuzz::lineAt(lines, 4) == "1";
    for (const FieldPtr &each : *fields) {
        each->PassesFilter(text(0), text(1), text(2), text(3), busyHour, text(5), text(6));
        // A filter that is not set lets the field through, whatever the others hold.
        fuzz::require(each->PassesFilter({}, {}, {}, {}, false, {}, {}), "no filter passes every field");
    }
    return 0;
}
