#pragma once

#include "catalog/core/catalogtables.h"

#include <PickerCtl/Field.h>

namespace PickerCtl {

struct FieldSpec;

/**
 * A field of the in-memory catalogue. Kept small because a catalogue holds a million of them: the
 * name is its only own string; shared texts are positions in the catalogue's tables, the key is
 * made from the id when asked, and the category is known by its position.
 */
class MemoryField final : public Field
{
public:
    MemoryField(std::shared_ptr<CatalogTables> tables, quint32 categoryIndex, const FieldSpec &spec);

    qint32 Id() const override { return m_id; }
    QString CategoryName() const override;
    QString Name() const override { return m_name; }
    QString Key() const override;
    qint32 OwnerId() const override { return m_ownerId; }
    bool PassesFilter(const QString &techFilter, const QString &fieldTypeFilter,
                      const QString &ownerFilter, const QString &nameFilter, bool useForBusyHour,
                      const QString &rcvFormFilter, const QString &rcvFieldFilter) const override;
    QString TechMask() const override;
    QString FieldTypeCode() const override;
    bool IsExpression() const override { return m_expression; }
    QString ValidationStatus() const override;
    bool UseForBusyHour() const override { return m_busyHour; }
    QString OwnerName() const override;
    QString Description() const override;
    QString Unit() const override;

    /// PassesFilter with the name filter's answer already known (FoldedNames::answers): the
    /// list's filter pass asks the name filter once for all names of the catalogue.
    bool passesFilterWithName(const QString &techFilter, const QString &fieldTypeFilter,
                              const QString &ownerFilter, const QString &nameFilter,
                              FoldedNames::Answer nameAnswer, bool useForBusyHour,
                              const QString &rcvFormFilter, const QString &rcvFieldFilter) const;
    const CatalogTables *tables() const { return m_tables.get(); }
    quint32 foldedNameIndex() const { return m_foldedName; }

    quint32 categoryIndex() const { return m_categoryIndex; }
    void setOwnerId(qint32 ownerId) { m_ownerId = ownerId; }

    /// The key of the field with that id: "F" and the id.
    static QString keyFor(qint32 id);

private:
    bool passesRcv(const QString &rcvFormFilter, const QString &rcvFieldFilter) const;
    bool passesAllButName(const QString &techFilter, const QString &fieldTypeFilter,
                          const QString &ownerFilter, bool useForBusyHour) const;

    // The list's filter pass reads the type, the folded name and the tables of every field: they
    // come first, to share the field's first cache line.
    quint32 m_foldedName;
    qint32 m_id;
    std::shared_ptr<CatalogTables> m_tables;
    QString m_name;
    qint32 m_ownerId;
    quint32 m_categoryIndex;
    quint32 m_techMask;
    quint32 m_description;
    quint16 m_unit;
    quint8 m_typeCode;
    quint8 m_status;
    bool m_busyHour;
    bool m_expression;
};

} // namespace PickerCtl
