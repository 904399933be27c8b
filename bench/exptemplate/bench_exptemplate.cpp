// The template editor on the big sample catalogue (1,000,000 fields, 20,000 categories): a search
// over every field, adding 100,000 selected fields to the template and validating a template of
// 100,000 fields.
#include <PickerCtl/AppServices.h>
#include <PickerCtl/CatalogError.h>
#include <PickerCtl/CategoryTree.h>
#include <PickerCtl/MemoryPropertyStore.h>
#include <PickerCtl/SqlCatalog.h>
#include <PickerCtl/XExpTemplate.h>
#include <PickerCtl/XStaticList.h>
#include <PickerCtl/testing/ScriptedMessageService.h>

#include <QApplication>
#include <QComboBox>
#include <QFileInfo>
#include <QProcess>
#include <QPushButton>
#include <QTemporaryDir>
#include <QToolButton>

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstdio>

using namespace PickerCtl;

namespace {

constexpr qint64 FieldCount = 1000000;
constexpr qint64 CategoryCount = 20000;
constexpr qint32 TemplateSize = 100000;
const QString AllEntityTypes = QStringLiteral("<All Entity Types>");

// Names a big catalogue generated before, to spare the generator's minutes on repeated runs.
constexpr auto CatalogueVariable = "PICKERCTL_BENCH_CATALOG";

/// The big sample catalogue, generated and opened once per run outside the timed loops.
QString generatedCatalogue(const QString &file)
{
    QProcess generator;
    generator.start(QStringLiteral(PICKERCTL_SAMPLEGEN),
                    {QStringLiteral("--fields"), QString::number(FieldCount), QStringLiteral("--categories"),
                     QString::number(CategoryCount), QStringLiteral("--out"), file});
    if (!generator.waitForFinished(600000) || generator.exitCode() != 0) {
        std::fprintf(stderr, "bench_exptemplate: the sample generator failed: %s\n",
                     generator.readAllStandardError().constData());
        return QString();
    }
    return file;
}

std::shared_ptr<MemoryCatalog> bigCatalogue()
{
    static QTemporaryDir dir;
    static const std::shared_ptr<MemoryCatalog> catalog = []() -> std::shared_ptr<MemoryCatalog> {
        QString file = qEnvironmentVariable(CatalogueVariable);
        if (file.isEmpty() || !QFileInfo::exists(file))
            file = generatedCatalogue(dir.filePath(QStringLiteral("big.sqlite")));
        if (file.isEmpty())
            return nullptr;
        try {
            return SqlCatalog::open(file);
        } catch (const CatalogError &e) {
            std::fprintf(stderr, "bench_exptemplate: %s\n", e.what());
            return nullptr;
        }
    }();
    return catalog;
}

/// An editor over the whole application: the available list shows every field.
struct Editor
{
    explicit Editor(const std::shared_ptr<MemoryCatalog> &catalog)
    {
        appName = catalog->Applications().first();
        editor.Load(appName, QString(), nullptr);
        editor.findChild<QComboBox *>(QStringLiteral("cboEntityTypes"))->setCurrentText(AllEntityTypes);
        find();
    }

    /// Find with criteria that always differ from the last search, so it always searches.
    void find()
    {
        editor.setNameFilter(QStringLiteral("differs"));
        editor.findChild<QPushButton *>(QStringLiteral("cmdApply"))->click();
    }

    XStaticList *list(const char *name) const { return editor.findChild<XStaticList *>(QLatin1String(name)); }

    /// TemplateSize fields spread evenly over the available list.
    FieldsPtr spread() const
    {
        const FieldsPtr all = list("stlAvailable")->Items();
        const qsizetype stride = std::max<qsizetype>(1, all->size() / TemplateSize);
        FieldsPtr picked = Fields::create();
        for (qsizetype i = 0; i < all->size() && picked->size() < TemplateSize; i += stride)
            picked->Add(all->at(i));
        return picked;
    }

