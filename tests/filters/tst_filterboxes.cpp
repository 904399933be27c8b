#include "filter_helpers.h"

#include <PickerCtl/XNumberFilter.h>
#include <PickerCtl/XStringFilter.h>
#include <PickerCtl/XTimeFilter.h>

#include <QComboBox>
#include <QLineEdit>
#include <QTest>

#include <limits>

using namespace PickerCtl;
using FilterTest::child;

namespace {

std::unique_ptr<QWidget> makeEditor(const QString &kind)
{
    if (kind == QLatin1String("number"))
        return std::make_unique<XNumberFilter>();
    if (kind == QLatin1String("string"))
        return std::make_unique<XStringFilter>();
    return std::make_unique<XTimeFilter>();
}

} // namespace

// What every editor shows the user: its captions with their access keys, and boxes without a short cap.
class FilterBoxesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void shouldShowItsCaptionsWithTheirAccessKeys_data()
    {
        QTest::addColumn<QString>("editor");
        QTest::addColumn<QString>("widget");
        QTest::addColumn<QString>("caption");

        QTest::newRow("number: value is") << "number" << "Label2" << "Value is:";
        QTest::newRow("number: lower bound list") << "number" << "cboMin" << "at least";
        QTest::newRow("number: and") << "number" << "Label1" << "and";
        QTest::newRow("number: upper bound list") << "number" << "cboMax" << "at most";
        QTest::newRow("string: expression") << "string" << "lblString" << "&Matches Expression:";
        QTest::newRow("string: case") << "string" << "chkMatchCase" << "Match &Case";
        QTest::newRow("string: whole") << "string" << "chkMatchWholeName" << "Match Wh&ole Expression";
        QTest::newRow("string: pattern") << "string" << "chkUsePatternMatching" << "Use &Pattern Matching";
        QTest::newRow("time: all items") << "time" << "optAllItems" << "&All items";
        QTest::newRow("time: filter by date") << "time" << "optFilterByDate" << "&Find all items with values:";
        QTest::newRow("time: minutes") << "time" << "optMinutes" << "du&ring the previous";
        QTest::newRow("time: hours") << "time" << "optHours" << "d&uring the previous";
        QTest::newRow("time: days") << "time" << "optDays" << "&during the previous";
        QTest::newRow("time: months") << "time" << "optMonths" << "during the previou&s";
        QTest::newRow("time: minutes unit") << "time" << "Label1" << "minute(s)";
        QTest::newRow("time: hours unit") << "time" << "lblHours" << "hour(s)";
        QTest::newRow("time: days unit") << "time" << "lblDays" << "day(s)";
        QTest::newRow("time: months unit") << "time" << "lblMonths" << "month(s)";
        QTest::newRow("time: between") << "time" << "optDates" << "&between";
        QTest::newRow("time: and") << "time" << "lblAnd" << "and";
    }

    void shouldShowItsCaptionsWithTheirAccessKeys()
    {
        QFETCH(QString, editor);
        QFETCH(QString, widget);
        QFETCH(QString, caption);

        const auto control = makeEditor(editor);
        const auto *shown = child<QWidget>(control.get(), widget);
        QVERIFY(shown);
        // A bound list offers nothing (no bound) and then its bound
        if (const auto *list = qobject_cast<const QComboBox *>(shown)) {
            QCOMPARE(list->count(), 2);
            QCOMPARE(list->itemText(0), QString());
            QCOMPARE(list->itemText(1), caption);
        } else {
            QCOMPARE(shown->property("text").toString(), caption);
        }
    }

    void shouldHoldEveryCharacterOfALongText_data()
    {
        QTest::addColumn<QString>("editor");
        QTest::addColumn<QString>("box");
        QTest::newRow("number filter lower bound") << "number" << "txtMinValue";
        QTest::newRow("number filter upper bound") << "number" << "txtMaxValue";
        QTest::newRow("string filter expression") << "string" << "txtExpression";
        QTest::newRow("time filter minutes") << "time" << "txtMinutes";
        QTest::newRow("time filter hours") << "time" << "txtHours";
        QTest::newRow("time filter days") << "time" << "txtDays";
        QTest::newRow("time filter months") << "time" << "txtMonths";
    }

    void shouldHoldEveryCharacterOfALongText()
    {
        QFETCH(QString, editor);
        QFETCH(QString, box);
        const auto control = makeEditor(editor);
        auto *lineEdit = child<QLineEdit>(control.get(), box);
        QVERIFY(lineEdit);

        // Three times QLineEdit's default cap of 32,767 characters
        const QString text = QString(99999, QLatin1Char('9')) + QLatin1Char('x');
        lineEdit->setText(text);

        QCOMPARE(lineEdit->maxLength(), std::numeric_limits<int>::max());
        QCOMPARE(lineEdit->text(), text);
    }
};

QTEST_MAIN(FilterBoxesTest)
#include "tst_filterboxes.moc"
