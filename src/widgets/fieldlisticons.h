#pragma once

#include <PickerCtl/Field.h>

#include <QIcon>

namespace PickerCtl {

enum class FieldKind { Counter, Expression, Udc };

/// The kind a field is drawn as: its type code decides, an unknown code falls back on IsExpression.
FieldKind fieldKindOf(const Field &field);

/// The built-in icon of a field kind, drawn once (16 and 32 pixels) and then shared.
QIcon fieldKindIcon(FieldKind kind);

} // namespace PickerCtl
