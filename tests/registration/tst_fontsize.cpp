#include "fieldpicker_helpers.h"

#include "control_rows.h"

#include <PickerCtl/ControlFactory.h>

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QFontMetrics>
#include <QLabel>
#include <QLineEdit>
#include <QTest>

using namespace PickerCtl;
using namespace PickerCtl::testsupport;

namespace {

// A large desktop font, as users with poor sight or high-resolution screens set it.
constexpr int LargePointSize = 15;

// The pieces that show a line of text in a height of their own: a piece lower than its font's
// line cuts the text off. Arrow buttons show no text.
bool showsOneLine(const QWidget *child)
{
    if (const auto *button = qobject_cast<const QAbstractButton *>(child))
        return !button->text().isEmpty();
    return qobject_cast<const QLabel *>(child) || qobject_cast<const QComboBox *>(child)
        || qobject_cast<const QLineEdit *>(child);
}

QString describe(const QWidget *child, int height, int line)
{
    return QStringLiteral("%1 (%2) is %3 px high, its font's line %4 px")
        .arg(child->objectName(), QString::fromLatin1(child->metaObject()->className()))
        .arg(height)
        .arg(line);
}

// Every line of text the control shows, and every first row of its lists, has its font's height.
void verifyNothingClipped(const QWidget *control)
{
    const auto children = control->findChildren<QWidget *>();
    for (const QWidget *child : children) {
        if (!child->isVisibleTo(control))
            continue;
        const int line = QFontMetrics(child->font()).height();
        if (showsOneLine(child)) {
            const int inner = child->contentsRect().height();
            QVERIFY2(inner >= line, qPrintable(describe(child, inner, line)));
        } else if (const auto *view = qobject_cast<const QAbstractItemView *>(child)) {
            const QModelIndex first = view->model() ? view->model()->index(0, 0) : QModelIndex();
            if (first.isValid()) {
                const int row = view->visualRect(first).height();
                QVERIFY2(row >= line, qPrintable(describe(child, row, line)));
            }
        }
    }
}

int twipsToPixels(const QWidget *widget, double twips)
{
    return qRound(twips * widget->logicalDpiY() / 1440.0);
}

} // namespace

class FontSizeTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void shouldNotClipAnyTextAtALargeFont_data();
    void shouldNotClipAnyTextAtALargeFont();
    void shouldKeepTheDesignedHeaderAtTheNormalFont();
    void shouldGrowTheHeadersWhenTheBrowsersFontGrows();
    void shouldGiveTheBrowsersDesignedFontToItsTreeAndList();

private:
    QFont m_previous;
    std::unique_ptr<ServicesScope> m_services;
};

void FontSizeTest::init()
{
    m_previous = QApplication::font();
    m_services = std::make_unique<ServicesScope>(makeSampleCatalog());
}

void FontSizeTest::cleanup()
{
    m_services.reset();
    QApplication::setFont(m_previous);
}

void FontSizeTest::shouldNotClipAnyTextAtALargeFont_data()
{
    TestRows::addControlRows();
}

void FontSizeTest::shouldNotClipAnyTextAtALargeFont()
{
    QFETCH(QString, className);

    // Given a 15 pt desktop font
    QFont large = QApplication::font();
    large.setPointSize(LargePointSize);
    QApplication::setFont(large);

    // When a control is shown at its preferred size
    const auto control = TestRows::shownControl(className);
    QVERIFY(control);

    // Then no caption, label, option, list or text box is lower than its font's line
    QCOMPARE(control->font().pointSize(), LargePointSize);
    verifyNothingClipped(control.get());
}

void FontSizeTest::shouldKeepTheDesignedHeaderAtTheNormalFont()
{
    // Given a field browser under the normal desktop font
    std::unique_ptr<QWidget> control(ControlFactory::create(QStringLiteral("XFieldPicker")));
    QVERIFY(control);
    control->resize(400, 300);
    control->show();
    QVERIFY(QTest::qWaitForWindowExposed(control.get()));

    // Then its headers keep the designed 255 twips and the panes start 30 twips below
    const auto *header = control->findChild<QLabel *>(QStringLiteral("lblHeaderLeft"));
    const auto *tree = control->findChild<QWidget *>(QStringLiteral("tvw"));
    QVERIFY(header && tree);
    QCOMPARE(header->height(), twipsToPixels(control.get(), 255));
    QCOMPARE(tree->y(), twipsToPixels(control.get(), 285));
}

void FontSizeTest::shouldGrowTheHeadersWhenTheBrowsersFontGrows()
{
    // Given a field browser shown under the normal font
    std::unique_ptr<QWidget> control(ControlFactory::create(QStringLiteral("XFieldPicker")));
    QVERIFY(control);
    control->resize(400, 300);
    control->show();
    QVERIFY(QTest::qWaitForWindowExposed(control.get()));
    const QSize normalHint = control->sizeHint();

    // When its font is set to 15 pt
    QFont large = control->font();
    large.setPointSize(LargePointSize);
    control->setFont(large);

    // Then the headers hold the larger caption, the panes move down under them, and the
    // control asks for the extra room
    const auto *header = control->findChild<QLabel *>(QStringLiteral("lblHeaderLeft"));
    const auto *tree = control->findChild<QWidget *>(QStringLiteral("tvw"));
    QVERIFY(header && tree);
    QVERIFY2(header->contentsRect().height() >= QFontMetrics(header->font()).height(),
             qPrintable(describe(header, header->contentsRect().height(), QFontMetrics(header->font()).height())));
    QVERIFY(tree->y() > header->geometry().bottom());
    QVERIFY(control->sizeHint().height() > normalHint.height());
}

void FontSizeTest::shouldGiveTheBrowsersDesignedFontToItsTreeAndList()
{
    // Given a field browser, as Designer creates it
    std::unique_ptr<QWidget> control(ControlFactory::create(QStringLiteral("XFieldPicker")));
    QVERIFY(control);

    // When a form sets its "font" property to another family and size, as a .ui file does
    const QFont designed(QStringLiteral("DejaVu Serif"), LargePointSize);
    QVERIFY(control->setProperty("font", designed));

    // Then the tree and the list show that family at that size, not only the headers
    for (const auto *name : {"tvw", "stl"}) {
        const auto *pane = control->findChild<QWidget *>(QLatin1String(name));
        QVERIFY2(pane, name);
        QCOMPARE(pane->font().family(), designed.family());
        QCOMPARE(pane->font().pointSize(), LargePointSize);
    }
}

QTEST_MAIN(FontSizeTest)
#include "tst_fontsize.moc"
