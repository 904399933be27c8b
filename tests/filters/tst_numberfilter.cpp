#include "filter_helpers.h"

#include <PickerCtl/XNumberFilter.h>

#include <QComboBox>
#include <QDialog>
#include <QDialogButtonBox>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>
#include <QVBoxLayout>

using namespace PickerCtl;
using FilterTest::child;

namespace {

const QString ReversedMessage = QStringLiteral("Minimum value should be less than the maximum value");

NumberFilterValuePtr bounds(const QVariant &minimum, const QVariant &maximum)
{
    auto value = std::make_shared<NumberFilterValue>();
    value->setMinValue(minimum);
    value->setMaxValue(maximum);
    return value;
}

} // namespace

class NumberFilterTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void shouldValidateBounds_data();
    void shouldValidateBounds();
    void shouldIgnoreBoundsThatAreOff();
    void shouldStartCleanAndStayCleanWhenLoaded();
    void shouldRaiseChangedOnEveryUserEdit();
    void shouldRaiseChangedOnClearAllEvenWhenAlreadyEmpty();
    void shouldShowAllowedRangeAsToolTip_data();
    void shouldShowAllowedRangeAsToolTip();
    void shouldHandBackTypedTextWithoutTouchingTheLoadedValue();
    void shouldSelectWholeTextOnKeyboardFocusOnly();
    void shouldLeaveEnterAndEscapeToTheHostDialog();
};

void NumberFilterTest::shouldValidateBounds_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<QString>("minimum");
    QTest::addColumn<QString>("maximum");
    QTest::addColumn<QVariant>("rangeMin");
    QTest::addColumn<QVariant>("rangeMax");
    QTest::addColumn<bool>("valid");
    QTest::addColumn<QString>("focus");
    QTest::addColumn<QString>("message");

    const QVariant open;
    QTest::newRow("whole numbers in order") << 0 << "5" << "10" << open << open << true << "" << "";
    QTest::newRow("equal bounds pass") << 0 << "5" << "5" << open << open << true << "" << "";
    QTest::newRow("reversed whole numbers") << 0 << "6" << "5" << open << open << false << "txtMinValue" << ReversedMessage;
    QTest::newRow("reversed real numbers") << 1 << "2.5" << "1.5" << open << open << false << "txtMinValue" << ReversedMessage;
    QTest::newRow("real numbers in order") << 1 << "1.25" << "1.5" << open << open << true << "" << "";
    QTest::newRow("fraction is no whole number") << 0 << "2.5" << "3" << open << open << false << "txtMinValue" << "*";
    QTest::newRow("bad lower bound reported first") << 0 << "abc" << "xyz" << open << open << false << "txtMinValue" << "*";
    QTest::newRow("bad upper bound") << 1 << "1" << "xyz" << open << open << false << "txtMaxValue" << "*";
    QTest::newRow("lower bound below range") << 0 << "-1" << "50" << QVariant(0) << QVariant(100) << false << "txtMinValue" << "*";
    QTest::newRow("upper bound above range") << 0 << "1" << "150" << QVariant(0) << QVariant(100) << false << "txtMaxValue" << "*";
    QTest::newRow("range ends included") << 0 << "0" << "100" << QVariant(0) << QVariant(100) << true << "" << "";
    QTest::newRow("unknown type checks nothing") << 2 << "abc" << "-" << open << open << true << "" << "";
}

void NumberFilterTest::shouldValidateBounds()
{
    QFETCH(int, type);
    QFETCH(QString, minimum);
    QFETCH(QString, maximum);
    QFETCH(QVariant, rangeMin);
    QFETCH(QVariant, rangeMax);
    QFETCH(bool, valid);
    QFETCH(QString, focus);
    QFETCH(QString, message);

    // Given an editor with both bounds switched on
    XNumberFilter editor;
    QVERIFY(FilterTest::showActive(&editor));
    editor.SetFilter(bounds(minimum, maximum), type, rangeMin, rangeMax);
    child<QComboBox>(&editor, "cboMin")->setFocus();

    // When the host asks whether they are valid
    const QString untouched = QStringLiteral("untouched");
    QString errorText = untouched;
    const bool answer = editor.IsValid(errorText);

    // Then the answer, the message and the focus tell the user what to fix
    QCOMPARE(answer, valid);
    if (valid) {
        QCOMPARE(errorText, untouched);
        return;
    }
    if (message == QLatin1String("*"))
        QVERIFY(!errorText.isEmpty() && errorText != untouched);
    else
        QCOMPARE(errorText, message);
    QCOMPARE(QApplication::focusWidget()->objectName(), focus);
    QVERIFY(FilterTest::wholeTextSelected(QApplication::focusWidget()));
}

