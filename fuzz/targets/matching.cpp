#include "brisko/SceneWalk.h"
#include "brisko/SelectorMatcher.h"
#include "fuzz/support/ByteSource.h"
#include "fuzz/support/Target.h"
#include "styling/SlowMatcher.h"
#include "support/SheetDump.h"

#include <gtest/gtest.h>

// Random rules over a random tree: the nodes hold what matching from right to left says, and the selectors of the rules
// find the nodes that it says.

using Brisko::Rule;
using Brisko::StyleSheet;
using Testing::TreeNode;

namespace {

constexpr int mostNodes = 24;
constexpr int mostRules = 16;

/// The nodes of the tree in document order.
void collect(const TreeNode& node, std::vector<const TreeNode*>& nodes) {
    nodes.push_back(&node);
    for (const auto& child : node.children)
        collect(*child, nodes);
}

void expectSameNodesFound(const TreeNode& tree, Brisko::Styleable& scene, const Rule& rule) {
    std::vector<const TreeNode*> nodes;
    collect(tree, nodes);
    Command::SelectorMatcher matcher({rule.selector()});
    std::size_t i = 0;
    for (Command::SceneWalk walk(scene); walk.isValid(); walk.next(), ++i)
        EXPECT_EQ(matcher.enter(walk.node(), walk.depth()),
                  Testing::matchesSlowly(*nodes.at(i), *rule.selector().front()))
            << Testing::dumpSelector(rule.selector()) << " at " << walk.path().constData();
    EXPECT_EQ(i, nodes.size());
}

} // namespace

namespace Fuzz {

void checkInput(const QByteArray& bytes) {
    ByteSource source(bytes);
    ByteSource plan = source.part(1);
    ByteSource nodes = source.part(8);
    Testing::Dice treeDice = nodes.dice();
    Testing::Dice sheetDice = source.dice();
    const auto tree = Testing::randomTree(treeDice, 1 + plan.roll(mostNodes), {}, plan.roll(101));
    const std::shared_ptr<StyleSheet> sheet = Testing::randomSheet(sheetDice, 1 + plan.roll(mostRules));
    const auto scene = Testing::buildScene(*tree);
    scene->setStyle(Brisko::Style(sheet));
    Testing::compareWithSlowMatcher(*tree, *scene, *sheet);
    for (const Rule& rule : sheet->rules())
        expectSameNodesFound(*tree, *scene, rule);
    if (testing::Test::HasFailure())
        ADD_FAILURE() << tree->text() << Testing::dumpSheet(*sheet);
}

} // namespace Fuzz
