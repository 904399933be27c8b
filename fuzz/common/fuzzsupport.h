#pragma once

#include <QByteArray>
#include <QList>
#include <QString>
#include <QVariant>

#include <cstddef>
#include <cstdint>

// The fuzz targets' entry point, as libFuzzer calls it and replay_main.cpp replays it.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size);

namespace PickerCtl::fuzz {

/// The input as a byte array (deep copy: targets may keep it past the call).
QByteArray bytes(const std::uint8_t *data, std::size_t size);

/// The input split into lines at '\n'; at most maxLines, the last one keeping the rest.
QList<QByteArray> lines(const std::uint8_t *data, std::size_t size, int maxLines);

/// The line at index, or an empty array past the end.
QByteArray lineAt(const QList<QByteArray> &lines, qsizetype index);

/**
 * A value of any type from a line of the input, tagged by its first two characters:
 * "" null, "i:" 64-bit integer, "u:" unsigned 64-bit, "d:" double, "f:" float (both accept
 * "nan" and "inf"), "b:" bool ("1" true), "s:" text, "y:" bytes, "c:" colour, "t:" font
 * (QFont::toString form), "D:" ISO date-time, "T:" date-time from milliseconds since the epoch with
 * an offset after a comma; anything else is text.
 */
QVariant variant(const QByteArray &line);

/// A QApplication on the offscreen platform, a non-blocking message service and application
/// services whose wait cursor does nothing, made once for the whole run (fuzzapp.cpp: the targets
/// that need widgets or a catalogue).
void ensureApplication();

/// Runs the event loop's pending work (deferred layouts, deleteLater) so it is fuzzed too.
void processEvents();

/// Aborts with the message when a property that must hold does not: libFuzzer reports it as a crash.
void require(bool condition, const char *what);

} // namespace PickerCtl::fuzz
