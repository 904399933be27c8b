// The field browser on a large catalogue: the tree of 20,000 categories, the root view that passes
// 1,000,000 fields through the filter, typing into the name filter, selecting by id and copying.
#include "qt_benchmark_main.h"

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

// The application-wide list of every field, as the root shows it with ShowAll.
void showEveryField(XFieldPicker &picker)
{
    installCatalog();
    picker.InitProperties();
    picker.setShowAll(true);
    picker.Load(QLatin1String(AppName), QStringLiteral("Region 3"));
    picker.ClearAll();
    picker.Refresh();
}

// One character typed into the name filter through the control to the refilled list. Each round
// starts from a list refreshed under `typed`, with the earlier results forgotten, then types
// `typed` on to `after`: the first character passes the whole million, the next ones narrow the
// last result, and a character taken back finds the result it had before.
// A fixed number of rounds: the untimed preparation of a round costs far more than a taken-back
// character, which the library would otherwise repeat until its timed part added up.
constexpr int RoundsOfTyping = 10;

void typeIntoNameFilter(benchmark::State &state, const QStringList &typed, const QString &after)
{
    XFieldPicker picker;
    showEveryField(picker);
    for (auto _ : state) {
        state.PauseTiming();
        picker.setNameFilter(typed.first());
        picker.Refresh();
        for (const QString &text : typed)
            picker.setNameFilter(text);
        state.ResumeTiming();
        picker.setNameFilter(after);
        benchmark::DoNotOptimize(picker.ListCount());
    }
    state.counters["listed"] = picker.ListCount();
}

void BM_NameFilterFirstCharacter(benchmark::State &state)
{
    typeIntoNameFilter(state, {QString()}, QStringLiteral("7"));
}
BENCHMARK(BM_NameFilterFirstCharacter)->Unit(benchmark::kMillisecond)->Iterations(RoundsOfTyping);

void BM_NameFilterNextCharacter(benchmark::State &state)
{
    typeIntoNameFilter(state, {QStringLiteral("7")}, QStringLiteral("77"));
}
BENCHMARK(BM_NameFilterNextCharacter)->Unit(benchmark::kMillisecond)->Iterations(RoundsOfTyping);

void BM_NameFilterCharacterTakenBack(benchmark::State &state)
{
    typeIntoNameFilter(state, {QStringLiteral("7"), QStringLiteral("77")}, QStringLiteral("7"));
}
BENCHMARK(BM_NameFilterCharacterTakenBack)->Unit(benchmark::kMillisecond)->Iterations(RoundsOfTyping);

// A field deep in the catalogue: its category is selected and the field found in the list.
void BM_SelectFieldById(benchmark::State &state)
{
    installCatalog();
    XFieldPicker picker;
    picker.InitProperties();
    picker.Load(QLatin1String(AppName), QStringLiteral("Region 3"));
    qint32 id = FieldCount - 1;
    for (auto _ : state) {
        picker.SelectFieldById(id);
        id = id == FieldCount - 1 ? FieldCount / 2 : FieldCount - 1;
        benchmark::DoNotOptimize(picker.SelectionCount());
    }
    state.counters["selected"] = picker.SelectionCount();
}
BENCHMARK(BM_SelectFieldById)->Unit(benchmark::kMillisecond);

// Copy of 100,000 selected fields (one shift-click range): the payload and its three renderings
// on the clipboard.
void BM_Copy100000Fields(benchmark::State &state)
{
    constexpr qsizetype Selected = 100000;
    XFieldPicker picker;
    showEveryField(picker);
    auto selection = Fields::create();
    const FieldsPtr shown = picker.Fields();
    for (qsizetype i = 0; i < Selected; ++i)
        selection->Add(shown->at(i));
    picker.SetSelection(QVariant::fromValue(selection));
    for (auto _ : state)
        picker.Copy();
    state.counters["copied"] = picker.ClipBoardData()->Fields()->size();
}
BENCHMARK(BM_Copy100000Fields)->Unit(benchmark::kMillisecond);

} // namespace

PICKERCTL_QT_BENCHMARK_MAIN()
