#include "Brisko/StyleSheet.h"

#include "model/RuleIndex.h"

namespace Brisko {

StyleSheet::StyleSheet() = default;
StyleSheet::~StyleSheet() = default;

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
    m_index.reset();
    return *this;
}

void StyleSheet::declare(const Selector& selector, const std::vector<Declaration>& declarations) {
    declare(Rule(selector, declarations));
}

void StyleSheet::declare(const Rule& rule) {
    if (rule.selector().size() == 0 || rule.declarations().empty())
        return;
    m_rules.push_back(rule);
    m_index.reset();
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
    // Two threads may style from one sheet at once: whoever comes second throws its index away.
    if (std::shared_ptr<const RuleIndex> index = std::atomic_load(&m_index))
        return *index;
    std::shared_ptr<const RuleIndex> none;
    std::atomic_compare_exchange_strong(&m_index, &none,
                                        std::shared_ptr<const RuleIndex>(std::make_shared<RuleIndex>(m_rules)));
    return *std::atomic_load(&m_index);
}

} // namespace Brisko
