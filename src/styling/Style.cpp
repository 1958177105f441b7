#include "Brisko/Style.h"

#include <cstdint>

namespace Brisko {

namespace {

constexpr std::size_t longList = 16; // from here on a search through the list costs more than a look-up

} // namespace

/// Places of the entries of a long list: a table of open addresses that is at most half full.
class Style::Places {
public:
    explicit Places(const std::vector<MatchState>& states) { build(states); }

    /// Enters the last of the entries.
    void addLast(const std::vector<MatchState>& states) {
        if (states.size() * 2 > m_slots.size())
            build(states);
        else
            enter(states, int(states.size()) - 1);
    }

    /// The place of an entry, -1 where there is none.
    int find(const std::vector<MatchState>& states, const std::vector<Declaration>* declarations,
             const SimpleSelector* selector) const {
        for (std::size_t slot = firstSlot(declarations, selector);; slot = nextSlot(slot)) {
            const int place = m_slots[slot];
            if (place < 0)
                return -1;
            const MatchState& state = states[std::size_t(place)];
            if (state.declarations == declarations && state.selector == selector)
                return place;
        }
    }

private:
    void build(const std::vector<MatchState>& states) {
        std::size_t size = 4 * longList;
        while (size < states.size() * 4)
            size *= 2;
        m_slots.assign(size, -1);
        for (int place = 0; place < int(states.size()); ++place)
            enter(states, place);
    }

    void enter(const std::vector<MatchState>& states, int place) {
        const MatchState& state = states[std::size_t(place)];
        std::size_t slot = firstSlot(state.declarations, state.selector);
        while (m_slots[slot] >= 0)
            slot = nextSlot(slot);
        m_slots[slot] = place;
    }

    std::size_t nextSlot(std::size_t slot) const { return (slot + 1) & (m_slots.size() - 1); }
    std::size_t firstSlot(const void* declarations, const void* selector) const {
        constexpr std::uint64_t spread = 0x9E3779B97F4A7C15u; // 2^64 divided by the golden ratio
        const std::uint64_t key =
            reinterpret_cast<std::uintptr_t>(declarations) ^ (reinterpret_cast<std::uintptr_t>(selector) * 31);
        return std::size_t((key * spread) >> 32) & (m_slots.size() - 1);
    }

    std::vector<int> m_slots; // -1 where free; the size is a power of two
};

Style::Style(std::shared_ptr<StyleSheet> sheet) : m_sheet(std::move(sheet)) {}
Style::Style(const Style& other) : m_state(other.m_state), m_sheet(other.m_sheet) {}
Style::Style(Style&& other) noexcept : m_state(std::move(other.m_state)), m_sheet(std::move(other.m_sheet)) {
    other.clear();
}

Style::~Style() = default;

Style& Style::operator=(const Style& other) {
    if (this == &other)
        return *this;
    m_state = other.m_state;
    m_sheet = other.m_sheet;
    m_places.reset();
    return *this;
}

Style& Style::operator=(Style&& other) noexcept {
    if (this == &other)
        return *this;
    m_state = std::move(other.m_state);
    m_sheet = std::move(other.m_sheet);
    m_places.reset();
    other.clear();
    return *this;
}

void Style::add(const std::vector<Declaration>* declarations, const SimpleSelector* selector, int specificity) {
    if (MatchState* held = find(declarations, selector)) {
        held->specificity = std::max(held->specificity, specificity);
        return;
    }
    m_state.push_back({declarations, selector, specificity});
    if (m_places)
        m_places->addLast(m_state);
    else if (m_state.size() >= longList)
        m_places = std::make_unique<Places>(m_state);
}

void Style::clear() {
    m_state.clear();
    m_places.reset();
}

Style::MatchState* Style::find(const std::vector<Declaration>* declarations, const SimpleSelector* selector) {
    if (!m_places && m_state.size() >= longList)
        m_places = std::make_unique<Places>(m_state);
    if (m_places) {
        const int place = m_places->find(m_state, declarations, selector);
        return place < 0 ? nullptr : &m_state[std::size_t(place)];
    }
    for (MatchState& state : m_state) {
        if (state.declarations == declarations && state.selector == selector)
            return &state;
    }
    return nullptr;
}

} // namespace Brisko
