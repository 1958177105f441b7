#include "FloorMatcher.h"

#include <algorithm>

namespace Bench {

FloorMatcher::FloorMatcher(const Brisko::StyleSheet& sheet) {
    m_buckets.resize(1);
    for (const Brisko::Rule& rule : sheet.rules())
        addRule(rule);
}

FloorMatcher::Name FloorMatcher::number(const std::string& name) {
    const auto [entry, isNew] = m_names.try_emplace(name, Name(m_names.size()) + 1);
    if (isNew)
        m_buckets.emplace_back();
    return entry->second;
}

std::vector<int>& FloorMatcher::bucketOf(const Compound& subject) {
    if (subject.id != anyName)
        return m_buckets[std::size_t(subject.id)];
    if (!subject.classes.empty())
        return m_buckets[std::size_t(subject.classes.front())];
    return m_buckets[std::size_t(subject.type)]; // those without a type are at anyName
}

void FloorMatcher::addRule(const Brisko::Rule& rule) {
    Rule added{{}, {}, 0};
    const Brisko::SimpleSelector* compound = rule.selector().front().get();
    for (; compound; compound = compound->next()) {
        if (!compound->pseudoClasses().empty())
            return; // no node has any
        Compound next{anyName, anyName, {}, compound->combinator() == Brisko::SimpleSelector::Child};
        if (!compound->cssType().isEmpty())
            next.type = number(compound->cssType().toStdString());
        if (!compound->cssId().isEmpty())
            next.id = number('#' + compound->cssId().toStdString());
        for (const QByteArray& name : compound->cssClasses())
            next.classes.push_back(number('.' + name.toStdString()));
        added.rank += (next.id ? 0x10000u : 0u) + std::uint32_t(next.classes.size()) * 0x100u + (next.type ? 1u : 0u);
        added.compounds.insert(added.compounds.begin(), std::move(next));
    }
    for (const Brisko::Declaration& declaration : rule.declarations()) {
        const auto property = m_properties.try_emplace(declaration.property().toStdString(), int(m_properties.size()));
        added.declared.push_back({property.first->second, declaration.id()});
    }
    bucketOf(added.compounds.front()).push_back(int(m_rules.size()));
    m_rules.push_back(std::move(added));
}

void FloorMatcher::setTree(const TreeShape& tree) {
    m_nodes.clear();
    for (const NodeShape& shape : tree) {
        Node node{shape.parent, number(shape.type.toStdString()), anyName, {}};
        if (!shape.id.isEmpty())
            node.id = number('#' + shape.id.toStdString());
        for (const QString& name : shape.classes.split(' '))
            node.classes.push_back(number('.' + name.toStdString()));
        m_nodes.push_back(std::move(node));
    }
    m_winners.resize(m_nodes.size() * m_properties.size());
}

bool FloorMatcher::holds(const Compound& compound, const Node& node) {
    const auto hasClass = [&](Name name) {
        return std::find(node.classes.begin(), node.classes.end(), name) != node.classes.end();
    };
    return (compound.type == anyName || compound.type == node.type) &&
           (compound.id == anyName || compound.id == node.id) &&
           std::all_of(compound.classes.begin(), compound.classes.end(), hasClass);
}

bool FloorMatcher::matches(const Rule& rule, const Node& node) const {
    if (!holds(rule.compounds.front(), node))
        return false;
    // A descendant compound takes the nearest ancestor that it holds for, which is right for chains of two.
    int place = node.parent;
    for (std::size_t i = 1; i < rule.compounds.size(); ++i) {
        const bool isChild = rule.compounds[i - 1].isChild;
        while (place >= 0 && !isChild && !holds(rule.compounds[i], m_nodes[std::size_t(place)]))
            place = m_nodes[std::size_t(place)].parent;
        if (place < 0 || (isChild && !holds(rule.compounds[i], m_nodes[std::size_t(place)])))
            return false;
        place = m_nodes[std::size_t(place)].parent;
    }
    return true;
}

void FloorMatcher::apply(int place, const Node& node, Winner* winners) const {
    const Rule& rule = m_rules[std::size_t(place)];
    if (!matches(rule, node))
        return;
    const std::uint64_t rank = (std::uint64_t(rule.rank) << 32) + std::uint64_t(place) + 1;
    for (const Declared& declared : rule.declared) {
        Winner& winner = winners[declared.property];
        if (winner.rank <= rank)
            winner = {rank, declared.declaration};
    }
}

void FloorMatcher::applyBucket(Name name, const Node& node, Winner* winners) const {
    for (const int place : m_buckets[std::size_t(name)])
        apply(place, node, winners);
}

int FloorMatcher::match() {
    std::fill(m_winners.begin(), m_winners.end(), Winner());
    Winner* winners = m_winners.data();
    for (const Node& node : m_nodes) {
        applyBucket(anyName, node, winners);
        applyBucket(node.type, node, winners);
        if (node.id != anyName)
            applyBucket(node.id, node, winners);
        for (const Name name : node.classes)
            applyBucket(name, node, winners);
        winners += m_properties.size();
    }
    return int(std::count_if(m_winners.begin(), m_winners.end(), [](const Winner& one) { return one.rank != 0; }));
}

int FloorMatcher::winner(int node, const std::string& property) const {
    const auto found = m_properties.find(property);
    if (found == m_properties.end())
        return -1;
    return m_winners[std::size_t(node) * m_properties.size() + std::size_t(found->second)].declaration;
}

} // namespace Bench
