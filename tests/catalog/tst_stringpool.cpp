// The pool of shared texts: one position per distinct text, however the text is handed in.
#include "catalog/core/stringpool.h"

#include <QTest>

using namespace PickerCtl;

class TestStringPool : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void shouldGiveEqualTextsOnePosition_data()
    {
        QTest::addColumn<QStringList>("texts");
        QTest::addColumn<QList<quint32>>("positions");
        QTest::newRow("empty and null are the empty text")
            << QStringList{QString(), QLatin1String(""), QStringLiteral("ms")} << QList<quint32>{0, 0, 1};
        QTest::newRow("runs and returns")
            << QStringList{QStringLiteral("ms"), QStringLiteral("ms"), QStringLiteral("%"), QStringLiteral("ms")}
            << QList<quint32>{1, 1, 2, 1};
        QTest::newRow("case and accents count")
            << QStringList{QStringLiteral("Erl"), QStringLiteral("erl"), QStringLiteral("Érl")}
            << QList<quint32>{1, 2, 3};
    }

    void shouldGiveEqualTextsOnePosition()
    {
        QFETCH(QStringList, texts);
        QFETCH(QList<quint32>, positions);
        StringPool pool;
        QList<quint32> got;
        // Each text is a fresh copy, so equal texts never share a buffer here.
        for (const QString &text : texts)
            got << pool.intern(QString(text.constData(), text.size()));
        QCOMPARE(got, positions);
        for (qsizetype i = 0; i < texts.size(); ++i)
            QCOMPARE(pool.at(got[i]), texts[i].isNull() ? QString() : texts[i]);
    }

    void shouldKnowATextByItsBufferOnlyWhileTheBufferHoldsIt()
    {
        StringPool pool;
        QString unit = QStringLiteral("kbit");
        unit.detach();
        const quint32 kbit = pool.intern(unit);
        QCOMPARE(pool.intern(unit), kbit);

        // The caller changes its copy: the pool still has its own, the new text is new
        unit[0] = QLatin1Char('M');
        const quint32 mbit = pool.intern(unit);
        QVERIFY(mbit != kbit);
        QCOMPARE(pool.at(kbit), QStringLiteral("kbit"));
        QCOMPARE(pool.at(mbit), QStringLiteral("Mbit"));
    }

    void shouldCompareTextsOverForeignMemoryByContent()
    {
        // Given a text over memory the pool does not own, changed in place between two calls
        QChar buffer[] = {QLatin1Char('d'), QLatin1Char('B')};
        StringPool pool;
        const quint32 first = pool.intern(QString::fromRawData(buffer, 2));
        pool.intern(QStringLiteral("other"));
        buffer[0] = QLatin1Char('m');

        // Then the changed text is a text of its own
        const quint32 second = pool.intern(QString::fromRawData(buffer, 2));
        QVERIFY(second != first);
        QCOMPARE(pool.at(second), QStringLiteral("mB"));
        QCOMPARE(pool.at(first), QStringLiteral("dB"));
    }
};

QTEST_GUILESS_MAIN(TestStringPool)
#include "tst_stringpool.moc"
