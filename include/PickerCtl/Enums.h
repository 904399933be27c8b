#pragma once

#include <PickerCtl/pickerctl_export.h>

#include <QObject>

namespace PickerCtl {

// Registered with Qt's meta-object system so that form designers offer the values by name.
Q_NAMESPACE_EXPORT(PICKERCTL_EXPORT)

/// Label of the field browser's root node. Values outside the named ones are kept as they are.
enum ETPLRootLbl : qint32 { tplEntities = 0, tplGeneric = 1 };
Q_ENUM_NS(ETPLRootLbl)

/// View mode of the field browser.
enum ETPLTemplateView : qint32 { tplTreeAndList = 0, tplListOnly = 1, tplTreeOnly = 2 };
Q_ENUM_NS(ETPLTemplateView)

/// How much of the category tree the field browser shows.
enum ETPLSingleBranch : qint32 { tplNormal = 0, tplSingle = 1, tplSinglechildren = 2 };
Q_ENUM_NS(ETPLSingleBranch)

} // namespace PickerCtl
