#include <PickerCtl/ListViewProperties.h>
#include <PickerCtl/MemoryCatalog.h>
#include <PickerCtl/XEnumFilter.h>
#include <PickerCtl/XTreeOpt.h>
#include <PickerCtl/testing/ScriptedMessageService.h>

#include <QTest>

using namespace PickerCtl;

namespace {

const QString App = QStringLiteral("PM");
constexpr int ManyValues = 10000;

std::shared_ptr<ListViewProperties> titled(const QString &title)
{
    auto properties = std::make_shared<ListViewProperties>();
    properties->setTitle(title);
    return properties;
}

EnumFilterValuePtr selecting(const QString &selection)
{
    auto value = std::make_shared<EnumFilterValue>();
    value->setSelection(selection);
    return value;
}

QStringList numbered(const QString &prefix, int count)
{
    QStringList items;
    for (int i = 0; i < count; ++i)
        items << prefix + QString::number(i);
    return items;
}

QStringList everyOther(const QStringList &items, bool backwards)
{
    QStringList picked;
    for (qsizetype i = 0; i < items.size(); i += 2)
        picked << items.at(i);
    if (backwards)
        std::reverse(picked.begin(), picked.end());
    return picked;
}

} // namespace

class EnumFilterInputTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        MessageService::setInstance(std::make_shared<ScriptedMessageService>());
        m_catalog.addEnumList(QStringLiteral("Twice"), {"A", "B", "C"}, {"1", "1", "2"});
        m_catalog.addEnumList(QStringLiteral("Repeated"), {"A", "A", "B"}, {"1", "2", "3"});
        m_catalog.addEnumList(QStringLiteral("Many"), numbered(QStringLiteral("Value "), ManyValues),
                              numbered(QString(), ManyValues));
    }

    void shouldCheckTheFirstValueCarryingEachCode_data()
    {
        QTest::addColumn<QString>("title");
        QTest::addColumn<QString>("loaded");
        QTest::addColumn<QStringList>("checked");
        QTest::addColumn<QString>("selection");

        const QStringList manyCodes = numbered(QString(), ManyValues);
        const QStringList manyKeys = numbered(QStringLiteral("Value "), ManyValues);
        QTest::newRow("duplicate code checks only its first value") << "Twice" << "1" << QStringList{"A"} << "1";
        QTest::newRow("code listed twice checks once") << "Twice" << "2,2" << QStringList{"C"} << "2";
        QTest::newRow("code of a repeated key matches nothing") << "Repeated" << "2,3" << QStringList{"B"} << "3";
        QTest::newRow("10,000 values, every other code backwards")
            << "Many" << everyOther(manyCodes, true).join(QLatin1Char(',')) << everyOther(manyKeys, false)
            << everyOther(manyCodes, false).join(QLatin1Char(','));
    }

    void shouldCheckTheFirstValueCarryingEachCode()
    {
        QFETCH(QString, title);
        QFETCH(QString, loaded);
        QFETCH(QStringList, checked);
        QFETCH(QString, selection);

        XEnumFilter editor;
        editor.SetFilter(selecting(loaded), App, titled(title), m_catalog.GetPropertyFilter());

        QStringList actual;
        for (int index = 2; index <= editor.tree()->Count(); ++index) {
            if (editor.tree()->CheckValueAt(index) == XTreeOpt::Checked)
                actual << editor.tree()->Key(index);
        }
        QCOMPARE(actual, checked);
        const auto value = editor.GetFilter();
        QVERIFY(value);
        QCOMPARE(value->Selection(), selection);
    }

private:
    MemoryCatalog m_catalog;
};

QTEST_MAIN(EnumFilterInputTest)
#include "tst_enumfilterinput.moc"
