#include <PickerCtl/ControlFactory.h>

#include <QFile>
#include <QIcon>
#include <QImageReader>
#include <QPointer>
#include <QTest>
#include <QWidget>

#include <memory>
#include <vector>

using namespace PickerCtl;

namespace {

const QStringList Controls = {QStringLiteral("XFieldPicker"), QStringLiteral("XExpTemplate"),
                              QStringLiteral("XTechnologies"), QStringLiteral("XNumberFilter"),
                              QStringLiteral("XStringFilter"), QStringLiteral("XTimeFilter"),
                              QStringLiteral("XEnumFilter")};

} // namespace

class ControlFactoryTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void shouldCreateEveryControlByItsClassName_data();
    void shouldCreateEveryControlByItsClassName();
    void shouldCreateNothingForAnUnknownName_data();
    void shouldCreateNothingForAnUnknownName();
    void shouldDescribeEveryControlItCreates();
    void shouldGiveANewControlItsDesignTimeDefaults_data();
    void shouldGiveANewControlItsDesignTimeDefaults();
    void shouldCountLiveControlsAndAllowUnloadOnlyWhenNoneLives_data();
    void shouldCountLiveControlsAndAllowUnloadOnlyWhenNoneLives();
    void shouldForgetAControlDestroyedWithItsParent();
};

void ControlFactoryTest::shouldCreateEveryControlByItsClassName_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("metaClass");

    for (const auto &name : Controls) {
        const QByteArray metaClass = "PickerCtl::" + name.toLatin1();
        QTest::newRow(qPrintable(name)) << name << metaClass;
        // Designer and uic write the class with its namespace into a form.
        QTest::newRow(metaClass.constData()) << QString::fromLatin1(metaClass) << metaClass;
    }
}

void ControlFactoryTest::shouldCreateEveryControlByItsClassName()
{
    QFETCH(QString, name);
    QFETCH(QByteArray, metaClass);

    // Given a parent form, When a control is created by name under it
    QWidget form;
    QWidget *control = ControlFactory::create(name, &form);

    // Then it is that class, and the form owns it
    QVERIFY(control);
    QCOMPARE(QByteArray(control->metaObject()->className()), metaClass);
    QCOMPARE(control->parentWidget(), &form);
    QVERIFY(ControlFactory::contains(name));
}

void ControlFactoryTest::shouldCreateNothingForAnUnknownName_data()
{
    QTest::addColumn<QString>("name");

    QTest::newRow("empty name") << QString();
    QTest::newRow("names compare with case") << "xfieldpicker";
    QTest::newRow("a kit widget is no control") << "XStaticList";
    QTest::newRow("a Qt class") << "QWidget";
    QTest::newRow("the namespace alone") << "PickerCtl::";
    QTest::newRow("another namespace") << "Other::XFieldPicker";
    QTest::newRow("trailing blank") << "XFieldPicker ";
}

void ControlFactoryTest::shouldCreateNothingForAnUnknownName()
{
    QFETCH(QString, name);

    const int before = ControlFactory::liveCount();
    QCOMPARE(ControlFactory::create(name), nullptr);
    QVERIFY(!ControlFactory::contains(name));
    QCOMPARE(ControlFactory::liveCount(), before);
}

void ControlFactoryTest::shouldDescribeEveryControlItCreates()
{
    const auto controls = ControlFactory::controls();

    QStringList names;
    for (const auto &control : controls) {
        names << control.className;
        QVERIFY2(!control.toolTip.isEmpty(), qPrintable(control.className));
        QVERIFY2(!control.whatsThis.isEmpty(), qPrintable(control.className));
        QCOMPARE(control.includeFile, QStringLiteral("PickerCtl/%1.h").arg(control.className));
        QVERIFY2(QFile::exists(control.iconPath), qPrintable(control.iconPath));
        // Drawing an SVG icon takes Qt's SVG image plugin, which not every installation has.
        if (QImageReader::supportedImageFormats().contains("svg"))
            QVERIFY2(!QIcon(control.iconPath).pixmap(22, 22).isNull(), qPrintable(control.iconPath));
    }
    QCOMPARE(names, Controls);
}

