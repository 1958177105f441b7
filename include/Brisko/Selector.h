#pragma once

#include "Brisko/SimpleSelector.h"

#include <memory>
#include <vector>

class QDebug;

namespace Brisko {

/// A chain of compounds joined by combinators, such as `panel > button.primary` (CSS 2.1 section 5).
///
///     Selector selector; // built from right to left
///     selector.prepend(new SimpleSelector(origin, "button", QString()), SimpleSelector::None);
///     selector.prepend(new SimpleSelector(origin, "panel", QString()), SimpleSelector::Child);
///     selector.front()->next()->cssType(); // "button"
///
/// Copies share their compounds: a change made through one is seen by all. Comparison is by the compounds' texts, which
/// do not hold the combinators of a chain built by prepend(), so `a > b` and `a b` are equal.
class BRISKO_EXPORT Selector {
public:
    Selector() = default;

    /// Number of compounds.
    int size() const { return m_front ? int(m_others.size()) + 1 : 0; }
    /// The leftmost compound. Not to be called on an empty selector.
    const std::shared_ptr<SimpleSelector>& front() const { return m_front; }

    /// The compounds as written, with their combinators: "panel > .a b". A compound that asks for nothing is "*".
    QByteArray toString() const;

    /// Puts @p compound, which it owns from now on, to the left of the chain; @p combinator joins it to the compound
    /// that was leftmost before and counts only where there was one.
    void prepend(SimpleSelector* compound, SimpleSelector::Combinator combinator);
    /// The same with a compound that is held already; not null.
    void prepend(std::shared_ptr<SimpleSelector> compound, SimpleSelector::Combinator combinator);

    /// A selector that matches every node: one compound with nothing in it.
    static Selector universalSelector(SimpleSelector::Origin origin);

    bool operator==(const Selector& other) const;
    bool operator!=(const Selector& other) const { return !(*this == other); }
    /// Fewer compounds first, then by the texts from the subject leftwards. Not the specificity.
    bool operator<(const Selector& other) const;

private:
    const SimpleSelector& fromRight(std::size_t number) const {
        return number < m_others.size() ? *m_others[number] : *m_front;
    }

    std::shared_ptr<SimpleSelector> m_front; // most selectors are of this one and take no memory beside it
    std::vector<std::shared_ptr<SimpleSelector>> m_others; // right to left
};

BRISKO_EXPORT QDebug operator<<(QDebug debug, const Selector& selector);

} // namespace Brisko
