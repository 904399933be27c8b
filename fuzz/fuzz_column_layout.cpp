// A column-layout string as a catalogue or a settings file hands it back.
#include "fuzzsupport.h"

#include <PickerCtl/ListViewProperties.h>

using namespace PickerCtl;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const QString text = QString::fromUtf8(fuzz::bytes(data, size));

    ListViewProperties properties;
    const QString before = properties.Serialise();
    if (!properties.Apply(text)) {
        fuzz::require(properties.Serialise() == before, "a refused layout changes nothing");
        return 0;
    }
    // What was taken is a valid layout: it writes out and reads back to the same state.
    const QString written = properties.Serialise();
    ListViewProperties again;
    fuzz::require(again.Apply(written), "a taken layout reads back");
    fuzz::require(again.Serialise() == written, "a taken layout reads back unchanged");
    fuzz::require(again.Columns() == properties.Columns(), "the columns survive a round trip");
    return 0;
}
