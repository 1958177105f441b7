#include "styling/StylingFixture.h"

#include "Brisko/LazyAttributeManager.h"

#include <gtest/gtest.h>

#include <memory>
#include <utility>

namespace Testing {
namespace {

using Brisko::LazyAttributeManager;
using Brisko::Style;
using Brisko::Styleable;

constexpr int role = 5; // behind the listeners of the node itself

/// A panel and a button of one sheet, which nobody else holds.
class SheetLifetime : public testing::Test {
protected:
    SheetLifetime() {
        addNumber(*button, "width");
        addNumber(*button, "height");
        give(panel, "panel button { width: 1 } panel .on { width: 2 }");
    }
    void give(Styleable& node, const QByteArray& css) {
        const std::shared_ptr<Brisko::StyleSheet> sheet = sheetOf(css);
        last = sheet;
        node.setStyle(Style(sheet));
    }

    TraceGuard trace;
    TestNode panel{"panel"};
    TestNode* button = addNode(panel, "button");
    std::weak_ptr<Brisko::StyleSheet> last;
};

TEST_F(SheetLifetime, NodesKeepWhatTheyAreStyledFrom) {
    EXPECT_FALSE(last.expired());
    button->addCSSClass("on");
    EXPECT_EQ(textOf(*button, "width"), "2");
}

TEST_F(SheetLifetime, ReplacedOneGoesWithItsLastNode) {
    const std::weak_ptr<Brisko::StyleSheet> first = last;
    give(panel, "panel button { width: 5 }");
    EXPECT_TRUE(first.expired());
    EXPECT_EQ(textOf(*button, "width"), "5");
}

TEST_F(SheetLifetime, NodeThatIsNotRestyledHoldsTheReplacedOne) {
    button->setStylingSuppressed(true);
    const std::weak_ptr<Brisko::StyleSheet> first = last;
    give(panel, "panel button { width: 5 }");
    EXPECT_FALSE(first.expired());
    EXPECT_EQ(button->attributeSource("width"), ":0"); // of no file
    button->setStylingSuppressed(false);
    button->addCSSClass("on");
    EXPECT_TRUE(first.expired());
    EXPECT_EQ(textOf(*button, "width"), "5");
}

TEST_F(SheetLifetime, ReplacedByAListenerInTheMiddleOfAPass) {
    button->attribute("width")->addListener(
        [this] {
            if (textOf(*button, "width") == "2")
                give(panel, "panel button { width: 7; height: 8 }");
        },
        role);
    const std::weak_ptr<Brisko::StyleSheet> first = last;
    button->addCSSClass("on");
    EXPECT_TRUE(first.expired());
    EXPECT_EQ(textOf(*button, "width"), "7");
    EXPECT_EQ(textOf(*button, "height"), "8");
}

TEST_F(SheetLifetime, ReplacedByAListenerWhileChildrenAreStyled) {
    auto* second = new TestNode("button");
    addNumber(*second, "width");
    addNumber(*second, "height");
    panel.addAttribute(second); // which owns it
    button->attribute("width")->addListener(
        [this] {
            if (textOf(*button, "width") == "5")
                give(panel, "panel button { height: 8 }");
        },
        role);
    give(panel, "panel button { width: 5 }");
    EXPECT_EQ(textOf(*second, "height"), "8");
    EXPECT_EQ(textOf(*button, "width"), "0");
}

TEST_F(SheetLifetime, TakenAwayByAListenerThatDeletesTheNodeWithIt) {
    button->attribute("width")->addListener([this] { delete std::exchange(button, nullptr); }, role);
    give(panel, "button { width: 5; height: 6 } panel { css-id: x }");
    EXPECT_EQ(button, nullptr);
    EXPECT_EQ(panel.cssId(), "x");
}

TEST_F(SheetLifetime, StyleOutlivesItsNodesAndTheOwnersOfItsSheet) {
    Style kept;
    {
        TestNode root("panel");
        give(root, "panel button { width: 5 } panel > .on { width: 6 }");
        kept = root.childStyle();
    }
    EXPECT_FALSE(last.expired());
    EXPECT_EQ(waitingText(kept), "button 0x01000001, > .on 0x01000001");
    TestNode other("button");
    addNumber(other, "width");
    other.setStyle(kept);
    EXPECT_EQ(textOf(other, "width"), "5");
    other.setStyle(Style());
    kept = Style();
    EXPECT_TRUE(last.expired());
}

TEST_F(SheetLifetime, StatesOutliveTheCopyThatTheyCameFrom) {
    auto style = std::make_unique<Style>(panel.childStyle());
    const Style copy(*style);
    const Style moved(std::move(*style));
    style.reset();
    give(panel, "panel { css-id: x }");
    EXPECT_EQ(waitingText(copy), waitingText(moved));
}

TEST_F(SheetLifetime, SheetOutlivesItsParserAndCopiesOutliveIt) {
    auto parser = std::make_unique<Brisko::CSSParser>();
    auto sheet = std::make_unique<Brisko::StyleSheet>();
    parser->parseString(*sheet, "a > b.c:hover { width: 1px solid, url(x) }", nullptr,
                        Brisko::SimpleSelector::Origin(1));
    const QList<Brisko::Selector> selectors = parser->selectors("a b, c");
    const Ondex::StyleValue value = parser->expr("calc(1px + 2em) \"text\" rgb(1, 2, 3)");
    parser.reset();
    const Brisko::StyleSheet copy(*sheet);
    const Brisko::Rule rule = sheet->rules().front();
    sheet.reset();
    EXPECT_EQ(copy.rules().front(), rule);
    EXPECT_EQ(rule.selector().front()->next()->toString(), "b.c:hover");
    EXPECT_EQ(selectors.size(), 2);
    EXPECT_EQ(value.size(), 3);
}

// The registry

TEST(RegistrantLifetime, AttributesOutliveTheRegistrantThatMadeThem) {
    TraceGuard trace;
    TestNode node("button");
    auto registrant = std::make_unique<LazyAttributeManager::Registrant>(
        "depth", [](Ondex::Node* host, const QByteArray& name) { return new Ondex::AttributeT<float>(host, name); });
    styleWith(node, "button { depth: 1 } .on { depth: 2 }");
    registrant.reset();
    node.addCSSClass("on");
    EXPECT_EQ(textOf(node, "depth"), "2");
    delete node.attribute("depth");
    node.removeCSSClass("on");
    EXPECT_EQ(textOf(node, "depth"), "missing");
    EXPECT_EQ(trace.takeErrors(),
              (std::vector<std::string>{"Styleable::setStyle # Testing::TestNode # Attribute depth not found"}));
}

TEST(RegistrantLifetime, MayGoInAListenerOfWhatItMade) {
    TestNode node("button");
    addNumber(node, "width");
    auto registrant = std::make_unique<LazyAttributeManager::Registrant>(
        "depth", [](Ondex::Node* host, const QByteArray& name) { return new Ondex::AttributeT<float>(host, name); });
    node.attribute("width")->addListener([&registrant] { registrant.reset(); }, role);
    styleWith(node, "button { width: 1; depth: 1 }");
    EXPECT_EQ(textOf(node, "depth"), "1");
    EXPECT_FALSE(LazyAttributeManager::serves("depth"));
}

TEST(StaticLifetime, StyledNodesMayLiveAsLongAsTheProgram) {
    static const LazyAttributeManager::Registrant registrant(
        "endless-depth",
        [](Ondex::Node* host, const QByteArray& name) { return new Ondex::AttributeT<float>(host, name); });
    static TestNode node("button");
    static const Style style(sheetOf("button { endless-depth: 1; transition: endless-depth 2s } a { css-id: x }"));
    addNode(node, "a");
    node.setStyle(style);
    node.setPseudoClass("hover", true);
    EXPECT_EQ(textOf(node, "endless-depth"), "1");
}

} // namespace
} // namespace Testing
