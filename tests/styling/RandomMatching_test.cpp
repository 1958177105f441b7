#include "styling/RandomScene.h"
#include "support/SheetDump.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>

namespace Testing {
namespace {

using Brisko::SimpleSelector;
using Brisko::Styleable;

constexpr unsigned seed = 20210901;
constexpr int pairs = 10000;
constexpr int changedScenes = 150;
constexpr int changesOfAScene = 12;

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
        Chain chain;
        for (const SimpleSelector* compound = rule.selector().front().get(); compound; compound = compound->next())
            chain.push_back(compound);
        if (!matchesChain(node, chain, chain.size() - 1))
            continue;
        for (const Brisko::Declaration& declaration : rule.declarations()) {
            Rank& winner = winners[declaration.property()];
            winner = std::max(winner, rankOf(chain, declaration));
        }
    }
    return winners;
}

/// What a node holds for a property on its style layers, such as "- 17".
std::string layersOf(const Styleable& node, const QByteArray& property) {
    std::string text;
    for (int layer : {Ondex::Attribute::StyleLayer, Ondex::Attribute::ImportantStyleLayer}) {
        const QString value = textOf(node, property, layer);
        text += (value == "none" ? std::string("-") : value.toStdString()) + " ";
    }
    return text + node.attributeSource(property).toStdString();
}

std::string expectedLayers(const std::map<QByteArray, Rank>& winners, const QByteArray& property) {
    const auto winner = winners.find(property);
    if (winner == winners.end())
        return "- - ";
    const std::string number = std::to_string(winner->second.back());
    return (winner->second.front() ? "- " + number : number + " -") + " " + number;
}

/// Compares every node with the slow matcher. @return the number of values that were set
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

TEST(RandomMatching, ForwardMatchingAgreesWithMatchingFromRightToLeft) {
    TraceGuard trace;
    int values = 0;
    for (unsigned pair = 0; pair < pairs; ++pair) {
        Dice dice(seed + pair);
        const std::unique_ptr<TreeNode> tree = randomTree(dice, 6);
        const auto sheet = randomSheet(dice, 6);
        const std::unique_ptr<TestNode> scene = buildScene(*tree);
        scene->setStyle(Brisko::Style(sheet));
        values += compareWithSlowMatcher(*tree, *scene, *sheet);
        ASSERT_FALSE(HasFailure()) << "seed " << seed + pair << "\n" << tree->text() << dumpSheet(*sheet);
    }
    EXPECT_GT(values, pairs) << "too few rules match for the comparison to mean much";
}

/// A random change, made to the plain tree and to the scene. @return its description
class RandomChange {
public:
    RandomChange(Dice& dice, TreeNode& tree, TestNode& scene) : m_dice(dice) {
        const std::vector<TreeNode*> nodes = tree.all();
        m_tree = nodes[std::size_t(dice.roll(int(nodes.size())))];
        m_other = nodes[std::size_t(dice.roll(int(nodes.size())))];
        m_root = &scene;
        m_node = counterpart(m_tree);
    }

    std::string make() {
        switch (m_dice.roll(8)) {
        case 0:
            return changeType();
        case 1:
            return changeId();
        case 2:
        case 3:
            return toggleClass();
        case 4:
            return togglePseudoClass();
        case 5:
            return addChild();
        case 6:
            return remove();
        default:
            return move();
        }
    }

private:
    TestNode* counterpart(const TreeNode* tree) const {
        if (!tree->parent)
            return m_root;
        const auto& siblings = tree->parent->children;
        int place = 0;
        while (siblings[std::size_t(place)].get() != tree)
            ++place;
        return static_cast<TestNode*>(counterpart(tree->parent)->children().at(place));
    }

    std::string on(const std::string& what) { return what + " on " + m_node->simpleSelector(true).toStdString(); }

    std::string changeType() {
        m_tree->type = randomName(m_dice, "abc");
        m_node->setCSSType(m_tree->type);
        return on("type");
    }

