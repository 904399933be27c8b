#pragma once

#include <PickerCtl/FieldClipData.h>

#include <QList>
#include <QString>
#include <memory>
#include <optional>

class QMimeData;

namespace PickerCtl {

/**
 * The process-wide registry of named clipboard formats. The first name registered gets 0xC000,
 * each new name the next id; the same name (exact) always gets the same id. Thread-safe.
 */
class PICKERCTL_EXPORT ClipboardFormats
{
public:
    /// Id of the format name; 0 for an empty name or when the id range is used up.
    static quint16 Register(const QString &name);
    /// Name registered under id, or empty.
    static QString Name(quint16 id);
};

/// The first id the registry hands out.
inline constexpr quint16 FirstClipboardFormatId = 0xC000;

/// Id of the calling thread (the user-interface thread when a control asks), printable in decimal.
PICKERCTL_EXPORT quint64 currentThreadId();

/// "App:Editor:1234": the clipboard format name private to one application thread.
PICKERCTL_EXPORT QString clipboardFormatName(const QString &appName, const QString &editorName,
                                             quint64 threadId);

/// MIME type of the field payload under a format name: "application/x-pickerctl-fields;format=<name>".
PICKERCTL_EXPORT QString fieldMimeType(const QString &formatName);

/// A field as the payload carries it.
struct FieldRef
{
    qint32 id = 0;
    QString key;
    friend bool operator==(const FieldRef &, const FieldRef &) = default;
};

/**
 * Renders the payload for the clipboard or a drag:
 * - fieldMimeType(name of data.FormatId()): binary, little-endian: magic "PCFD", version (uint16)
 *   1, count (uint32), then per field its id (int32), its key length in UTF-16 units (uint32) and
 *   the key (UTF-16LE); offered only when the format id is registered;
 * - "text/plain": the field names, one a line;
 * - "text/csv": a header row "Key,Name,Category,Technology,Type,Owner" and one row per field,
 *   quoted as RFC 4180.
 */
PICKERCTL_EXPORT std::unique_ptr<QMimeData> renderFieldClipData(const FieldClipData &data);

/// Reads the field references offered under formatName; nullopt for a missing, foreign or broken payload.
PICKERCTL_EXPORT std::optional<QList<FieldRef>> decodeFieldRefs(const QMimeData *mime,
                                                                const QString &formatName);
/// As decodeFieldRefs, the ids only.
PICKERCTL_EXPORT std::optional<QList<qint32>> decodeFieldIds(const QMimeData *mime,
                                                            const QString &formatName);

/// Puts the rendering of data on the application clipboard; an empty payload leaves it unchanged.
/// Returns whether anything was put.
PICKERCTL_EXPORT bool copyToClipboard(const FieldClipData &data);

} // namespace PickerCtl
