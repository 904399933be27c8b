#pragma once

#include <PickerCtl/FieldClipboard.h>
#include <PickerCtl/pickerctl_export.h>

#include <QByteArray>

namespace PickerCtl {

/// The binary field payload: magic "PCFD", version, count, then id, key length and UTF-16LE key
/// per field, all little-endian.
PICKERCTL_AUTOTEST_EXPORT
QByteArray encodeFieldPayload(const QList<FieldRef> &fields);

/// Reads a payload written by encodeFieldPayload. Every size is checked against the bytes that
/// are really there before anything is allocated, so a foreign or hostile payload is refused
/// (nullopt) without a crash or a huge allocation.
PICKERCTL_AUTOTEST_EXPORT
std::optional<QList<FieldRef>> decodeFieldPayload(const QByteArray &bytes);

/// One CSV cell, quoted as RFC 4180 asks when it holds a comma, a quote, a line break or
/// surrounding blanks.
PICKERCTL_AUTOTEST_EXPORT
QString csvCell(const QString &text);

} // namespace PickerCtl
