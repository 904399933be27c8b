#include "bench_size.h"

#include <PickerCtl/XStaticList.h>

#include <QApplication>
#include <QTreeView>
#include <atomic>
#include <benchmark/benchmark.h>
#include <cstdlib>
#include <new>

// Heap allocations are counted by replacing the global allocator: setting the items of a list
// must not allocate per row.
namespace {
std::atomic<long long> g_allocations{0};
std::atomic<long long> g_bytes{0};
}

void *operator new(std::size_t size)
{
    g_allocations.fetch_add(1, std::memory_order_relaxed);
    g_bytes.fetch_add(static_cast<long long>(size), std::memory_order_relaxed);
    if (void *p = std::malloc(size ? size : 1))
        return p;
    throw std::bad_alloc();
}
void operator delete(void *p) noexcept { std::free(p); }
void operator delete(void *p, std::size_t) noexcept { std::free(p); }

namespace {

using namespace PickerCtl;

// PICKERCTL_BENCH_ROWS overrides the row count for a quick run on a busy machine.
const int kRows = Bench::sizeFromEnvironment("PICKERCTL_BENCH_ROWS", 1000000);

class BenchField : public Field
{
public:
    BenchField(qint32 id, QString name) : m_id(id), m_name(std::move(name)) {}
    qint32 Id() const override { return m_id; }
    QString CategoryName() const override { return QStringLiteral("Traffic"); }
    QString Name() const override { return m_name; }
    QString Key() const override { return QString::number(m_id); }
    qint32 OwnerId() const override { return 0; }
    bool PassesFilter(const QString &, const QString &, const QString &, const QString &, bool, const QString &,
                      const QString &) const override
    {
        return true;
    }
    QString TechMask() const override { return {}; }
    QString FieldTypeCode() const override { return {}; }
    bool IsExpression() const override { return false; }
    QString ValidationStatus() const override { return {}; }
    bool UseForBusyHour() const override { return false; }
    QString OwnerName() const override { return {}; }
    QString Description() const override { return {}; }
    QString Unit() const override { return {}; }

private:
    qint32 m_id;
    QString m_name;
};

FieldsPtr bigFields()
{
    static FieldsPtr fields = [] {
        auto all = Fields::create();
        all->reserve(kRows);
        // Names in a scrambled order so that a sort has real work to do.
        for (int i = 0; i < kRows; ++i)
            all->Add(std::make_shared<BenchField>(i, QStringLiteral("Field %1").arg(qint64(i) * 7919 % kRows)));
        return all;
    }();
    return fields;
}

void BM_SetItems(benchmark::State &state)
{
    XStaticList list;
    const FieldsPtr fields = bigFields();
    long long allocations = 0;
    long long bytes = 0;
    for (auto _ : state) {
        list.setItems(Fields::create());
        const long long a0 = g_allocations.load();
        const long long b0 = g_bytes.load();
        list.setItems(fields);
        allocations = g_allocations.load() - a0;
        bytes = g_bytes.load() - b0;
    }
    state.counters["allocs"] = double(allocations);
    state.counters["allocs_per_row"] = double(allocations) / kRows;
    state.counters["bytes_per_row"] = double(bytes) / kRows;
}
BENCHMARK(BM_SetItems)->Unit(benchmark::kMillisecond);

void BM_SelectAll(benchmark::State &state)
{
    XStaticList list;
    list.setItems(bigFields());
    for (auto _ : state) {
        list.ClearSelection();
        list.SelectAll();
        benchmark::DoNotOptimize(list.SelectedCount());
    }
}
BENCHMARK(BM_SelectAll)->Unit(benchmark::kMillisecond);

void BM_InvertSelection(benchmark::State &state)
{
    XStaticList list;
    list.setItems(bigFields());
    auto some = Fields::create();
    for (int i = 0; i < kRows; i += 1000)
        some->Add(bigFields()->at(i));
    list.SelectItems(some);
    for (auto _ : state) {
        list.InvertSelection();
        benchmark::DoNotOptimize(list.SelectedCount());
    }
}
BENCHMARK(BM_InvertSelection)->Unit(benchmark::kMillisecond);

void BM_SortByName(benchmark::State &state)
{
    XStaticList list;
    list.setItems(bigFields());
    for (auto _ : state) {
        list.ClearHeaderIcon();
        list.SortByColumn(QStringLiteral("name"));
    }
}
BENCHMARK(BM_SortByName)->Unit(benchmark::kMillisecond)->Iterations(2);

void BM_TypeAhead(benchmark::State &state)
{
    XStaticList list;
    list.setItems(bigFields());
    for (auto _ : state) {
        list.reportView()->keyboardSearch(QStringLiteral("Field 99999"));
        benchmark::DoNotOptimize(list.FocusItem());
    }
}
BENCHMARK(BM_TypeAhead)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
