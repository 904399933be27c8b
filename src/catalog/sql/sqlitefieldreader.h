#pragma once

#include <memory>

namespace PickerCtl {

class MemoryCatalog;
class SqlConnection;
class SqlFieldResolver;

/**
 * Reads the fields table of an SQLite catalogue on a thread of its own, through a read-only
 * connection of its own and SQLite's own interface (the Qt driver's per-value QVariant costs more
 * than SQLite's whole read). It starts first, so the rows are read while the loader reads users
 * and categories, and while the loader builds fields from the rows read before.
 */
class SqliteFieldReader
{
public:
    /// Starts reading, or returns null when the connection is not to an SQLite file (or SQLite
    /// cannot serve two threads). Throws CatalogError when the file cannot be opened or read.
    static std::unique_ptr<SqliteFieldReader> start(const SqlConnection &connection);
    /// Stops reading and waits for the thread.
    ~SqliteFieldReader();
    SqliteFieldReader(const SqliteFieldReader &) = delete;
    SqliteFieldReader &operator=(const SqliteFieldReader &) = delete;

    /// Adds the fields read, in catalogue order, to the catalogue, whose categories are all added
    /// by now; the resolver knows them and every text. Throws CatalogError when reading or adding fails.
    void addFieldsTo(MemoryCatalog &catalog, const SqlFieldResolver &resolver);

private:
    struct Private;
    explicit SqliteFieldReader(std::unique_ptr<Private> d);
    std::unique_ptr<Private> d;
};

} // namespace PickerCtl
