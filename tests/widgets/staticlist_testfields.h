#pragma once

#include <PickerCtl/Fields.h>
#include <PickerCtl/XStaticList.h>

#include <QItemSelectionModel>
#include <QStringList>
#include <QTreeView>

// A plain field for the list tests: the list only reads fields, so the tests build exactly the
// names, keys and kinds each case needs (repeated keys included).
class StaticListTestField : public PickerCtl::Field
{
public:
    StaticListTestField(qint32 id, QString name, QString key = {}, QString typeCode = QStringLiteral("CNT"))
        : m_id(id), m_name(std::move(name)), m_key(key.isEmpty() ? QStringLiteral("F%1").arg(id) : key),
          m_type(std::move(typeCode))
    {
    }
    qint32 Id() const override { return m_id; }
    QString CategoryName() const override { return QStringLiteral("Traffic"); }
    QString Name() const override { return m_name; }
    QString Key() const override { return m_key; }
    qint32 OwnerId() const override { return 0; }
    bool PassesFilter(const QString &, const QString &, const QString &, const QString &, bool, const QString &,
                      const QString &) const override
    {
        return true;
    }
    QString TechMask() const override { return QStringLiteral("G"); }
    QString FieldTypeCode() const override { return m_type; }
    bool IsExpression() const override { return m_type != QStringLiteral("CNT"); }
    QString ValidationStatus() const override { return m_status; }
    bool UseForBusyHour() const override { return false; }
    QString OwnerName() const override { return QStringLiteral("system"); }
    QString Description() const override { return {}; }
    QString Unit() const override { return {}; }

    QString m_status = QStringLiteral("V");

private:
    qint32 m_id;
    QString m_name;
    QString m_key;
    QString m_type;
};

// Fields named by the letters of `names` ("CAB" gives C, A, B with ids 1, 2, 3); a letter that
// repeats keeps the key of its first use, so "ABA" holds the key F1 twice.
inline PickerCtl::FieldsPtr testFields(const QString &names)
{
    auto fields = PickerCtl::Fields::create();
    QHash<QChar, QString> keys;
    int id = 0;
    for (QChar letter : names) {
        ++id;
        const QString key = keys.value(letter, QStringLiteral("F%1").arg(id));
        keys.insert(letter, key);
        fields->Add(std::make_shared<StaticListTestField>(id, QString(letter), key));
    }
    return fields;
}

inline QString namesOf(const PickerCtl::FieldsPtr &fields)
{
    QString names;
    if (fields) {
        for (const auto &field : *fields)
            names += field->Name();
    }
    return names;
}

// Selects rows given as a pattern: "x.xx." selects rows 0, 2 and 3.
inline void selectPattern(PickerCtl::XStaticList &list, const QString &pattern)
{
    auto wanted = PickerCtl::Fields::create();
    for (int row = 0; row < pattern.size(); ++row) {
        if (pattern.at(row) == u'x')
            wanted->Add(list.Items()->at(row));
    }
    list.SelectItems(wanted);
}

inline QString selectionPattern(const PickerCtl::XStaticList &list)
{
    QString pattern(list.Count(), u'.');
    for (int row = 0; row < list.Count(); ++row) {
        if (list.reportView()->selectionModel()->isRowSelected(row))
            pattern[row] = u'x';
    }
    return pattern;
}
