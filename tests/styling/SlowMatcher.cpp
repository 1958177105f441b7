#include "styling/SlowMatcher.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>

namespace Testing {

using Brisko::SimpleSelector;
using Brisko::Styleable;

namespace {

using Chain = std::vector<const SimpleSelector*>; // leftmost first

bool has(const std::vector<QByteArray>& names, const QByteArray& name) {
    return std::find(names.begin(), names.end(), name) != names.end();
}

bool matchesCompound(const TreeNode& node, const SimpleSelector& compound) {
    if (!compound.cssType().isEmpty() && compound.cssType() != node.type)
        return false;
    if (!compound.cssId().isEmpty() && compound.cssId() != node.id)
        return false;
    for (const QByteArray& name : compound.cssClasses()) {
        if (!has(node.classes, name))
            return false;
    }
    for (const QByteArray& name : compound.pseudoClasses()) {
        if (!has(node.pseudoClasses, name))
            return false;
    }
    return true;
}

/// Whether the compounds up to @p last match with that one at @p node: from right to left, trying every ancestor.
bool matchesChain(const TreeNode& node, const Chain& chain, std::size_t last) {
    if (!matchesCompound(node, *chain[last]))
        return false;
    if (last == 0)
        return true;
    if (chain[last]->combinator() == SimpleSelector::Child)
        return node.parent && matchesChain(*node.parent, chain, last - 1);
    for (const TreeNode* ancestor = node.parent; ancestor; ancestor = ancestor->parent) {
        if (matchesChain(*ancestor, chain, last - 1))
            return true;
    }
    return false;
}

Chain chainFrom(const SimpleSelector& leftmost) {
    Chain chain;
    for (const SimpleSelector* compound = &leftmost; compound; compound = compound->next())
        chain.push_back(compound);
    return chain;
}

/// Importance, origin, ids, classes with pseudo-classes, types and number: what the cascade compares, in order.
using Rank = std::vector<int>;

Rank rankOf(const Chain& chain, const Brisko::Declaration& declaration) {
    Rank rank{declaration.important(), int(chain.back()->origin()), 0, 0, 0, declaration.id()};
    for (const SimpleSelector* compound : chain) {
        rank[2] += !compound->cssId().isEmpty();
        rank[3] += compound->cssClasses().size() + int(compound->pseudoClasses().size());
        rank[4] += !compound->cssType().isEmpty();
    }
    return rank;
}

/// The declarations that win on a node, by property, found the slow way.
std::map<QByteArray, Rank> winnersOf(const TreeNode& node, const Brisko::StyleSheet& sheet) {
    std::map<QByteArray, Rank> winners;
    for (const Brisko::Rule& rule : sheet.rules()) {
        const Chain chain = chainFrom(*rule.selector().front());
        if (!matchesChain(node, chain, chain.size() - 1))
            continue;
        for (const Brisko::Declaration& declaration : rule.declarations()) {
            Rank& winner = winners[declaration.property()];
            winner = std::max(winner, rankOf(chain, declaration));
        }
    }
    return winners;
}

std::string expectedLayers(const std::map<QByteArray, Rank>& winners, const QByteArray& property) {
    const auto winner = winners.find(property);
    if (winner == winners.end())
        return "- - ";
    const std::string number = std::to_string(winner->second.back());
    return (winner->second.front() ? "- " + number : number + " -") + " " + number;
}

} // namespace

bool matchesSlowly(const TreeNode& node, const SimpleSelector& leftmost) {
    const Chain chain = chainFrom(leftmost);
    return matchesChain(node, chain, chain.size() - 1);
}

std::string layersOf(const Styleable& node, const QByteArray& property) {
    std::string text;
    for (int layer : {Ondex::Attribute::StyleLayer, Ondex::Attribute::ImportantStyleLayer}) {
        const QString value = textOf(node, property, layer);
        text += (value == "none" ? std::string("-") : value.toStdString()) + " ";
    }
    return text + node.attributeSource(property).toStdString();
}

int compareWithSlowMatcher(const TreeNode& tree, const Styleable& node, const Brisko::StyleSheet& sheet) {
    const std::map<QByteArray, Rank> winners = winnersOf(tree, sheet);
    for (const QByteArray& property : propertyNames())
        EXPECT_EQ(layersOf(node, property), expectedLayers(winners, property))
            << property.constData() << " of " << node.simpleSelector(true).toStdString();
    int count = int(winners.size());
    const QList<Styleable*> children = node.children();
    for (int i = 0; i < children.size(); ++i)
        count += compareWithSlowMatcher(*tree.children[std::size_t(i)], *children[i], sheet);
    return count;
}

} // namespace Testing
