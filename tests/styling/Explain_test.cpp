#include "Brisko/Explain.h"

#include "Brisko/AttributeBackground.h"
#include "Brisko/AttributeBorder.h"
#include "Brisko/CSSBoxModel.h"
#include "Brisko/CSSParser.h"
#include "Ondex/AttributeT.h"
#include "Ondex/TransitionManager.h"
#include "StylingFixture.h"

#include <gtest/gtest.h>

namespace {

using namespace Testing;
using Brisko::Explanation;
using Brisko::Mismatch;
using Outcome = Brisko::Explanation::Outcome;

const char* nameOf(Outcome outcome) {
    static constexpr const char* names[] = {"wins",    "importance", "specificity", "order",
                                            "refused", "program",    "transition",  "not served"};
    return names[int(outcome)];
}

/// The candidates as "selector: value (via shorthand), outcome".
QStringList told(const Brisko::Styleable& node, const QByteArray& property) {
    QStringList lines;
    for (const auto& candidate : Explanation(node).candidates(property)) {
        QString line = QString("%1: %2").arg(QString(candidate.selectorText()), candidate.value.stringify());
        if (!candidate.via.isEmpty())
            line += QString(" (via %1)").arg(QString(candidate.via));
        lines << QString("%1, %2").arg(line, nameOf(candidate.outcome));
    }
    return lines;
}

class ExplainTest : public testing::Test {
protected:
    ExplainTest() { addNumber(*child, "width"); }

