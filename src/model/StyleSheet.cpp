#include "Brisko/StyleSheet.h"

#include "model/RuleIndex.h"
#include "model/SourceTable.h"

namespace Brisko {

StyleSheet::StyleSheet() : m_sources(std::make_unique<SourceTable>()) {}
StyleSheet::~StyleSheet() {
    dropIndex(); // where it is deleted
}

StyleSheet::StyleSheet(const StyleSheet& other)
    : m_rules(other.m_rules), m_sources(std::make_unique<SourceTable>(*other.m_sources)),
      m_updateIsolatedSubtrees(other.m_updateIsolatedSubtrees) {}

StyleSheet& StyleSheet::operator=(const StyleSheet& other) {
    if (this == &other)
        return *this;
    m_rules = other.m_rules;
    *m_sources = *other.m_sources;
    m_updateIsolatedSubtrees = other.m_updateIsolatedSubtrees;
    dropIndex();
    return *this;
}

void StyleSheet::declare(const Selector& selector, const std::vector<Declaration>& declarations) {
    declare(Rule(selector, declarations));
}

void StyleSheet::declare(Rule rule) {
    if (rule.selector().size() == 0 || rule.declarations().empty())
        return;
    m_rules.push_back(std::move(rule));
    dropIndex();
}

void StyleSheet::setId(Declaration& declaration, const QString& source) {
    declaration.m_id = m_sources->add(source);
}

void StyleSheet::setId(Declaration& declaration, const QString& file, int line) {
    declaration.m_id = m_sources->add(file, line);
}

QString StyleSheet::source(int id) const {
    return m_sources->source(id);
}

bool StyleSheet::operator==(const StyleSheet& other) const {
    return m_rules == other.m_rules && *m_sources == *other.m_sources &&
           m_updateIsolatedSubtrees == other.m_updateIsolatedSubtrees;
}

const RuleIndex& StyleSheet::ruleIndex() const {
    if (const RuleIndex* index = m_index.load(std::memory_order_acquire))
        return *index;
    // Two threads may style from one sheet at once: whoever comes second throws its index away.
    auto made = std::make_unique<const RuleIndex>(m_rules);
    const RuleIndex* index = nullptr;
    if (m_index.compare_exchange_strong(index, made.get()))
        index = made.release();
    return *index;
}

/// The index is put aside, as styles point into it.
void StyleSheet::dropIndex() {
    const bool isBuilt = m_index.load(std::memory_order_relaxed) != nullptr;
    if (const RuleIndex* index = isBuilt ? m_index.exchange(nullptr) : nullptr)
        m_formerIndexes.emplace_back(index);
}

} // namespace Brisko
