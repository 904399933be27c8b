#include "catalog/core/filereplacement.h"

#include <PickerCtl/CatalogError.h>

#include <QFile>
#include <QFileInfo>
#include <QTemporaryFile>

#include <cerrno>
#include <cstdio>
#include <cstring>

namespace PickerCtl {

namespace {
const auto TemporaryName = QStringLiteral("%1/.%2.XXXXXX");
const auto NoTemporary = QStringLiteral("\"%1\" cannot be written: no new file can be made in its folder (%2).");
const auto NoRename = QStringLiteral("\"%1\" could not be replaced (%2); it was left as it was.");
const auto Done = QStringLiteral("The new version of \"%1\" was already put in place.");
} // namespace

FileReplacement::FileReplacement(const QString &target) : m_target(target)
{
    const QFileInfo info(target);
    QTemporaryFile file(TemporaryName.arg(info.absolutePath(), info.fileName()));
    file.setAutoRemove(false);
    if (!file.open())
        throw CatalogError(NoTemporary.arg(target, file.errorString()));
    m_temporary = file.fileName();
}

FileReplacement::~FileReplacement()
{
    if (!m_committed)
        QFile::remove(m_temporary);
}

void FileReplacement::commit()
{
    if (m_committed)
        throw CatalogError(Done.arg(m_target));
    // The new file keeps the old one's permissions; a first one is readable by all, as files usually are.
    const QFileDevice::Permissions permissions = QFileInfo::exists(m_target)
        ? QFile::permissions(m_target)
        : QFileDevice::ReadOwner | QFileDevice::WriteOwner | QFileDevice::ReadGroup | QFileDevice::ReadOther;
    QFile::setPermissions(m_temporary, permissions);
    // rename() replaces the old file in one step: a reader sees either the old or the new one.
    if (std::rename(QFile::encodeName(m_temporary).constData(), QFile::encodeName(m_target).constData()) != 0) {
        const QString reason = QString::fromLocal8Bit(std::strerror(errno));
        QFile::remove(m_temporary);
        m_committed = true;
        throw CatalogError(NoRename.arg(m_target, reason));
    }
    m_committed = true;
}

} // namespace PickerCtl
