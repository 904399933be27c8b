#include "postgres_helpers.h"

#include <QCollator>
#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QProcess>
#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>

#include <arpa/inet.h>
#include <netinet/in.h>
#include <pwd.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>

namespace PickerCtl::test {

namespace {

const auto InstallRoot = QStringLiteral("/usr/lib/postgresql");
const auto ServerUser = "postgres";
const auto Role = QStringLiteral("picker");
const auto Password = QStringLiteral("secret");
const auto Host = QStringLiteral("127.0.0.1");
const auto Admin = QStringLiteral("pickerctl-test-admin");
constexpr int CommandTimeoutMs = 60000;

/// The newest version's bin folder with initdb and pg_ctl, or "".
QString serverPrograms()
{
    QStringList versions = QDir(InstallRoot).entryList(QDir::Dirs | QDir::NoDotAndDotDot);
    QCollator numeric;
    numeric.setNumericMode(true);
    std::sort(versions.begin(), versions.end(), [&](const QString &a, const QString &b) { return numeric.compare(a, b) > 0; });
    for (const QString &version : versions) {
        const QString bin = QStringLiteral("%1/%2/bin").arg(InstallRoot, version);
        if (QFile::exists(bin + QStringLiteral("/initdb")) && QFile::exists(bin + QStringLiteral("/pg_ctl")))
            return bin;
    }
    return QString();
}

/// A port of 127.0.0.1 that nothing listens on now.
int freePort()
{
    const int fd = ::socket(AF_INET, SOCK_STREAM, 0);
    if (fd < 0)
        return 0;
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    address.sin_port = 0;
    socklen_t size = sizeof address;
    int port = 0;
    if (::bind(fd, reinterpret_cast<sockaddr *>(&address), size) == 0
        && ::getsockname(fd, reinterpret_cast<sockaddr *>(&address), &size) == 0)
        port = ntohs(address.sin_port);
    ::close(fd);
    return port;
}

} // namespace

PostgresCluster::~PostgresCluster()
{
    stop();
}

bool PostgresCluster::run(const QString &program, const QStringList &arguments, int timeoutMs)
{
    QProcess process;
    process.setProcessChannelMode(QProcess::MergedChannels);
    if (m_runAs.isEmpty())
        process.start(m_bin + QLatin1Char('/') + program, arguments);
    else
        process.start(QStringLiteral("runuser"),
                      QStringList{QStringLiteral("-u"), m_runAs, QStringLiteral("--"), m_bin + QLatin1Char('/') + program}
                          + arguments);
    const bool finished = process.waitForFinished(timeoutMs);
    if (finished && process.exitStatus() == QProcess::NormalExit && process.exitCode() == 0)
        return true;
    m_error = QStringLiteral("%1 failed: %2 %3").arg(program, process.errorString(),
                                                    QString::fromLocal8Bit(process.readAll()).trimmed());
    if (!finished)
        process.kill();
    return false;
}

bool PostgresCluster::start()
{
    if (m_running)
        return true;
    m_bin = serverPrograms();
    if (m_bin.isEmpty()) {
        m_error = QStringLiteral("The PostgreSQL server programs (initdb, pg_ctl) are not installed under "
                                 "%1/<version>/bin; run scripts/setup.").arg(InstallRoot);
        return false;
    }
    m_dir = std::make_unique<QTemporaryDir>();
    if (!m_dir->isValid()) {
        m_error = QStringLiteral("No temporary folder for the cluster: %1").arg(m_dir->errorString());
        return false;
    }
    if (::geteuid() == 0) {
        const passwd *user = ::getpwnam(ServerUser);
        if (!user) {
            m_error = QStringLiteral("initdb refuses root, and there is no system user \"%1\" to run the "
                                     "server as; run scripts/setup.").arg(QLatin1String(ServerUser));
            return false;
        }
        if (::chown(QFile::encodeName(m_dir->path()).constData(), user->pw_uid, user->pw_gid) != 0) {
            m_error = QStringLiteral("The cluster folder cannot be given to \"%1\".").arg(QLatin1String(ServerUser));
            return false;
        }
        m_runAs = QLatin1String(ServerUser);
    }
    watchForAbruptEnd();
    QFile passwordFile(m_dir->filePath(QStringLiteral("password")));
    if (!passwordFile.open(QIODevice::WriteOnly) || passwordFile.write(Password.toUtf8()) < 0) {
        m_error = QStringLiteral("The password file cannot be written.");
        return false;
    }
    passwordFile.close();
    passwordFile.setPermissions(QFileDevice::ReadOwner | QFileDevice::ReadOther);
    if (!run(QStringLiteral("initdb"),
             {QStringLiteral("-D"), m_dir->filePath(QStringLiteral("data")), QStringLiteral("-U"), Role,
              QStringLiteral("--pwfile=%1").arg(passwordFile.fileName()), QStringLiteral("-A"),
              QStringLiteral("scram-sha-256"), QStringLiteral("-E"), QStringLiteral("UTF8"),
              QStringLiteral("--locale=C"), QStringLiteral("--no-sync")},
             CommandTimeoutMs))
        return false;
    m_port = freePort();
    return startServer();
}

// A test process that is killed or crashes runs no destructor; a watcher of its own then stops the
// server and removes the cluster, so no server outlives its test.
void PostgresCluster::watchForAbruptEnd()
{
    const QString stop = QStringLiteral("%1%2/pg_ctl -D %3/data -m immediate -w stop")
                             .arg(m_runAs.isEmpty() ? QString() : QStringLiteral("runuser -u %1 -- ").arg(m_runAs),
                                  m_bin, m_dir->path());
    const QString script = QStringLiteral(
        "while [ -d /proc/%1 ]; do sleep 1; done; "
        "if [ -f %2/data/postmaster.pid ]; then %3 >/dev/null 2>&1; fi; rm -rf %2")
                               .arg(QCoreApplication::applicationPid())
                               .arg(m_dir->path(), stop);
    QProcess::startDetached(QStringLiteral("sh"), {QStringLiteral("-c"), script});
}

bool PostgresCluster::startServer()
{
    // Durability is of no use to a throwaway cluster; the socket file stays in the cluster's folder.
    const QString options = QStringLiteral("-h %1 -p %2 -k %3 -F -c full_page_writes=off -c synchronous_commit=off")
                                .arg(Host).arg(m_port).arg(m_dir->path());
    m_running = run(QStringLiteral("pg_ctl"),
                    {QStringLiteral("-D"), m_dir->filePath(QStringLiteral("data")), QStringLiteral("-l"),
                     m_dir->filePath(QStringLiteral("server.log")), QStringLiteral("-o"), options,
                     QStringLiteral("-w"), QStringLiteral("-t"), QStringLiteral("30"), QStringLiteral("start")},
                    CommandTimeoutMs);
    return m_running;
}

void PostgresCluster::stop()
{
    if (!m_running)
        return;
    run(QStringLiteral("pg_ctl"),
        {QStringLiteral("-D"), m_dir->filePath(QStringLiteral("data")), QStringLiteral("-m"),
         QStringLiteral("immediate"), QStringLiteral("-w"), QStringLiteral("stop")},
        CommandTimeoutMs);
    m_running = false;
}

bool PostgresCluster::restart()
{
    stop();
    return startServer();
}

bool PostgresCluster::createDatabase(const QString &name)
{
    bool made = false;
    {
        QSqlDatabase db = QSqlDatabase::addDatabase(QStringLiteral("QPSQL"), Admin);
        db.setHostName(Host);
        db.setPort(m_port);
        db.setUserName(Role);
        db.setPassword(Password);
        db.setDatabaseName(QStringLiteral("postgres"));
        if (!db.open()) {
            m_error = db.lastError().text();
        } else {
            QSqlQuery query(db);
            made = query.exec(QStringLiteral("CREATE DATABASE \"%1\"").arg(name));
            if (!made)
                m_error = query.lastError().text();
        }
    }
    QSqlDatabase::removeDatabase(Admin);
    return made;
}

QString PostgresCluster::location(const QString &database) const
{
    return QStringLiteral("postgresql://%1:%2@%3:%4/%5").arg(Role, Password, Host).arg(m_port).arg(database);
}

} // namespace PickerCtl::test
