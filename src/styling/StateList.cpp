#include "styling/StateList.h"

#include <algorithm>
#include <cstdint>

namespace Brisko {

namespace {

constexpr std::size_t longList = 16; // from here on a search through the list costs more than a look-up

bool areSame(const Style::MatchState& a, const Style::MatchState& b) {
    return a.declarations == b.declarations && a.selector == b.selector;
}

} // namespace

int StateList::add(const State& state) {
    const int place = find(state);
    if (place < 0) {
        m_states.push_back(state);
        return int(m_states.size()) - 1;
    }
    int& specificity = m_states[std::size_t(place)].specificity;
    specificity = std::max(specificity, state.specificity);
    return place;
}

int StateList::find(const State& state) {
    if (m_states.size() < longList) {
        const auto found =
            std::find_if(m_states.begin(), m_states.end(), [&](const State& held) { return areSame(held, state); });
        return found == m_states.end() ? -1 : int(found - m_states.begin());
    }
    enterRest();
    for (std::size_t slot = firstSlot(state);; slot = nextSlot(slot)) {
        const int place = m_slots[slot];
        if (place < 0 || areSame(m_states[std::size_t(place)], state))
            return place;
    }
}

void StateList::enterRest() {
    if (m_states.size() * 2 > m_slots.size()) {
        std::size_t size = 4 * longList;
        while (size < m_states.size() * 4)
            size *= 2;
        m_slots.assign(size, -1);
        m_entered = 0;
    }
    for (; m_entered < m_states.size(); ++m_entered) {
        std::size_t slot = firstSlot(m_states[m_entered]);
        while (m_slots[slot] >= 0)
            slot = nextSlot(slot);
        m_slots[slot] = int(m_entered);
    }
}

std::size_t StateList::firstSlot(const State& state) const {
    constexpr std::uint64_t spread = 0x9E3779B97F4A7C15u; // 2^64 divided by the golden ratio
    const std::uint64_t key =
        reinterpret_cast<std::uintptr_t>(state.declarations) ^ (reinterpret_cast<std::uintptr_t>(state.selector) * 31);
    return std::size_t((key * spread) >> 32) & (m_slots.size() - 1);
}

} // namespace Brisko
