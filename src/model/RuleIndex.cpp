#include "model/RuleIndex.h"

#include "Gorvel/Name.h"
#include "model/Specificity.h"

#include <algorithm>

namespace Brisko {

namespace {

/// Whether a node with the key of the compound matches it for certain.
bool isDecidedByKey(const SimpleSelector& compound) {
    const int conditions =
        int(!compound.cssType().isEmpty()) + int(!compound.cssId().isEmpty()) + compound.cssClasses().size();
    return conditions <= 1 && compound.pseudoClassCount() == 0 && compound.combinator() != SimpleSelector::Descendant;
}

bool isBefore(const RuleIndex::Start* a, const RuleIndex::Start* b) {
    return a->number < b->number;
}

/// Puts @p run, which is in order, into @p starts, which are.
void merge(const std::vector<RuleIndex::Start>& run, std::vector<const RuleIndex::Start*>& starts) {
    constexpr std::size_t shortRun = 8; // is put in one by one
    const auto held = std::ptrdiff_t(starts.size());
    if (held > 0 && run.size() <= shortRun) {
        for (const RuleIndex::Start& start : run)
            starts.insert(std::upper_bound(starts.begin(), starts.end(), &start, isBefore), &start);
        return;
    }
    for (const RuleIndex::Start& start : run)
        starts.push_back(&start);
    if (held > 0)
        std::inplace_merge(starts.begin(), starts.begin() + held, starts.end(), isBefore);
}

} // namespace

RuleIndex::RuleIndex(const std::vector<Rule>& rules) : m_offers(rules), m_isRegular(areRegular(rules)) {
    for (std::size_t i = 0; i < rules.size(); ++i)
        file(int(i), rules[i]);
    const auto finish = [](Key& key) {
        key.starts.shrink_to_fit();
        key.group.file();
    };
    for (auto& [id, key] : m_byId)
        finish(key);
    m_byClass.visit(finish);
    m_byType.visit(finish);
    finish(m_others);
}

void RuleIndex::file(int number, const Rule& rule) {
    const SimpleSelector* compound = rule.selector().front().get();
    const SimpleSelector* next = compound->next();
    const int specificity = Specificity::plus(0, *compound);
    Key& key = keyOf(*compound);
    // At one node a compound begins to wait before the one that it hands on.
    const int order = 2 * number;
    if (isDecidedByKey(*compound) && next) {
        key.group.add(&rule.declarations(), next, specificity, order + 1);
        return;
    }
    const bool waits = compound->combinator() == SimpleSelector::Descendant;
    key.starts.push_back({number, isDecidedByKey(*compound), compound, m_offers.of(rule.declarations()), specificity,
                          waits ? groupOfOne(rule, compound, 0, order) : nullptr,
                          next ? groupOfOne(rule, next, specificity, order + 1) : nullptr});
}

const WaitingGroup* RuleIndex::groupOfOne(const Rule& rule, const SimpleSelector* compound, int specificity,
                                          int order) {
    WaitingGroup& group = m_groupsOfOne.emplace_back();
    group.add(&rule.declarations(), compound, specificity, order);
    group.file();
    return &group;
}

RuleIndex::Key& RuleIndex::keyOf(const SimpleSelector& compound) {
    // A leftmost compound that was made a descendant by hand waits for deeper nodes even where it does not match.
    if (compound.combinator() == SimpleSelector::Descendant)
        return m_others;
    if (!compound.cssId().isEmpty())
        return m_byId[compound.cssId()];
    if (!compound.cssClasses().isEmpty())
        return rarestClass(compound.cssClasses());
    return compound.cssType().isEmpty() ? m_others : m_byType[Gorvel::interned(compound.cssType())];
}

RuleIndex::Key& RuleIndex::rarestClass(const Gorvel::ArraySet<QByteArray>& classes) {
    const QByteArray* rarest = nullptr;
    std::size_t fewest = 0;
    for (const QByteArray& name : classes) {
        const Key* found = m_byClass.find(Gorvel::interned(name));
        const std::size_t count = found ? found->starts.size() + found->group.compounds().size() : 0;
        if (!rarest || count < fewest) {
            rarest = &name;
            fewest = count;
        }
    }
    return m_byClass[Gorvel::interned(*rarest)];
}

bool RuleIndex::areRegular(const std::vector<Rule>& rules) {
    using Waiting = std::pair<const Rule::Declarations*, const SimpleSelector*>;
    std::vector<Waiting> all;
    for (const Rule& rule : rules) {
        const SimpleSelector* first = rule.selector().front().get();
        if (first->combinator() == SimpleSelector::Descendant)
            return false;
        for (const SimpleSelector* compound = first->next(); compound; compound = compound->next())
            all.emplace_back(&rule.declarations(), compound);
    }
    std::sort(all.begin(), all.end());
    return std::adjacent_find(all.begin(), all.end()) == all.end();
}

void RuleIndex::collect(const QByteArray& type, const QString& id, const Gorvel::ArraySet<QByteArray>& classes,
                        Found& found) const {
    const auto take = [&found](const Key* key) {
        if (!key)
            return;
        merge(key->starts, found.starts);
        if (!key->group.isEmpty())
            found.groups.push_back(&key->group);
    };
    take(m_byType.find(type));
    take(&m_others);
    for (const QByteArray& name : classes)
        take(m_byClass.find(name));
    if (!id.isEmpty() && !m_byId.empty()) {
        const auto key = m_byId.find(id);
        take(key == m_byId.end() ? nullptr : &key->second);
    }
}

} // namespace Brisko
