#include <PickerCtl/FieldClipboard.h>
#include <PickerCtl/MemoryCatalog.h>
#include <PickerCtl/testing/CatalogSpecs.h>

#include "widgets/clipboardpayload.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>
#include <QRandomGenerator>
#include <QTest>
#include <QtEndian>
#include <QMutex>

#include <thread>
#include <vector>

using namespace PickerCtl;

namespace {

const QString App = QStringLiteral("Reports");

std::shared_ptr<MemoryCatalog> sampleCatalog()
{
    auto catalog = std::make_shared<MemoryCatalog>();
    catalog->addApplication(App);
    catalog->addCategory(categorySpec(QStringLiteral("cat"), {}, QStringLiteral("Cells"), 1));
    catalog->addField(fieldSpec(1, QStringLiteral("cat"), QStringLiteral("Drops"), QStringLiteral("CNT"), 0, {}));
    catalog->addField(fieldSpec(2, QStringLiteral("cat"), QStringLiteral("Drop \"rate\", %"), QStringLiteral("EXP"), 0, {}));
    return catalog;
}

FieldClipData clipOf(MemoryCatalog &catalog, quint16 formatId)
{
    auto fields = Fields::create();
    fields->Add(catalog.GetField(App, 1));
    fields->Add(catalog.GetField(App, 2));
    FieldClipData clip;
    clip.setFormatId(formatId);
    clip.setFields(fields);
    return clip;
}

QByteArray le32(quint32 v)
{
    QByteArray b(4, 0);
    qToLittleEndian(v, b.data());
    return b;
}

} // namespace

class ClipboardTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void shouldHandOutStableIdsFrom0xC000()
    {
        const QString first = QStringLiteral("tst:first:1");
        const quint16 id = ClipboardFormats::Register(first);
        QVERIFY(id >= FirstClipboardFormatId);
        QCOMPARE(ClipboardFormats::Register(first), id);
        QCOMPARE(ClipboardFormats::Name(id), first);
        const quint16 other = ClipboardFormats::Register(QStringLiteral("tst:First:1")); // exact names
        QCOMPARE(other, quint16(id + 1));
        QCOMPARE(ClipboardFormats::Register(QString()), quint16(0));
        QCOMPARE(ClipboardFormats::Name(0x1234), QString());
    }

    void shouldGiveOneIdPerNameAcrossThreads()
    {
        QMutex mutex;
        QSet<quint16> ids;
        std::vector<std::thread> threads;
        for (int i = 0; i < 8; ++i) {
            threads.emplace_back([&] {
                for (int n = 0; n < 100; ++n) {
                    const quint16 id = ClipboardFormats::Register(QStringLiteral("tst:threads:1"));
                    QMutexLocker lock(&mutex);
                    ids.insert(id);
                }
            });
        }
        for (std::thread &thread : threads)
            thread.join();
        QCOMPARE(ids.size(), 1);
    }

    void shouldNameTheFormatAfterAppEditorAndThread()
    {
        QCOMPARE(clipboardFormatName(App, QStringLiteral("Fields"), 1234), QStringLiteral("Reports:Fields:1234"));
        QCOMPARE(clipboardFormatName(App, QString(), 1234), QStringLiteral("Reports::1234"));
        QVERIFY(currentThreadId() != 0);
    }

    void shouldPutFieldsOnTheClipboardInEveryFormatButLeaveItForAnEmptyPayload()
    {
        // Given a clipboard holding someone's text, an empty payload leaves it alone
        QClipboard *clipboard = QGuiApplication::clipboard();
        clipboard->setText(QStringLiteral("before"));
        QVERIFY(!copyToClipboard(FieldClipData()));
        QCOMPARE(clipboard->text(), QStringLiteral("before"));

        // When two fields are copied under this thread's format
        auto catalog = sampleCatalog();
        const QString name = clipboardFormatName(App, QStringLiteral("Fields"), currentThreadId());
        QVERIFY(copyToClipboard(clipOf(*catalog, ClipboardFormats::Register(name))));
        const QMimeData *mime = clipboard->mimeData();

        // Then they paste back here, and only here, and readers of text and CSV get them too
        const auto refs = decodeFieldRefs(mime, name);
        QVERIFY(refs);
        QCOMPARE(*refs, (QList<FieldRef>{{1, QStringLiteral("F1")}, {2, QStringLiteral("F2")}}));
        QCOMPARE(decodeFieldIds(mime, name), std::optional<QList<qint32>>({1, 2}));
        QCOMPARE(decodeFieldIds(mime, QStringLiteral("Reports:Fields:1")), std::nullopt);
        QCOMPARE(mime->text(), QStringLiteral("Drops\nDrop \"rate\", %"));
        QCOMPARE(QString::fromUtf8(mime->data(QStringLiteral("text/csv"))),
                 QStringLiteral("Key,Name,Category,Technology,Type,Owner\r\nF1,Drops,Cells,,CNT,\r\n"
                                "F2,\"Drop \"\"rate\"\", %\",Cells,,EXP,\r\n"));
    }

    void shouldRejectForeignAndBrokenPayloads_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        const QByteArray good = encodeFieldPayload({{7, QStringLiteral("F7")}});
        QTest::newRow("empty") << QByteArray();
        QTest::newRow("truncated") << good.left(good.size() - 1);
        QTest::newRow("trailing bytes") << good + '\0';
        QTest::newRow("wrong magic") << QByteArray("XCFD") + good.mid(4);
        QTest::newRow("wrong version") << good.left(4) + QByteArray("\x02\x00", 2) + good.mid(6);
        QTest::newRow("huge count") << good.left(6) + le32(0xFFFFFFFFu) + good.mid(10);
        QTest::newRow("huge key length") << good.left(14) + le32(0x7FFFFFFFu) + good.mid(18);
        QTest::newRow("odd UTF-16 length") << good.left(14) + le32(2) + QByteArray("F\0", 2) + 'x';
        QTest::newRow("lone surrogate") << good.left(14) + le32(1) + QByteArray("\x00\xD8", 2);
        QByteArray random(256, 0);
        QRandomGenerator generator(42);
        for (char &c : random)
            c = char(generator.bounded(256));
        QTest::newRow("random bytes") << random;
        QTest::newRow("random after the magic") << QByteArray("PCFD\x01\x00", 6) + random;
    }

    void shouldRejectForeignAndBrokenPayloads()
    {
        QFETCH(QByteArray, bytes);
        const QString name = QStringLiteral("Reports:Fields:99");
        QMimeData mime;
        mime.setData(fieldMimeType(name), bytes);
        QCOMPARE(decodeFieldIds(&mime, name), std::nullopt);
    }
};

QTEST_MAIN(ClipboardTest)
#include "tst_clipboard.moc"
