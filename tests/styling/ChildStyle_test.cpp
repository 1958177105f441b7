#include "styling/ChildStyle.h"

#include "styling/PlainCascade.h"
#include "styling/StylingFixture.h"

#include <gtest/gtest.h>

#include <deque>

namespace Testing {
namespace {

using Brisko::ChildStyle;
using Brisko::Declaration;
using Brisko::SimpleSelector;
using Brisko::Style;
using Brisko::WaitingCompound;
using Brisko::WaitingGroup;
using State = Style::MatchState;
using States = std::vector<State>;

class ChildStyles : public testing::Test {
protected:
    /// A compound that waits, as group of its own.
    const WaitingGroup* group(SimpleSelector::Combinator combinator) {
        SimpleSelector& compound = compounds.emplace_back(SimpleSelector::AuthorOrigin, "a", "");
        compound.setCombinator(combinator);
        WaitingGroup& made = groups.emplace_back();
        made.add(&declarations, &compound, int(groups.size()), int(groups.size()));
        made.file();
        return &made;
    }

    static const WaitingCompound& only(const WaitingGroup* group) { return group->compounds().front(); }
    static State stateOf(const WaitingGroup* group) {
        return {only(group).declarations, only(group).selector, only(group).specificity};
    }
    static const States* listOf(const Style& style) { return &style.state(); }

    Style childOf(const Style& incoming, const std::vector<const WaitingGroup*>& begun, bool isRegular = true) {
        return ChildStyle(begun, {}).from(incoming, Style(), isRegular);
    }

    std::shared_ptr<Brisko::StyleSheet> sheet = std::make_shared<Brisko::StyleSheet>();
    std::vector<Declaration> declarations;
    std::deque<SimpleSelector> compounds;
    std::deque<WaitingGroup> groups;
};

TEST_F(ChildStyles, NothingComesOfNothing) {
    const Style child = childOf(Style(sheet), {});
    EXPECT_TRUE(child.state().empty());
    EXPECT_EQ(child.styleSheet(), sheet);
    EXPECT_TRUE(child == Style(sheet));
}

TEST_F(ChildStyles, WhatBeginsComesInItsOrderBeforeWhatWaits) {
    const WaitingGroup* x = group(SimpleSelector::Descendant);
    const WaitingGroup* y = group(SimpleSelector::Child);
    const WaitingGroup* z = group(SimpleSelector::Descendant);
    const Style child = childOf(childOf(Style(sheet), {x}), {z, y});
    EXPECT_TRUE(child.state() == (States{stateOf(y), stateOf(z), stateOf(x)}));
}

TEST_F(ChildStyles, ListIsSharedWhereNothingBeginsOrEnds) {
    const Style incoming = childOf(Style(sheet), {group(SimpleSelector::Descendant)});
    EXPECT_EQ(listOf(childOf(incoming, {})), listOf(incoming));
}

TEST_F(ChildStyles, StateThatIsAChildEnds) {
    const WaitingGroup* x = group(SimpleSelector::Descendant);
    const Style incoming = childOf(Style(sheet), {x, group(SimpleSelector::Child)});
    const Style child = childOf(incoming, {});
    EXPECT_TRUE(child.state() == States{stateOf(x)});
    EXPECT_EQ(listOf(childOf(child, {})), listOf(child));
}

TEST_F(ChildStyles, ListOfEndedStatesIsEqualToNone) {
    const Style incoming = childOf(Style(sheet), {group(SimpleSelector::Child)});
    EXPECT_TRUE(childOf(incoming, {}) == Style(sheet));
}

TEST_F(ChildStyles, HeldListIsKeptWhereItIsTheSame) {
    const std::vector<const WaitingGroup*> begun{group(SimpleSelector::Descendant)};
    const Style incoming = childOf(Style(sheet), {group(SimpleSelector::Descendant)});
    const Style held = childOf(incoming, begun);
    EXPECT_EQ(listOf(ChildStyle(begun, {}).from(incoming, held, true)), listOf(held));
    EXPECT_NE(listOf(ChildStyle(begun, {}).from(incoming, Style(), true)), listOf(held));
}

TEST_F(ChildStyles, CompoundThatFollowsComesRightBehindItsState) {
    const WaitingGroup* x = group(SimpleSelector::Descendant);
    const WaitingGroup* y = group(SimpleSelector::Child);
    const WaitingGroup* z = group(SimpleSelector::Descendant);
    const WaitingGroup* next = group(SimpleSelector::Descendant);
    const WaitingGroup* last = group(SimpleSelector::Child);
    const Style incoming = childOf(Style(sheet), {x, y, z});
    const std::vector<const WaitingGroup*> begun;
    const std::vector<ChildStyle::GoneOn> goneOn{{&only(x), stateOf(next)}, {&only(y), stateOf(last)}};
    const Style child = ChildStyle(begun, goneOn).from(incoming, Style(), true);
    EXPECT_TRUE(child.state() == (States{stateOf(x), stateOf(next), stateOf(last), stateOf(z)}));
}

TEST_F(ChildStyles, IrregularListKeepsTheHigherSpecificityAtTheFirstPlace) {
    const WaitingGroup* x = group(SimpleSelector::Descendant);
    const WaitingGroup* y = group(SimpleSelector::Descendant);
    Style incoming = childOf(Style(sheet), {y});
    incoming.add(&declarations, only(x).selector, 70);
    const Style child = childOf(incoming, {x});
    EXPECT_TRUE(child.state() == (States{{&declarations, only(x).selector, 70}, stateOf(y)}));
    const Style below = childOf(child, {x});
    EXPECT_TRUE(below == child) << "and further down";
}

TEST_F(ChildStyles, RepeatedGroupStandsWhereItBeganLast) {
    const WaitingGroup* x = group(SimpleSelector::Descendant);
    const WaitingGroup* y = group(SimpleSelector::Descendant);
    const Style child = childOf(childOf(childOf(Style(sheet), {x}), {y}), {x});
    EXPECT_TRUE(child.state() == (States{stateOf(x), stateOf(y)}));
}

/// Far beyond the length at which a chain is made one list.
TEST_F(ChildStyles, DeepChainKeepsItsStatesInOrder) {
    for (const bool isRegular : {true, false}) {
        Style style(sheet);
        PlainStyle plain;
        for (int depth = 0; depth < 60; ++depth) {
            const WaitingGroup* begun =
                depth % 4 == 3 ? &groups[std::size_t(depth / 2)]
                               : group(depth % 5 == 2 ? SimpleSelector::Child : SimpleSelector::Descendant);
            PlainStyle next;
            next.add(stateOf(begun));
            for (const State& state : plain.states) {
                if (state.selector->combinator() == SimpleSelector::Descendant)
                    next.add(state);
            }
            plain = next;
            style = childOf(style, {begun}, isRegular);
            ASSERT_TRUE(style.state() == plain.states) << "at depth " << depth;
        }
    }
}

TEST_F(ChildStyles, NodeThatBeginsNothingHasTheVeryListOfItsHost) {
    TestNode root("a");
    TestNode* plain = addNode(root, "c");
    TestNode* below = addNode(*plain, "c");
    styleWith(root, "a b { p: 1 } b c { p: 1 }");
    EXPECT_FALSE(root.childStyle().state().empty());
    EXPECT_EQ(listOf(plain->style()), listOf(root.childStyle()));
    EXPECT_EQ(listOf(plain->childStyle()), listOf(root.childStyle()));
    EXPECT_EQ(listOf(below->childStyle()), listOf(root.childStyle()));
}

} // namespace
} // namespace Testing
