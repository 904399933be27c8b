#include "samplecatalog.h"

#include <QFile>
#include <QTemporaryDir>

namespace {
const auto SampleResource = QStringLiteral(":/pickerctl-gallery/sample-catalog.sqlite");
const auto SampleFileName = QStringLiteral("sample-catalog.sqlite");
}

QString extractSampleCatalog(const QTemporaryDir &dir)
{
    if (!dir.isValid())
        return {};
    const QString target = dir.filePath(SampleFileName);
    QFile::remove(target);
    if (!QFile::copy(SampleResource, target))
        return {};
    // Resource files come out read-only; the catalogue writes ownership changes and deletions back.
    QFile::setPermissions(target, QFile::ReadOwner | QFile::WriteOwner);
    return target;
}
