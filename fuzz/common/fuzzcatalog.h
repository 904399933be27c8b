#pragma once

#include <PickerCtl/MemoryCatalog.h>

#include <QByteArray>
#include <QString>

namespace PickerCtl::fuzz {

/// Reads everything a loaded catalogue offers, as the controls would, so that a damaged value that
/// slipped through the loader shows up here.
void exerciseCatalog(MemoryCatalog &catalog);

/// Path of a scratch SQLite file in a folder private to the run; rewrite() replaces its content
/// (and any journal left beside it).
class ScratchFile
{
public:
    explicit ScratchFile(const QString &name);
    const QString &path() const { return m_path; }
    void rewrite(const QByteArray &content) const;

private:
    QString m_path;
};

/// Opens the SQLite catalogue at path: a catalogue on success, nullptr when it was refused with a
/// CatalogError. Any other failure escapes and ends the run as a crash.
std::shared_ptr<MemoryCatalog> openCatalog(const QString &path);

} // namespace PickerCtl::fuzz
