#include "Brisko/StyleSheet.h"

#include "model/RuleIndex.h"

namespace Brisko {

StyleSheet::StyleSheet() = default;
StyleSheet::~StyleSheet() {
    dropIndex(); // where it is deleted
}

StyleSheet::StyleSheet(const StyleSheet& other)
    : m_nextId(other.m_nextId), m_rules(other.m_rules), m_sources(other.m_sources),
      m_updateIsolatedSubtrees(other.m_updateIsolatedSubtrees) {}

StyleSheet& StyleSheet::operator=(const StyleSheet& other) {
    if (this == &other)
        return *this;
    m_nextId = other.m_nextId;
    m_rules = other.m_rules;
    m_sources = other.m_sources;
    m_updateIsolatedSubtrees = other.m_updateIsolatedSubtrees;
    dropIndex();
    return *this;
}

void StyleSheet::declare(const Selector& selector, const std::vector<Declaration>& declarations) {
    declare(Rule(selector, declarations));
}

void StyleSheet::declare(const Rule& rule) {
    if (rule.selector().size() == 0 || rule.declarations().empty())
        return;
    m_rules.push_back(rule);
    dropIndex();
}

void StyleSheet::setId(Declaration& declaration, const QString& source) {
    declaration.m_id = m_nextId++;
    m_sources.push_back(source);
}

QString StyleSheet::source(int id) const {
    return id >= 0 && id < m_nextId ? m_sources[std::size_t(id)] : QString();
}

bool StyleSheet::operator==(const StyleSheet& other) const {
    return m_rules == other.m_rules && m_sources == other.m_sources &&
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
    if (const RuleIndex* index = m_index.exchange(nullptr))
        m_formerIndexes.emplace_back(index);
}

} // namespace Brisko
