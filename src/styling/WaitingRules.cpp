#include "styling/WaitingRules.h"

#include <algorithm>
#include <memory>

namespace Brisko {

WaitingRules::WaitingRules() : m_isMadeByHand(true), m_ownGroup(std::make_unique<WaitingGroup>()) {
    m_groups.append(m_ownGroup.get());
}

WaitingRules::WaitingRules(const std::vector<State>& states, bool isRegular)
    : m_isRegular(isRegular), m_ownGroup(std::make_unique<WaitingGroup>()) {
    for (std::size_t i = 0; i < states.size(); ++i)
        m_ownGroup->add(states[i].declarations, states[i].selector, states[i].specificity, int(i));
    m_ownGroup->file();
    m_groups.append(m_ownGroup.get());
}

WaitingRules::WaitingRules(const Groups& groups, Pointer rest)
    : m_rest(std::move(rest)), m_length(m_rest ? m_rest->m_length + 1 : 1), m_isRegular(true) {
    if (!groups.empty()) // which append() does not take without an array
        m_groups.append(groups.data(), int(groups.size()));
}

WaitingRules::~WaitingRules() {
    delete m_flat.load();
}

void WaitingRules::add(const State& state) {
    StateList& list = flat();
    const auto place = std::size_t(list.add(state));
    // Nobody knows yet whether the pointers of the state are good to be followed.
    if (place == m_ownGroup->compounds().size())
        m_ownGroup->addUnread(state.declarations, state.selector, state.specificity);
    else
        m_ownGroup->compounds()[place].specificity = list.states()[place].specificity;
}

const std::vector<WaitingRules::State>& WaitingRules::states() const {
    return flat().states();
}

StateList& WaitingRules::flat() const {
    if (StateList* made = m_flat.load(std::memory_order_acquire))
        return *made;
    auto list = std::make_unique<StateList>();
    visit([&list](const WaitingCompound& compound) {
        list->add({compound.declarations, compound.selector, compound.specificity});
    });
    StateList* made = nullptr;
    if (m_flat.compare_exchange_strong(made, list.get()))
        made = list.release();
    return *made; // of two threads that came at once, the first one's
}

std::size_t WaitingRules::ownSize() const {
    std::size_t size = 0;
    for (const WaitingGroup* group : m_groups)
        size += group->compounds().size();
    return size;
}

bool WaitingRules::goesOnWhole() const {
    return !m_isMadeByHand && std::all_of(m_groups.begin(), m_groups.end(),
                                          [](const WaitingGroup* group) { return group->goesOnWhole(); });
}

void WaitingRules::sortByOrder(std::vector<const WaitingCompound*>& compounds, std::ptrdiff_t first) {
    std::sort(compounds.begin() + first, compounds.end(),
              [](const WaitingCompound* a, const WaitingCompound* b) { return a->order < b->order; });
}

/// Whether @p group of @p list, which is behind this one, stands further up as well, where all of it counts already.
bool WaitingRules::isFurtherUp(const WaitingGroup* group, const WaitingRules* list) const {
    for (const WaitingRules* above = this; above != list; above = above->m_rest.data()) {
        if (above->m_groups.contains(group))
            return true;
    }
    return false;
}

void WaitingRules::collect(const KeySet& keys, std::vector<const WaitingCompound*>& found) const {
    const auto first = std::ptrdiff_t(found.size());
    for (const WaitingRules* list = this; list; list = list->m_rest.data()) {
        const auto held = std::ptrdiff_t(found.size());
        for (const WaitingGroup* group : list->m_groups) {
            if (!group->mayMatch(keys))
                continue;
            const std::size_t before = found.size();
            group->collect(keys, list == this, found);
            if (found.size() > before && isFurtherUp(group, list))
                found.resize(before);
        }
        if (std::ptrdiff_t(found.size()) == held)
            continue;
        // What stands further up as well has the same key, and was collected there. Groups of a sheet share nothing.
        if (list->m_ownGroup)
            dropRepeated(found, first, held);
        sortByOrder(found, held);
    }
}

/// Takes out what stands from @p held on and from @p first on before that.
void WaitingRules::dropRepeated(std::vector<const WaitingCompound*>& found, std::ptrdiff_t first, std::ptrdiff_t held) {
    StateList seen;
    const auto add = [&seen](const WaitingCompound* compound) {
        return seen.add({compound->declarations, compound->selector, compound->specificity});
    };
    std::for_each(found.begin() + first, found.begin() + held, add);
    const auto isRepeated = [&](const WaitingCompound* compound) {
        const int count = int(seen.states().size());
        return add(compound) < count;
    };
    found.erase(std::remove_if(found.begin() + held, found.end(), isRepeated), found.end());
}

bool WaitingRules::consistsOf(const Groups& groups, const WaitingRules* rest) const {
    return m_rest.data() == rest && std::equal(groups.begin(), groups.end(), m_groups.begin(), m_groups.end());
}

/// Whether a node with these keys may match one of the groups before the rest, those of @p except left out.
bool WaitingRules::mayMatch(const KeySet& keys, const WaitingRules* except) const {
    return std::any_of(m_groups.begin(), m_groups.end(), [&](const WaitingGroup* group) {
        return group->mayMatch(keys) && !(except && except->m_groups.contains(group));
    });
}

/// Walks both lists side by side; where one is longer, it goes ahead. What only one of them has must not match. What
/// both have must go on whole, unless the node is the first that it waits for in both, or in neither.
bool WaitingRules::areAlike(const WaitingRules* a, const WaitingRules* b, const KeySet& keys) {
    const WaitingRules* const firstOfA = a;
    const WaitingRules* const firstOfB = b;
    while (a != b) {
        const int ahead = (a ? a->m_length : 0) - (b ? b->m_length : 0);
        const WaitingRules* const stepInA = ahead >= 0 ? a : nullptr;
        const WaitingRules* const stepInB = ahead <= 0 ? b : nullptr;
        const bool isSameTurn = (a == firstOfA) == (b == firstOfB);
        if (a && b && a->m_groups == b->m_groups && (isSameTurn || a->goesOnWhole())) {
            a = a->m_rest.data();
            b = b->m_rest.data();
            continue;
        }
        if ((stepInA && stepInA->mayMatch(keys, isSameTurn ? stepInB : nullptr)) ||
            (stepInB && stepInB->mayMatch(keys, isSameTurn ? stepInA : nullptr)))
            return false;
        if (stepInA)
            a = a->m_rest.data();
        if (stepInB)
            b = b->m_rest.data();
    }
    return !a || (a == firstOfA) == (b == firstOfB) || a->goesOnWhole();
}

bool WaitingRules::equal(const WaitingRules* a, const WaitingRules* b) {
    const WaitingRules* x = a;
    const WaitingRules* y = b;
    while (x != y && x && y && x->m_groups == y->m_groups) {
        x = x->m_rest.data();
        y = y->m_rest.data();
    }
    if (x == y)
        return true;
    // Where they part, one state that the other list lacks decides; so it nearly always is.
    if (a && b && !a->m_isMadeByHand && !b->m_isMadeByHand &&
        ((x && a->hasOther(x, y, *b)) || (y && b->hasOther(y, x, *a))))
        return false;
    static const std::vector<State> none;
    return (a ? a->states() : none) == (b ? b->states() : none);
}

/// Whether @p part of this list has a state that @p whole has not; @p like is the part there that is most like it.
bool WaitingRules::hasOther(const WaitingRules* part, const WaitingRules* like, const WaitingRules& whole) const {
    for (const WaitingGroup* group : part->m_groups) {
        if ((like && like->m_groups.contains(group)) || whole.has(group))
            continue;
        for (const WaitingCompound& compound : group->compounds()) {
            if ((part == this || compound.goesOn) && !whole.holds(compound))
                return true;
        }
    }
    return false;
}

bool WaitingRules::has(const WaitingGroup* group) const {
    for (const WaitingRules* list = this; list; list = list->m_rest.data()) {
        if (std::find(list->m_groups.begin(), list->m_groups.end(), group) != list->m_groups.end())
            return list == this || group->goesOnWhole();
    }
    return false;
}

bool WaitingRules::holds(const WaitingCompound& wanted) const {
    for (const WaitingRules* list = this; list; list = list->m_rest.data()) {
        if (std::any_of(list->m_groups.begin(), list->m_groups.end(),
                        [&](const WaitingGroup* group) { return group->holds(wanted, list == this); }))
            return true;
    }
    return false;
}

} // namespace Brisko
