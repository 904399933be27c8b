#pragma once

#include <PickerCtl/Field.h>

#include <QHash>
#include <QVariant>
#include <vector>

namespace PickerCtl {

/**
 * An ordered, keyed collection of fields, shared by reference between the host, the catalogue
 * and the controls. Keys need not be unique: look-ups by key find the first occurrence.
 * The key index is built on the first look-up and kept up to date by Add; other changes drop it.
 */
class PICKERCTL_EXPORT Fields
{
public:
    using const_iterator = std::vector<FieldPtr>::const_iterator;

    Fields();
    ~Fields();
    static std::shared_ptr<Fields> create();

    /// Appends a field.
    void Add(const FieldPtr &field);
    /// Number of fields.
    qint32 Count() const;
    /// Removes the first field with that key (a string) or at that 0-based position (a number).
    void Remove(const QVariant &keyOrIndex);
    /// The first field with that key (a string) or at that 0-based position (a number); null when absent.
    FieldPtr Item(const QVariant &keyOrIndex) const;

    qsizetype size() const { return qsizetype(m_items.size()); }
    bool isEmpty() const { return m_items.empty(); }
    const FieldPtr &at(qsizetype index) const { return m_items[size_t(index)]; }
    const_iterator begin() const { return m_items.begin(); }
    const_iterator end() const { return m_items.end(); }

    /// Position of the first field with that key, or -1.
    qsizetype indexOf(const QString &key) const;
    bool contains(const QString &key) const { return indexOf(key) >= 0; }
    FieldPtr item(const QString &key) const;

    void reserve(qsizetype count);
    void insert(qsizetype index, const FieldPtr &field);
    void removeAt(qsizetype index);
    /// Moves the field at `from` so that it stands at `to`.
    void move(qsizetype from, qsizetype to);
    void clear();

private:
    void dropIndex();

    std::vector<FieldPtr> m_items;
    mutable QHash<QString, qsizetype> m_index;
    mutable bool m_indexed = false;
};

using FieldsPtr = std::shared_ptr<Fields>;

} // namespace PickerCtl
