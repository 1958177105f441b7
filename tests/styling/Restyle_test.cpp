#include "styling/StylingFixture.h"

#include <gtest/gtest.h>

namespace Testing {
namespace {

using Brisko::Style;

using Messages = std::vector<std::string>;

/// A restyle of a node that is asked for while the node is being styled.
class Restyle : public testing::Test {
protected:
    void SetUp() override {
        width = addNumber(node, "width");
        height = addNumber(node, "height");
    }

    TraceGuard trace;
    TestNode node{"a"};
    Ondex::AttributeT<float>* width = nullptr;
    Ondex::AttributeT<float>* height = nullptr;
};

TEST_F(Restyle, WaitsUntilThePassIsOver) {
    bool answer = true;
    QString heightInListener;
    width->addListener(
        [&] {
            answer = node.setStyle(node.style());
            heightInListener = textOf(node, "height");
        },
        2);
    styleWith(node, "a { width: 1px; height: 2px }");
    EXPECT_FALSE(answer);
    EXPECT_EQ(heightInListener, "0");
    EXPECT_EQ(textOf(node, "height"), "2");
}

TEST_F(Restyle, TakesTheStyleThatWasAskedForLast) {
    const Style second(sheetOf("a { height: 22px }"));
    const Style third(sheetOf("a { height: 33px }"));
    bool done = false;
    width->addListener(
        [&] {
            if (std::exchange(done, true))
                return;
            node.setStyle(second);
            node.setStyle(third);
        },
        2);
    styleWith(node, "a { width: 1px; height: 2px }");
    EXPECT_EQ(node.style(), third);
    EXPECT_EQ(textOf(node, "height"), "33");
    EXPECT_EQ(textOf(node, "width"), "0");
}

TEST_F(Restyle, OfAnotherRoundIsReportedAndDropped) {
    int calls = 0;
    const auto ask = [&] {
        ++calls;
        node.addCSSClass(QString("c%1").arg(calls));
    };
    width->addListener(ask, 2);
    height->addListener(ask, 2);
    styleWith(node, "a { width: 1px } .c1 { height: 2px } .c2 { width: 3px }");
    EXPECT_EQ(calls, 2);
    EXPECT_EQ(trace.takeErrors(), Messages{"Styleable::setStyle # a.c1.c2 # Styling changes what it depends on; the "
                                           "last change is ignored"});
    EXPECT_EQ(textOf(node, "width"), "1");
    EXPECT_EQ(textOf(node, "height"), "2");
}

TEST_F(Restyle, MayBeAskedForAgainInALaterPass) {
    width->addListener([this] { node.toggleCSSClass("big", width->value() > 5); }, 2);
    styleWith(node, "a { width: 1px } .wide { width: 9px } .big { height: 2px }");
    node.addCSSClass("wide");
    EXPECT_EQ(textOf(node, "height"), "2");
    node.removeCSSClass("wide");
    EXPECT_EQ(textOf(node, "height"), "0");
}

TEST_F(Restyle, AskedForByAPseudoClassThatAListenerSwitches) {
    width->addListener([this] { node.setPseudoClass("wide", width->value() > 5); }, 2);
    styleWith(node, "a { width: 9px } a:wide { height: 2px }");
    EXPECT_EQ(textOf(node, "height"), "2");
}

TEST_F(Restyle, AskedForWhileThePassForAPseudoClassRuns) {
    width->addListener([this] { node.toggleCSSClass("big", width->value() > 5); }, 2);
    TestNode* child = addNode(node, "b");
    styleWith(node, "a:hover { width: 9px } .big { height: 2px } .big b { css-id: x }");
    EXPECT_EQ(textOf(node, "height"), "0");
    node.setPseudoClass("hover", true);
    EXPECT_EQ(textOf(node, "height"), "2");
    EXPECT_EQ(child->cssId(), "x");
}

TEST_F(Restyle, OfTheParentByAChildReachesThatChildAfterItsPass) {
    TestNode* child = addNode(node, "b");
    auto* childWidth = addNumber(*child, "width");
    auto* childHeight = addNumber(*child, "height");
    childWidth->addListener([this] { node.addCSSClass("x"); }, 2);
    styleWith(node, "b { width: 1px } .x b { height: 2px }");
    EXPECT_EQ(childHeight->value(), 2.f);
    EXPECT_EQ(child->style(), node.childStyle());
}

TEST_F(Restyle, OfOtherNodesGoesOnAtOnce) {
    TestNode other("b");
    addNumber(other, "width");
    styleWith(other, ".x { width: 5px }");
    QString seen;
    width->addListener(
        [&] {
            other.addCSSClass("x");
            seen = textOf(other, "width");
        },
        2);
    styleWith(node, "a { width: 1px }");
    EXPECT_EQ(seen, "5");
}

TEST_F(Restyle, IsForgottenWhereStylingIsSuppressed) {
    width->addListener(
        [this] {
            node.setStylingSuppressed(true);
            node.addCSSClass("x");
        },
        2);
    styleWith(node, "a { width: 1px } .x { height: 2px }");
    EXPECT_EQ(textOf(node, "height"), "0");
    EXPECT_EQ(node.styleCount, 1);
}

TEST_F(Restyle, AnswersWhetherTheChildStyleChangedInTheEnd) {
    width->addListener([this] { node.addCSSClass("x"); }, 2);
    const Style style(sheetOf("a { width: 1px } .x b { css-id: x }"));
    EXPECT_TRUE(node.setStyle(style));
    EXPECT_EQ(waitingText(node.childStyle()), "b 0x01000100");
    EXPECT_FALSE(node.setStyle(style));
}

/// Nodes that are styled keep what the sheet put together for them; a sheet may grow meanwhile.
TEST_F(Restyle, FollowsRulesThatWereDeclaredAfterTheNodeWasStyled) {
    TestNode* child = addNode(node, "b");
    addNumber(*child, "width");
    const auto sheet = sheetOf("a b { width: 1px }");
    node.setStyle(Style(sheet));
    for (const char* css : {"a b { width: 2px }", "a > b { width: 3px }"}) {
        sheet->declare(sheetOf(css)->rules().front());
        EXPECT_TRUE(node.setStyle(Style(sheet)));
    }
    EXPECT_EQ(waitingText(node.childStyle()), "b 0x01000001, b 0x01000001, > b 0x01000001");
    EXPECT_EQ(child->style(), node.childStyle());
    EXPECT_EQ(child->styleCount, 3);
}

} // namespace
} // namespace Testing
