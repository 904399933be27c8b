// Deleting many fields from an SQLite catalogue at once: the batched store write and the in-memory
// removal together, as a user who selected a whole category of UDCs waits for them.
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

const QString App = QStringLiteral("Reports");
const UserSpec Admin{1, QStringLiteral("admin"), true, true, false};
constexpr qint32 CategoryCount = 50;

/// A catalogue of twice the fields to delete, spread over categories; written once per size.
QString catalogueFile(const QTemporaryDir &dir, qint32 deleting)
{
    const QString path = dir.filePath(QStringLiteral("template-%1.sqlite").arg(deleting));
    if (QFile::exists(path))
        return path;
    SqlCatalogBuilder b(path);
    b.addUser(Admin);
    b.addFieldType(QStringLiteral("UDC"), QStringLiteral("User-Defined Calculation"));
    b.addApplication(App);
    CategorySpec root;
    root.key = QStringLiteral("ROOT");
    root.name = App;
    b.addCategory(root);
    for (qint32 c = 0; c < CategoryCount; ++c) {
        CategorySpec category;
        category.key = QStringLiteral("C%1").arg(c);
        category.parentKey = root.key;
        category.name = category.key;
        b.addCategory(category);
    }
    for (qint32 id = 1; id <= 2 * deleting; ++id) {
        FieldSpec field;
        field.id = id;
        field.categoryKey = QStringLiteral("C%1").arg(id % CategoryCount);
        field.name = QStringLiteral("UDC %1").arg(id);
        field.typeCode = QStringLiteral("UDC");
        field.ownerId = Admin.id;
        field.techMask = QStringLiteral("L");
        b.addField(field);
    }
    b.commit();
    return path;
}

void BM_DeleteFields(benchmark::State &state)
{
    const auto deleting = qint32(state.range(0));
    QTemporaryDir dir;
    UserContext::setInstance(std::make_shared<FixedUserContext>(std::make_shared<FixedUser>(Admin)));
    try {
        const QString source = catalogueFile(dir, deleting);
        const QString path = dir.filePath(QStringLiteral("catalog.sqlite"));
        for (auto _ : state) {
            // Every round starts from the whole catalogue; copying and opening it is not timed.
            state.PauseTiming();
            QFile::remove(path);
            QFile::copy(source, path);
            std::shared_ptr<MemoryCatalog> catalog = SqlCatalog::open(path);
            auto doomed = Fields::create();
            for (const FieldPtr &field : *catalog->GetCategoryTree(App)->AllFields(0)) {
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
