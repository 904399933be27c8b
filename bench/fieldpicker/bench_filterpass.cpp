// The filter pass of the field browser's list alone, on the application-wide list of 1,000,000
// fields: a name filter's first character over the whole list, the next one over the result of
// the first, and the same passes with the other filters set.
#include "fieldpicker/filterpass.h"

#include <PickerCtl/MemoryCatalog.h>

#include <benchmark/benchmark.h>

using namespace PickerCtl;
using namespace PickerCtl::fieldpicker;

namespace {

constexpr int FieldCount = 1000000;
constexpr int CategoryCount = 20000;
const QString AppName = QStringLiteral("Bench");

// Unique names ("Counter 0" ... "Counter 999999"), as the widget benchmark types into; fields
// spread over the categories so that the list visits them out of creation order.
struct Fixture
{
    std::shared_ptr<MemoryCatalog> catalog = std::make_shared<MemoryCatalog>();
    FieldsPtr all;

    Fixture()
    {
        catalog->addApplication(AppName);
        CategorySpec root;
        root.key = QStringLiteral("root");
        root.name = QStringLiteral("Network");
        catalog->addCategory(root);
        for (int c = 1; c < CategoryCount; ++c) {
            CategorySpec category;
            category.key = QStringLiteral("c%1").arg(c);
            category.parentKey = root.key;
            category.name = QStringLiteral("Cell %1").arg(c);
            catalog->addCategory(category);
        }
        catalog->reserveFields(FieldCount);
        for (int id = 0; id < FieldCount; ++id) {
            FieldSpec field;
            field.id = id + 1;
            const int c = id % CategoryCount;
            field.categoryKey = c == 0 ? root.key : QStringLiteral("c%1").arg(c);
            field.name = QStringLiteral("Counter %1").arg(id);
            field.typeCode = QStringLiteral("CNT");
            catalog->addField(field);
        }
        all = catalog->GetCategoryTree(AppName)->AllFields(0);
    }
};

Fixture &fixture()
{
    static Fixture shared;
    return shared;
}

void runPass(benchmark::State &state, const FieldsPtr &source, const FieldFilterValues &values)
{
    qsizetype passed = 0;
    for (auto _ : state) {
        const FieldsPtr result = filterPass(*source, values);
        passed = result->size();
        benchmark::DoNotOptimize(result.get());
    }
    state.counters["source"] = double(source->size());
    state.counters["passed"] = double(passed);
}

FieldFilterValues named(const QString &name)
{
    FieldFilterValues values;
    values.name = name;
    return values;
}

void BM_FilterPassFirstCharacter(benchmark::State &state)
{
    runPass(state, fixture().all, named(QStringLiteral("7")));
}
BENCHMARK(BM_FilterPassFirstCharacter)->Unit(benchmark::kMillisecond);

void BM_FilterPassNextCharacter(benchmark::State &state)
{
    const FieldsPtr first = filterPass(*fixture().all, named(QStringLiteral("7")));
    runPass(state, first, named(QStringLiteral("77")));
}
BENCHMARK(BM_FilterPassNextCharacter)->Unit(benchmark::kMillisecond);

void BM_FilterPassWord(benchmark::State &state)
{
    runPass(state, fixture().all, named(QStringLiteral("counter 12")));
}
BENCHMARK(BM_FilterPassWord)->Unit(benchmark::kMillisecond);

void BM_FilterPassWildcards(benchmark::State &state)
{
    runPass(state, fixture().all, named(QStringLiteral("c?unt*9*9")));
}
BENCHMARK(BM_FilterPassWildcards)->Unit(benchmark::kMillisecond);

void BM_FilterPassNameAndType(benchmark::State &state)
{
    FieldFilterValues values = named(QStringLiteral("7"));
    values.fieldType = QStringLiteral("CNT,EXP");
    runPass(state, fixture().all, values);
}
BENCHMARK(BM_FilterPassNameAndType)->Unit(benchmark::kMillisecond);

void BM_FilterPassNoFilter(benchmark::State &state)
{
    runPass(state, fixture().all, FieldFilterValues());
}
BENCHMARK(BM_FilterPassNoFilter)->Unit(benchmark::kMillisecond);

} // namespace

BENCHMARK_MAIN();
