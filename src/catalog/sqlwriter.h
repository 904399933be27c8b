#pragma once

#include <PickerCtl/MemoryCatalog.h>

namespace PickerCtl {

class SqlConnection;

/**
 * Writes ownership changes and deletions of the in-memory catalogue back to its database, one
 * transaction per call. A deletion of a field that another user owns is refused unless the
 * current user is an administrator in the database; the refusal, like any failure, rolls the
 * whole call back and throws CatalogError.
 */
class SqlCatalogWriter : public CatalogWriter
{
public:
    explicit SqlCatalogWriter(std::shared_ptr<SqlConnection> connection);
    ~SqlCatalogWriter() override;

    void changeOwner(const QList<qint32> &fieldIds, qint32 ownerId) override;
    void deleteFields(const QList<qint32> &fieldIds) override;

private:
    bool isAdministrator(qint32 userId) const;

    std::shared_ptr<SqlConnection> m_connection;
};

} // namespace PickerCtl
