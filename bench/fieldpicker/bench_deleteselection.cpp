// Deleting 10,000 selected UDCs through the field browser over an SQLite catalogue: the ownership
// check, the batched store write, the in-memory removal and the list refilled after the change, as
// an administrator who selected them waits for the control to come back.
#include "qt_benchmark_main.h"
#include "udc_catalogue.h"

#include <PickerCtl/AppServices.h>
#include <PickerCtl/CatalogError.h>
#include <PickerCtl/FixedUserContext.h>
#include <PickerCtl/SqlCatalog.h>
#include <PickerCtl/XFieldPicker.h>

#include <QApplication>
#include <QFile>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

namespace {

using namespace PickerCtl;

using namespace PickerCtl::Bench;

constexpr qint32 Selected = 10000;

void BM_DeleteSelectionOf10000Fields(benchmark::State &state)
{
    QTemporaryDir dir;
    // The categories are browsed by their catalogue tree, which has no entity branch.
    AppServices::instance()->setUseEntityView(false);
    UserContext::setInstance(std::make_shared<FixedUserContext>(std::make_shared<FixedUser>(UdcAdmin)));
    qsizetype left = 0;
    try {
        // One category holding twice the UDCs to delete.
        const QString source = dir.filePath(QStringLiteral("template.sqlite"));
        writeUdcCatalogue(source, 2 * Selected, 1);
        const QString path = dir.filePath(QStringLiteral("catalog.sqlite"));
        for (auto _ : state) {
            // Every round starts from the whole catalogue shown in a new control with every other
            // UDC selected; copying, opening, loading and selecting are not timed.
            state.PauseTiming();
            QFile::remove(path);
            QFile::copy(source, path);
            FieldCatalog::setInstance(SqlCatalog::open(path));
            auto picker = std::make_unique<XFieldPicker>();
            picker->InitProperties();
            picker->Load(UdcApp, udcCategory(0));
            auto selection = Fields::create();
            for (const FieldPtr &field : *picker->Fields()) {
                if (field->Id() % 2 == 0)
                    selection->Add(field);
            }
            picker->SetSelection(QVariant::fromValue(selection));
            if (picker->SelectionCount() != Selected) {
                state.SkipWithError("the selection does not hold every other UDC");
                break;
            }
            state.ResumeTiming();

            picker->DeleteSelection(nullptr);

            state.PauseTiming();
            left = picker->ListCount();
            picker.reset();
            FieldCatalog::setInstance(nullptr);
            state.ResumeTiming();
        }
    } catch (const CatalogError &e) {
        state.SkipWithError(e.what());
    }
    UserContext::setInstance(nullptr);
    state.counters["deleted"] = double(Selected);
    state.counters["left"] = double(left);
}
BENCHMARK(BM_DeleteSelectionOf10000Fields)->Unit(benchmark::kMillisecond)->UseRealTime();

} // namespace

PICKERCTL_QT_BENCHMARK_MAIN()