    QString appName;
    XExpTemplate editor;
};

bool install(benchmark::State &state)
{
    const auto catalog = bigCatalogue();
    if (!catalog) {
        state.SkipWithError("no catalogue");
        return false;
    }
    FieldCatalog::setInstance(catalog);
    return true;
}

void BM_FindOverAllFields(benchmark::State &state)
{
    if (!install(state))
        return;
    Editor e(bigCatalogue());
    for (auto _ : state)
        e.find();
    state.counters["found"] = double(e.list("stlAvailable")->Count());
}
BENCHMARK(BM_FindOverAllFields)->Unit(benchmark::kMillisecond);

void BM_Add100000SelectedFields(benchmark::State &state)
{
    if (!install(state))
        return;
    Editor e(bigCatalogue());
    XStaticList *available = e.list("stlAvailable");
    // One block, as Shift+click or Ctrl+A select it.
    const FieldsPtr all = available->Items();
    FieldsPtr picked = Fields::create();
    for (qint32 i = 0; i < TemplateSize; ++i)
        picked->Add(all->at(i));
    auto *add = e.editor.findChild<QToolButton *>(QStringLiteral("cmdAdd"));
    for (auto _ : state) {
        state.PauseTiming();
        e.editor.setFields(nullptr);
        available->SelectItems(picked);
        state.ResumeTiming();
        add->click();
    }
    state.counters["template"] = double(e.list("stlSelected")->Count());
}
BENCHMARK(BM_Add100000SelectedFields)->Unit(benchmark::kMillisecond);

// Half of a 100,000-field template in one block goes at once, not one collection shift per field.
void BM_Remove50000TemplateFields(benchmark::State &state)
{
    if (!install(state))
        return;
    Editor e(bigCatalogue());
    XStaticList *templateList = e.list("stlSelected");
    const FieldsPtr fields = e.spread();
    FieldsPtr half = Fields::create();
    for (qsizetype i = fields->size() / 4; i < fields->size() / 4 + fields->size() / 2; ++i)
        half->Add(fields->at(i));
    TemplateFieldsPtr tplfs = TemplateFields::create();
    for (const FieldPtr &field : *fields) {
        auto item = std::make_shared<TemplateField>();
        item->setField(field);
        tplfs->Add(item);
    }
    auto *remove = e.editor.findChild<QToolButton *>(QStringLiteral("cmdRemove"));
    for (auto _ : state) {
        state.PauseTiming();
        e.editor.setFields(tplfs);
        templateList->SelectItems(half);
        state.ResumeTiming();
        remove->click();
    }
    state.counters["template"] = double(templateList->Count());
}
BENCHMARK(BM_Remove50000TemplateFields)->Unit(benchmark::kMillisecond);

// The warning setting on, so IsValid collects the template's technologies and looks for one they
// share; the scripted message box answers Yes at once.
void BM_IsValidOn100000Fields(benchmark::State &state)
{
    if (!install(state))
        return;
    const auto catalog = bigCatalogue();
    auto store = std::make_shared<MemoryPropertyStore>();
    store->SetItem(QStringLiteral("Warn on Multiple TechTypes"), true);
    catalog->setProperties(store);
    MessageService::setInstance(std::make_shared<ScriptedMessageService>(QList<qint32>{}, MessageService::AnswerYes));
    Editor e(catalog);
    TemplateFieldsPtr tplfs = TemplateFields::create();
    const FieldsPtr fields = e.spread();
    for (const FieldPtr &field : *fields) {
        auto item = std::make_shared<TemplateField>();
        item->setField(field);
        tplfs->Add(item);
    }
    e.editor.setFields(tplfs);
    bool valid = false;
    for (auto _ : state)
        benchmark::DoNotOptimize(valid = e.editor.IsValid(QStringLiteral("Bench")));
    state.counters["valid"] = valid ? 1 : 0;
    MessageService::setInstance(nullptr);
}
BENCHMARK(BM_IsValidOn100000Fields)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    AppServices::instance()->setUseEntityView(true);
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 1;
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
