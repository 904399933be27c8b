#include <PickerCtl/ControlFactory.h>
#include <PickerCtl/Enums.h>

#include "uiproperties.h"

#include <QBuffer>
#include <QLayout>
#include <QTest>
#include <QUiLoader>
#include <QXmlStreamWriter>

#include <memory>

using namespace PickerCtl;

namespace {

// A form as Designer saves it: every control, the persisted properties away from their defaults.
const char FormUi[] = R"(<?xml version="1.0" encoding="UTF-8"?>
<ui version="4.0">
 <class>Form</class>
 <widget class="QWidget" name="Form">
  <layout class="QVBoxLayout" name="column">
   <item>
    <widget class="PickerCtl::XFieldPicker" name="picker">
     <property name="TemplateView"><enum>PickerCtl::tplListOnly</enum></property>
     <property name="CaptionVisible"><bool>false</bool></property>
     <property name="BackColor"><color><red>16</red><green>32</green><blue>48</blue></color></property>
     <property name="ForeColor"><color><red>240</red><green>224</green><blue>208</blue></color></property>
     <property name="enabled"><bool>false</bool></property>
     <property name="Indentation"><double>300.25</double></property>
     <property name="FullRowSelect"><bool>true</bool></property>
     <property name="SplitterWidth"><double>90</double></property>
     <property name="SplitterLeft"><double>2400</double></property>
     <property name="HideSelection"><bool>false</bool></property>
     <property name="UseForBusyHour"><bool>true</bool></property>
     <property name="MultiSelect"><bool>false</bool></property>
     <property name="Caption"><string>Cell Hierarchy</string></property>
     <property name="AllowContextMenu"><bool>true</bool></property>
     <property name="AllowDragDrop"><bool>false</bool></property>
     <property name="AllowOpenMenu"><bool>true</bool></property>
     <property name="OpenMenuCaption"><string>Open Cell Editor</string></property>
     <property name="RootLbl"><enum>PickerCtl::tplGeneric</enum></property>
     <property name="ShowEntityFld"><bool>true</bool></property>
     <property name="ShowAll"><bool>true</bool></property>
    </widget>
   </item>
   <item>
    <widget class="PickerCtl::XStringFilter" name="stringFilter">
     <property name="Label"><string>&amp;Cell Name</string></property>
     <property name="ExtraControls"><bool>false</bool></property>
    </widget>
   </item>
   <item><widget class="PickerCtl::XExpTemplate" name="expTemplate"/></item>
   <item><widget class="PickerCtl::XTechnologies" name="technologies"/></item>
   <item><widget class="PickerCtl::XNumberFilter" name="numberFilter"/></item>
   <item><widget class="PickerCtl::XTimeFilter" name="timeFilter"/></item>
   <item><widget class="PickerCtl::XEnumFilter" name="enumFilter"/></item>
  </layout>
 </widget>
</ui>
)";

/// Qt's form loader, with the library's controls made by the class factory.
class FormLoader : public QUiLoader
{
public:
    QWidget *createWidget(const QString &className, QWidget *parent, const QString &name) override
    {
        if (!ControlFactory::contains(className))
            return QUiLoader::createWidget(className, parent, name);
        QWidget *control = ControlFactory::create(className, parent);
        if (control)
            control->setObjectName(name);
        return control;
    }
};

std::unique_ptr<QWidget> load(const QByteArray &ui)
{
    QBuffer buffer;
    buffer.setData(ui);
    buffer.open(QIODevice::ReadOnly);
    FormLoader loader;
    return std::unique_ptr<QWidget>(loader.load(&buffer));
}

// The properties a control declares itself, and QWidget's "enabled", which stands for its Enabled.
QList<QMetaProperty> designTimeMetaProperties(const QWidget *control)
{
    QList<QMetaProperty> properties = Designer::ownDesignTimeProperties(control->metaObject());
    properties.append(control->metaObject()->property(control->metaObject()->indexOfProperty("enabled")));
    return properties;
}

/**
 * Saves a one-column form of controls as Designer would: each control with its class and name and
 * its design-time properties, written by the Designer plugin's own writer. A property of a type
 * that .ui cannot hold is named in lost.
 */
QByteArray save(const QWidget *form, QStringList &lost)
{
    QByteArray ui;
    QXmlStreamWriter xml(&ui);
    xml.setAutoFormatting(true);
    xml.writeStartDocument();
    xml.writeStartElement(QStringLiteral("ui"));
    xml.writeAttribute(QStringLiteral("version"), QStringLiteral("4.0"));
    xml.writeTextElement(QStringLiteral("class"), form->objectName());
    xml.writeStartElement(QStringLiteral("widget"));
    xml.writeAttribute(QStringLiteral("class"), QStringLiteral("QWidget"));
    xml.writeAttribute(QStringLiteral("name"), form->objectName());
    xml.writeStartElement(QStringLiteral("layout"));
    xml.writeAttribute(QStringLiteral("class"), QStringLiteral("QVBoxLayout"));
    xml.writeAttribute(QStringLiteral("name"), form->layout()->objectName());
    for (int i = 0; i < form->layout()->count(); ++i) {
        const QWidget *control = form->layout()->itemAt(i)->widget();
        xml.writeStartElement(QStringLiteral("item"));
        xml.writeStartElement(QStringLiteral("widget"));
        xml.writeAttribute(QStringLiteral("class"), QString::fromLatin1(control->metaObject()->className()));
        xml.writeAttribute(QStringLiteral("name"), control->objectName());
        const auto properties = designTimeMetaProperties(control);
        for (const QMetaProperty &property : properties) {
            if (!Designer::writeUiProperty(xml, property, property.read(control)))
                lost << QStringLiteral("%1.%2").arg(control->objectName(), QString::fromLatin1(property.name()));
        }
        xml.writeEndElement();
        xml.writeEndElement();
    }
    xml.writeEndDocument();
    return ui;
}

