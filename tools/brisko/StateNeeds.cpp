#include "StateNeeds.h"

#include <algorithm>

namespace Command {

using Brisko::Selector;
using Brisko::SimpleSelector;
using Brisko::Styleable;

namespace {

using Compounds = std::vector<const SimpleSelector*>;

constexpr std::size_t mostCompounds = 64;
constexpr std::size_t mostStates = 64;
constexpr int mostTries = 512;

/// From left to right.
Compounds compoundsOf(const Selector& selector) {
    Compounds compounds;
    for (const SimpleSelector* compound = selector.size() > 0 ? selector.front().get() : nullptr; compound;
         compound = compound->next())
        compounds.push_back(compound);
    return compounds;
}

const Styleable* parentOf(const Styleable* node) {
    return dynamic_cast<const Styleable*>(node->host());
}

/// Whether a compound on the left of the subject has pseudo-classes.
bool needsAncestors(const Compounds& compounds) {
    return std::any_of(compounds.begin(), compounds.end() - 1,
                       [](const SimpleSelector* compound) { return compound->pseudoClassCount() > 0; });
}

bool isOnIn(const PseudoState& state, const Styleable* node, const SimpleSelector& compound) {
    for (const QByteArray& name : compound.pseudoClasses()) {
        if (state.count({node, name}) == 0)
            return false;
    }
    return true;
}

/// Tries every choice of nodes for the compounds, from the subject leftwards.
class StateSearch {
public:
    explicit StateSearch(Compounds compounds) : m_compounds(std::move(compounds)) {}

    std::optional<std::vector<PseudoState>> run(const Styleable& subject) {
        if (m_compounds.size() > mostCompounds)
            return {};
        choose(m_compounds.size() - 1, &subject, {});
        if (m_tries > mostTries || m_states.size() > mostStates)
            return {};
        return m_states;
    }

private:
    /// Takes @p node for a compound, and goes on with those on its left.
    void choose(std::size_t place, const Styleable* node, PseudoState state) {
        for (const QByteArray& name : m_compounds[place]->pseudoClasses())
            state.insert({node, name});
        if (place == 0) {
            m_states.push_back(std::move(state));
            return;
        }
        const bool isChild = m_compounds[place]->combinator() == SimpleSelector::Child;
        for (const Styleable* above = parentOf(node); above && ++m_tries <= mostTries; above = parentOf(above)) {
            if (above->match(*m_compounds[place - 1], nullptr))
                choose(place - 1, above, state);
            if (isChild || m_states.size() > mostStates)
                return;
        }
    }

    Compounds m_compounds;
    std::vector<PseudoState> m_states;
    int m_tries = 0;
};

} // namespace

std::optional<std::vector<PseudoState>> leastStates(const Styleable& node, const Selector& selector) {
    Compounds compounds = compoundsOf(selector);
    if (compounds.empty())
        return {};
    if (needsAncestors(compounds))
        return StateSearch(std::move(compounds)).run(node);
    PseudoState state;
    for (const QByteArray& name : compounds.back()->pseudoClasses())
        state.insert({&node, name});
    return std::vector<PseudoState>{std::move(state)};
}

bool matchesIn(const PseudoState& state, const Styleable& node, const Selector& selector) {
    const Compounds compounds = compoundsOf(selector);
    if (compounds.empty())
        return false;
    if (!needsAncestors(compounds))
        return isOnIn(state, &node, *compounds.back());
    std::set<const Styleable*> nodes{&node};
    for (std::size_t place = compounds.size(); place-- > 0;) {
        const SimpleSelector& compound = *compounds[place];
        std::set<const Styleable*> left;
        bool fits = false;
        for (const Styleable* each : nodes) {
            if (!each->match(compound, nullptr) || !isOnIn(state, each, compound))
                continue;
            fits = true;
            const bool isChild = compound.combinator() == SimpleSelector::Child;
            for (const Styleable* above = parentOf(each); place > 0 && above;
                 above = isChild ? nullptr : parentOf(above)) {
                if (!left.insert(above).second && !isChild)
                    break; // those above it are there already
            }
        }
        if (!fits)
            return false;
        nodes = std::move(left);
    }
    return true;
}

} // namespace Command
