#include "filter_helpers.h"

#include <PickerCtl/XNumberFilter.h>

#include <QLineEdit>
#include <QTest>

#include <limits>

using namespace PickerCtl;
using FilterTest::child;

namespace {

NumberFilterValuePtr bounds(const QString &minimum, const QString &maximum)
{
    auto value = std::make_shared<NumberFilterValue>();
    value->setMinValue(minimum);
    value->setMaxValue(maximum);
    return value;
}

} // namespace

class NumberFilterInputTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void shouldHandTheRangeOnWithItsOwnWidth_data()
    {
        QTest::addColumn<int>("numberType");
        QTest::addColumn<QVariant>("rangeMin");
        QTest::addColumn<QVariant>("rangeMax");
        QTest::addColumn<QString>("typedMax");
        QTest::addColumn<bool>("valid");
        QTest::addColumn<QString>("toolTip");

        QTest::newRow("16-bit ends stay 16-bit") << 0 << QVariant::fromValue(qint16(1)) << QVariant::fromValue(qint16(500))
                                                 << "500" << true << "Min Value: 1, Max Value: 500";
        QTest::newRow("16-bit end refuses above it") << 0 << QVariant::fromValue(qint16(1)) << QVariant::fromValue(qint16(500))
                                                     << "501" << false << "Min Value: 1, Max Value: 500";
        QTest::newRow("32-bit ends stay 32-bit") << 0 << QVariant::fromValue(qint32(-5)) << QVariant::fromValue(qint32(2147483647))
                                                 << "2147483647" << true << "Min Value: -5, Max Value: 2147483647";
        QTest::newRow("64-bit end stays 64-bit") << 1 << QVariant() << QVariant::fromValue(qint64(1) << 40)
                                                 << "1e12" << true << "Min Value: Any, Max Value: 1099511627776";
        QTest::newRow("NaN end is refused, not converted") << 0 << QVariant(std::numeric_limits<double>::quiet_NaN())
                                                           << QVariant() << "5" << false << "Min Value: nan, Max Value: Any";
        QTest::newRow("huge real end is compared as a real") << 0 << QVariant() << QVariant(1e300)
                                                             << "7" << true << "Min Value: Any, Max Value: 1e+300";
    }

    void shouldHandTheRangeOnWithItsOwnWidth()
    {
        QFETCH(int, numberType);
        QFETCH(QVariant, rangeMin);
        QFETCH(QVariant, rangeMax);
        QFETCH(QString, typedMax);
        QFETCH(bool, valid);
        QFETCH(QString, toolTip);

        FilterTest::RecordingScope recording;
        XNumberFilter editor;
        editor.SetFilter(bounds(QStringLiteral("5"), typedMax), numberType, rangeMin, rangeMax);

        QString errorText;
        QCOMPARE(editor.IsValid(errorText), valid);
        QCOMPARE(errorText.isEmpty(), valid);
        QCOMPARE(child<QLineEdit>(&editor, "txtMinValue")->toolTip(), toolTip);
        // The lower bound is checked first; each check gets the host's range ends as they came.
        const auto &calls = *recording.services;
        QVERIFY(!calls.minimumTypes.isEmpty());
        for (qsizetype i = 0; i < calls.minimumTypes.size(); ++i) {
            QCOMPARE(calls.minimumTypes.at(i), rangeMin.metaType());
            QCOMPARE(calls.maximumTypes.at(i), rangeMax.metaType());
        }
    }
};

QTEST_MAIN(NumberFilterInputTest)
#include "tst_numberfilterinput.moc"
