#pragma once

#include <QHash>

#include <memory>
#include <vector>

namespace PickerCtl {

class MemoryField;

/**
 * The fields of the in-memory catalogue by id, shared with the objects that hand out fields by id.
 * Catalogues number their fields mostly from one upwards, so ids up to about twice the field count
 * sit in a vector indexed by id (filled in order, without hashing or scattered writes); other ids
 * go to a hash.
 */
class FieldIndex
{
public:
    /// Prepares for that many fields in all.
    void reserve(qsizetype count);

    /// The field with that id, or null.
    std::shared_ptr<MemoryField> value(qint32 id) const;

    /// Records the field under its id, which no field may have yet.
    void insert(qint32 id, const std::shared_ptr<MemoryField> &field);

    void remove(qint32 id);

private:
    bool isDense(qint32 id) const;

    std::vector<std::shared_ptr<MemoryField>> m_dense;
    QHash<qint32, std::shared_ptr<MemoryField>> m_sparse;
    qsizetype m_count = 0;
    qsizetype m_expected = 0;
};

} // namespace PickerCtl
