// Opening an SQL catalogue of a million fields: how fast the whole catalogue is read into memory.
#include <PickerCtl/CatalogError.h>
#include <PickerCtl/CategoryTree.h>
#include <PickerCtl/SqlCatalog.h>

#include <QCoreApplication>
#include <QProcess>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

#include <cstdio>

namespace {

constexpr qint64 FieldCount = 1000000;
constexpr qint64 CategoryCount = 20000;

/// The catalogue file, generated once per run outside the timed loop.
const QString &catalogueFile()
{
    static QTemporaryDir dir;
    static const QString path = [] {
        const QString file = dir.filePath(QStringLiteral("bench-catalog.sqlite"));
        QProcess generator;
        generator.start(QStringLiteral(PICKERCTL_SAMPLEGEN),
                        {QStringLiteral("--fields"), QString::number(FieldCount), QStringLiteral("--categories"),
                         QString::number(CategoryCount), QStringLiteral("--out"), file});
        if (!generator.waitForFinished(600000) || generator.exitCode() != 0) {
            std::fprintf(stderr, "bench_sqlload: the sample generator failed: %s\n",
                         generator.readAllStandardError().constData());
            return QString();
        }
        return file;
    }();
    return path;
}

void BM_OpenSqlCatalog(benchmark::State &state)
{
    const QString file = catalogueFile();
    if (file.isEmpty()) {
        state.SkipWithError("no catalogue to open");
        return;
    }
    qint64 fields = 0;
    for (auto _ : state) {
        try {
            auto catalog = PickerCtl::SqlCatalog::open(file);
            fields = catalog->GetCategoryTree(catalog->Applications().first())->AllFields(0)->Count()
                     + catalog->GetCategoryTree(catalog->Applications().last())->AllFields(0)->Count();
            state.PauseTiming();   // freeing a million fields is not part of opening
            catalog.reset();
            state.ResumeTiming();
        } catch (const PickerCtl::CatalogError &e) {
            state.SkipWithError(e.what());
            return;
        }
    }
    state.counters["fields"] = double(fields);
    state.counters["fields/s"] = benchmark::Counter(double(fields) * double(state.iterations()),
                                                    benchmark::Counter::kIsRate);
}
BENCHMARK(BM_OpenSqlCatalog)->Unit(benchmark::kMillisecond)->Iterations(3)->UseRealTime();

} // namespace

int main(int argc, char **argv)
{
    QCoreApplication app(argc, argv);   // the SQL drivers are plugins
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