    TestNode root{"root"};
    TestNode* panel = addNode(root, "panel");
    TestNode* child = addNode(*panel, "child");
};

TEST_F(ExplainTest, NoRulesNoCandidates) {
    EXPECT_TRUE(Explanation(*child).candidates("width").empty());
    EXPECT_TRUE(Explanation(*child).properties().isEmpty());
}

TEST_F(ExplainTest, StrongestFirstWithWhatTheOthersLostBy) {
    child->addCSSClass("a");
    styleWith(root,
              "child { width: 1 } .a { width: 2 } child { width: 3 } * { width: 4 !important } other { width: 5 }");
    EXPECT_EQ(told(*child, "width"),
              QStringList({"*: 4, wins", ".a: 2, importance", "child: 3, importance", "child: 1, importance"}));
}

TEST_F(ExplainTest, OrderDecidesBetweenEquals) {
    child->addCSSClass("a");
    styleWith(root, "child { width: 1 } child { width: 3 } .a { width: 2 }");
    EXPECT_EQ(told(*child, "width"), QStringList({".a: 2, wins", "child: 3, specificity", "child: 1, specificity"}));
    child->removeCSSClass("a");
    EXPECT_EQ(told(*child, "width"), QStringList({"child: 3, wins", "child: 1, order"}));
}

TEST_F(ExplainTest, SelectorsComeWholeWithTheirSpecificity) {
    child->setCSSId("x");
    child->setPseudoClass("hover", true);
    styleWith(root, "root > panel #x:hover { width: 1 }");
    const auto candidates = Explanation(*child).candidates("width");
    ASSERT_EQ(candidates.size(), 1u);
    const Explanation::Candidate& candidate = candidates.front();
    EXPECT_EQ(candidate.selectorText(), "root > panel :hover#x");
    EXPECT_EQ(candidate.specificity, 0x1010102);
    EXPECT_EQ(candidate.origin(), 1);
    EXPECT_EQ(candidate.idCount(), 1);
    EXPECT_EQ(candidate.classCount(), 1);
    EXPECT_EQ(candidate.typeCount(), 2);
    EXPECT_EQ(candidate.declaration.id(), 0);
    EXPECT_EQ(candidate.outcome, Outcome::Wins);
}

TEST_F(ExplainTest, SourceIsThatOfTheDeclaration) {
    styleWith(root, "child {\n  width: 1;\n  width: 2 }");
    const auto candidates = Explanation(*child).candidates("width");
    ASSERT_EQ(candidates.size(), 2u);
    EXPECT_EQ(candidates[0].source, child->attributeSource("width"));
    EXPECT_NE(candidates[1].source, candidates[0].source);
}

TEST_F(ExplainTest, TwoSelectorsOfOneListAreTwoCandidates) {
    child->addCSSClass("a");
    styleWith(root, "child, .a, .b { width: 1 }");
    EXPECT_EQ(told(*child, "width"), QStringList({".a: 1, wins", "child: 1, specificity"}));
}

TEST_F(ExplainTest, PartsOfShorthandsCompeteForTheLonghands) {
    new Brisko::AttributeBorder(child, "border");
    styleWith(root, "child { border: 1px solid red; border-top-width: 5px }");
    EXPECT_EQ(told(*child, "border-top-width"), QStringList({"child: 5px, wins", "child: 1px (via border), order"}));
    EXPECT_EQ(told(*child, "border-left-width"), QStringList({"child: 1px (via border), wins"}));
    EXPECT_EQ(told(*child, "border"), QStringList({"child: 1px solid red, wins"}));
}

TEST_F(ExplainTest, ShorthandsThatLostAreToldOfTheLonghandsToo) {
    new Brisko::AttributeBorder(child, "border");
    child->addCSSClass("a");
    styleWith(root, ".a { border: 2px solid red } child { border: 1px solid red }");
    EXPECT_EQ(told(*child, "border-top-width"),
              QStringList({".a: 2px (via border), wins", "child: 1px (via border), specificity"}));
}

TEST_F(ExplainTest, AttributesRefuseValues) {
    TraceGuard guard;
    styleWith(root, "child { width: 1 } child { width: foo }");
    EXPECT_EQ(guard.takeErrors().size(), 1u);
    EXPECT_EQ(told(*child, "width"), QStringList({"child: foo, refused", "child: 1, order"}));
}

TEST_F(ExplainTest, ProgramCodeOverridesNormalDeclarationsOnly) {
    child->attribute("width")->set(7.f, Ondex::Attribute::UserLayer, Ondex::Attribute::VU_UNKNOWN);
    styleWith(root, "child { width: 1 }");
    EXPECT_EQ(told(*child, "width"), QStringList({"child: 1, program"}));
    styleWith(root, "child { width: 1 !important }");
    EXPECT_EQ(told(*child, "width"), QStringList({"child: 1, wins"}));
}

TEST_F(ExplainTest, RunningTransitionsOverride) {
    child->attribute("width")->setTransitionAnim(1.f, 0.f);
    styleWith(root, "child { width: 1 }");
    Ondex::TransitionManager::advance(0.5f);
    EXPECT_EQ(told(*child, "width"), QStringList({"child: 1, transition"}));
    Ondex::TransitionManager::advance(1.f);
    EXPECT_EQ(told(*child, "width"), QStringList({"child: 1, wins"}));
}

TEST_F(ExplainTest, ShorthandsAreOverriddenWhereAllTheirLonghandsAre) {
    Brisko::CSSBoxModel box;
    styleWith(box, "* { size: 30px 40px }");
    EXPECT_EQ(told(box, "size"), QStringList("*: 30px 40px, wins"));
    box.setWidth(5.f, Ondex::Attribute::VU_PXS);
    EXPECT_EQ(told(box, "size"), QStringList("*: 30px 40px, wins"));
    EXPECT_EQ(told(box, "width"), QStringList("*: 30px (via size), program"));
    box.setHeight(5.f, Ondex::Attribute::VU_PXS);
    EXPECT_EQ(told(box, "size"), QStringList("*: 30px 40px, program"));
    styleWith(box, "* { size: 30px 40px !important }");
    EXPECT_EQ(told(box, "size"), QStringList("*: 30px 40px, wins"));
}

TEST_F(ExplainTest, ShorthandsWinAlsoWhereLonghandsTookAllOfIt) {
    Brisko::CSSBoxModel box;
    styleWith(box, "* { size: 30px 40px; width: 1px; height: 2px }");
    EXPECT_EQ(told(box, "size"), QStringList("*: 30px 40px, wins"));
    EXPECT_EQ(told(box, "height"), QStringList({"*: 2px, wins", "*: 40px (via size), order"}));
}

TEST_F(ExplainTest, ShorthandsThatAreRefused) {
    TraceGuard guard;
    Brisko::CSSBoxModel box;
    styleWith(box, "* { padding: 1px; padding: 1px 2px 3px 4px 5px; location: left }");
    EXPECT_EQ(guard.takeErrors().size(), 2u);
    EXPECT_EQ(told(box, "padding"), QStringList({"*: 1px 2px 3px 4px 5px, refused", "*: 1px, order"}));
    EXPECT_EQ(told(box, "location"), QStringList("*: left, refused"));
    EXPECT_EQ(told(box, "padding-left"), QStringList("*: 1px (via padding), wins"));
}

TEST_F(ExplainTest, SaysNothingAboutValuesThatShorthandsDoNotUnderstand) {
    TraceGuard guard;
    new Brisko::AttributeBackground(child, "background");
    styleWith(root, "child { background: red blue green url(a) 1px } child { background: red }");
    guard.takeErrors();
    EXPECT_EQ(told(*child, "background").size(), 2);
    EXPECT_TRUE(guard.takeErrors().empty());
}

TEST_F(ExplainTest, PropertiesThatNothingServes) {
    TraceGuard guard;
    styleWith(root, "child { height: 1 }");
    EXPECT_EQ(guard.takeErrors().size(), 1u);
    EXPECT_EQ(told(*child, "height"), QStringList({"child: 1, not served"}));
    EXPECT_EQ(Explanation(*child).properties(), QList<QByteArray>({"height"}));
}

TEST_F(ExplainTest, NothingIsTouched) {
    styleWith(root, "root child:hover { width: 1 } child { width: 2 } child:active x { width: 3 }");
    const Brisko::Style style = child->style();
    const Brisko::Style childStyle = child->childStyle();
    const int styleCount = child->styleCount;
    child->setPseudoClass("hover", true);
    const int afterHover = child->styleCount;
    const Explanation explanation(*child);
    EXPECT_EQ(explanation.candidates("width").size(), 2u);
    EXPECT_EQ(child->style(), style);
    EXPECT_EQ(child->childStyle(), childStyle);
    EXPECT_EQ(child->styleCount, afterHover);
    EXPECT_GE(afterHover, styleCount);
    EXPECT_EQ(textOf(*child, "width"), "1");
    child->setPseudoClass("hover", false); // the usage is known as before
    EXPECT_EQ(textOf(*child, "width"), "2");
}

TEST_F(ExplainTest, WinnersAreThoseOfThePass) {
    child->addCSSClass("a");
    child->addCSSClass("b");
    new Brisko::AttributeBorder(child, "border");
    styleWith(root, "* { width: 1 !important; border: 1px solid } .a.b { width: 2; border: 3px solid }"
                    "panel > .a { border-top: 4px solid; border-left-width: 5px } .b { border-left: 6px dashed }");
    const Explanation explanation(*child);
    for (const QByteArray& property : explanation.properties()) {
        const auto candidates = explanation.candidates(property);
        const QString source = child->attributeSource(property);
        if (!source.isEmpty()) {
            EXPECT_EQ(candidates.front().source, source) << property.constData();
        }
        EXPECT_EQ(std::count_if(candidates.begin(), candidates.end(),
                                [](const auto& candidate) { return candidate.outcome == Outcome::Wins; }),
                  1)
            << property.constData();
    }
}

/// What a mismatch says: "place text" and then a line for each node that was tried.
QStringList whyNotText(const Brisko::Styleable& node, const QString& text) {
    const auto mismatch = Brisko::whyNot(node, Brisko::CSSParser::parseSelectors(text).value(0));
    if (!mismatch)
        return {"matches"};
    QStringList lines{QString("%1 %2").arg(mismatch->compound).arg(QString(mismatch->text))};
    for (const Mismatch::Attempt& attempt : mismatch->attempts) {
        QString line = attempt.node->simpleSelector(true) + " lacks";
        for (const Mismatch::Unmet& unmet : attempt.unmet)
            line += QString(" %1%2").arg(QString("t#.:").mid(int(unmet.condition), 1), QString(unmet.name));
        lines << line;
    }
    return lines;
}

TEST_F(ExplainTest, WhyNotIsSilentAboutSelectorsThatMatch) {
    for (const char* text : {"child", "*", "panel child", "root child", "root > panel > child", "root panel child"})
        EXPECT_EQ(whyNotText(*child, text), QStringList("matches")) << text;
}

TEST_F(ExplainTest, WhyNotNamesAllThatASubjectLacks) {
    EXPECT_EQ(whyNotText(*child, "root other.a.b:hover#x"),
              QStringList({"1 other.a.b:hover#x", "child lacks tother #x .a .b :hover"}));
}

TEST_F(ExplainTest, WhyNotNamesTheAncestorsThatWereTried) {
    panel->addCSSClass("a");
    EXPECT_EQ(whyNotText(*child, "root.b child"), QStringList({"0 root.b", "panel.a lacks troot .b", "root lacks .b"}));
    EXPECT_EQ(whyNotText(*child, "root > child"), QStringList({"0 root", "panel.a lacks troot"}));
    EXPECT_EQ(whyNotText(*child, "x .a > child"), QStringList({"0 x", "root lacks tx"}));
}

TEST_F(ExplainTest, WhyNotKnowsWhereTheTreeEnds) {
    EXPECT_EQ(whyNotText(root, "a root"), QStringList("0 a"));
    EXPECT_EQ(whyNotText(*child, "a > root > panel > child"), QStringList("0 a"));
    EXPECT_EQ(Brisko::whyNot(root, Brisko::Selector())->compound, -1);
}

TEST_F(ExplainTest, WhyNotTriesEveryWayUp) {
    // The nearer "x" has no "root" as parent, the upper one has.
    TestNode* upper = addNode(root, "x");
    TestNode* middle = addNode(*upper, "y");
    TestNode* nearer = addNode(*middle, "x");
    TestNode* leaf = addNode(*nearer, "leaf");
    EXPECT_EQ(whyNotText(*leaf, "root > x leaf"), QStringList("matches"));
    EXPECT_EQ(whyNotText(*leaf, "panel > x leaf"), QStringList({"0 panel", "y lacks tpanel", "root lacks tpanel"}));
}

} // namespace
