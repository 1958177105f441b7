#pragma once

#include "Brisko/Declaration.h"
#include "Brisko/Selector.h"

#include <memory>
#include <utility>
#include <vector>

namespace Brisko {

/// One selector with its declarations in source order. A rule set with a list of selectors makes a Rule for each.
///
/// A value; the declarations never change, so that copies, and the rules of one rule set, can share them.
class BRISKO_EXPORT Rule {
public:
    using Declarations = std::vector<Declaration>;

    Rule(Selector selector, const Declarations& declarations)
        : Rule(std::move(selector), std::make_shared<const Declarations>(declarations)) {}
    /// Makes a rule that shares its declarations; not null.
    Rule(Selector selector, std::shared_ptr<const Declarations> declarations)
        : m_selector(std::move(selector)), m_declarations(std::move(declarations)) {}

    const Selector& selector() const { return m_selector; }
    const Declarations& declarations() const { return *m_declarations; }

    /// Compares the selectors, whose combinators do not count, and the declarations with their numbers.
    bool operator==(const Rule& other) const {
        return m_selector == other.m_selector &&
               (m_declarations == other.m_declarations || *m_declarations == *other.m_declarations);
    }
    bool operator!=(const Rule& other) const { return !(*this == other); }

private:
    Selector m_selector;
    std::shared_ptr<const Declarations> m_declarations;
};

} // namespace Brisko
