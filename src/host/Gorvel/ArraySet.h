#pragma once

#include "Gorvel/ArrayTable.h"

namespace Gorvel {

/// A small set that keeps its members in one array, sorted.
///
///     Gorvel::ArraySet<QByteArray> names;
///     names.insert("b");
///     names.insert("a");
///     names[0]; // "a"
///
/// Members that are pointers keep the order of insertion instead. Adding and removing takes time in proportion to the
/// number of members; references and iterators last until the next of either.
template <typename T>
class ArraySet {
public:
    /// Adds @p value. @return false where it was there already.
    bool insert(const T& value) {
        return m_table.findOrAdd(value, [&] { return value; }).second;
    }
    /// Adds every value of a list, in the time that sorting takes instead of one move of the members for each.
    template <typename List>
    void insertAll(const List& values) {
        static_assert(!KeepsInsertionOrder<T>, "pointers are added one by one");
        m_table.mergeSorted({values.begin(), values.end()});
    }
    bool contains(const T& value) const { return m_table.indexOf(value) >= 0; }
    /// Takes @p value out. @return false where it was not there.
    bool remove(const T& value) { return m_table.remove(value); }

    int size() const { return m_table.size(); }
    bool isEmpty() const { return size() == 0; }
    void clear() { m_table.clear(); }

    /// The member at place @p i, which must be below size().
    const T& operator[](int i) const { return m_table.at(i); }
    auto begin() const { return m_table.begin(); }
    auto end() const { return m_table.end(); }

    /// Whether both hold equal members; pointers also in the same order.
    friend bool operator==(const ArraySet& a, const ArraySet& b) { return a.m_table == b.m_table; }
    friend bool operator!=(const ArraySet& a, const ArraySet& b) { return !(a == b); }

private:
    struct KeyOf {
        static const T& of(const T& value) { return value; }
    };
    ArrayTable<T, T, KeyOf> m_table;
};

} // namespace Gorvel
