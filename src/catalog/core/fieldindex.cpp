#include "catalog/core/fieldindex.h"

#include "catalog/core/memoryfield.h"

#include <algorithm>

namespace PickerCtl {

namespace {
constexpr qsizetype kDenseSlack = 4096; ///< ids a small catalogue may use without being dense
}

void FieldIndex::reserve(qsizetype count)
{
    m_expected = std::max(m_expected, count);
    m_dense.reserve(size_t(count) + 1);
}

bool FieldIndex::isDense(qint32 id) const
{
    return id >= 0 && qsizetype(id) < 2 * std::max(m_count, m_expected) + kDenseSlack;
}

std::shared_ptr<MemoryField> FieldIndex::value(qint32 id) const
{
    if (id >= 0 && size_t(id) < m_dense.size() && m_dense[size_t(id)])
        return m_dense[size_t(id)];
    return m_sparse.isEmpty() ? nullptr : m_sparse.value(id);
}

void FieldIndex::insert(qint32 id, const std::shared_ptr<MemoryField> &field)
{
    if (isDense(id)) {
        if (size_t(id) >= m_dense.size()) {
            if (size_t(id) >= m_dense.capacity())
                m_dense.reserve(std::max(size_t(id) + 1, m_dense.capacity() * 2));
            m_dense.resize(size_t(id) + 1);
        }
        m_dense[size_t(id)] = field;
    } else {
        m_sparse.insert(id, field);
    }
    ++m_count;
}

void FieldIndex::remove(qint32 id)
{
    if (id >= 0 && size_t(id) < m_dense.size() && m_dense[size_t(id)]) {
        m_dense[size_t(id)].reset();
        --m_count;
    } else if (m_sparse.remove(id)) {
        --m_count;
    }
}

} // namespace PickerCtl
