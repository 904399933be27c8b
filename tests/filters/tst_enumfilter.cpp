#include "filter_helpers.h"

#include <PickerCtl/ListViewProperties.h>
#include <PickerCtl/MemoryCatalog.h>
#include <PickerCtl/XEnumFilter.h>
#include <PickerCtl/XTreeOpt.h>
#include <PickerCtl/testing/ScriptedMessageService.h>

#include <QAbstractItemModelTester>
#include <QSignalSpy>
#include <QTest>

using namespace PickerCtl;

namespace {

const QString App = QStringLiteral("PM");
const QString NullSelection = QStringLiteral("<no filter>");
const QString NoValue = QStringLiteral("<none>");

std::shared_ptr<ListViewProperties> titled(const QString &title)
{
    auto properties = std::make_shared<ListViewProperties>();
    properties->setTitle(title);
    return properties;
}

EnumFilterValuePtr selecting(const QString &selection)
{
    if (selection == NullSelection)
        return nullptr;
    auto value = std::make_shared<EnumFilterValue>();
    value->setSelection(selection);
    return value;
}

} // namespace

class EnumFilterTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void shouldHandBackTheCheckedCodes_data();
    void shouldHandBackTheCheckedCodes();
    void shouldRefuseAnEmptyChoiceWithItsOwnMessage_data();
    void shouldRefuseAnEmptyChoiceWithItsOwnMessage();
    void shouldGiveValuesWithoutCodeAnEmptyTag();
    void shouldRaiseChangedOnChecksButNotOnLoading();
    void shouldClearFilterToEveryValue();
    void shouldLetGoOfThePropertyFilterOnClear();

private:
    MemoryCatalog m_catalog;
    std::shared_ptr<ScriptedMessageService> m_messages;
};

void EnumFilterTest::initTestCase()
{
    m_catalog.addEnumList(QStringLiteral("Priority"), {"Low", "Medium", "High"}, {"1", "2", "3"});
    m_catalog.addEnumList(QStringLiteral("Short"), {"A", "B", "C"}, {"1"});
}

void EnumFilterTest::init()
{
    m_messages = std::make_shared<ScriptedMessageService>();
    MessageService::setInstance(m_messages);
}

void EnumFilterTest::shouldHandBackTheCheckedCodes_data()
{
    QTest::addColumn<QString>("loaded");
    QTest::addColumn<QStringList>("checkedByHand");
    QTest::addColumn<QStringList>("uncheckedByHand");
    QTest::addColumn<QString>("selection");

    const QStringList none;
    QTest::newRow("empty selection is every value") << "" << none << none << "";
    QTest::newRow("no filter is every value") << NullSelection << none << none << "";
    QTest::newRow("two of three") << "2,3" << none << none << "2,3";
    QTest::newRow("tree order, not loaded order") << "3,1" << none << none << "1,3";
    QTest::newRow("every code listed") << "1,2,3" << none << none << "";
    QTest::newRow("every value checked by hand") << "2" << QStringList{"Low", "High"} << none << "";
    QTest::newRow("one unchecked by hand") << "" << none << QStringList{"Medium"} << "1,3";
    QTest::newRow("unknown codes dropped") << "7,3,x" << none << none << "3";
    QTest::newRow("codes are not trimmed") << " 2" << none << none << NoValue;
}

void EnumFilterTest::shouldHandBackTheCheckedCodes()
{
    QFETCH(QString, loaded);
    QFETCH(QStringList, checkedByHand);
    QFETCH(QStringList, uncheckedByHand);
    QFETCH(QString, selection);

    // Given the priorities loaded with a selection
    XEnumFilter editor;
    QAbstractItemModelTester tester(editor.tree()->model());
    editor.SetFilter(selecting(loaded), App, titled(QStringLiteral("Priority")), m_catalog.GetPropertyFilter());

    // When the user changes some ticks
    for (const QString &key : checkedByHand)
        editor.tree()->setCheckValue(key, XTreeOpt::Checked);
    for (const QString &key : uncheckedByHand)
        editor.tree()->setCheckValue(key, XTreeOpt::Unchecked);

    // Then the editor hands back the codes of the checked values, empty for every value
    const auto value = editor.GetFilter();
    if (selection == NoValue) {
        QVERIFY(!value);
        return;
    }
    QVERIFY(value);
    QCOMPARE(value->Selection(), selection);
    QVERIFY(m_messages->calls().isEmpty());
}

void EnumFilterTest::shouldRefuseAnEmptyChoiceWithItsOwnMessage_data()
{
    QTest::addColumn<QString>("title");
    QTest::addColumn<QString>("expectedTitle");

    QTest::newRow("default title") << QString() << "Filter";
    QTest::newRow("host's title") << "Alarm Filter" << "Alarm Filter";
}

void EnumFilterTest::shouldRefuseAnEmptyChoiceWithItsOwnMessage()
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

void EnumFilterTest::shouldGiveValuesWithoutCodeAnEmptyTag()
{
    XEnumFilter editor;
    editor.SetFilter(nullptr, App, titled(QStringLiteral("Short")), m_catalog.GetPropertyFilter());

    QCOMPARE(editor.tree()->Count(), 4);
    QCOMPARE(editor.tree()->Tag(QStringLiteral("A")), QStringLiteral("1"));
    QCOMPARE(editor.tree()->Tag(QStringLiteral("C")), QString());
    editor.tree()->setCheckValue(QStringLiteral("B"), XTreeOpt::Unchecked);
    editor.tree()->setCheckValue(QStringLiteral("C"), XTreeOpt::Unchecked);
    QCOMPARE(editor.GetFilter()->Selection(), QStringLiteral("1"));
}

void EnumFilterTest::shouldRaiseChangedOnChecksButNotOnLoading()
{
    XEnumFilter editor;
    QVERIFY(!editor.IsModified());
    QSignalSpy changed(&editor, &XEnumFilter::Changed);

    editor.SetFilter(selecting(QStringLiteral("1")), App, titled(QStringLiteral("Priority")),
                     m_catalog.GetPropertyFilter());
    QCOMPARE(changed.count(), 0);
    QVERIFY(!editor.IsModified());
    QCOMPARE(editor.tree()->CheckValue(QStringLiteral("Priority")), int(XTreeOpt::PartlyChecked));

    editor.tree()->setCheckValue(QStringLiteral("High"), XTreeOpt::Checked);
    QCOMPARE(changed.count(), 1);
    QVERIFY(editor.IsModified());
}

void EnumFilterTest::shouldClearFilterToEveryValue()
{
    XEnumFilter editor;
    editor.SetFilter(selecting(QStringLiteral("2")), App, titled(QStringLiteral("Priority")),
                     m_catalog.GetPropertyFilter());
    QSignalSpy changed(&editor, &XEnumFilter::Changed);

    editor.ClearFilter();

    QVERIFY(changed.count() >= 1);
    QVERIFY(editor.IsModified());
    for (const char *key : {"Low", "Medium", "High"})
        QCOMPARE(editor.tree()->CheckValue(QLatin1String(key)), int(XTreeOpt::Checked));
    QCOMPARE(editor.GetFilter()->Selection(), QString());
}

void EnumFilterTest::shouldLetGoOfThePropertyFilterOnClear()
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

QTEST_MAIN(EnumFilterTest)
#include "tst_enumfilter.moc"
