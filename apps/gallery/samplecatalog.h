#pragma once

#include <QString>

/// Where the gallery keeps its working copy of the built-in sample catalogue: a file in the user's
/// application data folder, named after the sample's content, so that deletions and ownership
/// changes made in the gallery are still there at its next start, and a build with another sample
/// starts from a fresh copy.
QString sampleCatalogPath();

/// Returns the working copy's path, copying the built-in sample there first when there is no copy
/// yet or when fresh is set (SQLite cannot open a resource); an empty string when that failed.
QString extractSampleCatalog(bool fresh);
