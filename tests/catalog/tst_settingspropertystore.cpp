// The settings-file store: every change is in the file at once, and a change that cannot be
// written is reported, leaves the file as it was and is taken back in the store too.
#include <PickerCtl/CatalogError.h>
#include <PickerCtl/SettingsPropertyStore.h>

#include <QDir>
#include <QFile>
#include <QSettings>
#include <QTemporaryDir>
#include <QTest>

using namespace PickerCtl;

namespace {

const auto Layout = QStringLiteral("Express Available Properties");
const auto Saved = QStringLiteral("Name:120,Type:80");

std::unique_ptr<QSettings> settingsAt(const QString &file)
{
    return std::make_unique<QSettings>(file, QSettings::IniFormat);
}

bool makeFile(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write("not a folder") > 0;
}

} // namespace

class TestSettingsPropertyStore : public QObject
{
    Q_OBJECT

private:
    QTemporaryDir m_dir;

private slots:
    void shouldHaveEveryChangeInTheFileAtOnce()
    {
        // Given a store on a settings file
        const QString file = m_dir.filePath(QStringLiteral("at-once.ini"));
        SettingsPropertyStore store(settingsAt(file), QStringLiteral("Picker"));

        // When a layout is saved and another setting removed
        store.SetItem(Layout, Saved);
        store.SetItem(QStringLiteral("Full Row Selection"), true);
        store.Remove(QStringLiteral("Full Row Selection"));

        // Then another reader of the file sees it while the store still lives
        QSettings reader(file, QSettings::IniFormat);
        QCOMPARE(reader.value(QStringLiteral("Picker/") + Layout).toString(), Saved);
        QVERIFY(!reader.contains(QStringLiteral("Picker/Full Row Selection")));
    }

    void shouldReportAChangeThatCannotBeWrittenAndKeepWhatWasThere_data()
    {
        QTest::addColumn<QString>("fault");
        QTest::newRow("the file's folder is a file") << QStringLiteral("folder is a file");
        QTest::newRow("the file is a folder") << QStringLiteral("file is a folder");
        QTest::newRow("the folder went away after a good save") << QStringLiteral("folder gone");
    }

    void shouldReportAChangeThatCannotBeWrittenAndKeepWhatWasThere()
    {
        QFETCH(QString, fault);
        const QString place = m_dir.filePath(QTest::currentDataTag()).replace(QLatin1Char(' '), QLatin1Char('-'));
        QVERIFY(QDir().mkpath(place));
        QString file = place + QStringLiteral("/settings.ini");
        QString keptFile;
        if (fault == QLatin1String("folder is a file")) {
            QVERIFY(makeFile(place + QStringLiteral("/blocker")));
            file = place + QStringLiteral("/blocker/settings.ini");
        } else if (fault == QLatin1String("file is a folder")) {
            QVERIFY(QDir().mkpath(file));
        }
        SettingsPropertyStore store(settingsAt(file), QString());
        const bool hadLayout = fault == QLatin1String("folder gone");
        if (hadLayout) {
            // Given a layout saved well, then the folder moved away and a file put in its place
            store.SetItem(Layout, Saved);
            keptFile = place + QStringLiteral("-moved/settings.ini");
            QVERIFY(QDir().rename(place, place + QStringLiteral("-moved")));
            QVERIFY(makeFile(place));
        }

        // When a new layout is saved, Then the store says so, naming the file
        try {
            store.SetItem(Layout, QStringLiteral("Name:10"));
            QFAIL("a layout that could not be written was reported as saved");
        } catch (const CatalogError &e) {
            QVERIFY2(e.message().contains(file), qPrintable(e.message()));
        }
        // And the store answers as before; a removal that cannot be written is refused alike
        QCOMPARE(store.Contains(Layout), hadLayout);
        QCOMPARE(store.Item(Layout).toString(), hadLayout ? Saved : QString());
        if (hadLayout) {
            QVERIFY_THROWS_EXCEPTION(CatalogError, store.Remove(Layout));
            QCOMPARE(store.Item(Layout).toString(), Saved);
            // And the file saved before is whole
            QSettings reader(keptFile, QSettings::IniFormat);
            QCOMPARE(reader.value(Layout).toString(), Saved);
            // And once the folder is back, saving works again
            QVERIFY(QFile::remove(place));
            QVERIFY(QDir().rename(place + QStringLiteral("-moved"), place));
            store.SetItem(Layout, QStringLiteral("Name:10"));
            QCOMPARE(QSettings(file, QSettings::IniFormat).value(Layout).toString(), QStringLiteral("Name:10"));
        }
    }
};

QTEST_GUILESS_MAIN(TestSettingsPropertyStore)
#include "tst_settingspropertystore.moc"
