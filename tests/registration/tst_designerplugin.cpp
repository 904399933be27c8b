#include <PickerCtl/ControlFactory.h>

#include <QApplication>
#include <QImageReader>
#include <QPluginLoader>
#include <QTest>
#include <QXmlStreamReader>
#include <QtUiPlugin/QDesignerCustomWidgetCollectionInterface>

using namespace PickerCtl;

namespace {

// Windows that no widget owns; a control's own popup menus belong to it.
int ownerlessWindows()
{
    const auto windows = QApplication::topLevelWidgets();
    return int(std::count_if(windows.begin(), windows.end(), [](const QWidget *w) { return !w->parentWidget(); }));
}

} // namespace

class DesignerPluginTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void shouldOfferEveryControlOfTheFactoryInOneGroup();
    void shouldDescribeEachControlForTheWidgetBox_data();
    void shouldDescribeEachControlForTheWidgetBox();
    void shouldPutTheDesignTimeDefaultsIntoTheForm_data();
    void shouldPutTheDesignTimeDefaultsIntoTheForm();
    void shouldCreateUnderTheGivenParentWithoutTouchingTheApplication_data();
    void shouldCreateUnderTheGivenParentWithoutTouchingTheApplication();

private:
    QDesignerCustomWidgetInterface *control(const QString &name) const;

    QPluginLoader m_loader{QStringLiteral(PICKERCTL_DESIGNER_PLUGIN_FILE)};
    QDesignerCustomWidgetCollectionInterface *m_collection = nullptr;
};

void DesignerPluginTest::initTestCase()
{
    QVERIFY2(m_loader.load(), qPrintable(m_loader.errorString()));
    m_collection = qobject_cast<QDesignerCustomWidgetCollectionInterface *>(m_loader.instance());
    QVERIFY(m_collection);
}

QDesignerCustomWidgetInterface *DesignerPluginTest::control(const QString &name) const
{
    const auto widgets = m_collection->customWidgets();
    for (auto *widget : widgets) {
        if (widget->name() == name)
            return widget;
    }
    return nullptr;
}

void DesignerPluginTest::shouldOfferEveryControlOfTheFactoryInOneGroup()
{
    QStringList expected;
    const auto controls = ControlFactory::controls();
    for (const auto &description : controls)
        expected << QStringLiteral("PickerCtl::") + description.className;

    QStringList offered;
    const auto widgets = m_collection->customWidgets();
    for (auto *widget : widgets) {
        offered << widget->name();
        QCOMPARE(widget->group(), QStringLiteral("PickerCtl"));
    }
    QCOMPARE(offered, expected);
}

void DesignerPluginTest::shouldDescribeEachControlForTheWidgetBox_data()
{
    QTest::addColumn<QString>("className");
    const auto controls = ControlFactory::controls();
    for (const auto &description : controls)
        QTest::newRow(qPrintable(description.className)) << description.className;
}

void DesignerPluginTest::shouldDescribeEachControlForTheWidgetBox()
{
    QFETCH(QString, className);
    auto *widget = control(QStringLiteral("PickerCtl::") + className);
    QVERIFY(widget);

    QVERIFY(!widget->icon().isNull());
    if (QImageReader::supportedImageFormats().contains("svg"))
        QVERIFY(!widget->icon().pixmap(22, 22).isNull());
    QVERIFY(!widget->toolTip().isEmpty());
    QVERIFY(!widget->whatsThis().isEmpty());
    QVERIFY(!widget->isContainer());
    // uic includes this header for the generated member of that class.
    QCOMPARE(widget->includeFile(), QStringLiteral("<PickerCtl/%1.h>").arg(className));

    // Designer reads the class and the first object name from the DOM it is given.
    QXmlStreamReader xml(widget->domXml());
    while (xml.readNextStartElement() && xml.name() != QLatin1String("widget")) {
    }
    QVERIFY2(!xml.hasError(), qPrintable(xml.errorString()));
    QCOMPARE(xml.name(), QLatin1String("widget"));
    QCOMPARE(xml.attributes().value(QLatin1String("class")).toString(), widget->name());
    QVERIFY(!xml.attributes().value(QLatin1String("name")).isEmpty());
}

