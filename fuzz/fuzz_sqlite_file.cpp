// A file handed to SqlCatalog::open as a catalogue: refused with CatalogError or loaded, never a crash.
#include "fuzzcatalog.h"
#include "fuzzsupport.h"

using namespace PickerCtl;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    fuzz::ensureApplication();
    static const fuzz::ScratchFile file(QStringLiteral("catalog.sqlite"));
    file.rewrite(fuzz::bytes(data, size));
    if (const std::shared_ptr<MemoryCatalog> catalog = fuzz::openCatalog(file.path()))
        fuzz::exerciseCatalog(*catalog);
    return 0;
}
