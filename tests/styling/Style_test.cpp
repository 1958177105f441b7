#include "Brisko/Style.h"

#include <gtest/gtest.h>

namespace Brisko {
namespace {

using Declarations = std::vector<Declaration>;

SimpleSelector compound(const char* type) {
    return SimpleSelector(SimpleSelector::AuthorOrigin, type, QString());
}

class StyleTest : public testing::Test {
protected:
    Declarations d, e;
    SimpleSelector s1 = compound("a");
    SimpleSelector s2 = compound("a");
    std::shared_ptr<StyleSheet> sheet = std::make_shared<StyleSheet>();
};

TEST_F(StyleTest, DefaultConstructedIsNotValid) {
    const Style style;
    EXPECT_FALSE(style.isValid());
    EXPECT_TRUE(!style);
    EXPECT_FALSE(style.updateIsolatedSubtrees());
    EXPECT_EQ(style.styleSheet(), nullptr);
    EXPECT_TRUE(style.state().empty());
}

TEST_F(StyleTest, SharesItsSheet) {
    {
        Style style(sheet);
        EXPECT_TRUE(style.isValid());
        EXPECT_FALSE(!style);
        EXPECT_EQ(style.styleSheet(), sheet);
        EXPECT_EQ(sheet.use_count(), 2);
    }
    EXPECT_EQ(sheet.use_count(), 1);
}

TEST_F(StyleTest, AddingTheSamePairKeepsTheHigherSpecificity) {
    Style style(sheet);
    style.add(&d, &s1, 5);
    style.add(&d, &s1, 3);
    ASSERT_EQ(style.state().size(), 1u);
    EXPECT_EQ(style.state()[0].specificity, 5);
    style.add(&d, &s1, 9);
    ASSERT_EQ(style.state().size(), 1u);
    EXPECT_EQ(style.state()[0].specificity, 9);
}

TEST_F(StyleTest, DifferentCompoundsAreTwoStatesInOrder) {
    Style style;
    style.add(&d, &s1, 1);
    style.add(&d, &s2, 1);
    ASSERT_EQ(style.state().size(), 2u);
    EXPECT_EQ(style.state()[0], (Style::MatchState{&d, &s1, 1}));
    EXPECT_EQ(style.state()[1], (Style::MatchState{&d, &s2, 1}));
}

TEST_F(StyleTest, DifferentDeclarationsOfOneCompoundAreTwoStates) {
    Style style;
    style.add(&d, &s1, 1);
    style.add(&e, &s1, 1);
    EXPECT_EQ(style.state().size(), 2u);
}

TEST_F(StyleTest, RaisingAStateKeepsItsPlace) {
    Style style;
    style.add(&d, &s1, 1);
    style.add(&d, &s2, 2);
    style.add(&d, &s1, 7);
    EXPECT_EQ(style.state()[0], (Style::MatchState{&d, &s1, 7}));
    EXPECT_EQ(style.state()[1], (Style::MatchState{&d, &s2, 2}));
}

TEST_F(StyleTest, LongListsKeepEveryPairOnceInOrder) {
    const std::vector<Declarations> rules(500);
    Style style;
    for (int specificity : {1, 3, 2}) {
        for (const Declarations& declarations : rules)
            style.add(&declarations, &s1, specificity);
    }
    ASSERT_EQ(style.state().size(), rules.size());
    for (std::size_t i = 0; i < rules.size(); ++i)
        ASSERT_EQ(style.state()[i], (Style::MatchState{&rules[i], &s1, 3}));
}

TEST_F(StyleTest, CopyOfALongListGoesOnAlone) {
    const std::vector<Declarations> rules(100);
    Style style(sheet);
    for (const Declarations& declarations : rules)
        style.add(&declarations, &s1, 1);
    Style copy(style);
    copy.add(&rules[50], &s1, 2);
    copy.add(&rules[50], &s2, 1);
    EXPECT_EQ(copy.state().size(), 101u);
    EXPECT_EQ(copy.state()[50].specificity, 2);
    EXPECT_EQ(style.state().size(), 100u);
    EXPECT_EQ(style.state()[50].specificity, 1);
}

TEST_F(StyleTest, ShortListAssignedOverALongOneIsSearchedRightly) {
    const std::vector<Declarations> rules(100);
    Style style;
    for (const Declarations& declarations : rules)
        style.add(&declarations, &s1, 1);
    Style other;
    other.add(&rules[99], &s1, 4);
    style = other;
    style.add(&rules[99], &s1, 3);
    style.add(&rules[0], &s1, 1);
    ASSERT_EQ(style.state().size(), 2u);
    EXPECT_EQ(style.state()[0].specificity, 4);
}

TEST_F(StyleTest, StatesInAnotherOrderAreNotEqual) {
    Style a(sheet), b(sheet);
    a.add(&d, &s1, 1);
    a.add(&d, &s2, 1);
    b.add(&d, &s2, 1);
    b.add(&d, &s1, 1);
    EXPECT_FALSE(a == b);
    EXPECT_TRUE(a != b);
}

TEST_F(StyleTest, EqualStatesOfTheSameSheetAreEqual) {
    Style a(sheet), b(sheet);
    a.add(&d, &s1, 1);
    b.add(&d, &s1, 1);
    EXPECT_TRUE(a == b);
    EXPECT_FALSE(a != b);
}

TEST_F(StyleTest, OtherSpecificityIsNotEqual) {
    Style a(sheet), b(sheet);
    a.add(&d, &s1, 1);
    b.add(&d, &s1, 2);
    EXPECT_TRUE(a != b);
}

TEST_F(StyleTest, StatesAreTheSameByTheirPointersNotByTheirTexts) {
    ASSERT_EQ(s1, s2);
    ASSERT_EQ(d, e);
    Style a(sheet), b(sheet), c(sheet);
    a.add(&d, &s1, 1);
    b.add(&d, &s2, 1);
    c.add(&e, &s1, 1);
    EXPECT_TRUE(a != b);
    EXPECT_TRUE(a != c);
}

TEST_F(StyleTest, FewerStatesAreNotEqual) {
    Style a(sheet), b(sheet);
    a.add(&d, &s1, 1);
    EXPECT_TRUE(a != b);
    EXPECT_TRUE(b != a);
}

TEST_F(StyleTest, TwoSheetsOfTheSameContentAreNotEqual) {
    const auto copy = std::make_shared<StyleSheet>(*sheet);
    ASSERT_EQ(*copy, *sheet);
    EXPECT_TRUE(Style(sheet) != Style(copy));
    EXPECT_TRUE(Style(sheet) != Style());
    EXPECT_TRUE(Style(sheet) == Style(sheet));
}

TEST_F(StyleTest, ClearRemovesTheStatesAndKeepsTheSheet) {
    Style style(sheet), none;
    style.add(&d, &s1, 1);
    none.add(&d, &s1, 1);
    style.clear();
    none.clear();
    EXPECT_TRUE(style.state().empty());
    EXPECT_TRUE(style.isValid());
    EXPECT_EQ(style.styleSheet(), sheet);
    EXPECT_FALSE(none.isValid());
    style.add(&d, &s1, 2);
    EXPECT_EQ(style.state()[0].specificity, 2);
}

TEST_F(StyleTest, CopyTakesStatesAndSharesTheSheet) {
    Style style(sheet);
    style.add(&d, &s1, 1);
    const Style copy(style);
    Style assigned;
    assigned = style;
    EXPECT_TRUE(copy == style);
    EXPECT_TRUE(assigned == style);
    EXPECT_EQ(sheet.use_count(), 4);
}

TEST_F(StyleTest, CopiesShareTheirListUntilOneIsChanged) {
    Style style(sheet);
    style.add(&d, &s1, 1);
    Style copy = style;
    const Style other = copy;
    EXPECT_EQ(&copy.state(), &style.state());
    EXPECT_EQ(sheet.use_count(), 4);
    copy.add(&d, &s1, 7);
    copy.add(&e, &s2, 2);
    EXPECT_EQ(copy.state(), (std::vector<Style::MatchState>{{&d, &s1, 7}, {&e, &s2, 2}}));
    EXPECT_EQ(style.state(), (std::vector<Style::MatchState>{{&d, &s1, 1}}));
    EXPECT_EQ(&other.state(), &style.state());
    style.clear();
    EXPECT_TRUE(style.state().empty());
    EXPECT_EQ(other.state().size(), 1u);
}

TEST_F(StyleTest, OriginalThatIsChangedLeavesItsCopyAlone) {
    Style style(sheet);
    style.add(&d, &s1, 1);
    const Style copy = style;
    style.add(&e, &s2, 2);
    EXPECT_EQ(copy.state().size(), 1u);
    EXPECT_FALSE(copy == style);
}

TEST_F(StyleTest, MovedFromHasNoStatesAndNoSheet) {
    Style style(sheet);
    style.add(&d, &s1, 1);
    Style moved(std::move(style));
    EXPECT_TRUE(style.state().empty());
    EXPECT_FALSE(style.isValid());
    EXPECT_EQ(moved.state().size(), 1u);
    EXPECT_EQ(moved.styleSheet(), sheet);

    Style assigned;
    assigned = std::move(moved);
    EXPECT_TRUE(moved.state().empty());
    EXPECT_FALSE(moved.isValid());
    EXPECT_EQ(assigned.state().size(), 1u);
    EXPECT_EQ(assigned.styleSheet(), sheet);
}

TEST_F(StyleTest, AnswersTheSettingOfItsSheet) {
    const Style style(sheet);
    EXPECT_FALSE(style.updateIsolatedSubtrees());
    sheet->setUpdateIsolatedSubtrees(true);
    EXPECT_TRUE(style.updateIsolatedSubtrees());
}

} // namespace
} // namespace Brisko