void DesignerPluginTest::shouldPutTheDesignTimeDefaultsIntoTheForm_data()
{
    QTest::addColumn<QString>("className");
    QTest::addColumn<QString>("property");
    QTest::addColumn<QString>("value");

    QTest::newRow("view mode") << "XFieldPicker" << "TemplateView" << "PickerCtl::tplTreeAndList";
    QTest::newRow("bar position, not 0") << "XFieldPicker" << "SplitterLeft" << "3000";
    QTest::newRow("bar width, not 0") << "XFieldPicker" << "SplitterWidth" << "64";
    QTest::newRow("single indentation") << "XFieldPicker" << "Indentation" << "150.2362060546875";
    QTest::newRow("headers shown") << "XFieldPicker" << "CaptionVisible" << "true";
    QTest::newRow("caption, not the design typo") << "XFieldPicker" << "Caption" << "Entity Hierarchy";
    QTest::newRow("open menu caption") << "XFieldPicker" << "OpenMenuCaption" << "Open Editor";
    QTest::newRow("colour follows the palette") << "XFieldPicker" << "BackColor" << QString();
    QTest::newRow("label without colon") << "XStringFilter" << "Label" << "&Matches Expression";
    QTest::newRow("options shown") << "XStringFilter" << "ExtraControls" << "true";
}

void DesignerPluginTest::shouldPutTheDesignTimeDefaultsIntoTheForm()
{
    QFETCH(QString, className);
    QFETCH(QString, property);
    QFETCH(QString, value);
    auto *widget = control(QStringLiteral("PickerCtl::") + className);
    QVERIFY(widget);

    // The text of the value element of <property name="...">, or nothing when it is absent
    QXmlStreamReader xml(widget->domXml());
    QString found;
    while (!xml.atEnd()) {
        if (xml.readNext() == QXmlStreamReader::StartElement && xml.name() == QLatin1String("property")
            && xml.attributes().value(QLatin1String("name")) == property) {
            xml.readNextStartElement();
            found = xml.readElementText();
        }
    }
    QVERIFY2(!xml.hasError(), qPrintable(xml.errorString()));
    QCOMPARE(found, value);
}

void DesignerPluginTest::shouldCreateUnderTheGivenParentWithoutTouchingTheApplication_data()
{
    shouldDescribeEachControlForTheWidgetBox_data();
}

void DesignerPluginTest::shouldCreateUnderTheGivenParentWithoutTouchingTheApplication()
{
    QFETCH(QString, className);
    auto *widget = control(QStringLiteral("PickerCtl::") + className);
    QVERIFY(widget);

    // Given a form in Designer and the application's look
    QWidget form;
    const QPalette palette = QApplication::palette();
    const QFont font = QApplication::font();
    const int topLevels = ownerlessWindows();
    const int alive = ControlFactory::liveCount();

    // When Designer creates the control on the form
    std::unique_ptr<QWidget> created(widget->createWidget(&form));

    // Then the form is its parent, the factory counts it, and the application is as it was
    QVERIFY(created);
    QCOMPARE(created->parentWidget(), &form);
    QCOMPARE(QString::fromLatin1(created->metaObject()->className()), widget->name());
    QCOMPARE(ControlFactory::liveCount(), alive + 1);
    QCOMPARE(QApplication::palette(), palette);
    QCOMPARE(QApplication::font(), font);
    QCOMPARE(ownerlessWindows(), topLevels);

    created.reset();
    QCOMPARE(ControlFactory::liveCount(), alive);
}

QTEST_MAIN(DesignerPluginTest)
#include "tst_designerplugin.moc"
