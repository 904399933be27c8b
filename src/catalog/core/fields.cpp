#include <PickerCtl/Fields.h>

#include "catalog/core/variantnumber.h"

#include <algorithm>

namespace PickerCtl {

namespace {
// Look-ups by key find the first occurrence, so a later duplicate never replaces an entry.
void indexFirstIn(QHash<QString, qsizetype> &index, const QString &key, qsizetype position)
{
    auto it = index.find(key);
    if (it == index.end())
        index.insert(key, position);
}

// A variant holding a number addresses by position; anything else is read as a key.
bool isPosition(const QVariant &keyOrIndex, qsizetype &index)
{
    if (!holdsNumber(keyOrIndex))
        return false;
    index = qsizetype(keyOrIndex.toLongLong());
    return true;
}
} // namespace

Fields::Fields() = default;
Fields::~Fields() = default;

std::shared_ptr<Fields> Fields::create()
{
    return std::make_shared<Fields>();
}

void Fields::Add(const FieldPtr &field)
{
    m_items.push_back(field);
    if (m_indexed && field)
        indexFirstIn(m_index, field->Key(), size() - 1);
}

qint32 Fields::Count() const
{
    return qint32(m_items.size());
}

void Fields::Remove(const QVariant &keyOrIndex)
{
    qsizetype index = -1;
    if (!isPosition(keyOrIndex, index))
        index = indexOf(keyOrIndex.toString());
    if (index >= 0 && index < size())
        removeAt(index);
}

FieldPtr Fields::Item(const QVariant &keyOrIndex) const
{
    qsizetype index = -1;
    if (!isPosition(keyOrIndex, index))
        index = indexOf(keyOrIndex.toString());
    return index >= 0 && index < size() ? m_items[size_t(index)] : nullptr;
}

qsizetype Fields::indexOf(const QString &key) const
{
    if (!m_indexed) {
        m_index.clear();
        m_index.reserve(size());
        for (size_t i = 0; i < m_items.size(); ++i) {
            if (m_items[i])
                indexFirstIn(m_index, m_items[i]->Key(), qsizetype(i));
        }
        m_indexed = true;
    }
    return m_index.value(key, -1);
}

FieldPtr Fields::item(const QString &key) const
{
    const qsizetype index = indexOf(key);
    return index >= 0 ? m_items[size_t(index)] : nullptr;
}

void Fields::reserve(qsizetype count)
{
    m_items.reserve(size_t(count));
}

void Fields::insert(qsizetype index, const FieldPtr &field)
{
    index = qBound<qsizetype>(0, index, size());
    m_items.insert(m_items.begin() + index, field);
    dropIndex();
}

void Fields::removeAt(qsizetype index)
{
    if (index < 0 || index >= size())
        return;
    m_items.erase(m_items.begin() + index);
    dropIndex();
}

void Fields::move(qsizetype from, qsizetype to)
{
    if (from < 0 || from >= size() || to < 0 || to >= size() || from == to)
        return;
    // Rotating only the stretch between the two places keeps a short move cheap in a long list.
    const auto at = [this](qsizetype i) { return m_items.begin() + i; };
    if (from < to)
        std::rotate(at(from), at(from + 1), at(to + 1));
    else
        std::rotate(at(to), at(from), at(from + 1));
    dropIndex();
}

void Fields::clear()
{
    m_items.clear();
    dropIndex();
}

void Fields::dropIndex()
{
    m_indexed = false;
    m_index.clear();
}

} // namespace PickerCtl
