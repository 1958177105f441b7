#include "styling/ChildStyle.h"

#include "styling/StateList.h"

namespace Brisko {

namespace {

constexpr int longestChain = 12; // a longer one is made one list, so that it is not walked link by link

Style::MatchState stateOf(const WaitingCompound& compound) {
    return {compound.declarations, compound.selector, compound.specificity};
}

} // namespace

Style ChildStyle::from(const Style& incoming, const Style& held, bool isRegular) const {
    const Style::Waiting& waiting = incoming.m_waiting;
    if (m_begun.empty() && m_goneOn.empty() && (!waiting || waiting->goesOnWhole()))
        return incoming;
    isRegular = isRegular && (!waiting || waiting->isRegular());
    if (isRegular && m_goneOn.empty() && (!waiting || waiting->length() < longestChain)) {
        if (held.m_waiting && held.m_waiting->consistsOf(m_begun, waiting.data()))
            return Style(incoming.m_sheet, held.m_waiting);
        return Style(incoming.m_sheet, Style::Waiting(new WaitingRules(m_begun, waiting)));
    }
    const std::vector<Style::MatchState> states = merged(waiting.data());
    if (states.empty())
        return Style(incoming.m_sheet);
    return Style(incoming.m_sheet, Style::Waiting(new WaitingRules(states, isRegular)));
}

/// The states one by one, as they would have been added.
std::vector<Style::MatchState> ChildStyle::merged(const WaitingRules* incoming) const {
    StateList list;
    for (const WaitingCompound* compound : WaitingRules::inOrder(m_begun))
        list.add(stateOf(*compound));
    if (incoming) {
        auto goneOn = m_goneOn.begin();
        incoming->visit([&](const WaitingCompound& compound) {
            if (compound.selector->combinator() == SimpleSelector::Descendant)
                list.add(stateOf(compound));
            if (goneOn != m_goneOn.end() && goneOn->waiting == &compound)
                list.add((goneOn++)->next);
        });
    }
    return list.take();
}

} // namespace Brisko
