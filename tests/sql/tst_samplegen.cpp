// pickerctl-samplegen as its users run it: a failing run names what failed and leaves an existing
// catalogue file as it was; no run shows a password.
#include "sqlcatalog_helpers.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

using namespace PickerCtl::test;

namespace {

const QByteArray Previous = "the previous catalogue, whole";

struct Run
{
    int exitCode = -1;
    QString output;
};

Run samplegen(const QStringList &arguments)
{
    QProcess process;
    process.setProcessChannelMode(QProcess::MergedChannels);
    process.start(QStringLiteral(PICKERCTL_SAMPLEGEN), arguments);
    if (!process.waitForFinished(120000))
        return {};
    return {process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1,
            QString::fromLocal8Bit(process.readAll())};
}

} // namespace

class TestSamplegen : public QObject
{
    Q_OBJECT

private:
    QTemporaryDir m_dir;
    CatalogueStores m_stores;

private slots:
    void cleanupTestCase()
    {
        m_stores.stop();
    }

    void shouldNameWhatFailedAndKeepTheOldFile_data()
    {
        QTest::addColumn<QString>("option");
        QTest::addColumn<QString>("named");
        QTest::newRow("counter list missing") << QStringLiteral("--counters") << QStringLiteral("counter list");
        QTest::newRow("expression list missing") << QStringLiteral("--kpis") << QStringLiteral("expression list");
    }

    void shouldNameWhatFailedAndKeepTheOldFile()
    {
        QFETCH(QString, option);
        QFETCH(QString, named);
        // Given an existing output file
        const QString out = m_dir.filePath(QStringLiteral("catalog.sqlite"));
        {
            QFile file(out);
            QVERIFY(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
            QVERIFY(file.write(Previous) == Previous.size());
        }
        const QString missing = m_dir.filePath(QStringLiteral("absent.csv"));

        // When the generator runs with a list that is not there
        const Run run = samplegen({QStringLiteral("--fields"), QStringLiteral("100"), option, missing,
                                   QStringLiteral("--out"), out});

        // Then it fails naming that list, and the old file is whole, with nothing left beside it
        QCOMPARE(run.exitCode, 1);
        QVERIFY2(run.output.contains(named) && run.output.contains(missing), qPrintable(run.output));
        QFile file(out);
        QVERIFY(file.open(QIODevice::ReadOnly));
        QCOMPARE(file.readAll(), Previous);
        QCOMPARE(QDir(m_dir.path()).entryList({QStringLiteral(".catalog.sqlite*")}, QDir::Files | QDir::Hidden),
                 QStringList());
    }

    void shouldNeverShowThePassword()
    {
        // Given a catalogue database on a server, When the generator writes into it and reports
        QVERIFY2(!m_stores.fresh(PostgresStore).isEmpty(), qPrintable(m_stores.error()));
        const QString location = m_stores.postgres().location(QStringLiteral("catalog"));
        const Run written = samplegen({QStringLiteral("--fields"), QStringLiteral("100"), QStringLiteral("--out"), location});
        // And when it fails on an unknown database
        const Run failed = samplegen({QStringLiteral("--fields"), QStringLiteral("100"), QStringLiteral("--out"),
                                      m_stores.postgres().location(QStringLiteral("absent"))});

        // Then neither output shows the password
        QCOMPARE(written.exitCode, 0);
        QVERIFY2(written.output.contains(QLatin1String("****")), qPrintable(written.output));
        QVERIFY2(!written.output.contains(QLatin1String("secret")), qPrintable(written.output));
        QVERIFY(failed.exitCode != 0);
        QVERIFY2(!failed.output.contains(QLatin1String("secret")), qPrintable(failed.output));
    }
};

QTEST_GUILESS_MAIN(TestSamplegen)
#include "tst_samplegen.moc"
