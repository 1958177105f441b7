#include "parser/RuleAssembly.h"

#include "Brisko/StyleSheet.h"
#include "Gorvel/Trace.h"

#include <iterator>

namespace Brisko {

using Gorvel::Trace;

void RuleAssembly::clear() {
    clearStacks();
    m_pending.clear();
}

void RuleAssembly::add(Selector selector) {
    m_selectors.push_back(std::move(selector));
    Trace::debug("CSSParser::add(Selector*) # selector pushed (stack %d)", int(m_selectors.size()));
}

void RuleAssembly::add(Declaration declaration, StyleSheet& sheet, const QString& file, int line) {
    if (declaration.value().isEmpty())
        return;
    m_declarations.push_back(std::move(declaration));
    sheet.setId(m_declarations.back(), file, line);
    Trace::debug("CSSParser::add(Declaration&) # declaration pushed (stack %d)", int(m_declarations.size()));
}

void RuleAssembly::parseRule() {
    if (!m_declarations.empty()) {
        Trace::debug("CSSParser::parseRule # parsing rule (%d selectors, %d declarations)", int(m_selectors.size()),
                     int(m_declarations.size()));
        const auto declarations = std::make_shared<const Rule::Declarations>(
            std::make_move_iterator(m_declarations.begin()), std::make_move_iterator(m_declarations.end()));
        for (Selector& selector : m_selectors)
            m_pending.emplace_back(std::move(selector), declarations);
    }
    clearStacks();
}

void RuleAssembly::commit(StyleSheet& sheet) {
    Trace::debug("CSSParser::commit # %d rules", int(m_pending.size()));
    for (Rule& rule : m_pending)
        sheet.declare(std::move(rule));
    m_pending.clear();
}

void RuleAssembly::rollback() {
    Trace::debug("CSSParser::rollback # %d rules", int(m_pending.size()));
    clear();
}

void RuleAssembly::clearStacks() {
    m_selectors.clear();
    m_declarations.clear();
}

} // namespace Brisko
