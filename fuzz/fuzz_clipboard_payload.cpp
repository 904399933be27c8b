// The field payload that arrives on the clipboard or in a drop, from any application.
#include "fuzzsupport.h"

#include "widgets/clipboardpayload.h"

#include <PickerCtl/FieldClipboard.h>

#include <QMimeData>

using namespace PickerCtl;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const QByteArray payload = fuzz::bytes(data, size);

    const std::optional<QList<FieldRef>> refs = decodeFieldPayload(payload);
    // A payload that reads is one the encoder writes, byte for byte: nothing is guessed or dropped.
    if (refs)
        fuzz::require(encodeFieldPayload(*refs) == payload, "a decoded payload encodes back to itself");

    // The same bytes as a drop or a paste offers them.
    const QString format = QStringLiteral("Fuzz:Editor:1");
    QMimeData mime;
    mime.setData(fieldMimeType(format), payload);
    const std::optional<QList<qint32>> ids = decodeFieldIds(&mime, format);
    fuzz::require(ids.has_value() == refs.has_value(), "the drop path accepts what the payload reader does");
    if (refs) {
        for (const FieldRef &ref : *refs)
            csvCell(ref.key);
    }
    return 0;
}
