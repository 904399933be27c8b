#pragma once

#include <PickerCtl/FieldCatalog.h>

#include <QByteArray>
#include <QString>

class QMimeData;

namespace PickerCtl::ExpTemplate {

/// The editor name under which the template offers its own fields in a drag.
QString dragEditorName();

/// The name of the field format in `data` that an editor of the application offered on this
/// thread ("App:Editor:thread"; the editor name may be empty), or "" when there is none: payloads of other applications, other
/// threads and foreign programs are not taken.
QString acceptedFieldFormat(const QMimeData *data, const QString &appName);

/// The catalogue's fields behind the payload, in payload order; references that the catalogue
/// does not know (or knows under another key) are left out. Null when the payload is missing,
/// foreign or damaged.
FieldsPtr payloadFields(const QMimeData *data, const QString &appName, FieldCatalog &catalog);

/// The format that marks a drag of template rows, holding the token of the template it left.
QString templateRowsFormat();
/// A token naming one template editor for the length of its life.
QByteArray templateToken(const void *editor);
/// True when `data` carries rows dragged out of the template with that token.
bool isRowDragOf(const QMimeData *data, const QByteArray &token);

} // namespace PickerCtl::ExpTemplate
