#pragma once

#include <QtGlobal>

namespace PickerCtl {

/// Label of the field browser's root node. Values outside the named ones are kept as they are.
enum ETPLRootLbl : qint32 { tplEntities = 0, tplGeneric = 1 };

/// View mode of the field browser.
enum ETPLTemplateView : qint32 { tplTreeAndList = 0, tplListOnly = 1, tplTreeOnly = 2 };

/// How much of the category tree the field browser shows.
enum ETPLSingleBranch : qint32 { tplNormal = 0, tplSingle = 1, tplSinglechildren = 2 };

} // namespace PickerCtl
