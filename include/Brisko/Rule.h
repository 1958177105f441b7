#pragma once

#include "Brisko/Declaration.h"
#include "Brisko/Selector.h"

#include <vector>

namespace Brisko {

/// One selector with its declarations in source order. A rule set with a list of selectors makes a Rule for each.
class BRISKO_EXPORT Rule {
public:
    Rule(const Selector& selector, const std::vector<Declaration>& declarations)
        : m_selector(selector), m_declarations(declarations) {}

    const Selector& selector() const { return m_selector; }
    const std::vector<Declaration>& declarations() const { return m_declarations; }

    bool operator==(const Rule& other) const {
        return m_selector == other.m_selector && m_declarations == other.m_declarations;
    }
    bool operator!=(const Rule& other) const { return !(*this == other); }

private:
    Selector m_selector;
    std::vector<Declaration> m_declarations;
};

} // namespace Brisko
