// Sorting the field browser's root view of a million sample fields by name, as a click on the
// name column does. The catalogue comes from the sample generator: its names repeat (a few
// thousand distinct counter and expression names spread over every category), which is what a
// user's catalogue looks like and what a list of made-up unique names does not show.
#include "qt_benchmark_main.h"

#include "samplecatalogue.h"

#include <PickerCtl/AppServices.h>
#include <PickerCtl/CatalogError.h>
#include <PickerCtl/SqlCatalog.h>
#include <PickerCtl/XFieldPicker.h>
#include <PickerCtl/XStaticList.h>

#include <QApplication>

#include <benchmark/benchmark.h>

using namespace PickerCtl;

namespace {

using namespace PickerCtl::bench;

void BM_SortRootViewByName(benchmark::State &state)
{
    const QString file = sampleCatalogueFile();
    if (file.isEmpty()) {
        state.SkipWithError("no catalogue to open");
        return;
    }
    std::shared_ptr<MemoryCatalog> catalog;
    try {
        catalog = SqlCatalog::open(file);
    } catch (const CatalogError &e) {
        state.SkipWithError(e.what());
        return;
    }
    FieldCatalog::setInstance(catalog);
    AppServices::instance()->setUseEntityView(true);

    XFieldPicker picker;
    picker.InitProperties();
    picker.setShowAll(true);
    picker.Load(largestApplication(*catalog), QString());
    // Without a current category the view is the application-wide list.
    picker.ClearAll();
    picker.Refresh();
    auto *list = picker.findChild<XStaticList *>(QStringLiteral("stl"));

    bool ascending = false;
    for (auto _ : state) {
        // Each round sorts the other way, as repeated clicks on the column header do.
        ascending = !ascending;
        list->SortByColumn(QStringLiteral("name"), ascending ? Qt::AscendingOrder : Qt::DescendingOrder);
        benchmark::DoNotOptimize(list->SortColumn());
    }
    state.counters["fields"] = double(picker.ListCount());
    FieldCatalog::setInstance(nullptr);
}
BENCHMARK(BM_SortRootViewByName)->Unit(benchmark::kMillisecond)->Iterations(10)->UseRealTime();

} // namespace

PICKERCTL_QT_BENCHMARK_MAIN()
