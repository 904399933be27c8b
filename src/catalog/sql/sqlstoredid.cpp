#include "catalog/sql/sqlstoredid.h"

#include <PickerCtl/CatalogError.h>

#include <limits>

namespace PickerCtl {

namespace {
const auto TooWide = QStringLiteral(
    "The catalogue \"%1\" is damaged: %2 has the %3 %4, which does not fit in 32 bits.");
const auto FieldRow = QStringLiteral("the field \"%1\" (row %2 of the fields table)");
const auto NamedFieldRow = QStringLiteral("the field \"%1\"");
const auto RcvFieldRow = QStringLiteral("the RCV mapping of \"%1\"");
const auto UserRow = QStringLiteral("the user \"%1\"");
} // namespace

qint32 storedId32(qint64 value, const QString &catalogue, const QString &row, const char *column)
{
    if (value < std::numeric_limits<qint32>::min() || value > std::numeric_limits<qint32>::max())
        throw CatalogError(TooWide.arg(catalogue, row, QLatin1String(column)).arg(value));
    return qint32(value);
}

QString fieldRow(qint64 position, const QString &name)
{
    return FieldRow.arg(name).arg(position);
}

QString namedFieldRow(const QString &name)
{
    return NamedFieldRow.arg(name);
}

QString rcvFieldRow(const QString &fieldName)
{
    return RcvFieldRow.arg(fieldName);
}

QString userRow(const QString &name)
{
    return UserRow.arg(name);
}

} // namespace PickerCtl
