#pragma once

#include "Gorvel/ArrayTable.h"

#include <utility>

namespace Gorvel {

/// A small map that keeps its entries in one array, sorted by key.
///
///     Gorvel::ArrayMap<QByteArray, int> ages;
///     ages["ann"] = 30;
///     if (const int* age = ages.find("ann")) { ... }
///     for (const auto& [name, age] : ages) { ... } // in the order of the keys
///
/// Keys that are pointers keep the order of insertion instead. Adding and removing takes time in proportion to the
/// number of entries; pointers, references and iterators to entries last until the next of either.
template <typename K, typename V>
class ArrayMap {
public:
    using Entry = std::pair<K, V>;

    /// The value of @p key; one that is missing is added with a default value.
    V& operator[](const K& key) {
        return m_table.at(m_table.findOrAdd(key, [&] { return Entry(key, V()); }).first).second;
    }

    /// The value of @p key, null where there is none.
    V* find(const K& key) {
        const int place = m_table.indexOf(key);
        return place < 0 ? nullptr : &m_table.at(place).second;
    }
    const V* find(const K& key) const {
        const int place = m_table.indexOf(key);
        return place < 0 ? nullptr : &m_table.at(place).second;
    }
    bool contains(const K& key) const { return m_table.indexOf(key) >= 0; }

    /// Sets the value of @p key, whether or not it had one.
    void insert(const K& key, V value) {
        const auto [place, isNew] = m_table.findOrAdd(key, [&] { return Entry(key, std::move(value)); });
        if (!isNew)
            m_table.at(place).second = std::move(value);
    }
    /// Takes the entry out. @return false where there was none.
    bool remove(const K& key) { return m_table.remove(key); }

    int size() const { return m_table.size(); }
    bool isEmpty() const { return size() == 0; }
    void clear() { m_table.clear(); }

    auto begin() { return m_table.begin(); }
    auto end() { return m_table.end(); }
    auto begin() const { return m_table.begin(); }
    auto end() const { return m_table.end(); }

    /// Whether both hold equal entries; where keys are pointers, also in the same order.
    friend bool operator==(const ArrayMap& a, const ArrayMap& b) { return a.m_table == b.m_table; }
    friend bool operator!=(const ArrayMap& a, const ArrayMap& b) { return !(a == b); }

private:
    struct KeyOf {
        static const K& of(const Entry& entry) { return entry.first; }
    };
    ArrayTable<K, Entry, KeyOf> m_table;
};

} // namespace Gorvel
