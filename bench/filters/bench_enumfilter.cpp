#include "bench_size.h"

#include <PickerCtl/ListViewProperties.h>
#include <PickerCtl/PropertyFilter.h>
#include <PickerCtl/XEnumFilter.h>
#include <PickerCtl/XTreeOpt.h>

#include <QApplication>
#include <QStringList>
#include <benchmark/benchmark.h>

namespace {

using namespace PickerCtl;

// PICKERCTL_BENCH_VALUES overrides the number of enumerated values.
const int kValues = Bench::sizeFromEnvironment("PICKERCTL_BENCH_VALUES", 10000);

/// An enumeration of kValues values named "Value n" with codes "n".
class BenchPropertyFilter : public PropertyFilter
{
public:
    BenchPropertyFilter()
    {
        QStringList names;
        QStringList codes;
        for (int i = 0; i < kValues; ++i) {
            names << QStringLiteral("Value %1").arg(i);
            codes << QString::number(i);
        }
        m_names = names.join(QLatin1Char(','));
        m_codes = codes.join(QLatin1Char(','));
    }
    QString ValueNames(const std::shared_ptr<ListViewProperties> &, const QString &) const override { return m_names; }
    QString ValueCodes(const std::shared_ptr<ListViewProperties> &, const QString &) const override { return m_codes; }

private:
    QString m_names;
    QString m_codes;
};

std::shared_ptr<ListViewProperties> titled()
{
    auto properties = std::make_shared<ListViewProperties>();
    properties->setTitle(QStringLiteral("Cause"));
    return properties;
}

// Every other code, last first: each code is looked up among all the values.
EnumFilterValuePtr halfSelected()
{
    QStringList codes;
    for (int i = kValues - 1; i >= 0; i -= 2)
        codes << QString::number(i);
    auto value = std::make_shared<EnumFilterValue>();
    value->setSelection(codes.join(QLatin1Char(',')));
    return value;
}

void loadEnumFilter(benchmark::State &state, const EnumFilterValuePtr &value)
{
    const auto filter = std::make_shared<BenchPropertyFilter>();
    const auto properties = titled();
    XEnumFilter editor;
    editor.resize(300, 400);
    editor.show();
    for (auto _ : state) {
        editor.SetFilter(value, QStringLiteral("PM"), properties, filter);
        QApplication::processEvents();
    }
    state.counters["values"] = kValues;
}

void BM_SetFilterEveryValue(benchmark::State &state)
{
    loadEnumFilter(state, nullptr);
}
BENCHMARK(BM_SetFilterEveryValue)->Unit(benchmark::kMillisecond);

void BM_SetFilterHalfSelected(benchmark::State &state)
{
    loadEnumFilter(state, halfSelected());
}
BENCHMARK(BM_SetFilterHalfSelected)->Unit(benchmark::kMillisecond);

void BM_GetFilterHalfSelected(benchmark::State &state)
{
    const auto filter = std::make_shared<BenchPropertyFilter>();
    XEnumFilter editor;
    editor.show();
    editor.SetFilter(halfSelected(), QStringLiteral("PM"), titled(), filter);
    for (auto _ : state)
        benchmark::DoNotOptimize(editor.GetFilter());
}
BENCHMARK(BM_GetFilterHalfSelected)->Unit(benchmark::kMillisecond);

// The option tree grown under its first branch while a second one follows: every new node
// lands in the middle of the pre-order, which must not renumber the tree per node.
void BM_TreeGrownUnderAnEarlyBranch(benchmark::State &state)
{
    const QString first = QStringLiteral("First");
    const QString second = QStringLiteral("Second");
    QStringList keys;
    for (int i = 0; i < kValues; ++i)
        keys << QStringLiteral("Value %1").arg(i);
    XTreeOpt tree;
    for (auto _ : state) {
        tree.Clear();
        tree.AddNode(first, QString(), first);
        tree.AddNode(second, QString(), second);
        for (const QString &key : keys)
            benchmark::DoNotOptimize(tree.AddChild(key, first, key));
    }
    state.counters["values"] = kValues;
}
BENCHMARK(BM_TreeGrownUnderAnEarlyBranch)->Unit(benchmark::kMillisecond);

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
