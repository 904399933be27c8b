// A stored text filter as a host loads it into XStringFilter: the first byte's low three bits are
// the options (pattern matching, whole name, match case), the rest is the expression.
#include "fuzzsupport.h"

#include <PickerCtl/StringFilterValue.h>
#include <PickerCtl/XStringFilter.h>

using namespace PickerCtl;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    fuzz::ensureApplication();
    const QByteArray input = fuzz::bytes(data, size);
    const char options = input.isEmpty() ? 0 : input.at(0);

    auto value = std::make_shared<StringFilterValue>();
    value->setUsePatternMatching(options & 1);
    value->setMatchWholeName(options & 2);
    value->setMatchCase(options & 4);
    value->setExpression(QString::fromUtf8(input.mid(1)));
    XStringFilter editor;
    editor.SetFilter(value);
    fuzz::require(!editor.IsModified(), "loading a value is no edit");
    const StringFilterValuePtr shown = editor.GetFilter();
    fuzz::require(shown->UsePatternMatching() == value->UsePatternMatching()
                      && shown->MatchWholeName() == value->MatchWholeName()
                      && shown->MatchCase() == value->MatchCase(),
                  "the options are kept");
    editor.grab();
    fuzz::processEvents();
    return 0;
}
