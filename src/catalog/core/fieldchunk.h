#pragma once

#include "catalog/core/memoryfield.h"

#include <algorithm>
#include <cstddef>
#include <memory>
#include <new>
#include <utility>

namespace PickerCtl {

/**
 * Fields of the in-memory catalogue are constructed side by side in chunks and handed out as
 * aliasing shared pointers that keep their chunk alive. A list of a million fields is then walked
 * through memory in order, and no field carries a control block or an allocation of its own.
 * A deleted field stays in its chunk until the chunk's last field is released.
 */
class FieldChunk
{
public:
    explicit FieldChunk(std::size_t capacity)
        : m_capacity(capacity),
          m_storage(static_cast<MemoryField *>(
              ::operator new(sizeof(MemoryField) * capacity, std::align_val_t(alignof(MemoryField)))))
    {
    }
    ~FieldChunk()
    {
        for (std::size_t i = m_count; i > 0; --i)
            m_storage[i - 1].~MemoryField();
        ::operator delete(m_storage, std::align_val_t(alignof(MemoryField)));
    }
    FieldChunk(const FieldChunk &) = delete;
    FieldChunk &operator=(const FieldChunk &) = delete;

    bool full() const { return m_count == m_capacity; }
    std::size_t capacity() const { return m_capacity; }

    template<class... Args>
    MemoryField *emplace(Args &&...args)
    {
        MemoryField *field = new (m_storage + m_count) MemoryField(std::forward<Args>(args)...);
        ++m_count;
        return field;
    }

private:
    std::size_t m_capacity;
    std::size_t m_count = 0;
    MemoryField *m_storage;
};

/// Hands out chunk places; chunks grow from small (tests, small catalogues) to a few thousand fields.
class FieldChunks
{
public:
    template<class... Args>
    std::shared_ptr<MemoryField> make(Args &&...args)
    {
        if (!m_current || m_current->full()) {
            const std::size_t capacity = m_current ? std::min(m_current->capacity() * 2, kLargest) : kSmallest;
            m_current = std::make_shared<FieldChunk>(capacity);
        }
        return std::shared_ptr<MemoryField>(m_current, m_current->emplace(std::forward<Args>(args)...));
    }

private:
    static constexpr std::size_t kSmallest = 32;
    static constexpr std::size_t kLargest = 4096;
    std::shared_ptr<FieldChunk> m_current;
};

} // namespace PickerCtl
