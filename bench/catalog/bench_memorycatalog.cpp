// Size and filter speed of the in-memory catalogue at the scale of a large network:
// 1,000,000 fields in 20,000 categories.
#include <PickerCtl/MemoryCatalog.h>

#include <benchmark/benchmark.h>

#include <malloc.h>

using namespace PickerCtl;

namespace {

constexpr int kCategories = 20000;
constexpr int kFieldsPerCategory = 50;
const QString kApp = QStringLiteral("Bench");
const QStringList kMasks{QStringLiteral("G"), QStringLiteral("U"), QStringLiteral("L"), QStringLiteral("GU"),
                         QStringLiteral("UL"), QStringLiteral("GUL"), QStringLiteral("N"), QStringLiteral("LN")};
const QStringList kTypes{QStringLiteral("CNT"), QStringLiteral("EXP"), QStringLiteral("UDC")};
const QStringList kUnits{QStringLiteral("%"), QStringLiteral("Erl"), QStringLiteral("count"), QStringLiteral("ms")};

// Large blocks (the field index, the AllFields list) come from mmap and are counted apart.
size_t heapInUse()
{
    const struct mallinfo2 info = mallinfo2();
    return info.uordblks + info.hblkhd;
}

std::shared_ptr<MemoryCatalog> buildCatalog()
{
    auto catalog = std::make_shared<MemoryCatalog>();
    catalog->addUser({1, QStringLiteral("admin"), true});
    catalog->addTechnology(QStringLiteral("GSM"), QStringLiteral("G"), 1);
    catalog->addTechnology(QStringLiteral("UMTS"), QStringLiteral("U"), 2);
    catalog->addTechnology(QStringLiteral("LTE"), QStringLiteral("L"), 4);
    catalog->addTechnology(QStringLiteral("NR"), QStringLiteral("N"), 8);
    catalog->addApplication(kApp);
    catalog->reserveFields(qsizetype(kCategories) * kFieldsPerCategory);

    CategorySpec root;
    root.key = QStringLiteral("ROOT");
    root.name = QStringLiteral("Catalogue");
    catalog->addCategory(root);

    FieldSpec field;
    field.ownerId = 1;
    field.description = QStringLiteral("Measured by the network element every reporting period.");
    int id = 0;
    for (int c = 0; c < kCategories; ++c) {
        CategorySpec category;
        category.key = QStringLiteral("C%1").arg(c);
        // a few hundred top categories with the rest below them, like an entity hierarchy
        category.parentKey = c < 200 ? root.key : QStringLiteral("C%1").arg(c % 200);
        category.name = QStringLiteral("Category %1").arg(c);
        category.entityId = c + 1;
        catalog->addCategory(category);
        field.categoryKey = category.key;
        for (int f = 0; f < kFieldsPerCategory; ++f, ++id) {
            field.id = id;
            field.name = QStringLiteral("Counter %1 of cell %2").arg(f).arg(c);
            field.typeCode = kTypes[id % kTypes.size()];
            field.techMask = kMasks[id % kMasks.size()];
            field.unit = kUnits[id % kUnits.size()];
            field.busyHour = id % 7 == 0;
            catalog->addField(field);
        }
    }
    return catalog;
}

void BM_BuildMillionFields(benchmark::State &state)
{
    for (auto _ : state) {
        const size_t before = heapInUse();
        auto catalog = buildCatalog();
        const size_t built = heapInUse();
        const FieldsPtr all = catalog->GetCategoryTree(kApp)->AllFields(0);
        const size_t listed = heapInUse();
        const double fields = double(all->Count());
        state.counters["bytes_per_field"] = double(built - before) / fields;
        state.counters["bytes_per_field_with_AllFields"] = double(listed - before) / fields;
        state.counters["fields"] = fields;
    }
}
BENCHMARK(BM_BuildMillionFields)->Unit(benchmark::kMillisecond)->Iterations(1);

struct FilterFixture
{
    std::shared_ptr<MemoryCatalog> catalog = buildCatalog();
    FieldsPtr all = catalog->GetCategoryTree(kApp)->AllFields(0);
};

FilterFixture &fixture()
{
    static FilterFixture shared;
    return shared;
}

void runFilter(benchmark::State &state, const QString &tech, const QString &name)
{
    const FieldsPtr all = fixture().all;
    const QString none;
    for (auto _ : state) {
        qsizetype passed = 0;
        for (const FieldPtr &field : *all)
            passed += field->PassesFilter(tech, none, none, name, false, none, none) ? 1 : 0;
        benchmark::DoNotOptimize(passed);
        state.counters["passed"] = double(passed);
    }
    state.SetItemsProcessed(state.iterations() * all->Count());
}

void BM_PassesFilterEmpty(benchmark::State &state)
{
    runFilter(state, QString(), QString());
}
BENCHMARK(BM_PassesFilterEmpty)->Unit(benchmark::kMillisecond);

void BM_PassesFilterName(benchmark::State &state)
{
    runFilter(state, QString(), QStringLiteral("cell 1999"));
}
BENCHMARK(BM_PassesFilterName)->Unit(benchmark::kMillisecond);

void BM_PassesFilterNameWildcards(benchmark::State &state)
{
    runFilter(state, QString(), QStringLiteral("counter 4?*cell 19"));
}
BENCHMARK(BM_PassesFilterNameWildcards)->Unit(benchmark::kMillisecond);

void BM_PassesFilterTech(benchmark::State &state)
{
    runFilter(state, QStringLiteral("GN"), QString());
}
BENCHMARK(BM_PassesFilterTech)->Unit(benchmark::kMillisecond);

} // namespace

BENCHMARK_MAIN();
