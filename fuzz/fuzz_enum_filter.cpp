// An enumeration filter as a host loads it into XEnumFilter, with the value list a catalogue hands
// out, one a line: the stored selection, the value names, the value codes (both joined by ",", as a
// catalogue's PropertyFilter gives them) and the list-view properties' title.
#include "fuzzsupport.h"

#include <PickerCtl/EnumFilterValue.h>
#include <PickerCtl/ListViewProperties.h>
#include <PickerCtl/PropertyFilter.h>
#include <PickerCtl/XEnumFilter.h>

using namespace PickerCtl;

namespace {

/// A catalogue's description of the values, taken from the input as it stands.
class ForeignValues : public PropertyFilter
{
public:
    ForeignValues(QString names, QString codes)
        : m_names(std::move(names))
        , m_codes(std::move(codes))
    {
    }
    QString ValueNames(const std::shared_ptr<ListViewProperties> &, const QString &) const override
    {
        return m_names;
    }
    QString ValueCodes(const std::shared_ptr<ListViewProperties> &, const QString &) const override
    {
        return m_codes;
    }

private:
    QString m_names;
    QString m_codes;
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    fuzz::ensureApplication();
    const QList<QByteArray> lines = fuzz::lines(data, size, 4);
    const auto text = [&lines](int index) { return QString::fromUtf8(fuzz::lineAt(lines, index)); };

    auto selection = std::make_shared<EnumFilterValue>();
    selection->setSelection(text(0));
    auto properties = std::make_shared<ListViewProperties>();
    properties->setTitle(text(3));
    XEnumFilter editor;
    editor.SetFilter(selection, QStringLiteral("Reports"), properties,
                     std::make_shared<ForeignValues>(text(1), text(2)));
    fuzz::require(!editor.IsModified(), "loading a value is no edit");
    editor.IsValid();
    editor.GetFilter();
    editor.grab();
    fuzz::processEvents();
    editor.Clear();
    return 0;
}