QVariantMap designTimeProperties(const QWidget *control)
{
    QVariantMap values;
    const auto properties = designTimeMetaProperties(control);
    for (const QMetaProperty &property : properties)
        values.insert(QString::fromLatin1(property.name()), property.read(control));
    return values;
}

} // namespace

class UiRoundTripTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void shouldCreateEveryControlOfTheForm();
    void shouldApplyEveryDesignTimeProperty_data();
    void shouldApplyEveryDesignTimeProperty();
    void shouldSaveAndLoadTheFormUnchanged();
};

void UiRoundTripTest::shouldCreateEveryControlOfTheForm()
{
    const auto form = load(FormUi);
    QVERIFY(form);
    const auto controls = ControlFactory::controls();
    for (const auto &description : controls) {
        const auto found = form->findChildren<QWidget *>();
        const bool present = std::any_of(found.begin(), found.end(), [&](const QWidget *w) {
            return QString::fromLatin1(w->metaObject()->className()) == QStringLiteral("PickerCtl::") + description.className;
        });
        QVERIFY2(present, qPrintable(description.className));
    }
}

void UiRoundTripTest::shouldApplyEveryDesignTimeProperty_data()
{
    QTest::addColumn<QString>("control");
    QTest::addColumn<QString>("property");
    QTest::addColumn<QVariant>("expected");

    const auto row = [](const char *control, const char *property, const QVariant &expected) {
        QTest::addRow("%s.%s", control, property) << control << property << expected;
    };
    row("picker", "TemplateView", QVariant::fromValue(tplListOnly));
    row("picker", "CaptionVisible", false);
    row("picker", "BackColor", QColor(16, 32, 48));
    row("picker", "ForeColor", QColor(240, 224, 208));
    row("picker", "enabled", false);
    row("picker", "Indentation", 300.25);
    row("picker", "FullRowSelect", true);
    row("picker", "SplitterWidth", 90.0);
    row("picker", "SplitterLeft", 2400.0);
    row("picker", "HideSelection", false);
    row("picker", "UseForBusyHour", true);
    row("picker", "MultiSelect", false);
    row("picker", "Caption", QStringLiteral("Cell Hierarchy"));
    row("picker", "AllowContextMenu", true);
    row("picker", "AllowDragDrop", false);
    row("picker", "AllowOpenMenu", true);
    row("picker", "OpenMenuCaption", QStringLiteral("Open Cell Editor"));
    row("picker", "RootLbl", QVariant::fromValue(tplGeneric));
    row("picker", "ShowEntityFld", true);
    row("picker", "ShowAll", true);
    row("stringFilter", "Label", QStringLiteral("&Cell Name"));
    row("stringFilter", "ExtraControls", false);
}

void UiRoundTripTest::shouldApplyEveryDesignTimeProperty()
{
    QFETCH(QString, control);
    QFETCH(QString, property);
    QFETCH(QVariant, expected);

    const auto form = load(FormUi);
    QVERIFY(form);
    const QWidget *widget = form->findChild<QWidget *>(control);
    QVERIFY(widget);
    QCOMPARE(widget->property(property.toLatin1().constData()), expected);
}

void UiRoundTripTest::shouldSaveAndLoadTheFormUnchanged()
{
    // Given the form loaded from its .ui text
    const auto first = load(FormUi);
    QVERIFY(first);

    // When it is saved and loaded again
    QStringList lost;
    const QByteArray saved = save(first.get(), lost);
    QVERIFY2(lost.isEmpty(), qPrintable(lost.join(QLatin1String(", "))));
    const auto second = load(saved);
    QVERIFY2(second, saved.constData());

    // Then every control comes back with the same design-time properties
    const auto controls = first->findChildren<QWidget *>();
    int compared = 0;
    for (const QWidget *control : controls) {
        if (!ControlFactory::contains(QString::fromLatin1(control->metaObject()->className())))
            continue;
        const QWidget *again = second->findChild<QWidget *>(control->objectName());
        QVERIFY2(again, qPrintable(control->objectName()));
        QCOMPARE(designTimeProperties(again), designTimeProperties(control));
        ++compared;
    }
    QCOMPARE(compared, int(ControlFactory::controls().size()));
}

QTEST_MAIN(UiRoundTripTest)
#include "tst_uiroundtrip.moc"
