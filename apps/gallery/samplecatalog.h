#pragma once

#include <QString>

class QTemporaryDir;

/// Copies the sample catalogue built into the gallery to a file in dir (SQLite cannot open a
/// resource) and returns its path; an empty string when the copy failed.
QString extractSampleCatalog(const QTemporaryDir &dir);
