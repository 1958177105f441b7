#include "styling/StylingFixture.h"

#include "Ondex/TransitionManager.h"

#include <gtest/gtest.h>

#include <pthread.h>

namespace Testing {
namespace {

using Brisko::Style;
using Brisko::Styleable;

using Nodes = QList<Styleable*>;

class StyleableChildren : public testing::Test {
protected:
    TraceGuard trace;
    TestNode root{"root"};
};

TEST_F(StyleableChildren, AreTheStyleableAttributesInOrder) {
    addNumber(root, "width");
    TestNode* a = addNode(root, "a");
    auto* plain = new Ondex::Node(&root, "plain");
    TestNode* b = addNode(root, "b");
    EXPECT_EQ(root.children(), (Nodes{a, b}));
    EXPECT_EQ(plain->host(), &root);
    root.removeAttribute(a);
    EXPECT_EQ(root.children(), (Nodes{b}));
    root.addAttribute(a);
    EXPECT_EQ(root.children(), (Nodes{b, a}));
}

TEST_F(StyleableChildren, DestroyedChildLeavesTheList) {
    TestNode* a = addNode(root, "a");
    TestNode* b = addNode(root, "b");
    TestNode* c = addNode(root, "c");
    delete b;
    EXPECT_EQ(root.children(), (Nodes{a, c}));
    delete a;
    delete c;
    EXPECT_TRUE(root.children().isEmpty());
}

TEST_F(StyleableChildren, AddingToAnUnstyledNodeStylesNothing) {
    TestNode* a = addNode(root, "a");
    EXPECT_EQ(root.styleCount, 0);
    EXPECT_EQ(a->styleCount, 0);
}

TEST_F(StyleableChildren, AddedOneIsStyledAlsoWhereTheChildStyleOfTheParentDoesNotChange) {
    styleWith(root, "root a { transition-delay: 5 }");
    TestNode* a = addNode(root, "a");
    EXPECT_EQ(a->styleCount, 1);
    EXPECT_EQ(textOf(*a, "transition-delay"), "5");
    EXPECT_EQ(a->style(), root.childStyle());
}

TEST_F(StyleableChildren, BelowANodeThatIsNotStyleableKeepTheirOwnStyle) {
    styleWith(root, "* { css-id: x }");
    auto* plain = new Ondex::Node(&root, "plain");
    auto* inner = new TestNode("inner");
    plain->addAttribute(inner);
    EXPECT_FALSE(inner->style().isValid());
    EXPECT_EQ(inner->cssId(), QString());
    styleWith(*inner, "inner { css-id: y }");
    inner->addCSSClass("z");
    EXPECT_EQ(inner->cssId(), "y");
}

TEST_F(StyleableChildren, RootRestylesFromItsOwnStyle) {
    styleWith(root, ".x { css-id: a }");
    root.addCSSClass("x");
    EXPECT_EQ(root.cssId(), "a");
}

TEST_F(StyleableChildren, ChildRestylesFromWhatItsHostHandsOn) {
    styleWith(root, "root .x { width: 1px }");
    TestNode* child = addNode(root, "b");
    addNumber(*child, "width");
    child->setStyle(Style(sheetOf("b { width: 2px }")));
    EXPECT_EQ(textOf(*child, "width"), "2");
    child->addCSSClass("x");
    EXPECT_EQ(textOf(*child, "width"), "1");
    EXPECT_EQ(child->style(), root.childStyle());
}

TEST_F(StyleableChildren, OneMayBeDeletedByAListenerWhileTheyAreStyled) {
    TestNode* a = addNode(root, "a");
    TestNode* b = addNode(root, "b");
    TestNode* c = addNode(root, "c");
    auto* width = addNumber(*a, "width");
    width->addListener([b] { delete b; }, 2);
    styleWith(root, "* { css-id: x } a { width: 5px }");
    EXPECT_EQ(root.children(), (Nodes{a, c}));
    EXPECT_EQ(c->cssId(), "x");
}

TEST_F(StyleableChildren, OneMayBeAddedByAListenerWhileTheyAreStyled) {
    TestNode* a = addNode(root, "a");
    TestNode* added = nullptr;
    auto* width = addNumber(*a, "width");
    width->addListener([&] { added = addNode(root, "late"); }, 2);
    styleWith(root, "* { css-id: x } root > a { width: 5px }");
    ASSERT_NE(added, nullptr);
    EXPECT_EQ(added->cssId(), "x");
    EXPECT_EQ(added->style(), root.childStyle());
}

TEST_F(StyleableChildren, OneAddedByAListenerOfTheNodeThatIsBeingStyledIsStyled) {
    TestNode* added = nullptr;
    auto* width = addNumber(root, "width");
    width->addListener(
        [&] {
            if (!added)
                added = addNode(root, "late");
        },
        2);
    styleWith(root, "root { width: 5px } root late { css-id: x }");
    ASSERT_NE(added, nullptr);
    EXPECT_EQ(added->cssId(), "x");
    EXPECT_EQ(added->style(), root.childStyle());
}

TEST(StyleableLifetime, StyledNodesMayGoInAnyOrder) {
    TraceGuard trace;
    auto* root = new TestNode("root");
    TestNode* middle = addNode(*root, "middle");
    addNode(*middle, "leaf");
    styleWith(*root, "root leaf { css-class: x } * { css-id: y }");
    delete middle;
    EXPECT_TRUE(root->children().isEmpty());
    root->setCSSType("other");
    delete root;
}

TEST(StyleableLifetime, ChildOutlivesTheParentItWasTakenFrom) {
    TraceGuard trace;
    auto* root = new TestNode("root");
    TestNode* child = addNode(*root, "a");
    addNumber(*child, "width");
    styleWith(*root, "root a { width: 5px } root .x { width: 6px }");
    root->removeAttribute(child);
    delete root;
    child->addCSSClass("x");
    EXPECT_EQ(textOf(*child, "width"), "6");
    delete child;
}

TEST(StyleableLifetime, ArmedAndRunningTransitionsGoWithTheirNode) {
    TraceGuard trace;
    const int running = Ondex::TransitionManager::runningCount();
    auto* node = new TestNode("a");
    addNumber(*node, "width");
    addNumber(*node, "height");
    styleWith(*node, "a { transition: width 2s, height 3s; width: 1px } .x { width: 9px }");
    node->addCSSClass("x");
    EXPECT_EQ(Ondex::TransitionManager::runningCount(), running + 1);
    Ondex::TransitionManager::advance(1.f);
    EXPECT_EQ(textOf(*node, "width"), "5");
    delete node;
    EXPECT_EQ(Ondex::TransitionManager::runningCount(), running);
    Ondex::TransitionManager::advance(1.f);
}

TEST(StyleableLifetime, AttributeDestroyedBehindAnArmedTransitionIsForgotten) {
    TraceGuard trace;
    TestNode node("a");
    auto* width = addNumber(node, "width");
    styleWith(node, "a { transition: width 2s; width: 1px } .x { width: 9px }");
    node.addCSSClass("x");
    delete width;
    node.removeCSSClass("x");
    EXPECT_EQ(trace.takeErrors(),
              (std::vector<std::string>{"Styleable::setStyle # Testing::TestNode # Attribute width not found"}));
}

TEST(StyleableLifetime, ListenersGoWithTheirNode) {
    TraceGuard trace;
    int calls = 0;
    auto* node = new TestNode("a");
    auto* width = addNumber(*node, "width");
    width->addListener([&calls] { ++calls; }, 2);
    node->attribute("css-class")->addListener([&calls] { ++calls; }, 2);
    styleWith(*node, "a { width: 1px; css-class: x }");
    EXPECT_EQ(calls, 2);
    delete node;
    EXPECT_EQ(calls, 2);
}

TEST(StyleableLifetime, SheetLivesAsLongAsANodeIsStyledFromIt) {
    TraceGuard trace;
    std::weak_ptr<Brisko::StyleSheet> watched;
    {
        TestNode root("root");
        addNode(root, "a");
        auto sheet = sheetOf("root a { css-id: x }");
        watched = sheet;
        root.setStyle(Style(sheet));
        sheet.reset();
        EXPECT_FALSE(watched.expired());
        root.setCSSType("other");
    }
    EXPECT_TRUE(watched.expired());
}

TEST(StyleableLifetime, TenThousandSiblingsComeAndGoOneByOne) {
    TraceGuard trace;
    TestNode root("root");
    styleWith(root, "root a { transition-delay: 5 }");
    std::vector<TestNode*> nodes;
    for (int i = 0; i < 10000; ++i)
        nodes.push_back(addNode(root, "a"));
    EXPECT_EQ(textOf(*nodes.back(), "transition-delay"), "5");
    EXPECT_EQ(nodes.front()->styleCount, 1);
    for (std::size_t i = 0; i < nodes.size(); i += 2)
        delete nodes[i];
    EXPECT_EQ(root.children().size(), 5000);
    EXPECT_EQ(root.children().first(), nodes[1]);
    EXPECT_EQ(root.children().last(), nodes[9999]);
    for (std::size_t i = 1; i < nodes.size(); i += 2)
        delete nodes[i];
    EXPECT_TRUE(root.children().isEmpty());
}

constexpr int levels = 10000;
constexpr std::size_t stackSize = 8 << 20;

/// Builds a chain of nodes, styles it, restyles it from the top and destroys it.
void useDeepTree() {
    TestNode root("root");
    TestNode* leaf = &root;
    for (int i = 0; i < levels; ++i)
        leaf = addNode(*leaf, "a");
    addNumber(*leaf, "width");
    styleWith(root, "root * { width: 1px } .top * { width: 5px } .top:hover * { width: 6px }");
    EXPECT_EQ(textOf(*leaf, "width"), "1");
    root.addCSSClass("top");
    EXPECT_EQ(textOf(*leaf, "width"), "5");
    root.setPseudoClass("hover", true);
    EXPECT_EQ(textOf(*leaf, "width"), "6");
    EXPECT_EQ(leaf->styleCount, 3);
}

TEST(StyleableLifetime, TenThousandLevelsAreStyledAndDestroyedOnASmallStack) {
    TraceGuard trace;
    pthread_attr_t attributes;
    ASSERT_EQ(pthread_attr_init(&attributes), 0);
    ASSERT_EQ(pthread_attr_setstacksize(&attributes, stackSize), 0);
    pthread_t thread;
    const auto run = [](void*) -> void* {
        useDeepTree();
        return nullptr;
    };
    ASSERT_EQ(pthread_create(&thread, &attributes, run, nullptr), 0);
    EXPECT_EQ(pthread_join(thread, nullptr), 0);
    pthread_attr_destroy(&attributes);
}

} // namespace
} // namespace Testing
