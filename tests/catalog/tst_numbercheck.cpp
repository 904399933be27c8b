#include "catalog/core/numbercheck.h"

#include <QTest>

#include <limits>

using namespace PickerCtl;

namespace {
const QVariant kOpen;
const double kNaN = std::numeric_limits<double>::quiet_NaN();
const double kInf = std::numeric_limits<double>::infinity();
const QString kLowerNaN = QStringLiteral("The allowed range is not valid: its lower end is not a number.");
const QString kUpperNaN = QStringLiteral("The allowed range is not valid: its upper end is not a number.");
const QString en = QStringLiteral("en_US");
const QString de = QStringLiteral("de_DE");

template<typename T>
void addColumns()
{
    QTest::addColumn<QString>("locale");
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<QVariant>("low");
    QTest::addColumn<QVariant>("high");
    QTest::addColumn<bool>("valid");
    QTest::addColumn<T>("expected");
    QTest::addColumn<QString>("message");
}

/// Runs the row through the check: its verdict, its number when valid, and its message to the user.
template<typename T>
void check(bool (*checkNumber)(const QVariant &, const QVariant &, const QVariant &, const QLocale &, T &, QString &))
{
    QFETCH(QString, locale);
    QFETCH(QVariant, value);
    QFETCH(QVariant, low);
    QFETCH(QVariant, high);
    QFETCH(bool, valid);
    QFETCH(T, expected);
    QFETCH(QString, message);
    T result = -1;
    QString error;
    QCOMPARE(checkNumber(value, low, high, QLocale(locale), result, error), valid);
    if (valid)
        QCOMPARE(result, expected);
    QCOMPARE(error, message);
}
}

