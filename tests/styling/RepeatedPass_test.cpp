#include "Ondex/AttributeT.h"
#include "styling/StylingFixture.h"
#include "styling/TestAttributes.h"

#include <gtest/gtest.h>

namespace Testing {
namespace {

using Brisko::Style;
using Ondex::Attribute;
using Ondex::StyleValue;

/// Passes that find the same as the one before, but for what has changed about the attributes meanwhile.
class RepeatedPass : public testing::Test {
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

/// A number that tells how often it was asked for its parts.
class CountingNumber : public Ondex::AttributeT<float> {
public:
    using AttributeT<float>::AttributeT;
    bool handleShorthand(const StyleValue&, Gorvel::ArrayMap<Attribute*, StyleValue>&) override {
        ++askedCount;
        return false;
    }
    int askedCount = 0;
};

TEST_F(RepeatedPass, WritesTheSameAgain) {
    styleWith(node, "a { width: 1px; height: 2px }");
    width->clearValue(Attribute::StyleLayer);
    height->set(7.f, Attribute::StyleLayer, Attribute::VU_PXS);
    node.updateStyle();
    EXPECT_EQ(textOf(node, "width", Attribute::StyleLayer), "1");
    EXPECT_EQ(textOf(node, "height", Attribute::StyleLayer), "2");
}

TEST_F(RepeatedPass, AsksAnAttributeOfAnotherClassThatTookThePlace) {
    styleWith(node, "a { width: 1px; height: 2px }");
    delete width;
    auto* counting = new CountingNumber(&node, "width");
    node.updateStyle();
    EXPECT_EQ(counting->askedCount, 1);
    node.updateStyle();
    EXPECT_EQ(counting->askedCount, 2);
    EXPECT_EQ(textOf(node, "width"), "1");
}

TEST_F(RepeatedPass, TriesAgainWhatWasRefused) {
    styleWith(node, "a { width: 5px; height: 2px }");
    delete width;
    new Ondex::AttributeT<bool>(&node, "width");
    for (int i = 0; i < 3; ++i) {
        node.updateStyle();
        EXPECT_EQ(trace.takeErrors().size(), 1u);
    }
}

TEST_F(RepeatedPass, ReportsAnAttributeThatHasGone) {
    styleWith(node, "a { width: 1px; height: 2px }");
    delete width;
    node.updateStyle();
    EXPECT_EQ(trace.takeErrors().size(), 1u);
    EXPECT_EQ(textOf(node, "height"), "2");
}

TEST_F(RepeatedPass, FindsAnAttributeThatHasComeInFrontByItsNewName) {
    styleWith(node, "a { height: 2px }");
    width->setName("height");
    node.updateStyle();
    EXPECT_EQ(width->valueOnLayer(Attribute::StyleLayer) != nullptr, true);
    EXPECT_EQ(width->value(), 2.f);
}

TEST_F(RepeatedPass, AsksAShorthandOfWhichNothingIsLeft) {
    class CountingPair : public PairAttribute {
    public:
        using PairAttribute::PairAttribute;
        bool handleShorthand(const StyleValue& value, Gorvel::ArrayMap<Attribute*, StyleValue>& parts) override {
            ++askedCount;
            return PairAttribute::handleShorthand(value, parts);
        }
        int askedCount = 0;
    };
    auto* pair = new CountingPair(&node, "pair");
    styleWith(node, "a { pair: 1 2; pair-a: 3; pair-b: 4 }");
    node.updateStyle();
    node.updateStyle();
    EXPECT_EQ(pair->askedCount, 3);
    EXPECT_EQ(textOf(node, "pair-a"), "3");
}

TEST_F(RepeatedPass, MatchesTheIdThatAListenerSeesFirst) {
    styleWith(node, "a { width: 1px } #x { width: 9px }");
    QString seen;
    node.attribute("css-id")->addListener(
        [&] {
            node.setStyle(node.style());
            seen = textOf(node, "width");
        },
        1); // before the node itself is told
    node.setCSSId("x");
    EXPECT_EQ(seen, "9");
    node.setCSSId("");
    EXPECT_EQ(seen, "1");
}

TEST_F(RepeatedPass, MatchesWhatChangedWhileStylingWasSuppressed) {
    styleWith(node, "a { width: 1px } .b { width: 9px } b { width: 8px } :hover { height: 7px }");
    node.setStylingSuppressed(true);
    node.addCSSClass("b");
    node.setStylingSuppressed(false);
    node.updateStyle();
    EXPECT_EQ(textOf(node, "width"), "9");
    node.setStylingSuppressed(true);
    node.removeCSSClass("b");
    node.setCSSType("b");
    node.setPseudoClass("hover", true);
    node.setStylingSuppressed(false);
    node.updateStyle();
    EXPECT_EQ(textOf(node, "width"), "8");
    EXPECT_EQ(textOf(node, "height"), "7");
}

TEST_F(RepeatedPass, MatchesWhatAListenerChangedInThePassBeforeWithoutARestyle) {
    width->addListener(
        [&] {
            node.setStylingSuppressed(true);
            node.addCSSClass("b");
            node.setStylingSuppressed(false);
        },
        2);
    styleWith(node, "a { width: 1px } .b { height: 9px }");
    EXPECT_EQ(textOf(node, "height"), "0");
    node.updateStyle();
    EXPECT_EQ(textOf(node, "height"), "9");
}

TEST_F(RepeatedPass, KeepsTheUsesOfPseudoClasses) {
    TestNode* child = addNode(node, "b");
    addNumber(*child, "width");
    styleWith(node, "a { width: 1px } b { width: 3px } a:hover { width: 2px } a:active b { width: 4px }");
    node.updateStyle();
    node.setPseudoClass("hover", true);
    EXPECT_EQ(textOf(node, "width"), "2");
    node.updateStyle();
    node.setPseudoClass("active", true);
    EXPECT_EQ(textOf(*child, "width"), "4");
    child->updateStyle();
    node.setPseudoClass("active", false);
    EXPECT_EQ(textOf(*child, "width"), "3");
}

TEST_F(RepeatedPass, HandsOnWhatTheNodeBeginsInFrontOfANewStyle) {
    TestNode* child = addNode(node, "b");
    TestNode* grandchild = addNode(*child, "c");
    addNumber(*child, "width");
    addNumber(*grandchild, "width");
    styleWith(node, "b { width: 1px } b c { width: 2px } .on d { width: 3px } .on c { width: 4px }");
    EXPECT_EQ(waitingText(child->childStyle()), "c 0x01000001");
    node.addCSSClass("on");
    EXPECT_EQ(waitingText(child->childStyle()), "c 0x01000001, d 0x01000100, c 0x01000100");
    EXPECT_EQ(textOf(*grandchild, "width"), "4");
    node.removeCSSClass("on");
    EXPECT_EQ(waitingText(child->childStyle()), "c 0x01000001");
    EXPECT_EQ(textOf(*grandchild, "width"), "2");
}

} // namespace
} // namespace Testing
