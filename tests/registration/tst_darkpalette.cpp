#include "fieldpicker_helpers.h"

#include "control_rows.h"

#include <PickerCtl/ControlFactory.h>
#include <PickerCtl/XFieldPicker.h>

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QApplication>
#include <QHash>
#include <QLabel>
#include <QLineEdit>
#include <QTest>

using namespace PickerCtl;
using namespace PickerCtl::testsupport;

namespace {

// The least contrast that normal text needs to be read (WCAG's 4.5:1).
constexpr double ReadableContrast = 4.5;

QPalette darkPalette()
{
    QPalette dark;
    dark.setColor(QPalette::Window, QColor(0x20, 0x20, 0x20));
    dark.setColor(QPalette::WindowText, QColor(0xe0, 0xe0, 0xe0));
    dark.setColor(QPalette::Base, QColor(0x1a, 0x1a, 0x1a));
    dark.setColor(QPalette::AlternateBase, QColor(0x2a, 0x2a, 0x2a));
    dark.setColor(QPalette::Text, QColor(0xe6, 0xe6, 0xe6));
    dark.setColor(QPalette::Button, QColor(0x30, 0x30, 0x30));
    dark.setColor(QPalette::ButtonText, QColor(0xe0, 0xe0, 0xe0));
    dark.setColor(QPalette::Highlight, QColor(0x2a, 0x5d, 0x9f));
    dark.setColor(QPalette::HighlightedText, Qt::white);
    dark.setColor(QPalette::ToolTipBase, QColor(0x30, 0x30, 0x30));
    dark.setColor(QPalette::ToolTipText, QColor(0xe0, 0xe0, 0xe0));
    dark.setColor(QPalette::PlaceholderText, QColor(0xa0, 0xa0, 0xa0));
    return dark;
}

double luminance(const QColor &color)
{
    const auto channel = [](double c) { return c <= 0.03928 ? c / 12.92 : std::pow((c + 0.055) / 1.055, 2.4); };
    return 0.2126 * channel(color.redF()) + 0.7152 * channel(color.greenF()) + 0.0722 * channel(color.blueF());
}

double contrast(const QColor &a, const QColor &b)
{
    const double la = luminance(a);
    const double lb = luminance(b);
    return (std::max(la, lb) + 0.05) / (std::min(la, lb) + 0.05);
}

// The colour most pixels of the line have: a row's background, whatever text stands on it.
QColor backgroundOfLine(const QImage &image, int y, int left, int right)
{
    QHash<QRgb, int> counts;
    for (int x = left; x <= right; ++x)
        ++counts[image.pixel(x, y)];
    QRgb most = 0;
    int best = -1;
    for (auto it = counts.cbegin(); it != counts.cend(); ++it) {
        if (it.value() > best) {
            best = it.value();
            most = it.key();
        }
    }
    return QColor::fromRgb(most);
}

} // namespace

class DarkPaletteTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void shouldKeepEveryTextReadable_data();
    void shouldKeepEveryTextReadable();
    void shouldKeepEveryListRowReadable();

private:
    QPalette m_previous;
    std::unique_ptr<ServicesScope> m_services;
};

void DarkPaletteTest::init()
{
    m_previous = QApplication::palette();
    QApplication::setPalette(darkPalette());
    m_services = std::make_unique<ServicesScope>(makeSampleCatalog());
}

void DarkPaletteTest::cleanup()
{
    m_services.reset();
    QApplication::setPalette(m_previous);
}

void DarkPaletteTest::shouldKeepEveryTextReadable_data()
{
    TestRows::addControlRows();
}

void DarkPaletteTest::shouldKeepEveryTextReadable()
{
    QFETCH(QString, className);

    // Given a control on a form under a dark desktop palette
    const auto control = TestRows::shownControl(className);
    QVERIFY(control);

    // Then every text it shows stands out from the background it is drawn on
    const auto children = control->findChildren<QWidget *>();
    for (const QWidget *child : children) {
        if (!child->isVisibleTo(control.get()))
            continue;
        QColor text;
        QColor back;
        if (qobject_cast<const QLineEdit *>(child) || qobject_cast<const QAbstractItemView *>(child)) {
            text = child->palette().color(QPalette::Text);
            back = child->palette().color(QPalette::Base);
        } else if (qobject_cast<const QLabel *>(child) || qobject_cast<const QAbstractButton *>(child)) {
            text = child->palette().color(child->foregroundRole());
            back = child->palette().color(child->backgroundRole());
        } else {
            continue;
        }
        QVERIFY2(contrast(text, back) >= ReadableContrast,
                 qPrintable(QStringLiteral("%1: %2 on %3").arg(child->objectName(), text.name(), back.name())));
    }
}

void DarkPaletteTest::shouldKeepEveryListRowReadable()
{
    // Given the field browser showing a category of three fields under a dark palette
    XFieldPicker picker;
    picker.InitProperties();
    picker.resize(picker.sizeHint());
    picker.show();
    QVERIFY(QTest::qWaitForWindowExposed(&picker));
    QVERIFY(picker.Load(QLatin1String(ReportsApp), QStringLiteral("Region")));
    QCOMPARE(picker.ListCount(), 3);

    // When it is drawn
    auto *list = picker.findChild<XStaticList *>(QStringLiteral("stl"));
    QVERIFY(list);
    QAbstractItemView *view = list->view();
    QVERIFY(view);
    const QImage image = view->viewport()->grab().toImage();

    // Then each row's background, banded or not, leaves the list's text readable
    const QColor text = view->palette().color(QPalette::Text);
    for (int row = 0; row < view->model()->rowCount(); ++row) {
        const QRect rect = view->visualRect(view->model()->index(row, 0));
        QVERIFY(!rect.isEmpty());
        const QColor back = backgroundOfLine(image, rect.center().y(), rect.left(), rect.right());
        QVERIFY2(contrast(text, back) >= ReadableContrast,
                 qPrintable(QStringLiteral("row %1: %2 on %3").arg(row).arg(text.name(), back.name())));
    }
}

QTEST_MAIN(DarkPaletteTest)
#include "tst_darkpalette.moc"
