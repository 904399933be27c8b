#include "catalog/sql/sqlfieldrefs.h"

#include <PickerCtl/CatalogError.h>
#include <PickerCtl/MemoryCatalog.h>

namespace PickerCtl {

namespace {
const auto Dangling = QStringLiteral(
    "The catalogue \"%1\" is damaged: the field \"%2\" (id %3) refers to %4 %5, which it does not have.");
const auto CategoryWord = QStringLiteral("the category at position");
const auto TextWord = QStringLiteral("the text");
} // namespace

SqlFieldResolver::SqlFieldResolver(QString where) : m_where(std::move(where)) {}

void SqlFieldResolver::addText(qint64 id, const QString &text)
{
    m_texts.insert_or_assign(id, text);
}

void SqlFieldResolver::addCategory(qint64 position, const QString &key)
{
    m_categories.insert_or_assign(position, key);
}

const QString *SqlFieldResolver::lookup(const std::unordered_map<qint64, QString> &table,
                                        Cursor::Column &column, qint64 number, qint32 fieldId,
                                        QAnyStringView fieldName, const QString &what) const
{
    if (column.text && column.last == number)
        return column.text;
    const auto it = table.find(number);
    if (it == table.end())
        throw CatalogError(Dangling.arg(m_where, fieldName.toString()).arg(fieldId).arg(what).arg(number));
    column.last = number;
    column.text = &it->second;
    return column.text;
}

SqlFieldTexts SqlFieldResolver::texts(const SqlTextRefs &refs, Cursor &cursor, qint32 fieldId,
                                      QAnyStringView fieldName) const
{
    SqlFieldTexts texts;
    texts.techMask = lookup(m_texts, cursor.techMask, refs.techMask, fieldId, fieldName, TextWord);
    texts.status = lookup(m_texts, cursor.status, refs.status, fieldId, fieldName, TextWord);
    texts.description = lookup(m_texts, cursor.description, refs.description, fieldId, fieldName, TextWord);
    texts.unit = lookup(m_texts, cursor.unit, refs.unit, fieldId, fieldName, TextWord);
    return texts;
}

const QString &SqlFieldResolver::categoryKey(qint64 position, Cursor &cursor, qint32 fieldId,
                                             QAnyStringView fieldName) const
{
    return *lookup(m_categories, cursor.category, position, fieldId, fieldName, CategoryWord);
}

void SqlFieldTexts::fill(FieldSpec &field) const
{
    field.techMask = *techMask;
    field.validationStatus = *status;
    field.description = *description;
    field.unit = *unit;
}

} // namespace PickerCtl
