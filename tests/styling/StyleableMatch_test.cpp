#include "styling/StylingFixture.h"

#include <gtest/gtest.h>

namespace Testing {
namespace {

using Brisko::SimpleSelector;

/// A node `panel#main.a.b:hover` with a class more, matched by one compound.
struct MatchRow {
    const char* name;
    const char* compound;
    int specificity; ///< -1 where it does not match
};

std::ostream& operator<<(std::ostream& out, const MatchRow& row) {
    return out << row.compound;
}

class StyleableMatch : public testing::TestWithParam<MatchRow> {};

TEST_P(StyleableMatch, AnswersThePackedSpecificity) {
    TraceGuard trace;
    TestNode node("panel");
    node.setCSSId("main");
    node.setCSSClasses("b a C");
    node.setPseudoClass("hover", true);
    node.setPseudoClass("active", true);
    node.setPseudoClass("focus", true);
    node.setPseudoClass("focus", false);
    const SimpleSelector compound = Brisko::CSSParser::parseSimpleSelector(GetParam().compound);
    int specificity = -1;
    EXPECT_EQ(node.match(compound, &specificity), GetParam().specificity >= 0);
    EXPECT_EQ(specificity, GetParam().specificity);
    EXPECT_EQ(node.match(compound, nullptr), GetParam().specificity >= 0);
    EXPECT_EQ(node.styleCount, 2) << "matching has no side effects";
}

const MatchRow rows[] = {
    {"Universal", "*", 0x01000000},
    {"Type", "panel", 0x01000001},
    {"OtherType", "button", -1},
    {"TypeInAnotherCase", "Panel", -1},
    {"Id", "#main", 0x01010000},
    {"OtherId", "#x", -1},
    {"IdInAnotherCase", "#Main", -1},
    {"Class", ".a", 0x01000100},
    {"ClassInAnotherCase", ".A", 0x01000100},
    {"ClassOfTheNodeInAnotherCase", ".c", 0x01000100},
    {"TwoClasses", ".a.b", 0x01000200},
    {"TwoClassesInAnotherOrder", ".b.a", 0x01000200},
    {"AllClasses", ".a.b.c", 0x01000300},
    {"OneClassTooMany", ".a.b.c.d", -1},
    {"MissingClassBeforeTheOthers", ".a.aa", -1},
    {"PseudoClass", ":hover", 0x01000100},
    {"TwoPseudoClasses", ":hover:active", 0x01000200},
    {"PseudoClassThatIsOff", ":focus", -1},
    {"PseudoClassThatNeverWas", ":link", -1},
    {"OnePseudoClassOfTwo", ":hover:focus", -1},
    {"PseudoClassInAnotherCase", ":Hover", -1},
    {"Everything", "panel#main.a.b:hover", 0x01010301},
};

INSTANTIATE_TEST_SUITE_P(Rows, StyleableMatch, testing::ValuesIn(rows),
                         [](const auto& row) { return std::string(row.param.name); });

TEST(StyleableMatchOne, TwoClassesWeighTwoHundredHexBesideTheOrigin) {
    TestNode node("n");
    node.setCSSClasses("b a c");
    for (unsigned origin = 0; origin <= 7; ++origin) {
        SimpleSelector compound{SimpleSelector::Origin(origin), QByteArray(), QString()};
        compound.addClass("a");
        compound.addClass("b");
        int specificity = 0;
        EXPECT_TRUE(node.match(compound, &specificity));
        EXPECT_EQ(specificity, int(origin << 24) + 0x200);
    }
}

TEST(StyleableMatchOne, EmptyCompoundMatchesEveryNodeWithItsOriginOnly) {
    TestNode node("n");
    int specificity = 0;
    EXPECT_TRUE(node.match(SimpleSelector(SimpleSelector::Origin(5), QByteArray(), QString()), &specificity));
    EXPECT_EQ(specificity, 5 << 24);
}

TEST(StyleableMatchOne, SpecificityIsLeftAloneWhereNothingMatches) {
    TestNode node("n");
    int specificity = 77;
    EXPECT_FALSE(node.match(SimpleSelector(SimpleSelector::AuthorOrigin, "x", QString()), &specificity));
    EXPECT_EQ(specificity, 77);
}

TEST(StyleableMatchOne, FindsEachOfManyClasses) {
    Brisko::Styleable node("a");
    QStringList names;
    for (int i = 0; i < 40; ++i)
        names.append(QString("c%1").arg(i));
    node.setCSSClasses(names.join(' '));
    for (int i = 0; i < 41; ++i) {
        SimpleSelector selector(SimpleSelector::AuthorOrigin, "", "");
        selector.addClass("c1");
        selector.addClass("c" + QByteArray::number(i));
        EXPECT_EQ(node.match(selector, nullptr), i < 40) << i;
    }
}

TEST(StyleableMatchOne, CombinatorAndNextCompoundDoNotCount) {
    TestNode node("n");
    Brisko::Selector selector;
    selector.prepend(new SimpleSelector(SimpleSelector::AuthorOrigin, "x", QString()), SimpleSelector::None);
    selector.prepend(new SimpleSelector(SimpleSelector::AuthorOrigin, "n", QString()), SimpleSelector::Child);
    EXPECT_TRUE(node.match(*selector.front(), nullptr));
    selector.front()->setCombinator(SimpleSelector::Descendant);
    EXPECT_TRUE(node.match(*selector.front(), nullptr));
}

/// The specificity of `n` with that many classes, all of which the node has.
int specificityOfClasses(int count) {
    TestNode node("n");
    SimpleSelector compound(SimpleSelector::AuthorOrigin, "n", QString());
    QStringList names;
    for (int i = 0; i < count; ++i) {
        names << QString("c%1").arg(i);
        compound.addClass(names.last().toUtf8());
    }
    node.setCSSClasses(names.join(' '));
    int specificity = 0;
    EXPECT_TRUE(node.match(compound, &specificity));
    return specificity;
}

TEST(StyleableMatchOne, CountsStopAtTheLimitOfTheirField) {
    EXPECT_EQ(specificityOfClasses(255), 0x0100FF01);
    EXPECT_EQ(specificityOfClasses(256), 0x0100FF01);
}

TEST(StyleableMatchOne, TypesOfAChainStopAtTheLimitOfTheirField) {
    TestNode root("a");
    TestNode* leaf = &root;
    for (int i = 1; i < 300; ++i)
        leaf = addNode(*leaf, "a");
    QByteArray selector = "a";
    for (int i = 1; i < 300; ++i)
        selector += " > a";
    styleWith(root, selector + " > b { x: 1 }");
    EXPECT_EQ(waitingText(leaf->childStyle()).section(", ", -1), "> b 0x010000ff");
}

/// The state of a style made by hand meets the same state as it begins again further down, with less.
TEST(StyleableMatchOne, HigherSpecificityOfAStyleMadeByHandHoldsAllTheWayDown) {
    TraceGuard trace;
    TestNode root("a");
    TestNode* node = &root;
    for (const char* type : {"a", "a", "b"})
        node = addNode(*node, type);
    addNumber(*node, "p");
    node->setCSSClasses("x y z");
    const auto sheet = sheetOf("a b { p: 1 } .x.y.z { p: 2 }");
    const Brisko::Rule& rule = sheet->rules().front();
    Brisko::Style style(sheet);
    root.setStyle(style);
    EXPECT_EQ(textOf(*node, "p"), "2");
    style.add(&rule.declarations(), rule.selector().front()->next(), 0x01010000);
    root.setStyle(style);
    EXPECT_EQ(textOf(*node, "p"), "1");
}

} // namespace
} // namespace Testing
