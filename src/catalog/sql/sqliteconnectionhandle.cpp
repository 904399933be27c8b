#include "catalog/sql/sqliteconnectionhandle.h"

#include "catalog/sql/sqlconnection.h"

#include <QSqlDriver>

namespace PickerCtl {

namespace {
// How Qt's SQLite driver names the type of its handle.
const auto HandleType = "sqlite3*";
}

sqlite3 *sqliteHandle(const SqlConnection &connection)
{
    if (!connection.isSqlite())
        return nullptr;
    const QVariant handle = connection.database().driver()->handle();
    if (!handle.isValid() || qstrcmp(handle.typeName(), HandleType) != 0)
        return nullptr;
    return *static_cast<sqlite3 *const *>(handle.constData());
}

} // namespace PickerCtl