void ControlFactoryTest::shouldGiveANewControlItsDesignTimeDefaults_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("property");
    QTest::addColumn<QVariant>("value");

    // A bare constructor leaves these at zero, false or the form's own caption.
    QTest::newRow("bar position") << "XFieldPicker" << QByteArray("SplitterLeft") << QVariant(3000.0);
    QTest::newRow("bar width") << "XFieldPicker" << QByteArray("SplitterWidth") << QVariant(64.0);
    QTest::newRow("headers shown") << "XFieldPicker" << QByteArray("CaptionVisible") << QVariant(true);
    QTest::newRow("caption") << "XFieldPicker" << QByteArray("Caption") << QVariant(QStringLiteral("Entity Hierarchy"));
    QTest::newRow("open menu caption") << "XFieldPicker" << QByteArray("OpenMenuCaption") << QVariant(QStringLiteral("Open Editor"));
    QTest::newRow("label without colon") << "XStringFilter" << QByteArray("Label") << QVariant(QStringLiteral("&Matches Expression"));
}

void ControlFactoryTest::shouldGiveANewControlItsDesignTimeDefaults()
{
    QFETCH(QString, name);
    QFETCH(QByteArray, property);
    QFETCH(QVariant, value);

    const std::unique_ptr<QWidget> control(ControlFactory::create(name));
    QVERIFY(control);
    QCOMPARE(control->property(property.constData()), value);
}

void ControlFactoryTest::shouldCountLiveControlsAndAllowUnloadOnlyWhenNoneLives_data()
{
    QTest::addColumn<QStringList>("created");
    QTest::addColumn<int>("destroyed");
    QTest::addColumn<int>("alive");

    QTest::newRow("nothing created") << QStringList() << 0 << 0;
    QTest::newRow("one alive") << QStringList{"XFieldPicker"} << 0 << 1;
    QTest::newRow("one of each alive") << Controls << 0 << int(Controls.size());
    QTest::newRow("some destroyed") << Controls << 2 << int(Controls.size()) - 2;
    QTest::newRow("all destroyed") << Controls << int(Controls.size()) << 0;
    QTest::newRow("unknown names are not counted") << QStringList{"Nope", "XTimeFilter", ""} << 0 << 1;
}

void ControlFactoryTest::shouldCountLiveControlsAndAllowUnloadOnlyWhenNoneLives()
{
    QFETCH(QStringList, created);
    QFETCH(int, destroyed);
    QFETCH(int, alive);

    QCOMPARE(ControlFactory::liveCount(), 0);
    QVERIFY(ControlFactory::canUnload());

    // Given controls created by name
    std::vector<std::unique_ptr<QWidget>> controls;
    for (const auto &name : created) {
        if (QWidget *control = ControlFactory::create(name))
            controls.emplace_back(control);
    }
    // When some of them are destroyed
    controls.erase(controls.begin(), controls.begin() + destroyed);

    // Then only the living ones count, and the library may go only when none lives
    QCOMPARE(ControlFactory::liveCount(), alive);
    QCOMPARE(ControlFactory::canUnload(), alive == 0);

    controls.clear();
    QCOMPARE(ControlFactory::liveCount(), 0);
    QVERIFY(ControlFactory::canUnload());
}

void ControlFactoryTest::shouldForgetAControlDestroyedWithItsParent()
{
    // Given controls placed on a form
    auto form = std::make_unique<QWidget>();
    QPointer<QWidget> picker = ControlFactory::create(QStringLiteral("XFieldPicker"), form.get());
    ControlFactory::create(QStringLiteral("XStringFilter"), form.get());
    QCOMPARE(ControlFactory::liveCount(), 2);
    QVERIFY(!ControlFactory::canUnload());

    // When the form closes
    form.reset();

    // Then no control lives on
    QVERIFY(picker.isNull());
    QCOMPARE(ControlFactory::liveCount(), 0);
    QVERIFY(ControlFactory::canUnload());
}

QTEST_MAIN(ControlFactoryTest)
#include "tst_controlfactory.moc"
