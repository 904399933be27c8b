#pragma once

namespace PickerCtl {

class MemoryCatalog;
class SqlConnection;

/// Reads the whole catalogue (schema already checked) into an empty in-memory catalogue.
/// Throws CatalogError when the database fails or holds inconsistent data.
void loadSqlCatalog(const SqlConnection &connection, MemoryCatalog &catalog);

} // namespace PickerCtl
