// Deleting many fields from an SQLite catalogue at once: the batched store write and the in-memory
// removal together, as a user who selected a whole category of UDCs waits for them.
#include "udc_catalogue.h"

#include <PickerCtl/CatalogError.h>
#include <PickerCtl/CategoryTree.h>
#include <PickerCtl/FixedUserContext.h>
#include <PickerCtl/SqlCatalog.h>

#include <QCoreApplication>
#include <QFile>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

namespace {

using namespace PickerCtl;

using namespace PickerCtl::Bench;

constexpr qint32 CategoryCount = 50;

void BM_DeleteFields(benchmark::State &state)
{
    const auto deleting = qint32(state.range(0));
    QTemporaryDir dir;
    UserContext::setInstance(std::make_shared<FixedUserContext>(std::make_shared<FixedUser>(UdcAdmin)));
    try {
        // Twice the fields to delete, spread over categories.
        const QString source = dir.filePath(QStringLiteral("template.sqlite"));
        writeUdcCatalogue(source, 2 * deleting, CategoryCount);
        const QString path = dir.filePath(QStringLiteral("catalog.sqlite"));
        for (auto _ : state) {
            // Every round starts from the whole catalogue; copying and opening it is not timed.
            state.PauseTiming();
            QFile::remove(path);
            QFile::copy(source, path);
            std::shared_ptr<MemoryCatalog> catalog = SqlCatalog::open(path);
            auto doomed = Fields::create();
            for (const FieldPtr &field : *catalog->GetCategoryTree(UdcApp)->AllFields(0)) {
                if (field->Id() % 2 == 0)
                    doomed->Add(field);
            }
            state.ResumeTiming();

            catalog->DeleteFields(doomed, nullptr);

            state.PauseTiming();
            catalog.reset();
            state.ResumeTiming();
        }
    } catch (const CatalogError &e) {
        state.SkipWithError(e.what());
    }
    UserContext::setInstance(nullptr);
    state.counters["fields"] = double(deleting);
}
BENCHMARK(BM_DeleteFields)->Arg(1000)->Arg(10000)->Unit(benchmark::kMillisecond)->UseRealTime();

} // namespace

int main(int argc, char **argv)
{
    QCoreApplication app(argc, argv);   // the SQL drivers are plugins
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
