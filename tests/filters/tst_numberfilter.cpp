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

#include <limits>

using namespace PickerCtl;
using FilterTest::bounds;
using FilterTest::child;

namespace {

const QString ReversedMessage = QStringLiteral("Minimum value should be less than the maximum value");

} // namespace

class NumberFilterTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void shouldValidateBounds_data()
    {
        QTest::addColumn<int>("type");
        QTest::addColumn<QString>("minimum");
        QTest::addColumn<QString>("maximum");
        QTest::addColumn<QVariant>("rangeMin");
        QTest::addColumn<QVariant>("rangeMax");
        QTest::addColumn<bool>("valid");
        QTest::addColumn<QString>("focus");
        QTest::addColumn<QString>("message"); // "*": any message

        const QVariant open;
        const auto int16 = [](qint16 end) { return QVariant::fromValue(end); };
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
        QTest::newRow("100,000-character bounds are kept") << 2 << QString(100000, QLatin1Char('9'))
                                                           << QString(100000, QLatin1Char('8')) << open << open << true << "" << "";
        // Hostile input: range ends keep their own width, whitespace is the check's business
        QTest::newRow("16-bit ends stay 16-bit") << 0 << "5" << "500" << int16(1) << int16(500) << true << "" << "";
        QTest::newRow("16-bit end refuses above it") << 0 << "5" << "501" << int16(1) << int16(500) << false << "txtMaxValue" << "*";
        QTest::newRow("32-bit ends stay 32-bit") << 0 << "5" << "2147483647" << QVariant::fromValue(qint32(-5))
                                                 << QVariant::fromValue(qint32(2147483647)) << true << "" << "";
        QTest::newRow("64-bit end stays 64-bit") << 1 << "5" << "1e12" << open << QVariant::fromValue(qint64(1) << 40) << true << "" << "";
        QTest::newRow("NaN end is refused, not converted") << 0 << "5" << "5" << QVariant(std::numeric_limits<double>::quiet_NaN())
                                                           << open << false << "txtMinValue" << "*";
        QTest::newRow("huge real end is compared as a real") << 0 << "5" << "7" << open << QVariant(1e300) << true << "" << "";
        QTest::newRow("spaces around a whole number pass") << 0 << " 42 " << "100" << open << open << true << "" << "";
        QTest::newRow("tab before a whole number is refused") << 0 << "\t42" << "100" << open << open << false << "txtMinValue" << "*";
        QTest::newRow("line break after a whole number is refused") << 0 << "42\r\n" << "100" << open << open << false << "txtMinValue" << "*";
    }

    void shouldValidateBounds()
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
        FilterTest::RecordingScope recording;
        XNumberFilter editor;
        QVERIFY(FilterTest::showActive(&editor));
        editor.SetFilter(bounds(minimum, maximum), type, rangeMin, rangeMax);
        child<QComboBox>(&editor, "cboMin")->setFocus();

        // When the host asks whether they are valid
        const QString untouched = QStringLiteral("untouched");
        QString errorText = untouched;
        const bool answer = editor.IsValid(errorText);

        // Then each check got the host's range ends as they came, the lower bound first
        const auto &calls = *recording.services;
        QCOMPARE(calls.minimumTypes.isEmpty(), type == 2);
        for (qsizetype i = 0; i < calls.minimumTypes.size(); ++i) {
            QCOMPARE(calls.minimumTypes.at(i), rangeMin.metaType());
            QCOMPARE(calls.maximumTypes.at(i), rangeMax.metaType());
        }
        // And the bounds go back as typed
        QCOMPARE(editor.GetFilter()->MinValue().toString(), minimum);
        QCOMPARE(editor.GetFilter()->MaxValue().toString(), maximum);

        // And the answer, the message and the focus tell the user what to fix
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

    void shouldIgnoreBoundsThatAreOffAndNeverWriteTheLoadedValue()
    {
        // Given bounds that were loaded and then switched off, with garbage left in their boxes
        const auto loaded = bounds(9, 1);
        XNumberFilter editor;
        editor.SetFilter(loaded, 0);
        auto *txtMinValue = child<QLineEdit>(&editor, "txtMinValue");
        QCOMPARE(txtMinValue->text(), QStringLiteral("9"));
        txtMinValue->setText(QStringLiteral("junk"));
        child<QComboBox>(&editor, "cboMin")->setCurrentIndex(0);
        child<QComboBox>(&editor, "cboMax")->setCurrentIndex(0);

        // Then they neither fail validation nor reach the new value handed back
        QString errorText;
        QVERIFY(editor.IsValid(errorText));
        const auto value = editor.GetFilter();
        QVERIFY(value != loaded);
        QVERIFY(!value->MinValue().isValid());
        QVERIFY(!value->MaxValue().isValid());
        QVERIFY(!value->HasMinValue() && !value->HasMaxValue());
        QCOMPARE(txtMinValue->text(), QStringLiteral("junk"));
        QCOMPARE(loaded->MinValue(), QVariant(9));
    }

    void shouldRaiseChangedOnUserEditsButNotOnLoading()
    {
        // Given a fresh editor, loaded twice
        XNumberFilter editor;
        QVERIFY(FilterTest::showActive(&editor));
        QSignalSpy changed(&editor, &XNumberFilter::Changed);
        QVERIFY(!editor.IsModified());
        editor.SetFilter(bounds(1, 2), 0);
        editor.SetFilter(nullptr, 0);

        // Then it is clean, silent and empty
        QCOMPARE(changed.count(), 0);
        QVERIFY(!editor.IsModified());
        QCOMPARE(child<QComboBox>(&editor, "cboMin")->currentIndex(), 0);
        QCOMPARE(child<QComboBox>(&editor, "cboMax")->currentIndex(), 0);
        QVERIFY(child<QLineEdit>(&editor, "txtMinValue")->text().isEmpty());
        QVERIFY(child<QLineEdit>(&editor, "txtMaxValue")->text().isEmpty());

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
        editor.SetFilter(nullptr, 0);
        QCOMPARE(changed.count(), 3);
        QVERIFY(!editor.IsModified());

        // But clearing is an edit even when there is nothing to clear
        editor.ClearAll();
        QVERIFY(changed.count() > 3);
        QVERIFY(editor.IsModified());
    }

    void shouldShowAllowedRangeAsToolTip_data()
    {
        QTest::addColumn<QVariant>("rangeMin");
        QTest::addColumn<QVariant>("rangeMax");
        QTest::addColumn<QString>("toolTip");

        QTest::newRow("open below") << QVariant() << QVariant(1000) << "Min Value: Any, Max Value: 1000";
        QTest::newRow("open above") << QVariant(-5) << QVariant() << "Min Value: -5, Max Value: Any";
        QTest::newRow("open range") << QVariant() << QVariant() << "Min Value: Any, Max Value: Any";
        QTest::newRow("real ends") << QVariant(0.5) << QVariant(2.5) << "Min Value: 0.5, Max Value: 2.5";
        QTest::newRow("16-bit ends") << QVariant::fromValue(qint16(1)) << QVariant::fromValue(qint16(500))
                                     << "Min Value: 1, Max Value: 500";
        QTest::newRow("64-bit end") << QVariant() << QVariant::fromValue(qint64(1) << 40)
                                    << "Min Value: Any, Max Value: 1099511627776";
        QTest::newRow("NaN end") << QVariant(std::numeric_limits<double>::quiet_NaN()) << QVariant()
                                 << "Min Value: nan, Max Value: Any";
        QTest::newRow("huge real end") << QVariant() << QVariant(1e300) << "Min Value: Any, Max Value: 1e+300";
    }

    void shouldShowAllowedRangeAsToolTip()
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

    void shouldSelectWholeTextOnKeyboardFocusOnly()
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

    void shouldLeaveEnterAndEscapeToTheHostDialog()
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

        // Enter in a value box and Escape in a list reach the dialog
        auto *txtMinValue = child<QLineEdit>(editor, "txtMinValue");
        txtMinValue->setFocus();
        QTest::keyClick(txtMinValue, Qt::Key_Return);
        QCOMPARE(accepted.count(), 1);
        dialog.show();
        auto *cboMax = child<QComboBox>(editor, "cboMax");
        cboMax->setFocus();
        QTest::keyClick(cboMax, Qt::Key_Escape);
        QCOMPARE(rejected.count(), 1);
    }
};

QTEST_MAIN(NumberFilterTest)
#include "tst_numberfilter.moc"
