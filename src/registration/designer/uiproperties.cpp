#include "uiproperties.h"

#include <QColor>
#include <QMetaEnum>
#include <QWidget>
#include <QXmlStreamWriter>

namespace PickerCtl::Designer {

QList<QMetaProperty> ownDesignTimeProperties(const QMetaObject *meta)
{
    QList<QMetaProperty> properties;
    for (int i = QWidget::staticMetaObject.propertyCount(); i < meta->propertyCount(); ++i) {
        const QMetaProperty property = meta->property(i);
        if (property.isWritable() && property.isDesignable() && property.isStored())
            properties.append(property);
    }
    return properties;
}

namespace {

// The element that holds the value in .ui, or an empty name for a value .ui cannot hold.
QString elementFor(const QMetaProperty &property, const QVariant &value)
{
    if (property.isEnumType())
        return property.enumerator().valueToKey(value.toInt()) ? QStringLiteral("enum") : QString();
    switch (property.typeId()) {
    case QMetaType::Bool:
        return QStringLiteral("bool");
    case QMetaType::QString:
        return QStringLiteral("string");
    case QMetaType::Double:
        return QStringLiteral("double");
    case QMetaType::QColor:
        return QStringLiteral("color");
    default:
        return QString();
    }
}

void writeColor(QXmlStreamWriter &xml, const QColor &color)
{
    xml.writeStartElement(QStringLiteral("color"));
    if (color.alpha() != 255)
        xml.writeAttribute(QStringLiteral("alpha"), QString::number(color.alpha()));
    xml.writeTextElement(QStringLiteral("red"), QString::number(color.red()));
    xml.writeTextElement(QStringLiteral("green"), QString::number(color.green()));
    xml.writeTextElement(QStringLiteral("blue"), QString::number(color.blue()));
    xml.writeEndElement();
}

} // namespace

bool writeUiProperty(QXmlStreamWriter &xml, const QMetaProperty &property, const QVariant &value)
{
    const QString element = elementFor(property, value);
    if (element.isEmpty())
        return false;
    xml.writeStartElement(QStringLiteral("property"));
    xml.writeAttribute(QStringLiteral("name"), QString::fromLatin1(property.name()));
    if (property.isEnumType()) {
        const QMetaEnum enumerator = property.enumerator();
        xml.writeTextElement(element, QString::fromLatin1(enumerator.scope()) + QStringLiteral("::")
                                          + QString::fromLatin1(enumerator.valueToKey(value.toInt())));
    } else if (element == QLatin1String("bool")) {
        xml.writeTextElement(element, value.toBool() ? QStringLiteral("true") : QStringLiteral("false"));
    } else if (element == QLatin1String("double")) {
        // Seventeen digits bring every double (and so every twips single) back unchanged.
        xml.writeTextElement(element, QString::number(value.toDouble(), 'g', 17));
    } else if (element == QLatin1String("color")) {
        writeColor(xml, value.value<QColor>());
    } else {
        xml.writeTextElement(element, value.toString());
    }
    xml.writeEndElement();
    return true;
}

} // namespace PickerCtl::Designer
