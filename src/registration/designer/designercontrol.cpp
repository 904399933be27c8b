#include "designercontrol.h"

#include "uiproperties.h"

#include <QIcon>
#include <QWidget>
#include <QXmlStreamWriter>

#include <memory>

namespace PickerCtl::Designer {

namespace {

// Designer's widget box lists every PickerCtl control under this heading.
const QString GroupName = QStringLiteral("PickerCtl");
const QString Namespace = QStringLiteral("PickerCtl::");

// "XFieldPicker" -> "xFieldPicker": Designer numbers further instances itself.
QString defaultObjectName(const QString &className)
{
    return className.left(1).toLower() + className.mid(1);
}

} // namespace

DesignerControl::DesignerControl(const ControlDescription &description, QObject *parent)
    : QObject(parent)
    , m_description(description)
{
}

QString DesignerControl::name() const
{
    // uic writes this name into generated code, so it carries the namespace.
    return Namespace + m_description.className;
}

QString DesignerControl::group() const
{
    return GroupName;
}

QString DesignerControl::toolTip() const
{
    return m_description.toolTip;
}

QString DesignerControl::whatsThis() const
{
    return m_description.whatsThis;
}

QString DesignerControl::includeFile() const
{
    // Angle brackets: uic writes an include of an installed header, not of a form's neighbour.
    return QLatin1Char('<') + m_description.includeFile + QLatin1Char('>');
}

QIcon DesignerControl::icon() const
{
    return QIcon(m_description.iconPath);
}

bool DesignerControl::isContainer() const
{
    return false;
}

QWidget *DesignerControl::createWidget(QWidget *parent)
{
    return ControlFactory::create(m_description.className, parent);
}

bool DesignerControl::isInitialized() const
{
    return m_initialized;
}

void DesignerControl::initialize(QDesignerFormEditorInterface *)
{
    m_initialized = true;
}

QString DesignerControl::domXml() const
{
    // The design-time defaults go into the form, so that code generated from it gives the control
    // the values Designer showed. Colours stay out: unless the user picks one, they follow the palette.
    QString xml;
    QXmlStreamWriter writer(&xml);
    writer.setAutoFormatting(true);
    writer.writeStartElement(QStringLiteral("ui"));
    writer.writeAttribute(QStringLiteral("language"), QStringLiteral("c++"));
    writer.writeStartElement(QStringLiteral("widget"));
    writer.writeAttribute(QStringLiteral("class"), name());
    writer.writeAttribute(QStringLiteral("name"), defaultObjectName(m_description.className));
    const std::unique_ptr<QWidget> defaults(ControlFactory::create(m_description.className));
    if (defaults) {
        const auto properties = ownDesignTimeProperties(defaults->metaObject());
        for (const QMetaProperty &property : properties) {
            if (property.typeId() != QMetaType::QColor)
                writeUiProperty(writer, property, property.read(defaults.get()));
        }
    }
    writer.writeEndElement();
    writer.writeEndElement();
    return xml;
}

} // namespace PickerCtl::Designer
