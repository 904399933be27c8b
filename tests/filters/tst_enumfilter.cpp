#include "filter_helpers.h"

#include <PickerCtl/MemoryCatalog.h>
#include <PickerCtl/XEnumFilter.h>
#include <PickerCtl/XTreeOpt.h>
#include <PickerCtl/testing/ScriptedMessageService.h>

#include <QAbstractItemModelTester>
#include <QSignalSpy>
#include <QTest>

using namespace PickerCtl;
using FilterTest::selecting;
using FilterTest::titled;

namespace {

const QString App = QStringLiteral("PM");
constexpr int ManyValues = 10000;

QStringList numbered(const QString &prefix, int count, int step = 1, bool backwards = false)
{
    QStringList items;
    for (int i = 0; i < count; i += step)
        items << prefix + QString::number(i);
    if (backwards)
        std::reverse(items.begin(), items.end());
    return items;
}

} // namespace

class EnumFilterTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        m_catalog.addEnumList(QStringLiteral("Priority"), {"Low", "Medium", "High"}, {"1", "2", "3"});
        m_catalog.addEnumList(QStringLiteral("Short"), {"A", "B", "C"}, {"1"});
        m_catalog.addEnumList(QStringLiteral("Twice"), {"A", "B", "C"}, {"1", "1", "2"});
        m_catalog.addEnumList(QStringLiteral("Repeated"), {"A", "A", "B"}, {"1", "2", "3"});
        m_catalog.addEnumList(QStringLiteral("Many"), numbered(QStringLiteral("Value "), ManyValues),
                              numbered(QString(), ManyValues));
    }

    void init()
    {
        m_messages = std::make_shared<ScriptedMessageService>();
        MessageService::setInstance(m_messages);
    }

    void shouldHandBackTheCheckedCodes_data()
    {
        QTest::addColumn<QString>("field");
        QTest::addColumn<QString>("loaded");
        QTest::addColumn<QStringList>("byHand"); // "+key" ticks, "-key" unticks
        QTest::addColumn<QStringList>("checked");
        QTest::addColumn<QString>("selection"); // "<none>": no value handed back

        const QStringList all{"Low", "Medium", "High"};
        const QStringList none;
        QTest::newRow("empty selection is every value") << "Priority" << "" << none << all << "";
        QTest::newRow("no filter is every value") << "Priority" << "<no filter>" << none << all << "";
        QTest::newRow("two of three") << "Priority" << "2,3" << none << QStringList{"Medium", "High"} << "2,3";
        QTest::newRow("tree order, not loaded order") << "Priority" << "3,1" << none << QStringList{"Low", "High"} << "1,3";
        QTest::newRow("every code listed") << "Priority" << "1,2,3" << none << all << "";
        QTest::newRow("every value checked by hand") << "Priority" << "2" << QStringList{"+Low", "+High"} << all << "";
        QTest::newRow("one unchecked by hand") << "Priority" << "" << QStringList{"-Medium"} << QStringList{"Low", "High"} << "1,3";
        QTest::newRow("unknown codes dropped") << "Priority" << "7,3,x" << none << QStringList{"High"} << "3";
        QTest::newRow("codes are not trimmed") << "Priority" << " 2" << none << none << "<none>";
        QTest::newRow("values without a code have an empty tag") << "Short" << "" << QStringList{"-B", "-C"} << QStringList{"A"} << "1";
        // Hostile catalogues: repeated codes and keys, and many values
        QTest::newRow("duplicate code checks only its first value") << "Twice" << "1" << none << QStringList{"A"} << "1";
        QTest::newRow("code listed twice checks once") << "Twice" << "2,2" << none << QStringList{"C"} << "2";
        QTest::newRow("code of a repeated key matches nothing") << "Repeated" << "2,3" << none << QStringList{"B"} << "3";
        QTest::newRow("10,000 values, every other code backwards")
            << "Many" << numbered(QString(), ManyValues, 2, true).join(QLatin1Char(',')) << none
            << numbered(QStringLiteral("Value "), ManyValues, 2) << numbered(QString(), ManyValues, 2).join(QLatin1Char(','));
    }

    void shouldHandBackTheCheckedCodes()
    {
        QFETCH(QString, field);
        QFETCH(QString, loaded);
        QFETCH(QStringList, byHand);
        QFETCH(QStringList, checked);
        QFETCH(QString, selection);

        // Given the field's values loaded with a selection
        XEnumFilter editor;
        const auto tester = field == QLatin1String("Many") ? nullptr
                                                           : std::make_unique<QAbstractItemModelTester>(editor.tree()->model());
        editor.SetFilter(selecting(loaded), App, titled(field), m_catalog.GetPropertyFilter());

        // When the user changes some ticks
        for (const QString &tick : byHand)
            editor.tree()->setCheckValue(tick.mid(1), tick.startsWith(u'+') ? XTreeOpt::Checked : XTreeOpt::Unchecked);

        // Then the values carrying the codes are checked, in tree order
        QStringList actual;
        for (int index = 2; index <= editor.tree()->Count(); ++index) {
            if (editor.tree()->CheckValueAt(index) == XTreeOpt::Checked)
                actual << editor.tree()->Key(index);
        }
        QCOMPARE(actual, checked);

        // And the editor hands back their codes, empty for every value
        const auto value = editor.GetFilter();
        if (selection == QLatin1String("<none>")) {
            QVERIFY(!value);
            return;
        }
        QVERIFY(value);
        QCOMPARE(value->Selection(), selection);
        QVERIFY(m_messages->calls().isEmpty());
    }

    void shouldRefuseAnEmptyChoiceWithItsOwnMessage_data()
    {
        QTest::addColumn<QString>("title");
        QTest::addColumn<QString>("expectedTitle");

        QTest::newRow("default title") << QString() << "Filter";
        QTest::newRow("host's title") << "Alarm Filter" << "Alarm Filter";
    }

    void shouldRefuseAnEmptyChoiceWithItsOwnMessage()
    {
        QFETCH(QString, title);
        QFETCH(QString, expectedTitle);

        // Given every value unchecked
        XEnumFilter editor;
        QVERIFY(FilterTest::showActive(&editor));
        const auto properties = titled(QStringLiteral("Priority"));
        if (title.isEmpty())
            editor.SetFilter(nullptr, App, properties, m_catalog.GetPropertyFilter());
        else
            editor.SetFilter(nullptr, App, properties, m_catalog.GetPropertyFilter(), title);
        editor.tree()->setCheckValue(QStringLiteral("Priority"), XTreeOpt::Unchecked);

        // Then the editor refuses, tells the user with the field in lower case, and focuses the tree
        QVERIFY(!editor.IsValid());
        QCOMPARE(m_messages->calls().size(), 1);
        const auto call = m_messages->calls().first();
        QCOMPARE(call.text, QStringLiteral("Please select at least one priority value."));
        QCOMPARE(call.style, 16);
        QCOMPARE(call.title, expectedTitle);
        QCOMPARE(QApplication::focusWidget(), editor.tree());

        // And hands back nothing, telling the user again
        QVERIFY(!editor.GetFilter());
        QCOMPARE(m_messages->calls().size(), 2);
    }

    void shouldRaiseChangedOnChecksButNotOnLoading()
    {
        // Given a loaded selection
        XEnumFilter editor;
        QVERIFY(!editor.IsModified());
        QSignalSpy changed(&editor, &XEnumFilter::Changed);
        editor.SetFilter(selecting(QStringLiteral("1")), App, titled(QStringLiteral("Priority")),
                         m_catalog.GetPropertyFilter());
        QCOMPARE(changed.count(), 0);
        QVERIFY(!editor.IsModified());
        QCOMPARE(editor.tree()->Count(), 4);
        QCOMPARE(editor.tree()->CheckValue(QStringLiteral("Priority")), int(XTreeOpt::PartlyChecked));

        // When the user ticks a value, it is one change
        editor.tree()->setCheckValue(QStringLiteral("High"), XTreeOpt::Checked);
        QCOMPARE(changed.count(), 1);
        QVERIFY(editor.IsModified());

        // And clearing the filter ticks every value, also a change
        editor.ClearFilter();
        QVERIFY(changed.count() > 1);
        for (const char *key : {"Low", "Medium", "High"})
            QCOMPARE(editor.tree()->CheckValue(QLatin1String(key)), int(XTreeOpt::Checked));
        QCOMPARE(editor.GetFilter()->Selection(), QString());
    }

    void shouldLetGoOfThePropertyFilterOnClear()
    {
        const auto filter = m_catalog.GetPropertyFilter();
        const auto held = filter.use_count();
        XEnumFilter editor;
        editor.SetFilter(nullptr, App, titled(QStringLiteral("Priority")), filter);
        QCOMPARE(filter.use_count(), held + 1);

        editor.Clear();

        QCOMPARE(filter.use_count(), held);
        QVERIFY(!editor.IsModified());
    }

private:
    MemoryCatalog m_catalog;
    std::shared_ptr<ScriptedMessageService> m_messages;
};

QTEST_MAIN(EnumFilterTest)
#include "tst_enumfilter.moc"
