#pragma once

#include <QString>

namespace PickerCtl {

/**
 * A new version of a file written beside it: the new content goes to a temporary file in the same
 * folder, which replaces the old file in one rename only when it is complete. Until then the old
 * file stays as it was; a replacement that is not committed removes its temporary file.
 */
class FileReplacement
{
public:
    /// Reserves the temporary file beside the target; throws CatalogError when the folder does not
    /// take one (missing or not writable).
    explicit FileReplacement(const QString &target);
    ~FileReplacement();
    FileReplacement(const FileReplacement &) = delete;
    FileReplacement &operator=(const FileReplacement &) = delete;

    /// Where the new content is written.
    QString temporaryPath() const { return m_temporary; }

    /// Puts the new file in the old one's place; throws CatalogError (and removes the temporary
    /// file) when it cannot, leaving the old file untouched.
    void commit();

private:
    QString m_target;
    QString m_temporary;
    bool m_committed = false;
};

} // namespace PickerCtl
