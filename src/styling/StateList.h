#pragma once

#include "Brisko/Style.h"

#include <vector>

namespace Brisko {

/// States in the order in which they were added, each once, with the highest specificity that it was added with.
class BRISKO_EXPORT StateList {
public:
    using State = Style::MatchState;

    /// Adds a state unless its declarations and compound are there. @return its place
    int add(const State& state);

    const std::vector<State>& states() const { return m_states; }
    std::vector<State> take() { return std::move(m_states); }

private:
    int find(const State& state);
    void enterRest();
    std::size_t firstSlot(const State& state) const;
    std::size_t nextSlot(std::size_t slot) const { return (slot + 1) & (m_slots.size() - 1); }

    std::vector<State> m_states;
    std::vector<int> m_slots;  // a table of open addresses, at most half full, once the list is long; -1 where free
    std::size_t m_entered = 0; // states that are in the table
};

} // namespace Brisko
