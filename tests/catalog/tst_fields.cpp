#include "catalog_test_helpers.h"

#include <QTest>

using namespace PickerCtl;
using namespace PickerCtl::test;

namespace {
QStringList keysOf(const Fields &fields)
{
    QStringList keys;
    for (const FieldPtr &field : fields)
        keys.append(field->Key());
    return keys;
}
} // namespace

class TestFields : public QObject
{
    Q_OBJECT

private:
    std::shared_ptr<MemoryCatalog> m_catalog = sampleCatalog();

    FieldPtr field(qint32 id) const { return m_catalog->GetField(sample::App, id); }

    /// F10, F11, F12, F11 (a repeated field, as a template may hold)
    FieldsPtr withDuplicate() const
    {
        auto fields = Fields::create();
        for (qint32 id : {10, 11, 12, 11})
            fields->Add(field(id));
        return fields;
    }

private Q_SLOTS:
    void shouldLookUpByKeyOrPosition_data()
    {
        QTest::addColumn<QVariant>("keyOrIndex");
        QTest::addColumn<QString>("expectedKey");
        QTest::newRow("key") << QVariant(QStringLiteral("F12")) << QStringLiteral("F12");
        QTest::newRow("repeated key finds the first") << QVariant(QStringLiteral("F11")) << QStringLiteral("F11");
        QTest::newRow("missing key") << QVariant(QStringLiteral("F99")) << QString();
        QTest::newRow("key differs in case") << QVariant(QStringLiteral("f12")) << QString();
        QTest::newRow("position") << QVariant(2) << QStringLiteral("F12");
        QTest::newRow("position past the end") << QVariant(4) << QString();
        QTest::newRow("negative position") << QVariant(-1) << QString();
        QTest::newRow("null") << QVariant() << QString();
    }

    void shouldLookUpByKeyOrPosition()
    {
        QFETCH(QVariant, keyOrIndex);
        QFETCH(QString, expectedKey);
        const FieldsPtr fields = withDuplicate();
        const FieldPtr found = fields->Item(keyOrIndex);
        QCOMPARE(found ? found->Key() : QString(), expectedKey);
    }

    void shouldKeepTheKeyIndexRightThroughEveryChange_data()
    {
        QTest::addColumn<QString>("change");
        QTest::addColumn<QStringList>("expectedKeys");
        QTest::newRow("add") << "add" << QStringList{"F10", "F11", "F12", "F11", "F13"};
        QTest::newRow("insert at the front") << "insert" << QStringList{"F13", "F10", "F11", "F12", "F11"};
        QTest::newRow("remove by position") << "removeAt" << QStringList{"F11", "F12", "F11"};
        QTest::newRow("remove by index variant") << "removeIndex" << QStringList{"F10", "F11", "F11"};
        QTest::newRow("move to the end") << "move" << QStringList{"F11", "F12", "F11", "F10"};
        QTest::newRow("clear") << "clear" << QStringList{};
        QTest::newRow("remove by key takes the first of repeated keys") << "removeKey" << QStringList{"F10", "F12", "F11"};
        QTest::newRow("removals of what is not there change nothing") << "absent" << QStringList{"F10", "F11", "F12", "F11"};
    }

    void shouldKeepTheKeyIndexRightThroughEveryChange()
    {
        QFETCH(QString, change);
        QFETCH(QStringList, expectedKeys);
        // Given a collection whose key index has been built
        const FieldsPtr fields = withDuplicate();
        QVERIFY(fields->contains(QStringLiteral("F10")));
        QCOMPARE(fields->indexOf(QStringLiteral("F11")), 1);

        if (change == QLatin1String("add"))
            fields->Add(field(13));
        else if (change == QLatin1String("insert"))
            fields->insert(0, field(13));
        else if (change == QLatin1String("removeAt"))
            fields->removeAt(0);
        else if (change == QLatin1String("removeIndex"))
            fields->Remove(2);
        else if (change == QLatin1String("move"))
            fields->move(0, 3);
        else if (change == QLatin1String("clear"))
            fields->clear();
        else if (change == QLatin1String("removeKey"))
            fields->Remove(QStringLiteral("F11"));
        else {
            fields->Remove(QStringLiteral("F99"));
            fields->Remove(17);
            fields->removeAt(-1);
            fields->move(0, 9);
        }

        // Then every look-up by key answers with the first position holding that key
        QCOMPARE(keysOf(*fields), expectedKeys);
        for (const QString &key : {QStringLiteral("F10"), QStringLiteral("F11"), QStringLiteral("F12"), QStringLiteral("F13")})
            QCOMPARE(fields->indexOf(key), expectedKeys.indexOf(key));
        QCOMPARE(fields->Count(), expectedKeys.size());
    }
};

QTEST_GUILESS_MAIN(TestFields)
#include "tst_fields.moc"
