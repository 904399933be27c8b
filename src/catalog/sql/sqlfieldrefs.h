#pragma once

#include <QAnyStringView>
#include <QString>

#include <unordered_map>

namespace PickerCtl {

struct FieldSpec;

/// The numbers a stored field row refers to its shared texts by: ids in the texts table.
struct SqlTextRefs
{
    qint64 techMask = 0;
    qint64 status = 0;
    qint64 description = 0;
    qint64 unit = 0;
};

/// The shared texts of a stored field row, owned by the resolver that found them.
struct SqlFieldTexts
{
    const QString *techMask = nullptr;
    const QString *status = nullptr;
    const QString *description = nullptr;
    const QString *unit = nullptr;

    void fill(FieldSpec &field) const;
};

/**
 * Turns the numbers of stored field rows back into texts and category keys. Resolving never changes
 * the resolver: the caller brings its own Cursor.
 */
class SqlFieldResolver
{
public:
    /// What was last looked up in each column: fields come category by category, and
    /// neighbouring rows mostly share their texts.
    struct Cursor
    {
        struct Column
        {
            qint64 last = -1;
            const QString *text = nullptr;
        };
        Column category, techMask, status, description, unit;
    };

    /// \a where names the catalogue in the errors.
    explicit SqlFieldResolver(QString where);

    void addText(qint64 id, const QString &text);
    void addCategory(qint64 position, const QString &key);

    /// The shared texts of the field with that id and name; throws CatalogError naming the field
    /// when a number refers to no text. The texts stay valid while the resolver lives.
    SqlFieldTexts texts(const SqlTextRefs &refs, Cursor &cursor, qint32 fieldId, QAnyStringView fieldName) const;

    /// The key of the category at that position; throws CatalogError naming the field when there
    /// is none. The key stays valid while the resolver lives.
    const QString &categoryKey(qint64 position, Cursor &cursor, qint32 fieldId, QAnyStringView fieldName) const;

private:
    const QString *lookup(const std::unordered_map<qint64, QString> &table, Cursor::Column &column,
                          qint64 number, qint32 fieldId, QAnyStringView fieldName, const QString &what) const;

    QString m_where;
    std::unordered_map<qint64, QString> m_texts;
    std::unordered_map<qint64, QString> m_categories;
};

} // namespace PickerCtl