void NumberFilterTest::shouldIgnoreBoundsThatAreOff()
{
    // Given bounds that were loaded and then switched off, with garbage left in their boxes
    XNumberFilter editor;
    editor.SetFilter(bounds(QStringLiteral("9"), QStringLiteral("1")), 0);
    child<QLineEdit>(&editor, "txtMinValue")->setText(QStringLiteral("junk"));
    child<QComboBox>(&editor, "cboMin")->setCurrentIndex(0);
    child<QComboBox>(&editor, "cboMax")->setCurrentIndex(0);

    // Then they neither fail validation nor reach the value handed back
    QString errorText;
    QVERIFY(editor.IsValid(errorText));
    const auto value = editor.GetFilter();
    QVERIFY(!value->MinValue().isValid());
    QVERIFY(!value->MaxValue().isValid());
    QVERIFY(!value->HasMinValue() && !value->HasMaxValue());
    QCOMPARE(child<QLineEdit>(&editor, "txtMinValue")->text(), QStringLiteral("junk"));
}

void NumberFilterTest::shouldStartCleanAndStayCleanWhenLoaded()
{
    XNumberFilter editor;
    QSignalSpy changed(&editor, &XNumberFilter::Changed);
    QVERIFY(!editor.IsModified());

    editor.SetFilter(bounds(1, 2), 0);
    editor.SetFilter(nullptr, 1);

    QCOMPARE(changed.count(), 0);
    QVERIFY(!editor.IsModified());
    QCOMPARE(child<QComboBox>(&editor, "cboMin")->currentIndex(), 0);
    QCOMPARE(child<QComboBox>(&editor, "cboMax")->currentIndex(), 0);
    QVERIFY(child<QLineEdit>(&editor, "txtMinValue")->text().isEmpty());
    QVERIFY(child<QLineEdit>(&editor, "txtMaxValue")->text().isEmpty());
}

void NumberFilterTest::shouldRaiseChangedOnEveryUserEdit()
{
    // Given a loaded editor
    XNumberFilter editor;
    QVERIFY(FilterTest::showActive(&editor));
    editor.SetFilter(nullptr, 0);
    QSignalSpy changed(&editor, &XNumberFilter::Changed);

    // When the user switches the lower bound on and types a number
    auto *cboMin = child<QComboBox>(&editor, "cboMin");
    cboMin->setFocus(Qt::TabFocusReason);
    QTest::keyClick(cboMin, Qt::Key_Down);
    QTest::keyClicks(child<QLineEdit>(&editor, "txtMinValue"), QStringLiteral("42"));

    // Then each edit was reported and the value carries the bound
    QCOMPARE(changed.count(), 3);
    QVERIFY(editor.IsModified());
    QCOMPARE(editor.GetFilter()->MinValue(), QVariant(QStringLiteral("42")));

    // And loading again starts over without a word
    editor.SetFilter(bounds(1, QVariant()), 0);
    QCOMPARE(changed.count(), 3);
    QVERIFY(!editor.IsModified());
}

void NumberFilterTest::shouldRaiseChangedOnClearAllEvenWhenAlreadyEmpty()
{
    XNumberFilter editor;
    editor.SetFilter(nullptr, 0);
    QSignalSpy changed(&editor, &XNumberFilter::Changed);

    editor.ClearAll();

    QVERIFY(changed.count() >= 1);
    QVERIFY(editor.IsModified());
}

void NumberFilterTest::shouldShowAllowedRangeAsToolTip_data()
{
    QTest::addColumn<QVariant>("rangeMin");
    QTest::addColumn<QVariant>("rangeMax");
    QTest::addColumn<QString>("toolTip");

    QTest::newRow("open below") << QVariant() << QVariant(1000) << "Min Value: Any, Max Value: 1000";
    QTest::newRow("open above") << QVariant(-5) << QVariant() << "Min Value: -5, Max Value: Any";
    QTest::newRow("open range") << QVariant() << QVariant() << "Min Value: Any, Max Value: Any";
    QTest::newRow("real ends") << QVariant(0.5) << QVariant(2.5) << "Min Value: 0.5, Max Value: 2.5";
}