class TestNumberCheck : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void shouldCheckWholeNumbers_data()
    {
        addColumns<qint32>();

        QTest::newRow("plain") << en << QVariant("42") << kOpen << kOpen << true << 42 << QString();
        QTest::newRow("blanks around") << en << QVariant("  7 ") << kOpen << kOpen << true << 7 << QString();
        QTest::newRow("number value") << en << QVariant(12) << kOpen << kOpen << true << 12 << QString();
        QTest::newRow("negative") << en << QVariant("-3") << kOpen << kOpen << true << -3 << QString();
        QTest::newRow("lower end included") << en << QVariant("1") << QVariant(1) << QVariant(999) << true << 1 << QString();
        QTest::newRow("upper end included") << en << QVariant("999") << QVariant(1) << QVariant(999) << true << 999 << QString();
        QTest::newRow("German grouping") << de << QVariant("1.000") << kOpen << kOpen << true << 1000 << QString();
        QTest::newRow("largest 32-bit") << en << QVariant("2147483647") << kOpen << kOpen << true << 2147483647 << QString();
        QTest::newRow("below range") << en << QVariant("0") << QVariant(1) << QVariant(999) << false << 0
                                     << QStringLiteral("\"0\" is out of range: enter a whole number from 1 to 999.");
        QTest::newRow("above range, min only open") << en << QVariant("1000") << kOpen << QVariant(999) << false << 0
                                     << QStringLiteral("\"1000\" is out of range: enter a whole number of at most 999.");
        QTest::newRow("minimum only") << en << QVariant("0") << QVariant(qint16(1)) << kOpen << false << 0
                                      << QStringLiteral("\"0\" is out of range: enter a whole number of at least 1.");
        QTest::newRow("overflow") << en << QVariant("2147483648") << kOpen << kOpen << false << 0
                                  << QStringLiteral("\"2147483648\" is out of range: enter a whole number from -2147483648 to 2147483647.");
        QTest::newRow("garbage") << en << QVariant("abc") << kOpen << kOpen << false << 0
                                 << QStringLiteral("\"abc\" is not a whole number.");
        QTest::newRow("fraction") << en << QVariant("1.5") << QVariant(1) << kOpen << false << 0
                                  << QStringLiteral("\"1.5\" is not a whole number: enter a whole number of at least 1.");
        QTest::newRow("empty") << en << QVariant("") << QVariant(1) << kOpen << false << 0
                               << QStringLiteral("No value was entered: enter a whole number of at least 1.");
        QTest::newRow("null") << en << QVariant() << kOpen << kOpen << false << 0
                              << QStringLiteral("No value was entered: enter a whole number.");
        QTest::newRow("huge text is cut in the message") << en << QVariant(QString(500, QLatin1Char('x'))) << kOpen << kOpen << false << 0
                              << QStringLiteral("\"%1...\" is not a whole number.").arg(QString(40, QLatin1Char('x')));
        QTest::newRow("tab around is text") << en << QVariant("\t7") << kOpen << kOpen << false << 0
                              << QStringLiteral("\"\t7\" is not a whole number.");
        QTest::newRow("NaN value") << en << QVariant(kNaN) << kOpen << kOpen << false << 0
                              << QStringLiteral("\"nan\" is not a whole number.");
        QTest::newRow("NaN lower end") << en << QVariant("5") << QVariant(kNaN) << kOpen << false << 0 << kLowerNaN;
        QTest::newRow("NaN upper end") << en << QVariant("5") << QVariant(1) << QVariant(kNaN) << false << 0 << kUpperNaN;
        QTest::newRow("NaN text upper end") << en << QVariant("5") << kOpen << QVariant("nan") << false << 0 << kUpperNaN;
        QTest::newRow("huge upper end is compared, not converted") << en << QVariant("5") << QVariant(1) << QVariant(1e300)
                              << true << 5 << QString();
        QTest::newRow("huge upper end in the message") << en << QVariant("0") << QVariant(1) << QVariant(1e300) << false << 0
                              << QStringLiteral("\"0\" is out of range: enter a whole number from 1 to 1e+300.");
        QTest::newRow("huge lower end refuses every 32-bit number") << en << QVariant("2147483647") << QVariant(1e19) << kOpen
                              << false << 0 << QStringLiteral("\"2147483647\" is out of range: enter a whole number of at least 1e+19.");
        QTest::newRow("infinite ends are open") << en << QVariant("-12") << QVariant(-kInf) << QVariant(kInf) << true << -12 << QString();
        QTest::newRow("infinite lower end above everything") << en << QVariant("12") << QVariant(kInf) << kOpen << false << 0
                              << QStringLiteral("\"12\" is out of range: enter a whole number of at least inf.");
    }

    void shouldCheckWholeNumbers()
    {
        check<qint32>(checkWholeNumber);
    }

    void shouldCheckRealNumbers_data()
    {
        addColumns<double>();

        QTest::newRow("C decimal") << en << QVariant("2.5") << kOpen << kOpen << true << 2.5 << QString();
        QTest::newRow("German comma") << de << QVariant("2,5") << kOpen << kOpen << true << 2.5 << QString();
        QTest::newRow("German user typing a point") << de << QVariant("2.5") << kOpen << kOpen << true << 2.5 << QString();
        QTest::newRow("number value") << en << QVariant(0.25) << kOpen << kOpen << true << 0.25 << QString();
        QTest::newRow("ends included") << en << QVariant("0.5") << QVariant(0.5) << QVariant("1.5") << true << 0.5 << QString();
        QTest::newRow("out of range") << en << QVariant("1.6") << QVariant(0.5) << QVariant(1.5) << false << 0.0
                                      << QStringLiteral("\"1.6\" is out of range: enter a number from 0.5 to 1.5.");
        QTest::newRow("German range text") << de << QVariant("3") << QVariant(0.5) << QVariant(1.5) << false << 0.0
                                      << QStringLiteral("\"3\" is out of range: enter a number from 0,5 to 1,5.");
        QTest::newRow("garbage") << en << QVariant("1.2.3") << kOpen << kOpen << false << 0.0
                                 << QStringLiteral("\"1.2.3\" is not a number.");
        QTest::newRow("infinity") << en << QVariant("inf") << kOpen << kOpen << false << 0.0
                                  << QStringLiteral("\"inf\" is not a number.");
        QTest::newRow("blank") << en << QVariant("   ") << kOpen << kOpen << false << 0.0
                               << QStringLiteral("No value was entered: enter a number.");
        QTest::newRow("NaN value") << en << QVariant(kNaN) << kOpen << kOpen << false << 0.0
                                   << QStringLiteral("\"nan\" is not a number.");
        QTest::newRow("infinite value") << en << QVariant(kInf) << kOpen << kOpen << false << 0.0
                                        << QStringLiteral("\"inf\" is not a number.");
        QTest::newRow("negative infinite value") << en << QVariant(-kInf) << QVariant(0.0) << kOpen << false << 0.0
                                        << QStringLiteral("\"-inf\" is not a number: enter a number of at least 0.");
        QTest::newRow("NaN text") << en << QVariant("NaN") << kOpen << kOpen << false << 0.0
                                  << QStringLiteral("\"NaN\" is not a number.");
        QTest::newRow("overflowing text") << en << QVariant("1e999") << kOpen << kOpen << false << 0.0
                                  << QStringLiteral("\"1e999\" is not a number.");
        QTest::newRow("NaN lower end") << en << QVariant("1") << QVariant(kNaN) << QVariant(2.0) << false << 0.0 << kLowerNaN;
        QTest::newRow("NaN upper end") << en << QVariant("1") << kOpen << QVariant(kNaN) << false << 0.0 << kUpperNaN;
        QTest::newRow("largest double within infinite ends") << en << QVariant(std::numeric_limits<double>::max())
                                  << QVariant(-kInf) << QVariant(kInf) << true << std::numeric_limits<double>::max() << QString();
        QTest::newRow("newline around is text") << en << QVariant("2.5\n") << kOpen << kOpen << false << 0.0
                                  << QStringLiteral("\"2.5\n\" is not a number.");
    }

    void shouldCheckRealNumbers()
    {
        check<double>(checkRealNumber);
    }
};

QTEST_GUILESS_MAIN(TestNumberCheck)
#include "tst_numbercheck.moc"
