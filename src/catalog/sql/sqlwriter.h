#pragma once

#include <PickerCtl/MemoryCatalog.h>
#include <PickerCtl/pickerctl_export.h>

namespace PickerCtl {

class SqlConnection;
struct FieldRights;

/**
 * Writes ownership changes and deletions of the in-memory catalogue back to its database, one
 * transaction per call, the ids in batches. Inside the transaction the store checks the ownership
 * rule again against its own users table and the rows as they are now (locked on a server), so
 * another client's change in between cannot slip past it. A refusal, a field that is no longer
 * there and any failure roll the whole call back and throw CatalogError. A server connection that
 * was lost is opened again before each call.
 */
class PICKERCTL_AUTOTEST_EXPORT SqlCatalogWriter : public CatalogWriter
{
public:
    explicit SqlCatalogWriter(std::shared_ptr<SqlConnection> connection);
    ~SqlCatalogWriter() override;

    void changeOwner(const QList<qint32> &fieldIds, qint32 ownerId) override;
    void deleteFields(const QList<qint32> &fieldIds) override;
    std::optional<QHash<qint32, qint32>> storedOwners() override;

private:
    /// The logged-in user's rights as the store records them, never more than the session grants.
    FieldRights storedRights() const;
    bool userExists(qint32 userId) const;

    std::shared_ptr<SqlConnection> m_connection;
};

} // namespace PickerCtl
