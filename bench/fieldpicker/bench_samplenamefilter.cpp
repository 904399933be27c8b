// Typing into the name filter of the field browser over the root view of a million sample fields,
// whose names repeat over the categories as users' names do: the filter pass alone and one
// character through the control to the refilled list.
#include "qt_benchmark_main.h"

#include "samplecatalogue.h"

#include "fieldpicker/filterpass.h"

#include <PickerCtl/AppServices.h>
#include <PickerCtl/CatalogError.h>
#include <PickerCtl/SqlCatalog.h>
#include <PickerCtl/XFieldPicker.h>

#include <QApplication>

#include <benchmark/benchmark.h>

using namespace PickerCtl;
using namespace PickerCtl::bench;
using namespace PickerCtl::fieldpicker;

namespace {

struct Sample
{
    std::shared_ptr<MemoryCatalog> catalog;
    QString app;
    FieldsPtr all;
};

/// The sample catalogue, opened once; null catalog when it could not be made.
const Sample &sample()
{
    static const Sample opened = [] {
        Sample s;
        const QString file = sampleCatalogueFile();
        if (file.isEmpty())
            return s;
        try {
            s.catalog = SqlCatalog::open(file);
        } catch (const CatalogError &e) {
            std::fprintf(stderr, "%s\n", e.what());
            return s;
        }
        s.app = largestApplication(*s.catalog);
        s.all = s.catalog->GetCategoryTree(s.app)->AllFields(0);
        return s;
    }();
    return opened;
}

FieldFilterValues named(const QString &name)
{
    FieldFilterValues values;
    values.name = name;
    return values;
}

void runPass(benchmark::State &state, const QString &name)
{
    if (!sample().catalog) {
        state.SkipWithError("no sample catalogue");
        return;
    }
    qsizetype passed = 0;
    for (auto _ : state) {
        const FieldsPtr result = filterPass(*sample().all, named(name));
        passed = result->size();
        benchmark::DoNotOptimize(result.get());
    }
    state.counters["source"] = double(sample().all->size());
    state.counters["passed"] = double(passed);
}

void BM_SampleFilterPassFirstCharacter(benchmark::State &state)
{
    runPass(state, QStringLiteral("a"));
}
BENCHMARK(BM_SampleFilterPassFirstCharacter)->Unit(benchmark::kMillisecond);

void BM_SampleFilterPassWildcards(benchmark::State &state)
{
    runPass(state, QStringLiteral("t*a?e"));
}
BENCHMARK(BM_SampleFilterPassWildcards)->Unit(benchmark::kMillisecond);

// As the widget benchmark types: each round refreshes under `typed` with the earlier results
// forgotten, then the timed part types on to `after`.
void typeIntoNameFilter(benchmark::State &state, const QString &typed, const QString &after)
{
    if (!sample().catalog) {
        state.SkipWithError("no sample catalogue");
        return;
    }
    FieldCatalog::setInstance(sample().catalog);
    AppServices::instance()->setUseEntityView(true);
    XFieldPicker picker;
    picker.InitProperties();
    picker.setShowAll(true);
    picker.Load(sample().app, QString());
    picker.ClearAll();
    picker.Refresh();
    for (auto _ : state) {
        state.PauseTiming();
        picker.setNameFilter(typed);
        picker.Refresh();
        state.ResumeTiming();
        picker.setNameFilter(after);
        benchmark::DoNotOptimize(picker.ListCount());
    }
    state.counters["listed"] = picker.ListCount();
    FieldCatalog::setInstance(nullptr);
}

void BM_SampleNameFilterFirstCharacter(benchmark::State &state)
{
    typeIntoNameFilter(state, QString(), QStringLiteral("a"));
}
BENCHMARK(BM_SampleNameFilterFirstCharacter)->Unit(benchmark::kMillisecond)->Iterations(10);

void BM_SampleNameFilterNextCharacter(benchmark::State &state)
{
    typeIntoNameFilter(state, QStringLiteral("a"), QStringLiteral("at"));
}
BENCHMARK(BM_SampleNameFilterNextCharacter)->Unit(benchmark::kMillisecond)->Iterations(10);

} // namespace

PICKERCTL_QT_BENCHMARK_MAIN()