void NumberFilterTest::shouldShowAllowedRangeAsToolTip()
{
    QFETCH(QVariant, rangeMin);
    QFETCH(QVariant, rangeMax);
    QFETCH(QString, toolTip);

    XNumberFilter editor;
    editor.SetFilter(nullptr, 1, rangeMin, rangeMax);
    QCOMPARE(child<QLineEdit>(&editor, "txtMinValue")->toolTip(), toolTip);
    QCOMPARE(child<QLineEdit>(&editor, "txtMaxValue")->toolTip(), toolTip);

    // The range stays in force when the user clears the bounds
    editor.ClearAll();
    QCOMPARE(child<QLineEdit>(&editor, "txtMaxValue")->toolTip(), toolTip);
}

void NumberFilterTest::shouldHandBackTypedTextWithoutTouchingTheLoadedValue()
{
    const auto loaded = bounds(QVariant(7), QVariant());
    XNumberFilter editor;
    editor.SetFilter(loaded, 0);
    auto *txtMinValue = child<QLineEdit>(&editor, "txtMinValue");
    QCOMPARE(txtMinValue->text(), QStringLiteral("7"));

    txtMinValue->setText(QStringLiteral(" 007"));
    const auto handedBack = editor.GetFilter();

    QVERIFY(handedBack != loaded);
    QCOMPARE(handedBack->MinValue(), QVariant(QStringLiteral(" 007")));
    QCOMPARE(loaded->MinValue(), QVariant(7));
    QVERIFY(!loaded->HasMaxValue());
}

void NumberFilterTest::shouldSelectWholeTextOnKeyboardFocusOnly()
{
    XNumberFilter editor;
    QVERIFY(FilterTest::showActive(&editor));
    editor.SetFilter(bounds(QStringLiteral("123"), QStringLiteral("456")), 0);
    auto *cboMin = child<QComboBox>(&editor, "cboMin");
    auto *txtMinValue = child<QLineEdit>(&editor, "txtMinValue");
    auto *txtMaxValue = child<QLineEdit>(&editor, "txtMaxValue");

    // Tab from the list into its box selects the whole bound, so typing replaces it
    cboMin->setFocus(Qt::OtherFocusReason);
    QTest::keyClick(cboMin, Qt::Key_Tab);
    QCOMPARE(QApplication::focusWidget(), txtMinValue);
    QVERIFY(FilterTest::wholeTextSelected(txtMinValue));

    // A click into the other box keeps the caret where the user clicked
    QTest::mouseClick(txtMaxValue, Qt::LeftButton, Qt::NoModifier, QPoint(4, txtMaxValue->height() / 2));
    QCOMPARE(QApplication::focusWidget(), txtMaxValue);
    QVERIFY(!txtMaxValue->hasSelectedText());

    // Backtab back into the first box selects again
    QTest::keyClick(txtMaxValue, Qt::Key_Backtab);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Backtab);
    QCOMPARE(QApplication::focusWidget(), txtMinValue);
    QVERIFY(FilterTest::wholeTextSelected(txtMinValue));
}

void NumberFilterTest::shouldLeaveEnterAndEscapeToTheHostDialog()
{
    // Given the editor in a host dialog with default and cancel buttons
    QDialog dialog;
    auto *editor = new XNumberFilter(&dialog);
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, &dialog);
    auto *layout = new QVBoxLayout(&dialog);
    layout->addWidget(editor);
    layout->addWidget(buttons);
    connect(buttons, &QDialogButtonBox::accepted, &dialog, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, &dialog, &QDialog::reject);
    buttons->button(QDialogButtonBox::Ok)->setDefault(true);
    QVERIFY(FilterTest::showActive(&dialog));
    QSignalSpy accepted(&dialog, &QDialog::accepted);
    QSignalSpy rejected(&dialog, &QDialog::rejected);
    auto *txtMinValue = child<QLineEdit>(editor, "txtMinValue");
    auto *cboMax = child<QComboBox>(editor, "cboMax");

    // Enter in a value box and Escape in a list reach the dialog
    txtMinValue->setFocus();
    QTest::keyClick(txtMinValue, Qt::Key_Return);
    QCOMPARE(accepted.count(), 1);
    dialog.show();
    cboMax->setFocus();
    QTest::keyClick(cboMax, Qt::Key_Escape);
    QCOMPARE(rejected.count(), 1);
}

QTEST_MAIN(NumberFilterTest)
#include "tst_numberfilter.moc"
