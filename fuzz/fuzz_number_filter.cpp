// A stored numeric range filter as a host loads it into XNumberFilter, one value a line (tagged as
// fuzz::variant reads them): number type, lower bound, upper bound, allowed minimum, allowed maximum.
#include "fuzzsupport.h"

#include <PickerCtl/NumberFilterValue.h>
#include <PickerCtl/XNumberFilter.h>

using namespace PickerCtl;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    fuzz::ensureApplication();
    const QList<QByteArray> lines = fuzz::lines(data, size, 5);

    auto value = std::make_shared<NumberFilterValue>();
    value->setMinValue(fuzz::variant(fuzz::lineAt(lines, 1)));
    value->setMaxValue(fuzz::variant(fuzz::lineAt(lines, 2)));
    XNumberFilter editor;
    editor.SetFilter(value, fuzz::lineAt(lines, 0).toInt(), fuzz::variant(fuzz::lineAt(lines, 3)),
                     fuzz::variant(fuzz::lineAt(lines, 4)));
    fuzz::require(!editor.IsModified(), "loading a value is no edit");
    QString error;
    editor.IsValid(error);
    editor.GetFilter();
    editor.grab();
    fuzz::processEvents();
    return 0;
}