    std::string changeId() {
        m_tree->id = m_dice.chance(30) ? QString() : QString::fromLatin1(randomName(m_dice, "ij"));
        m_node->setCSSId(m_tree->id);
        return on("id");
    }

    bool toggle(std::vector<QByteArray>& names, const QByteArray& name) {
        const auto place = std::find(names.begin(), names.end(), name);
        const bool on = place == names.end();
        if (on)
            names.push_back(name);
        else
            names.erase(place);
        return on;
    }

    std::string toggleClass() {
        const QByteArray name = randomName(m_dice, "xyz");
        m_node->toggleCSSClass(name, toggle(m_tree->classes, name));
        return on("class");
    }

    std::string togglePseudoClass() {
        const QByteArray name = randomName(m_dice, "hf");
        m_node->setPseudoClass(name, toggle(m_tree->pseudoClasses, name));
        return on("pseudo-class");
    }

    std::string addChild() {
        m_tree->children.push_back(randomTree(m_dice, 3));
        m_tree->children.back()->parent = m_tree;
        m_node->addAttribute(buildScene(*m_tree->children.back()).release());
        return on("added child");
    }

    std::unique_ptr<TreeNode> takeFromParent() {
        auto& siblings = m_tree->parent->children;
        const auto place =
            std::find_if(siblings.begin(), siblings.end(), [this](const auto& node) { return node.get() == m_tree; });
        std::unique_ptr<TreeNode> taken = std::move(*place);
        siblings.erase(place);
        return taken;
    }

    std::string remove() {
        if (!m_tree->parent)
            return "nothing";
        const std::string what = on("removed");
        delete m_node;
        takeFromParent();
        return what;
    }

    std::string move() {
        if (!m_tree->parent || m_other->isBelow(m_tree))
            return "nothing";
        TestNode* target = counterpart(m_other);
        m_other->children.push_back(takeFromParent());
        m_tree->parent = m_other;
        target->addAttribute(m_node);
        return on("moved below " + target->simpleSelector(true).toStdString());
    }

    Dice& m_dice;
    TreeNode* m_tree;
    TreeNode* m_other;
    TestNode* m_root;
    TestNode* m_node;
};

void expectSameStyles(const Styleable& changed, const Styleable& fresh) {
    ASSERT_EQ(changed.children().size(), fresh.children().size());
    EXPECT_EQ(changed.simpleSelector(true), fresh.simpleSelector(true));
    EXPECT_EQ(waitingText(changed.style()), waitingText(fresh.style()));
    EXPECT_TRUE(changed.style() == fresh.style());
    EXPECT_EQ(waitingText(changed.childStyle()), waitingText(fresh.childStyle()));
    EXPECT_TRUE(changed.childStyle() == fresh.childStyle());
    for (const QByteArray& property : propertyNames())
        EXPECT_EQ(layersOf(changed, property), layersOf(fresh, property)) << property.constData();
    for (int i = 0; i < changed.children().size(); ++i)
        expectSameStyles(*changed.children()[i], *fresh.children()[i]);
}

TEST(RandomMatching, ChangedSceneEqualsAFreshOne) {
    TraceGuard trace;
    for (unsigned run = 0; run < changedScenes; ++run) {
        Dice dice(seed + run);
        const std::unique_ptr<TreeNode> tree = randomTree(dice, 8);
        const Brisko::Style style(randomSheet(dice, 8));
        const std::unique_ptr<TestNode> scene = buildScene(*tree);
        scene->setStyle(style);
        std::string history;
        for (int i = 0; i < changesOfAScene; ++i) {
            history += RandomChange(dice, *tree, *scene).make() + "\n";
            const std::unique_ptr<TestNode> fresh = buildScene(*tree);
            fresh->setStyle(style);
            expectSameStyles(*scene, *fresh);
            ASSERT_FALSE(HasFailure()) << "seed " << seed + run << ", after\n"
                                       << history << tree->text() << dumpSheet(*style.styleSheet());
        }
    }
}

} // namespace
} // namespace Testing
