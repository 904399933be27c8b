// Loading the field browser on a large catalogue: the tree of 20,000 categories and the root view
// that passes 1,000,000 fields through the filter.
#include <PickerCtl/AppServices.h>
#include <PickerCtl/MemoryCatalog.h>
#include <PickerCtl/XFieldPicker.h>

#include <QApplication>

#include <benchmark/benchmark.h>

using namespace PickerCtl;

namespace {

constexpr auto AppName = "Bench";
constexpr int CategoryCount = 20000;
constexpr int FieldCount = 1000000;
constexpr int RegionCount = 20;
constexpr int SitesPerRegion = 50;

// Root, 20 regions, 50 sites each, the rest as cells under the sites; fields spread evenly.
std::shared_ptr<MemoryCatalog> makeLargeCatalog()
{
    auto catalog = std::make_shared<MemoryCatalog>();
    catalog->addApplication(QLatin1String(AppName));
    QStringList keys;
    auto add = [&](const QString &key, const QString &parent, const QString &name, const QString &nodeKey = {}) {
        CategorySpec spec;
        spec.key = key;
        spec.parentKey = parent;
        spec.nodeKey = nodeKey;
        spec.name = name;
        catalog->addCategory(spec);
        keys.append(key);
    };
    add(QStringLiteral("root"), QString(), QStringLiteral("Network"), QStringLiteral("Entities"));
    QStringList sites;
    for (int r = 0; r < RegionCount; ++r) {
        const QString region = QStringLiteral("r%1").arg(r);
        add(region, QStringLiteral("Entities"), QStringLiteral("Region %1").arg(r));
        for (int s = 0; s < SitesPerRegion; ++s) {
            const QString site = QStringLiteral("%1s%2").arg(region).arg(s);
            add(site, region, QStringLiteral("Site %1-%2").arg(r).arg(s));
            sites.append(site);
        }
    }
    for (int c = 0; keys.size() < CategoryCount; ++c)
        add(QStringLiteral("c%1").arg(c), sites.at(c % sites.size()), QStringLiteral("Cell %1").arg(c));

    catalog->reserveFields(FieldCount);
    for (int id = 0; id < FieldCount; ++id) {
        FieldSpec field;
        field.id = id + 1;
        field.categoryKey = keys.at(id % keys.size());
        field.name = QStringLiteral("Counter %1").arg(id);
        field.typeCode = QStringLiteral("CNT");
        catalog->addField(field);
    }
    return catalog;
}

const std::shared_ptr<MemoryCatalog> &largeCatalog()
{
    static const auto catalog = makeLargeCatalog();
    return catalog;
}

void installCatalog()
{
    FieldCatalog::setInstance(largeCatalog());
    AppServices::instance()->setUseEntityView(true);
}

// A new control each round, so every Load builds the whole tree and shows the first category.
void BM_LoadTreeOf20000Categories(benchmark::State &state)
{
    installCatalog();
    for (auto _ : state) {
        state.PauseTiming();
        auto picker = std::make_unique<XFieldPicker>();
        picker->InitProperties();
        state.ResumeTiming();
        benchmark::DoNotOptimize(picker->Load(QLatin1String(AppName), QStringLiteral("Region 3")));
        state.PauseTiming();
        picker.reset();
        state.ResumeTiming();
    }
}
BENCHMARK(BM_LoadTreeOf20000Categories)->Unit(benchmark::kMillisecond);

// The root's view with ShowAll: every field of the application through the filter pass.
void BM_RootViewWithShowAll(benchmark::State &state)
{
    installCatalog();
    XFieldPicker picker;
    picker.InitProperties();
    picker.setShowAll(true);
    picker.Load(QLatin1String(AppName), QStringLiteral("Region 3"));
    for (auto _ : state) {
        // Without a current category the view is the application-wide list.
        state.PauseTiming();
        picker.ClearAll();
        state.ResumeTiming();
        picker.Refresh();
        benchmark::DoNotOptimize(picker.ListCount());
    }
    state.counters["fields"] = picker.ListCount();
}
BENCHMARK(BM_RootViewWithShowAll)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 1;
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
