#include "samplecatalog.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <QStandardPaths>

namespace {
const auto SampleResource = QStringLiteral(":/pickerctl-gallery/sample-catalog.sqlite");
const auto SampleFileName = QStringLiteral("sample-catalog-%1.sqlite");
// Enough of the content hash to tell two samples apart.
constexpr int HashDigits = 12;
} // namespace

QString sampleCatalogPath()
{
    QFile resource(SampleResource);
    if (!resource.open(QIODevice::ReadOnly))
        return {};
    QCryptographicHash hash(QCryptographicHash::Sha256);
    hash.addData(&resource);
    const QString folder = QStandardPaths::writableLocation(QStandardPaths::AppDataLocation);
    if (folder.isEmpty())
        return {};
    return QDir(folder).filePath(SampleFileName.arg(QString::fromLatin1(hash.result().toHex().left(HashDigits))));
}

QString extractSampleCatalog(bool fresh)
{
    const QString target = sampleCatalogPath();
    if (target.isEmpty())
        return {};
    if (!fresh && QFileInfo::exists(target))
        return target;
    if (!QDir().mkpath(QFileInfo(target).absolutePath()))
        return {};
    QFile resource(SampleResource);
    if (!resource.open(QIODevice::ReadOnly))
        return {};
    // Written whole beside the old copy and renamed over it, so a failed copy leaves the old one.
    QSaveFile copy(target);
    if (!copy.open(QIODevice::WriteOnly) || copy.write(resource.readAll()) != resource.size() || !copy.commit())
        return {};
    // SQLite keeps a rolled-back journal beside the file; it belongs to the replaced copy.
    QFile::remove(target + QStringLiteral("-journal"));
    return target;
}
