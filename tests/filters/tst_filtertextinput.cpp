#include "filter_helpers.h"

#include <PickerCtl/XNumberFilter.h>
#include <PickerCtl/XStringFilter.h>
#include <PickerCtl/XTimeFilter.h>

#include <QLineEdit>
#include <QTest>

#include <limits>

using namespace PickerCtl;
using FilterTest::child;

namespace {

// Three times QLineEdit's default cap of 32,767 characters.
constexpr int LongLength = 100000;

QString longText(QChar last)
{
    QString text(LongLength - 1, QLatin1Char('9'));
    text.append(last);
    return text;
}

StringFilterValuePtr expression(const QString &text)
{
    auto value = std::make_shared<StringFilterValue>();
    value->setExpression(text);
    return value;
}

} // namespace

class FilterTextInputTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
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
        std::unique_ptr<QWidget> widget;
        if (editor == QLatin1String("number"))
            widget = std::make_unique<XNumberFilter>();
        else if (editor == QLatin1String("string"))
            widget = std::make_unique<XStringFilter>();
        else
            widget = std::make_unique<XTimeFilter>();
        auto *lineEdit = child<QLineEdit>(widget.get(), box.toLatin1().constData());
        QVERIFY(lineEdit);

        const QString text = longText(QLatin1Char('x'));
        lineEdit->setText(text);

        QCOMPARE(lineEdit->maxLength(), std::numeric_limits<int>::max());
        QCOMPARE(lineEdit->text().size(), LongLength);
        QCOMPARE(lineEdit->text(), text);
    }

    void shouldRoundTripALongExpressionAndBounds()
    {
        const QString text = longText(QLatin1Char('z'));

        XStringFilter strings;
        strings.SetFilter(expression(text));
        QCOMPARE(strings.GetFilter()->Expression(), text);

        auto bounds = std::make_shared<NumberFilterValue>();
        bounds->setMinValue(text);
        bounds->setMaxValue(longText(QLatin1Char('8')));
        XNumberFilter numbers;
        numbers.SetFilter(bounds, 2);
        const auto back = numbers.GetFilter();
        QCOMPARE(back->MinValue().toString(), text);
        QCOMPARE(back->MaxValue().toString(), longText(QLatin1Char('8')));
    }

    void shouldTrimOnlySpacesFromTheExpression_data()
    {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QString>("expression");
        QTest::newRow("spaces around are trimmed") << "  Name* " << "Name*";
        QTest::newRow("only spaces is empty") << "    " << "";
        QTest::newRow("tab is kept") << "\tName" << "\tName";
        QTest::newRow("line break is kept") << "Name\n" << "Name\n";
        QTest::newRow("spaces outside a tab go") << "  \tName\t  " << "\tName\t";
        QTest::newRow("no-break space is kept") << QString(QChar(0x00A0)) + "Name" << QString(QChar(0x00A0)) + "Name";
        QTest::newRow("inner spaces are kept") << " a  b " << "a  b";
    }

    void shouldTrimOnlySpacesFromTheExpression()
    {
        QFETCH(QString, typed);
        QFETCH(QString, expression);
        XStringFilter editor;
        editor.SetFilter(nullptr);
        child<QLineEdit>(&editor, "txtExpression")->setText(typed);
        QCOMPARE(editor.GetFilter()->Expression(), expression);
    }

    void shouldHandBackNumberBoundsAsTyped_data()
    {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<bool>("valid");
        QTest::newRow("spaces around a whole number pass") << " 42 " << true;
        QTest::newRow("tab before a whole number is refused") << "\t42" << false;
        QTest::newRow("line break after a whole number is refused") << "42\r\n" << false;
    }

    // The bounds go back unchanged; only the check decides what whitespace means.
    void shouldHandBackNumberBoundsAsTyped()
    {
        QFETCH(QString, typed);
        QFETCH(bool, valid);
        auto bounds = std::make_shared<NumberFilterValue>();
        bounds->setMinValue(typed);
        XNumberFilter editor;
        editor.SetFilter(bounds, 0);
        QString errorText;
        QCOMPARE(editor.IsValid(errorText), valid);
        QCOMPARE(editor.GetFilter()->MinValue().toString(), typed);
    }
};

QTEST_MAIN(FilterTextInputTest)
#include "tst_filtertextinput.moc"
