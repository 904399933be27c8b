#include "filter_helpers.h"

#include <QApplication>
#include <QLineEdit>
#include <QTest>

using namespace PickerCtl;

namespace FilterTest {

bool showActive(QWidget *editor)
{
    editor->show();
    editor->activateWindow();
    QApplication::setActiveWindow(editor->window());
    return QTest::qWaitForWindowActive(editor->window());
}

bool wholeTextSelected(const QWidget *lineEdit)
{
    const auto *box = qobject_cast<const QLineEdit *>(lineEdit);
    return box && !box->text().isEmpty() && box->selectedText() == box->text();
}

NumberFilterValuePtr bounds(const QVariant &minimum, const QVariant &maximum)
{
    auto value = std::make_shared<NumberFilterValue>();
    value->setMinValue(minimum);
    value->setMaxValue(maximum);
    return value;
}

StringFilterValuePtr match(const QString &expression, bool pattern, bool whole, bool matchCase)
{
    auto value = std::make_shared<StringFilterValue>();
    value->setExpression(expression);
    value->setUsePatternMatching(pattern);
    value->setMatchWholeName(whole);
    value->setMatchCase(matchCase);
    return value;
}

TimeFilterValuePtr relative(qint32 unit, qint32 count)
{
    auto value = std::make_shared<TimeFilterValue>();
    value->setIsRelative(true);
    value->setRelativeUnit(unit);
    value->setRelativeCount(count);
    return value;
}

TimeFilterValuePtr absolute(const QDateTime &start, const QDateTime &end)
{
    auto value = std::make_shared<TimeFilterValue>();
    value->setStartTime(start);
    value->setEndTime(end);
    return value;
}

EnumFilterValuePtr selecting(const QString &selection)
{
    if (selection == QLatin1String("<no filter>"))
        return nullptr;
    auto value = std::make_shared<EnumFilterValue>();
    value->setSelection(selection);
    return value;
}

ListViewPropertiesPtr titled(const QString &title)
{
    auto properties = std::make_shared<ListViewProperties>();
    properties->setTitle(title);
    return properties;
}

} // namespace FilterTest
