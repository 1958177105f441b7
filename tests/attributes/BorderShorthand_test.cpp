#include "attributes/BorderFixture.h"

namespace Testing {
namespace {

using Brisko::AttributeBorder;
using Brisko::Border;
using Brisko::CSSParser;
using Ondex::Attribute;
using Ondex::StyleValue;
using Pemmit::Frame4f;

// Shorthand of a side

std::string sideParts(const std::string& width, const std::string& style, const std::string& color) {
    return "border-top-width: " + width + "; border-top-style: " + style + "; border-top-color: " + color;
}

const std::string white = "rgba_pma(1 1 1 1)";

const ShorthandCase sideRows[] = {
    {"AllThree", "2px solid red", true, sideParts("2px", "solid", "red"), {}},
    {"AnyOrder", "red solid 2px", true, sideParts("2px", "solid", "red"), {}},
    {"IntegerWidth", "2", true, sideParts("2", "none", white), {}},
    {"NegativeNumberIsAWidth", "-2px", true, sideParts("-2px", "none", white), {}},
    {"Thin", "thin", true, sideParts("thin", "none", white), {}},
    {"Medium", "medium", true, sideParts("medium", "none", white), {}},
    {"Thick", "thick", true, sideParts("thick", "none", white), {}},
    {"NoneIsAStyle", "none", true, sideParts("medium", "none", white), {}},
    {"SolidAloneResetsWidthAndColor", "solid", true, sideParts("medium", "solid", white), {}},
    {"Hidden", "hidden", true, sideParts("medium", "hidden", white), {}},
    {"Dashed", "dashed", true, sideParts("medium", "dashed", white), {}},
    {"Double", "double", true, sideParts("medium", "double", white), {}},
    {"Groove", "groove", true, sideParts("medium", "groove", white), {}},
    {"Ridge", "ridge", true, sideParts("medium", "ridge", white), {}},
    {"Inset", "inset", true, sideParts("medium", "inset", white), {}},
    {"Outset", "outset", true, sideParts("medium", "outset", white), {}},
    {"ColorWord", "blue", true, sideParts("medium", "none", "blue"), {}},
    {"ColorWordInUpperCase", "BLUE", true, sideParts("medium", "none", "BLUE"), {}},
    {"TypedColor", "#00f", true, sideParts("medium", "none", "rgba_pma(0 0 1 1)"), {}},
    {"LaterWidthReplaces", "1px thick", true, sideParts("thick", "none", white), {}},
    {"LaterStyleReplaces", "solid dashed", true, sideParts("medium", "dashed", white), {}},
    {"LaterColorReplaces", "red #00f", true, sideParts("medium", "none", "rgba_pma(0 0 1 1)"), {}},
    {"SeparatorsDoNotMatter", "1px, solid / red", true, sideParts("1px", "solid", "red"), {}},
    {"UnknownWordIsSkipped", "2px dotted red", true, sideParts("2px", "none", "red"), {}},
    {"TextIsSkipped", "2px \"red\"", true, sideParts("2px", "none", white), {}},
    {"UnknownWordAlone", "dotted", false, "", {}},
    {"TextAlone", "\"solid\"", false, "", {}},
    {"CalculationAlone", "calc(1 + 2)", false, "", {}},
};

class BorderSideShorthand : public testing::TestWithParam<ShorthandCase> {};

TEST_P(BorderSideShorthand, SortsTheComponents) {
    Ondex::Node node(nullptr, "node");
    const AttributeBorder border(&node, "border");
    expectCase(*node.attribute("border-top"), GetParam());
}

INSTANTIATE_TEST_SUITE_P(Rows, BorderSideShorthand, testing::ValuesIn(sideRows), nameOfRow);

TEST_F(BorderOfNode, EmptyValueIsNoShorthand) {
    Parts parts;
    for (const char* name : {"border", "border-left", "border-width", "border-style", "border-color"})
        EXPECT_FALSE(node.attribute(name)->handleShorthand(StyleValue(), parts)) << name;
    EXPECT_TRUE(parts.isEmpty());
}

TEST_F(BorderOfNode, BorderHandsItsValueToEverySideInOrder) {
    Parts parts;
    EXPECT_TRUE(border.handleShorthand(CSSParser::parseValue("1px solid"), parts));
    std::string all;
    for (const std::string& side : sideNames)
        all +=
            (all.empty() ? "" : "; ") + side + "-width: 1px; " + side + "-style: solid; " + side + "-color: " + white;
    EXPECT_EQ(dumpParts(parts), all);
}

TEST_F(BorderOfNode, BorderRefusesWhatItsSidesRefuse) {
    Parts parts;
    EXPECT_FALSE(border.handleShorthand(CSSParser::parseValue("dotted"), parts));
    EXPECT_TRUE(parts.isEmpty());
}

TEST_F(BorderOfNode, DashedBorderIsReportedForEverySideAndInvisible) {
    setShorthand(border, "2 dashed red");
    EXPECT_EQ(trace.takeAll(), (Texts{"error: border-top-style: 'dashed' not implemented.",
                                      "error: border-right-style: 'dashed' not implemented.",
                                      "error: border-bottom-style: 'dashed' not implemented.",
                                      "error: border-left-style: 'dashed' not implemented."}));
    for (const Border& side : border.borders()) {
        EXPECT_EQ(dumpBorder(side), "2 none rgba(1 0 0 1)");
        EXPECT_EQ(side.computedWidth(), 0.f);
        EXPECT_FALSE(side.isVisible());
    }
    EXPECT_EQ(border.frame(), Frame4f(0.f));
}

TEST_F(BorderOfNode, TopShorthandOfSolidAloneResetsWidthAndColor) {
    setShorthand(border, "7px solid red");
    setShorthand(*node.attribute("border-top"), "solid");
    EXPECT_EQ(dumpBorder(border.top()), "3 solid rgba(1 1 1 1)");
    EXPECT_EQ(dumpBorder(border.right()), "7 solid rgba(1 0 0 1)");
}

// Shorthands of one property

struct PropertyCase {
    const char* name;
    QByteArray value;
    bool isTaken;
    const char* components[4]; // top, right, bottom, left
};

void PrintTo(const PropertyCase& row, std::ostream* out) {
    *out << row.name;
}

const PropertyCase propertyRows[] = {
    {"One", "a", true, {"a", "a", "a", "a"}},
    {"Two", "a b", true, {"a", "b", "a", "b"}},
    {"Three", "a b c", true, {"a", "b", "c", "b"}},
    {"Four", "a b c d", true, {"a", "b", "c", "d"}},
    {"SeparatorsDoNotMatter", "a, b / c", true, {"a", "b", "c", "b"}},
    {"Five", "a b c d e", false, {}},
};

class BorderProperty : public testing::TestWithParam<PropertyCase> {};

TEST_P(BorderProperty, GivesEverySideAComponent) {
    const PropertyCase& row = GetParam();
    TraceGuard trace;
    Ondex::Node node(nullptr, "node");
    const AttributeBorder border(&node, "border");
    for (const std::string property : {"width", "style", "color"}) {
        Parts parts;
        Attribute* shorthand = node.attribute(("border-" + property).c_str());
        EXPECT_EQ(shorthand->handleShorthand(CSSParser::parseValue(row.value), parts), row.isTaken) << property;
        std::string expected;
        for (std::size_t side = 0; row.isTaken && side < 4; ++side)
            expected += (side == 0 ? "" : "; ") + sideNames[side] + "-" + property + ": " + row.components[side];
        EXPECT_EQ(dumpParts(parts), expected);
    }
}

INSTANTIATE_TEST_SUITE_P(Rows, BorderProperty, testing::ValuesIn(propertyRows), nameOfRow);

TEST_F(BorderOfNode, ThreeWidthsAreTopBothSidesAndBottom) {
    setShorthand(*node.attribute("border-width"), "1 2 3");
    EXPECT_EQ(border.top().width(), 1.f);
    EXPECT_EQ(border.right().width(), 2.f);
    EXPECT_EQ(border.bottom().width(), 3.f);
    EXPECT_EQ(border.left().width(), 2.f);
}

// In the cascade

TEST(BorderInSheets, ShorthandIsSplitAndRebuildsOncePerLonghandThatChanges) {
    TraceGuard trace;
    TestNode node("a");
    AttributeBorder border(&node, "border");
    ChangeCount changes(border);
    const auto style = Brisko::Style(sheetOf("a {border: 2px solid red}"));
    node.setStyle(style);
    EXPECT_EQ(changes.take(), 12);
    EXPECT_TRUE(border.isUniform());
    EXPECT_EQ(border.frame(), Frame4f(2.f));
    node.setStyle(style);
    EXPECT_EQ(changes.take(), 0);
    styleWith(node, "a {border: 3px solid red}");
    EXPECT_EQ(changes.take(), 4);
}

TEST(BorderInSheets, LaterLonghandWinsOverTheShorthand) {
    TraceGuard trace;
    TestNode node("a");
    const AttributeBorder border(&node, "border");
    styleWith(node, "a {border: 2px solid red; border-left-color: blue; border-top: thick none}");
    EXPECT_EQ(dumpBorder(border.top()), "5 none rgba(1 1 1 1)");
    EXPECT_EQ(dumpBorder(border.right()), "2 solid rgba(1 0 0 1)");
    EXPECT_EQ(dumpBorder(border.left()), "2 solid rgba(0 0 1 1)");
    EXPECT_EQ(border.frame(), Frame4f(0.f, 2.f, 2.f, 2.f));
}

TEST(BorderInSheets, DashedIsReportedOnceForEverySide) {
    TraceGuard trace;
    TestNode node("a");
    const AttributeBorder border(&node, "border");
    styleWith(node, "a {border: 2px dashed red}");
    EXPECT_EQ(trace.takeAll(), (Texts{"error: border-top-style: 'dashed' not implemented.",
                                      "error: border-right-style: 'dashed' not implemented.",
                                      "error: border-bottom-style: 'dashed' not implemented.",
                                      "error: border-left-style: 'dashed' not implemented."}));
}

TEST(BorderInSheets, RefusedShorthandIsReportedAndChangesNothing) {
    TraceGuard trace;
    TestNode node("a");
    const AttributeBorder border(&node, "border");
    styleWith(node, "a {border: dotted}");
    const Texts errors = trace.takeErrors();
    ASSERT_EQ(errors.size(), 1u);
    EXPECT_NE(errors[0].find("# Failed to set property 'border' to [dotted]"), std::string::npos) << errors[0];
    EXPECT_EQ(border.top(), Border());
}

TEST(BorderInSheets, RuleThatNoLongerMatchesTakesItsBorderAway) {
    TraceGuard trace;
    TestNode node("a");
    const AttributeBorder border(&node, "border");
    styleWith(node, "a.on {border: 2px solid red}");
    node.addCSSClass("on");
    EXPECT_EQ(border.frame(), Frame4f(2.f));
    node.removeCSSClass("on");
    EXPECT_EQ(border.frame(), Frame4f(0.f));
    EXPECT_EQ(dumpBorder(border.top()), "3 none rgba(1 1 1 1)");
}

} // namespace
} // namespace Testing
