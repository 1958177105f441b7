#include "Brisko/StyleStatistics.h"

#include "styling/StylingFixture.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <thread>
#include <utility>

namespace Testing {
namespace {

using Brisko::Style;
using Brisko::StyleStatistics;

/// Passes, compounds tested, states handed on, declarations offered and attributes written, such as "2 1 1 2 2".
std::string countsOf(const StyleStatistics& statistics) {
    return QString("%1 %2 %3 %4 %5")
        .arg(statistics.passes())
        .arg(statistics.compoundsTested())
        .arg(statistics.statesHandedOn())
        .arg(statistics.declarationsOffered())
        .arg(statistics.attributesWritten())
        .toStdString();
}

/// A panel with a button that has a width and a height.
class Statistics : public testing::Test {
protected:
    Statistics() {
        addNumber(*button, "width");
        addNumber(*button, "height");
    }
    /// What the change counts from 0 on.
    template <typename Do>
    static std::string countsOfChange(Do change) {
        const StyleStatistics statistics;
        change();
        return countsOf(statistics);
    }

    TraceGuard trace;
    TestNode panel{"panel"};
    TestNode* button = addNode(panel, "button");
};

TEST_F(Statistics, BeginWithNothing) {
    styleWith(panel, "* { css-id: a }");
    EXPECT_EQ(countsOf(StyleStatistics()), "0 0 0 0 0");
}

TEST_F(Statistics, CountAPassForEveryNode) {
    EXPECT_EQ(countsOfChange([this] { styleWith(panel, ""); }), "2 0 0 0 0");
}

TEST_F(Statistics, CountWhatARuleTakes) {
    EXPECT_EQ(countsOfChange([this] { styleWith(panel, "button { width: 1; height: 2 }"); }), "2 1 0 2 2");
}

TEST_F(Statistics, CountWhatRulesThatWaitTake) {
    EXPECT_EQ(countsOfChange([this] { styleWith(panel, "panel button { width: 1 } panel other { width: 2 }"); }),
              "2 1 2 1 1")
        << "of two that wait, the type of the button brings one";
}

TEST_F(Statistics, CountARuleThatDoesNotMatchAsTested) {
    EXPECT_EQ(countsOfChange([this] { styleWith(panel, "button:hover { width: 1 }"); }), "2 1 0 0 0");
}

TEST_F(Statistics, CountEveryOfferAndTheWinnersOnly) {
    EXPECT_EQ(countsOfChange([this] { styleWith(panel, "button { width: 1; width: 2 } * { height: 3; width: 4 }"); }),
              "2 3 0 6 2");
}

TEST_F(Statistics, CountPartsOfShorthandsAsWrittenAndNotAsOffered) {
    EXPECT_EQ(countsOfChange([this] { styleWith(panel, "button { transition: width 1s }"); }), "2 1 0 1 3");
}

TEST_F(Statistics, DoNotCountWhatIsRefusedAsWritten) {
    EXPECT_EQ(countsOfChange([this] { styleWith(panel, "button { width: many }"); }), "2 1 0 1 0");
    EXPECT_EQ(trace.takeErrors().size(), 1u);
}

TEST_F(Statistics, CountTheWritesAloneWhereNothingElseMatches) {
    const Style style(sheetOf("panel button { width: 1 } panel other { width: 2 }"));
    panel.setStyle(style);
    EXPECT_EQ(countsOfChange([&] { button->updateStyle(); }), "1 0 0 0 1");
    EXPECT_EQ(countsOfChange([&] { button->addCSSClass("a"); }), "1 1 0 1 1");
}

TEST_F(Statistics, DoNotCountStatesThatAreShared) {
    const Style style(sheetOf("panel item { width: 1 } panel other { width: 2 }"));
    panel.setStyle(style);
    EXPECT_EQ(countsOfChange([&] { panel.setStyle(style); }), "1 0 0 0 0") << "the button has them already";
    EXPECT_EQ(countsOfChange([this] { addNode(*button, "label"); }), "2 0 0 0 0")
        << "the label takes those of the button";
}

TEST_F(Statistics, CountNothingForAPseudoClassThatNobodyTests) {
    styleWith(panel, "button:active { width: 1 }");
    EXPECT_EQ(countsOfChange([this] { button->setPseudoClass("hover", true); }), "0 0 0 0 0");
    EXPECT_EQ(countsOfChange([this] { button->setPseudoClass("active", true); }), "1 1 0 1 1");
}

TEST_F(Statistics, CountARepeatedPassTwice) {
    styleWith(panel, "button { width: 1 } .on { width: 2 } .wide { height: 3 }");
    button->attribute("width")->addListener([this] { button->addCSSClass("wide"); }, 5);
    EXPECT_EQ(countsOfChange([this] { button->addCSSClass("on"); }), "2 5 0 5 3");
}

TEST_F(Statistics, CountAPassThatAListenerEnds) {
    button->attribute("width")->addListener([this] { delete std::exchange(button, nullptr); }, 5);
    EXPECT_EQ(countsOfChange([this] { styleWith(panel, "button { width: 1; height: 2 }"); }), "2 1 0 2 0");
}

TEST_F(Statistics, NestAndEndInAnyOrder) {
    auto outer = std::make_unique<StyleStatistics>();
    styleWith(panel, "");
    auto inner = std::make_unique<StyleStatistics>();
    styleWith(panel, "");
    EXPECT_EQ(outer->passes(), 4u);
    EXPECT_EQ(inner->passes(), 2u);
    outer.reset();
    styleWith(panel, "");
    EXPECT_EQ(inner->passes(), 4u);
}

TEST_F(Statistics, CountFromTheResetOn) {
    StyleStatistics statistics;
    styleWith(panel, "button { width: 1 }");
    statistics.reset();
    EXPECT_EQ(countsOf(statistics), "0 0 0 0 0");
    button->setCSSType("button");
    EXPECT_EQ(countsOf(statistics), "1 1 0 1 1");
}

TEST_F(Statistics, MayBeReadInAListener) {
    const StyleStatistics statistics;
    std::string seen;
    button->attribute("width")->addListener([&] { seen = countsOf(statistics); }, 5);
    styleWith(panel, "button { width: 1 }");
    EXPECT_EQ(seen, "1 0 0 0 0") << "the pass over the panel; that over the button is not over";
}

TEST_F(Statistics, MadeWhileAPassRunsDoNotCountIt) {
    std::unique_ptr<StyleStatistics> late;
    button->attribute("width")->addListener([&late] { late = std::make_unique<StyleStatistics>(); }, 5);
    const StyleStatistics early;
    styleWith(panel, "button { width: 1 }");
    EXPECT_EQ(countsOf(early), "2 1 0 1 1");
    EXPECT_EQ(countsOf(*late), "0 0 0 0 0");
}

TEST_F(Statistics, MayEndWhileAPassRuns) {
    auto ended = std::make_unique<StyleStatistics>();
    const StyleStatistics other;
    button->attribute("width")->addListener([&ended] { ended.reset(); }, 5);
    styleWith(panel, "button { width: 1 }");
    EXPECT_EQ(countsOf(other), "2 1 0 1 1");
}

TEST_F(Statistics, AreThoseOfTheThread) {
    const StyleStatistics statistics;
    std::string elsewhere;
    std::thread([&elsewhere] {
        const StyleStatistics ofThread;
        TestNode node("node");
        styleWith(node, "node { css-id: a }");
        elsewhere = countsOf(ofThread);
    }).join();
    EXPECT_EQ(countsOf(statistics), "0 0 0 0 0");
    EXPECT_EQ(elsewhere, "2 2 0 2 2") << "the id asks for a second pass";
}

} // namespace
} // namespace Testing
