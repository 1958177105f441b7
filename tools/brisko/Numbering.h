#pragma once

#include <map>
#include <vector>

namespace Command {

/// Gives equal items one number, counted from 0 in the order in which they first come.
template <typename Item>
class Numbering {
public:
    int numberOf(const Item& item) {
        const auto [place, isNew] = m_numbers.emplace(item, int(m_items.size()));
        if (isNew)
            m_items.push_back(&place->first);
        return place->second;
    }

    /// The items by number.
    const std::vector<const Item*>& items() const { return m_items; }

private:
    std::map<Item, int> m_numbers;
    std::vector<const Item*> m_items;
};

} // namespace Command
