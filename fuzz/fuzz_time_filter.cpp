// A stored time filter as a host loads it into XTimeFilter, one value a line: relative ("1"),
// start and end (tagged as fuzz::variant reads them; a value that is no date-time stays unset),
// unit, count.
#include "fuzzsupport.h"

#include <PickerCtl/TimeFilterValue.h>
#include <PickerCtl/XTimeFilter.h>

#include <QDateTime>

using namespace PickerCtl;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    fuzz::ensureApplication();
    const QList<QByteArray> lines = fuzz::lines(data, size, 5);

    auto value = std::make_shared<TimeFilterValue>();
    value->setIsRelative(fuzz::lineAt(lines, 0) == "1");
    value->setStartTime(fuzz::variant(fuzz::lineAt(lines, 1)).toDateTime());
    value->setEndTime(fuzz::variant(fuzz::lineAt(lines, 2)).toDateTime());
    value->setRelativeUnit(fuzz::lineAt(lines, 3).toInt());
    value->setRelativeCount(fuzz::lineAt(lines, 4).toInt());
    XTimeFilter editor;
    editor.SetDateFilter(value);
    fuzz::require(!editor.IsModified(), "loading a value is no edit");
    QString error;
    editor.IsValid(error);
    editor.GetTimeFilter();
    editor.grab();
    fuzz::processEvents();
    return 0;
}
