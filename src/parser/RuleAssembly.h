#pragma once

#include "Brisko/Rule.h"

#include <QString>

#include <vector>

namespace Brisko {

class StyleSheet;

/// Puts rules together from the selectors and declarations that the grammar finds, and holds them back until it is
/// known whether they count.
class RuleAssembly {
public:
    /// Forgets everything.
    void clear();

    void add(Selector selector);
    /// Adds a declaration, unless its value is empty, and gives it its number in the sheet.
    /// @param file  the text that it was written in
    /// @param line  and where
    void add(Declaration declaration, StyleSheet& sheet, const QString& file, int line);

    /// Makes a pending rule of each selector with all declarations, and forgets both.
    void parseRule();
    /// Declares the pending rules in the sheet.
    void commit(StyleSheet& sheet);
    /// Drops the pending rules, selectors and declarations.
    void rollback();

    const std::vector<Selector>& selectors() const { return m_selectors; }

private:
    void clearStacks();

    std::vector<Selector> m_selectors;
    std::vector<Declaration> m_declarations;
    std::vector<Rule> m_pending;
};

} // namespace Brisko
