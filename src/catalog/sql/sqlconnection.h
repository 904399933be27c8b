#pragma once

#include "catalog/sql/sqllocation.h"

#include <PickerCtl/CatalogError.h>
#include <PickerCtl/pickerctl_export.h>

#include <QSqlDatabase>
#include <QSqlQuery>

namespace PickerCtl {

/// One open database connection of its own (a uniquely named QSqlDatabase), closed and
/// unregistered when the object goes. Belongs to the thread that opened it.
class PICKERCTL_AUTOTEST_EXPORT SqlConnection
{
public:
    enum class Mode {
        Existing,   ///< the catalogue must be there
        Build       ///< a new catalogue written in one go (an SQLite file of its own): bulk-loading settings
    };

    /// How long a statement waits for another client's lock on an SQLite file before it fails.
    static constexpr int BusyTimeoutMs = 5000;

    /// Opens the location; throws CatalogError with the reason when it cannot.
    SqlConnection(const SqlLocation &location, Mode mode);
    ~SqlConnection();
    SqlConnection(const SqlConnection &) = delete;
    SqlConnection &operator=(const SqlConnection &) = delete;

    const SqlLocation &location() const { return m_location; }
    QSqlDatabase database() const;
    bool isSqlite() const { return m_location.kind == SqlLocation::Kind::SQLite; }

    /// A forward-only statement prepared on this connection; throws CatalogError when it fails.
    QSqlQuery prepare(const QString &sql) const;
    /// Runs a statement without results; throws CatalogError when it fails.
    void run(const QString &sql) const;
    /// Runs a statement as it stands (nothing prepared) and hands it back for its results or row
    /// count; throws CatalogError when it fails.
    QSqlQuery execute(const QString &sql) const;
    /// Runs a prepared statement; throws CatalogError when it fails.
    void exec(QSqlQuery &query) const;
    /// Throws CatalogError when the last step of the query failed (after a loop over next()).
    void checkDone(const QSqlQuery &query) const;

    /// Opens a server connection again when the server dropped it (a restart), once; throws
    /// CatalogError when it cannot. An SQLite file needs nothing.
    void reconnectIfLost();

    /// A CatalogError that names the catalogue and what the database reported.
    [[nodiscard]] CatalogError failure(const QString &what) const;

private:
    void openSqlite(Mode mode);
    void openPostgres();

    SqlLocation m_location;
    QString m_name;
};

/// A transaction that rolls back unless committed, so every failing path leaves the store as it was.
/// On an SQLite file it takes the write lock at once (BEGIN IMMEDIATE): two clients that both read
/// first and then write would otherwise deadlock, and one of them fails as "database is locked".
class SqlTransaction
{
public:
    explicit SqlTransaction(const SqlConnection &connection);
    ~SqlTransaction();
    SqlTransaction(const SqlTransaction &) = delete;
    SqlTransaction &operator=(const SqlTransaction &) = delete;

    void commit();

private:
    const SqlConnection &m_connection;
    bool m_open = true;
};

} // namespace PickerCtl
