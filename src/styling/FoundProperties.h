#pragma once

#include <cstdint>
#include <vector>

namespace Brisko {

/// Where a style pass keeps the values of the attributes it has found so far, by number of the property, so that a node
/// is asked once for a property that many declarations set.
class FoundProperties {
public:
    /// Makes room for the properties below @p count.
    void reserve(int count) {
        if (std::size_t(count) > m_found.size())
            m_found.resize(std::size_t(count));
    }

    /// The place of a property's attribute among the applied values, -1 where none was found yet.
    int placeOf(unsigned property) const {
        const Found& found = m_found[property];
        return found.round == m_round ? found.place : -1;
    }
    void enter(unsigned property, int place) { m_found[property] = {place, m_round}; }

    /// Forgets everything.
    void clear() {
        if (++m_round == 0) {
            m_found.assign(m_found.size(), {});
            m_round = 1;
        }
    }

private:
    struct Found {
        int place = -1;
        std::uint32_t round = 0; // those of another round are not valid
    };

    std::vector<Found> m_found;
    std::uint32_t m_round = 1;
};

} // namespace Brisko
