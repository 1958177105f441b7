#pragma once

#include <algorithm>
#include <functional>
#include <iterator>
#include <type_traits>
#include <utility>
#include <vector>

namespace Gorvel {

/// Whether a container with keys of type Key is walked in the order of insertion instead of the order of the keys.
/// So for pointers: addresses differ from run to run, and no result may depend on them.
template <typename Key>
constexpr bool KeepsInsertionOrder = std::is_pointer_v<Key>;

/// The places of the items in the order of their keys, where the items themselves are not in that order.
template <bool areKept>
struct ArrayPlaces {};
template <>
struct ArrayPlaces<true> {
    std::vector<int> m_places;
};

/// The array under ArrayMap and ArraySet: items in one block of memory, found by binary search over their keys.
///
/// KeyOf has a static member `of(const Item&)` that answers the key of an item. Finding takes logarithmic time, adding
/// and removing moves the items behind. Meant for the small containers of nodes and styles.
template <typename Key, typename Item, typename KeyOf>
class ArrayTable : private ArrayPlaces<KeepsInsertionOrder<Key>> {
public:
    using Iterator = typename std::vector<Item>::iterator;
    using ConstIterator = typename std::vector<Item>::const_iterator;

    /// Place of the item of that key, -1 where there is none.
    int indexOf(const Key& key) const {
        const int rank = rankOf(key);
        return isAt(rank, key) ? placeOf(rank) : -1;
    }

    /// Place of the item of that key; one that is missing is first made by @p make() and added.
    template <typename Make>
    std::pair<int, bool> findOrAdd(const Key& key, Make make) {
        const int rank = rankOf(key);
        if (isAt(rank, key))
            return {placeOf(rank), false};
        if constexpr (KeepsInsertionOrder<Key>) {
            m_items.push_back(make());
            this->m_places.insert(this->m_places.begin() + rank, size() - 1);
            return {size() - 1, true};
        } else {
            m_items.insert(m_items.begin() + rank, make());
            return {rank, true};
        }
    }

    /// Adds the items whose keys are missing; of several with one key the first.
    void mergeSorted(std::vector<Item> items) {
        const auto before = [](const Item& a, const Item& b) { return std::less<Key>()(KeyOf::of(a), KeyOf::of(b)); };
        const auto same = [&before](const Item& a, const Item& b) { return !before(a, b) && !before(b, a); };
        const auto held = m_items.size();
        m_items.insert(m_items.end(), std::make_move_iterator(items.begin()), std::make_move_iterator(items.end()));
        const auto added = m_items.begin() + static_cast<std::ptrdiff_t>(held);
        std::stable_sort(added, m_items.end(), before);
        std::inplace_merge(m_items.begin(), added, m_items.end(), before);
        m_items.erase(std::unique(m_items.begin(), m_items.end(), same), m_items.end());
    }

    bool remove(const Key& key) {
        const int rank = rankOf(key);
        if (!isAt(rank, key))
            return false;
        const int place = placeOf(rank);
        m_items.erase(m_items.begin() + place);
        if constexpr (KeepsInsertionOrder<Key>) {
            this->m_places.erase(this->m_places.begin() + rank);
            for (int& other : this->m_places)
                other -= other > place ? 1 : 0;
        }
        return true;
    }

    int size() const { return static_cast<int>(m_items.size()); }
    void clear() {
        m_items.clear();
        if constexpr (KeepsInsertionOrder<Key>)
            this->m_places.clear();
    }

    Item& at(int place) { return m_items[static_cast<std::size_t>(place)]; }
    const Item& at(int place) const { return m_items[static_cast<std::size_t>(place)]; }
    Iterator begin() { return m_items.begin(); }
    Iterator end() { return m_items.end(); }
    ConstIterator begin() const { return m_items.begin(); }
    ConstIterator end() const { return m_items.end(); }

    /// Whether both hold equal items in the same order.
    friend bool operator==(const ArrayTable& a, const ArrayTable& b) { return a.m_items == b.m_items; }

private:
    int placeOf(int rank) const {
        if constexpr (KeepsInsertionOrder<Key>)
            return this->m_places[static_cast<std::size_t>(rank)];
        else
            return rank;
    }

    /// Number of items whose key is less than @p key.
    int rankOf(const Key& key) const {
        int low = 0;
        int high = size();
        while (low < high) {
            const int middle = low + (high - low) / 2;
            if (std::less<Key>()(KeyOf::of(at(placeOf(middle))), key))
                low = middle + 1;
            else
                high = middle;
        }
        return low;
    }

    bool isAt(int rank, const Key& key) const {
        return rank < size() && !std::less<Key>()(key, KeyOf::of(at(placeOf(rank))));
    }

    std::vector<Item> m_items;
};

} // namespace Gorvel
