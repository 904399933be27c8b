#include <PickerCtl/SqlCatalog.h>

#include "catalog/sql/sqlconnection.h"
#include "catalog/sql/sqlloader.h"
#include "catalog/sql/sqlschema.h"
#include "catalog/sql/sqlwriter.h"

#include <PickerCtl/AppServices.h>
#include <PickerCtl/CatalogError.h>

namespace PickerCtl {

namespace {
const auto Inconsistent = QStringLiteral("The catalogue \"%1\" is damaged: %2");
}

std::shared_ptr<MemoryCatalog> SqlCatalog::open(const QString &pathOrUrl)
{
    WaitCursorGuard wait;
    const SqlLocation location = parseSqlLocation(pathOrUrl);
    auto connection = std::make_shared<SqlConnection>(location, SqlConnection::Mode::Existing);
    checkSqlSchema(*connection);

    auto catalog = std::make_shared<MemoryCatalog>();
    try {
        loadSqlCatalog(*connection, *catalog);
    } catch (const CatalogError &) {
        throw;
    } catch (const std::exception &e) {
        throw CatalogError(Inconsistent.arg(location.display, QString::fromLocal8Bit(e.what())));
    }
    catalog->setWriter(std::make_shared<SqlCatalogWriter>(std::move(connection)));
    return catalog;
}

} // namespace PickerCtl
