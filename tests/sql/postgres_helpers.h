#pragma once

#include <QString>
#include <QTemporaryDir>

#include <memory>

namespace PickerCtl::test {

/**
 * A PostgreSQL server of its own for one test run: a new cluster in a temporary folder, listening
 * on a free port of 127.0.0.1 only, with the user "picker" trusted. initdb refuses to run as root,
 * so under root the server runs as the unprivileged system user "postgres" (which then owns the
 * folder). The server programs are found under /usr/lib/postgresql/<version>/bin, the newest
 * version first. The server is stopped by stop() or when the object goes, and by a watcher
 * process when the test process ends without either (killed or crashed).
 */
class PostgresCluster
{
public:
    PostgresCluster() = default;
    ~PostgresCluster();
    PostgresCluster(const PostgresCluster &) = delete;
    PostgresCluster &operator=(const PostgresCluster &) = delete;

    /// Starts the server unless it runs; false with the reason in error() when it cannot.
    bool start();
    /// Stops the server at once (no clean shutdown needed for a throwaway cluster).
    void stop();
    /// Stops and starts the server on the same port, as a server restart does to its clients.
    bool restart();
    bool isRunning() const { return m_running; }
    QString error() const { return m_error; }

    /// A new, empty database; false with the reason in error() when it cannot be made.
    bool createDatabase(const QString &name);
    /// The catalogue location of a database of this server.
    QString location(const QString &database) const;

private:
    bool run(const QString &program, const QStringList &arguments, int timeoutMs);
    bool startServer();
    void watchForAbruptEnd();

    std::unique_ptr<QTemporaryDir> m_dir;
    QString m_bin;
    QString m_runAs;        ///< the system user the server runs as; empty: the current user
    int m_port = 0;
    bool m_running = false;
    QString m_error;
};

} // namespace PickerCtl::test
