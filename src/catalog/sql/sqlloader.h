#pragma once

#include <PickerCtl/pickerctl_export.h>

namespace PickerCtl {

class MemoryCatalog;
class SqlConnection;

/// How the fields table is read.
enum class SqlFieldReading {
    Fastest,    ///< an SQLite file through SQLite's own interface on a second thread; else the Qt driver
    QtDriver    ///< always through the Qt driver, as a PostgreSQL catalogue is read
};

/// Reads the whole catalogue (schema already checked) into an empty in-memory catalogue.
/// Throws CatalogError when the database fails or holds inconsistent data.
PICKERCTL_AUTOTEST_EXPORT
void loadSqlCatalog(const SqlConnection &connection, MemoryCatalog &catalog,
                    SqlFieldReading reading = SqlFieldReading::Fastest);

} // namespace PickerCtl
