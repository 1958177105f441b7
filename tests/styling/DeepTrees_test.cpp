#include "styling/StylingFixture.h"

#include <gtest/gtest.h>

#include <utility>

namespace Testing {
namespace {

using Brisko::Style;
using Brisko::Styleable;

constexpr int deepestOnStack = 1000;
constexpr int deep = 5000;
constexpr int veryDeep = 100000; // far more than a stack of 8 MiB has room for
constexpr int role = 5;          // behind the listeners of the nodes themselves

/// A chain of nodes with a width each, root first.
class DeepTrees : public testing::Test {
protected:
    /// Grown from its end, so that no node is added below an unstyled chain twice.
    explicit DeepTrees(int levels = deep) {
        nodes.resize(size_t(levels));
        for (size_t i = nodes.size(); i-- > 0;) {
            nodes[i] = new TestNode(i % 2 == 0 ? "even" : "odd");
            addNumber(*nodes[i], "width");
            if (i + 1 < nodes.size())
                nodes[i]->addAttribute(nodes[i + 1]);
        }
    }
    ~DeepTrees() override { delete nodes.front(); }

    QString widthAt(size_t level) const { return textOf(*nodes[level], "width"); }

    TraceGuard trace;
    std::vector<TestNode*> nodes;
};

class VeryDeepTrees : public DeepTrees {
protected:
    VeryDeepTrees() : DeepTrees(veryDeep) {}
};

TEST_F(VeryDeepTrees, AreStyledToTheirEnd) {
    styleWith(*nodes.front(),
              "even { width: 1 } odd { width: 2 } even odd even { width: 3 } odd > even > odd {width: 4}");
    const auto expected = [](size_t level) { return level == 0 ? "1" : level == 1 ? "2" : level % 2 == 0 ? "3" : "4"; };
    for (size_t level = 0; level < nodes.size(); ++level)
        ASSERT_EQ(widthAt(level), expected(level)) << level;
}

TEST_F(DeepTrees, HaveEveryNodeStyledOnce) {
    for (TestNode* node : nodes)
        node->styleCount = 0;
    styleWith(*nodes.front(), "odd { width: 2 }");
    for (size_t level = 0; level < nodes.size(); ++level)
        ASSERT_EQ(nodes[level]->styleCount, 1) << level;
}

TEST_F(DeepTrees, FollowChangesAtTheirTop) {
    styleWith(*nodes.front(), "even odd { width: 2 } .on odd { width: 3 } :hover odd { width: 4 }");
    nodes.front()->addCSSClass("on");
    EXPECT_EQ(widthAt(deep - 1), "3");
    nodes.front()->setPseudoClass("hover", true);
    EXPECT_EQ(widthAt(deep - 1), "4");
    nodes.front()->setStyle(Style());
    EXPECT_EQ(widthAt(deep - 1), "0");
}

TEST_F(DeepTrees, WhoseEndGoesWhileTheyAreStyledAreStyledUpToThere) {
    constexpr size_t last = 3500;
    nodes[last]->attribute("width")->addListener(
        [this] {
            if (nodes.size() > last + 1)
                delete nodes[last + 1];
            nodes.resize(last + 1);
        },
        role);
    styleWith(*nodes.front(), "* { width: 1 }");
    EXPECT_EQ(widthAt(last), "1");
}

TEST_F(DeepTrees, WhoseWaitingNodesGoAreStyledElsewhere) {
    // The first branch ends at the level where children wait; a node of the second deletes it before its turn.
    TestNode* bottom = nodes[deepestOnStack];
    auto* second = addNode(*nodes[1], "second");
    addNumber(*second, "width")->addListener([this] { delete std::exchange(nodes[2], nullptr); }, role);
    ASSERT_TRUE(bottom->host());
    styleWith(*nodes.front(), "* { width: 1 }");
    EXPECT_EQ(nodes[2], nullptr);
    EXPECT_EQ(widthAt(1), "1");
    EXPECT_EQ(textOf(*second, "width"), "1");
}

TEST_F(DeepTrees, LetListenersStyleOtherTreesAtOnce) {
    Styleable other("other");
    TestNode* child = addNode(other, "child");
    TestNode* grandchild = addNode(*child, "grandchild");
    addNumber(*grandchild, "width");
    QString seen;
    nodes[deepestOnStack + 1]->attribute("width")->addListener(
        [&] {
            styleWith(other, "other child grandchild { width: 7 }");
            seen = textOf(*grandchild, "width");
        },
        role);
    styleWith(*nodes.front(), "* { width: 1 }");
    EXPECT_EQ(seen, "7");
}

} // namespace
} // namespace Testing
