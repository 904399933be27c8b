#pragma once

#include <PickerCtl/TechnologyTypes.h>

#include <QString>
#include <functional>

namespace PickerCtl::Technologies {

/// What the mask operations read from the tree, by type name: whether the type's node is ticked
/// (exists and has check value 1) and the node's tag (its type's code when the tree was built).
struct TreeReader
{
    std::function<bool(const QString &name)> isTicked;
    std::function<QString(const QString &name)> tag;
};

/// True when the mask selects the code: a case-sensitive substring test; an empty code never matches.
bool maskSelects(const QString &mask, const QString &code);

/// The tags of the ticked types, in the list's order.
QString maskOf(const TechnologyTypes &types, const TreeReader &tree);

/// The sum of the bits of the ticked types, each looked up again by name; wraps on overflow.
qint32 bitsOf(const TechnologyTypes &types, const TreeReader &tree);

} // namespace PickerCtl::Technologies
