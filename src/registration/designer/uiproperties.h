#pragma once

#include <QList>
#include <QMetaProperty>

class QXmlStreamWriter;

namespace PickerCtl::Designer {

/// The design-time properties a control class declares itself (below QWidget): writable, designable
/// and stored, in declaration order.
QList<QMetaProperty> ownDesignTimeProperties(const QMetaObject *meta);

/// Writes <property name="..."> with the value as .ui holds it (bool, string, double, colour, enum
/// by its scoped key). Writes nothing and answers false for a type .ui cannot hold.
bool writeUiProperty(QXmlStreamWriter &xml, const QMetaProperty &property, const QVariant &value);

} // namespace PickerCtl::Designer
