#include "catalog/sql/sqlconnection.h"

#include <QAtomicInt>
#include <QFileInfo>
#include <QSqlError>

namespace PickerCtl {

namespace {

const auto SqliteDriver = QStringLiteral("QSQLITE");
const auto PostgresDriver = QStringLiteral("QPSQL");
const auto ConnectionPrefix = QStringLiteral("pickerctl-catalog-%1");
// A server that does not answer must not hang the application.
// Notices (such as "table does not exist, skipping") are no business of the host's error output.
const auto PostgresOptions = QStringLiteral("connect_timeout=5;options='-c client_min_messages=warning'");
const auto NoDriver = QStringLiteral(
    "The catalogue \"%1\" cannot be opened: Qt's %2 database driver is not installed (%3).");
const auto SqlitePackage = QStringLiteral("package libqt6sql6-sqlite");
const auto PostgresPackage = QStringLiteral("package libqt6sql6-psql");
const auto NoFile = QStringLiteral("The catalogue file \"%1\" does not exist.");
const auto NotAFile = QStringLiteral("The catalogue \"%1\" is not a file.");
const auto OpenFailed = QStringLiteral("The catalogue \"%1\" could not be opened: %2");
const auto Failure = QStringLiteral("Catalogue \"%1\": %2");
const auto DatabaseSays = QStringLiteral("%1 (%2)");
const auto BeginFailed = QStringLiteral("a transaction could not be started");
const auto CommitFailed = QStringLiteral("the changes could not be committed");
const auto Reconnect = QStringLiteral("the connection to the server was lost and could not be opened again: %1");
const auto SqliteOptions = QStringLiteral("QSQLITE_BUSY_TIMEOUT=%1");
const auto Ping = QStringLiteral("SELECT 1");
const auto BeginImmediate = QStringLiteral("BEGIN IMMEDIATE");
const auto Commit = QStringLiteral("COMMIT");
const auto Rollback = QStringLiteral("ROLLBACK");
const auto ForeignKeysOn = QStringLiteral("PRAGMA foreign_keys = ON");
// A new catalogue is written in one go; a crash just means writing it again.
const auto FastJournal = QStringLiteral("PRAGMA journal_mode = MEMORY");
const auto NoSync = QStringLiteral("PRAGMA synchronous = OFF");

QString nextConnectionName()
{
    static QAtomicInt counter;
    return ConnectionPrefix.arg(counter.fetchAndAddRelaxed(1));
}

QString driverText(const QSqlError &error)
{
    const QString text = error.databaseText().isEmpty() ? error.text() : error.databaseText();
    return text.trimmed();
}

} // namespace

SqlConnection::SqlConnection(const SqlLocation &location, Mode mode)
    : m_location(location), m_name(nextConnectionName())
{
    try {
        if (isSqlite())
            openSqlite(mode);
        else
            openPostgres();
    } catch (...) {
        QSqlDatabase::removeDatabase(m_name);
        throw;
    }
}

SqlConnection::~SqlConnection()
{
    {
        QSqlDatabase db = QSqlDatabase::database(m_name, false);
        db.close();
    }
    QSqlDatabase::removeDatabase(m_name);
}

void SqlConnection::openSqlite(Mode mode)
{
    if (!QSqlDatabase::isDriverAvailable(SqliteDriver))
        throw CatalogError(NoDriver.arg(m_location.display, SqliteDriver, SqlitePackage));
    const QFileInfo file(m_location.path);
    if (mode == Mode::Existing) {
        // SQLite would quietly create a missing file; an absent catalogue is an error here.
        if (!file.exists())
            throw CatalogError(NoFile.arg(m_location.display));
        if (!file.isFile())
            throw CatalogError(NotAFile.arg(m_location.display));
    }

    QSqlDatabase db = QSqlDatabase::addDatabase(SqliteDriver, m_name);
    db.setDatabaseName(m_location.path);
    db.setConnectOptions(SqliteOptions.arg(BusyTimeoutMs));
    if (!db.open())
        throw CatalogError(OpenFailed.arg(m_location.display, driverText(db.lastError())));
    if (mode == Mode::Build) {
        // Bulk writing checks no references row by row; the reader rejects a catalogue whose
        // fields name no category, and the builder writes parents first anyway.
        run(FastJournal);
        run(NoSync);
    } else {
        run(ForeignKeysOn);
    }
}

void SqlConnection::openPostgres()
{
    if (!QSqlDatabase::isDriverAvailable(PostgresDriver))
        throw CatalogError(NoDriver.arg(m_location.display, PostgresDriver, PostgresPackage));
    QSqlDatabase db = QSqlDatabase::addDatabase(PostgresDriver, m_name);
    db.setHostName(m_location.host);
    if (m_location.port > 0)
        db.setPort(m_location.port);
    db.setUserName(m_location.user);
    db.setPassword(m_location.password);
    db.setDatabaseName(m_location.database);
    db.setConnectOptions(PostgresOptions);
    if (!db.open())
        throw CatalogError(OpenFailed.arg(m_location.display, driverText(db.lastError())));
}

QSqlDatabase SqlConnection::database() const
{
    return QSqlDatabase::database(m_name, false);
}

QSqlQuery SqlConnection::prepare(const QString &sql) const
{
    QSqlQuery query(database());
    query.setForwardOnly(true);
    if (!query.prepare(sql))
        throw failure(driverText(query.lastError()));
    return query;
}

void SqlConnection::run(const QString &sql) const
{
    QSqlQuery query(database());
    if (!query.exec(sql))
        throw failure(driverText(query.lastError()));
}

QSqlQuery SqlConnection::execute(const QString &sql) const
{
    QSqlQuery query(database());
    query.setForwardOnly(true);
    if (!query.exec(sql))
        throw failure(driverText(query.lastError()));
    return query;
}

void SqlConnection::exec(QSqlQuery &query) const
{
    if (!query.exec())
        throw failure(driverText(query.lastError()));
}

void SqlConnection::checkDone(const QSqlQuery &query) const
{
    if (query.lastError().isValid())
        throw failure(driverText(query.lastError()));
}

void SqlConnection::reconnectIfLost()
{
    if (isSqlite())
        return;
    QSqlDatabase db = database();
    if (db.isOpen()) {
        QSqlQuery ping(db);
        if (ping.exec(Ping))
            return;
    }
    // A restarted server has dropped this connection for good; the driver would keep answering
    // "Database not open" or the like until it is opened again.
    db.close();
    if (!db.open())
        throw failure(Reconnect.arg(driverText(db.lastError())));
}

CatalogError SqlConnection::failure(const QString &what) const
{
    return CatalogError(Failure.arg(m_location.display, what));
}

SqlTransaction::SqlTransaction(const SqlConnection &connection) : m_connection(connection)
{
    if (m_connection.isSqlite()) {
        QSqlQuery begin(m_connection.database());
        if (!begin.exec(BeginImmediate))
            throw m_connection.failure(DatabaseSays.arg(BeginFailed, driverText(begin.lastError())));
        return;
    }
    QSqlDatabase db = m_connection.database();
    if (!db.transaction())
        throw m_connection.failure(DatabaseSays.arg(BeginFailed, driverText(db.lastError())));
}

SqlTransaction::~SqlTransaction()
{
    if (!m_open)
        return;
    if (m_connection.isSqlite())
        QSqlQuery(m_connection.database()).exec(Rollback);
    else
        m_connection.database().rollback();
}

void SqlTransaction::commit()
{
    if (m_connection.isSqlite()) {
        QSqlQuery end(m_connection.database());
        if (!end.exec(Commit))
            throw m_connection.failure(DatabaseSays.arg(CommitFailed, driverText(end.lastError())));
    } else {
        QSqlDatabase db = m_connection.database();
        if (!db.commit())
            throw m_connection.failure(DatabaseSays.arg(CommitFailed, driverText(db.lastError())));
    }
    m_open = false;
}

} // namespace PickerCtl
