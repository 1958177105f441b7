#include "SelectorMatcher.h"

namespace Command {

using Brisko::SimpleSelector;

SelectorMatcher::SelectorMatcher(const QList<Brisko::Selector>& selectors) {
    for (const Brisko::Selector& selector : selectors) {
        const SimpleSelector* compound = selector.size() > 0 ? selector.front().get() : nullptr;
        for (bool isFirst = true; compound; compound = compound->next(), isFirst = false)
            m_steps.push_back({compound, isFirst});
    }
    const std::vector<bool> none(m_steps.size(), false);
    m_levels.push_back({none, none}); // above the root
}

bool SelectorMatcher::isReached(std::size_t step, const Level& host) const {
    if (m_steps[step].isFirst)
        return true;
    const bool isChild = m_steps[step].compound->combinator() == SimpleSelector::Child;
    return isChild ? host.here[step - 1] : host.hereOrAbove[step - 1];
}

bool SelectorMatcher::enter(const Brisko::Styleable& node, int depth) {
    m_levels.resize(std::size_t(depth) + 1);
    const Level& host = m_levels.back();
    Level level{std::vector<bool>(m_steps.size(), false), host.hereOrAbove};
    bool isMatched = false;
    for (std::size_t step = 0; step < m_steps.size(); ++step) {
        if (!isReached(step, host) || !node.match(*m_steps[step].compound, nullptr))
            continue;
        level.here[step] = true;
        level.hereOrAbove[step] = true;
        isMatched = isMatched || !m_steps[step].compound->next();
    }
    m_levels.push_back(std::move(level));
    return isMatched;
}

} // namespace Command
