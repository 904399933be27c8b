#include "catalog_test_helpers.h"

#include <QTest>

using namespace PickerCtl;
using namespace PickerCtl::test;

namespace {
const QString kRcvForm = QStringLiteral("Traffic Form");

/// The sample catalogue plus fields whose names and masks try the matcher's edges.
std::shared_ptr<MemoryCatalog> filterCatalog()
{
    auto catalog = sampleCatalog();
    CategorySpec form = categorySpec(QStringLiteral("FORM"), genericLabel(), QStringLiteral("Form Fields"));
    form.rcvFormName = kRcvForm;
    catalog->addCategory(form);
    catalog->addField(fieldSpec(16, form.key, QStringLiteral("x' OR '1'='1; DROP TABLE fields"), QStringLiteral("CNT"),
                                sample::Admin, QStringLiteral("Q")));
    catalog->addField(fieldSpec(17, form.key, QStringLiteral("Peak.Load (\"busy\")"), QStringLiteral("CNT"),
                                sample::Admin, QStringLiteral("L")));
    catalog->addRcvField(kRcvForm, QStringLiteral("Attempts"), 10);
    return catalog;
}
} // namespace

class TestPassesFilter : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void shouldApplyTheCatalogueMatchingRules_data()
    {
        QTest::addColumn<QString>("tech");
        QTest::addColumn<QString>("type");
        QTest::addColumn<QString>("owner");
        QTest::addColumn<QString>("name");
        QTest::addColumn<bool>("busyHour");
        QTest::addColumn<QString>("rcvForm");
        QTest::addColumn<QString>("rcvField");
        QTest::addColumn<QList<qint32>>("expected");
        const QString none;
        const QList<qint32> all{12, 10, 11, 15, 14, 13, 16, 17};

        QTest::newRow("no filter") << none << none << none << none << false << none << none << all;
        QTest::newRow("tech one code") << "G" << none << none << none << false << none << none << QList<qint32>{10, 11};
        QTest::newRow("tech two codes") << "UL" << none << none << none << false << none << none << QList<qint32>{12, 10, 15, 14, 13, 17};
        QTest::newRow("tech is case-sensitive") << "g" << none << none << none << false << none << none << QList<qint32>{};
        QTest::newRow("tech without a known code") << "Q" << none << none << none << false << none << none << QList<qint32>{16};
        QTest::newRow("type one") << none << "UDC" << none << none << false << none << none << QList<qint32>{12, 14};
        QTest::newRow("type list") << none << "EXP,UDC" << none << none << false << none << none << QList<qint32>{12, 11, 14};
        QTest::newRow("type is exact") << none << "UD" << none << none << false << none << none << QList<qint32>{};
        QTest::newRow("type is case-sensitive") << none << "udc" << none << none << false << none << none << QList<qint32>{};
        QTest::newRow("owner id") << none << none << "3" << none << false << none << none << QList<qint32>{14};
        QTest::newRow("owner name any case") << none << none << "ALICE" << none << false << none << none << QList<qint32>{12};
        QTest::newRow("owner name is whole") << none << none << "Ali" << none << false << none << none << QList<qint32>{};
        QTest::newRow("name substring any case") << none << none << none << "udc" << false << none << none << QList<qint32>{12, 14};
        QTest::newRow("name star") << none << none << none << "d*rate" << false << none << none << QList<qint32>{11};
        QTest::newRow("name question mark") << none << none << none << "dr?p" << false << none << none << QList<qint32>{11, 16};
        QTest::newRow("name question needs a character") << none << none << none << "erlang?" << false << none << none << QList<qint32>{};
        QTest::newRow("name brackets are literal") << none << none << none << "[%]" << false << none << none << QList<qint32>{11};
        QTest::newRow("name dot is literal") << none << none << none << "Call.Attempts" << false << none << none << QList<qint32>{};
        QTest::newRow("name regex is literal") << none << none << none << "^Erlang$" << false << none << none << QList<qint32>{};
        QTest::newRow("name quotes") << none << none << none << "(\"busy\")" << false << none << none << QList<qint32>{17};
        QTest::newRow("name apostrophe") << none << none << none << "alice's" << false << none << none << QList<qint32>{12};
        QTest::newRow("name SQL is text") << none << none << none << "' OR '1'='1" << false << none << none << QList<qint32>{16};
        QTest::newRow("busy hour") << none << none << none << none << true << none << none << QList<qint32>{10};
        QTest::newRow("rcv form") << none << none << none << none << false << kRcvForm << none << QList<qint32>{10, 16, 17};
        QTest::newRow("rcv field") << none << none << none << none << false << kRcvForm << "Attempts" << QList<qint32>{10};
        QTest::newRow("rcv unknown field") << none << none << none << none << false << kRcvForm << "Nope" << QList<qint32>{};
        QTest::newRow("all together") << "U" << "CNT" << "admin" << "*a*" << false << none << none << QList<qint32>{10, 15, 13};
    }

    void shouldApplyTheCatalogueMatchingRules()
    {
        QFETCH(QString, tech);
        QFETCH(QString, type);
        QFETCH(QString, owner);
        QFETCH(QString, name);
        QFETCH(bool, busyHour);
        QFETCH(QString, rcvForm);
        QFETCH(QString, rcvField);
        QFETCH(QList<qint32>, expected);
        auto catalog = filterCatalog();

        QList<qint32> passed;
        for (const FieldPtr &field : *catalog->GetCategoryTree(sample::App)->AllFields(0)) {
            if (field->PassesFilter(tech, type, owner, name, busyHour, rcvForm, rcvField))
                passed.append(field->Id());
        }
        QCOMPARE(passed, expected);
    }

    void shouldNotReuseAMatcherForADifferentFilter()
    {
        auto catalog = filterCatalog();
        const FieldPtr erlang = catalog->GetField(sample::App, 13);
        const QString none;
        QVERIFY(erlang->PassesFilter(none, none, none, QStringLiteral("er*ng"), false, none, none));
        QVERIFY(!erlang->PassesFilter(none, none, none, QStringLiteral("er*x"), false, none, none));
        QVERIFY(erlang->PassesFilter(none, none, none, QStringLiteral("er*ng"), false, none, none));
    }
};

QTEST_GUILESS_MAIN(TestPassesFilter)
#include "tst_passesfilter.moc"
