#include "styling/WaitingRules.h"

#include "Gorvel/Name.h"
#include "styling/PlainCascade.h"
#include "styling/RandomScene.h"

#include <gtest/gtest.h>

#include <thread>

namespace Testing {
namespace {

using Brisko::Declaration;
using Brisko::KeySet;
using Brisko::MatchKey;
using Brisko::SimpleSelector;
using Brisko::WaitingCompound;
using Brisko::WaitingGroup;
using Brisko::WaitingRules;
using State = Brisko::Style::MatchState;
using States = std::vector<State>;
using Groups = WaitingRules::Groups;

QByteArray className(int number) {
    static const QByteArray names[] = {Gorvel::interned("c0"), Gorvel::interned("c1"), Gorvel::interned("c2"),
                                       Gorvel::interned("c3")};
    return names[number];
}

/// Groups as a sheet has them: no state stands in two, and the orders of all are different.
class GroupPool {
public:
    GroupPool(Dice& dice, int groups, int longest) : m_groups(std::size_t(groups)) {
        for (std::size_t i = 0; i < m_groups.size(); ++i) {
            for (int j = 1 + dice.roll(longest); j > 0; --j)
                add(dice, m_groups[i], int(i));
            m_groups[i].file();
        }
    }

    Groups all() const {
        Groups groups;
        for (const WaitingGroup& group : m_groups)
            groups.push_back(&group);
        return groups;
    }
    /// Some of them in any order.
    Groups any(Dice& dice) const {
        Groups some;
        for (const WaitingGroup& group : m_groups) {
            if (dice.chance(30))
                some.insert(some.begin() + dice.roll(int(some.size()) + 1), &group);
        }
        return some;
    }

private:
    void add(Dice& dice, WaitingGroup& group, int number) {
        m_compounds.push_back(std::make_unique<SimpleSelector>(SimpleSelector::AuthorOrigin, "", ""));
        SimpleSelector& compound = *m_compounds.back();
        if (dice.chance(90))
            compound.addClass(className(dice.roll(4)));
        compound.setCombinator(dice.chance(70) ? SimpleSelector::Descendant : SimpleSelector::Child);
        m_order += 1 + dice.roll(5);
        group.add(&m_declarations[dice.roll(2)], &compound, 100 * number + dice.roll(3), m_order);
    }

    std::vector<WaitingGroup> m_groups;
    std::vector<std::unique_ptr<SimpleSelector>> m_compounds;
    std::vector<Declaration> m_declarations[2];
    int m_order = 0;
};

/// A list with the states that it has to come out as.
struct Listed {
    WaitingRules::Pointer rules;
    PlainStyle plain;
};

Listed inFrontOf(const Listed& rest, const Groups& groups) {
    Listed made{WaitingRules::Pointer(new WaitingRules(groups, rest.rules)), {}};
    std::vector<WaitingCompound> begun;
    for (const WaitingGroup* group : groups)
        begun.insert(begun.end(), group->compounds().begin(), group->compounds().end());
    std::sort(begun.begin(), begun.end(),
              [](const WaitingCompound& a, const WaitingCompound& b) { return a.order < b.order; });
    for (const WaitingCompound& compound : begun)
        made.plain.add({compound.declarations, compound.selector, compound.specificity});
    for (const State& state : rest.plain.states) {
        if (state.selector->combinator() == SimpleSelector::Descendant)
            made.plain.add(state);
    }
    return made;
}

/// Lists that stand in front of one another, branch, and are copied into one list or made by hand here and there.
std::vector<Listed> randomLists(Dice& dice, const GroupPool& pool, int count) {
    std::vector<Listed> lists;
    for (int i = 0; i < count; ++i) {
        const Listed rest = lists.empty() || dice.chance(15) ? Listed() : lists[std::size_t(dice.roll(i))];
        Listed made = inFrontOf(rest, pool.any(dice));
        if (dice.chance(20)) {
            made.rules = new WaitingRules(made.plain.states, true);
        } else if (dice.chance(10)) {
            // Regular lists only stand in front of regular ones.
            Listed byHand{WaitingRules::Pointer(new WaitingRules), made.plain};
            for (const State& state : made.plain.states)
                byHand.rules->add(state);
            EXPECT_TRUE(WaitingRules::equal(byHand.rules.data(), made.rules.data()));
            EXPECT_FALSE(byHand.rules->isRegular());
        }
        lists.push_back(made);
    }
    return lists;
}

States collected(const WaitingRules& rules, const KeySet& keys) {
    std::vector<const WaitingCompound*> found;
    rules.collect(keys, found);
    States states;
    for (const WaitingCompound* compound : found)
        states.push_back({compound->declarations, compound->selector, compound->specificity});
    return states;
}

States withKeys(const States& states, const KeySet& keys) {
    States some;
    for (const State& state : states) {
        const auto& classes = state.selector->cssClasses();
        const MatchKey key = classes.isEmpty() ? MatchKey::none() : MatchKey::ofClass(Gorvel::interned(classes[0]));
        if (keys.contains(key.value()))
            some.push_back(state);
    }
    return some;
}

KeySet randomKeys(Dice& dice) {
    KeySet keys;
    keys.insert(MatchKey::none());
    for (int i = 0; i < 4; ++i) {
        if (dice.chance(50))
            keys.insert(MatchKey::ofClass(className(i)));
    }
    return keys;
}

class RandomWaitingRules : public testing::TestWithParam<int> {
protected:
    Dice dice{unsigned(GetParam())};
    GroupPool pool{dice, 6, GetParam() % 2 ? 3 : 30};
    std::vector<Listed> lists = randomLists(dice, pool, 20);
};

TEST_P(RandomWaitingRules, StatesAreThoseAddedOneByOne) {
    for (const Listed& list : lists)
        EXPECT_TRUE(list.rules->states() == list.plain.states);
}

TEST_P(RandomWaitingRules, CollectingFiltersTheStates) {
    for (const Listed& list : lists) {
        const KeySet keys = randomKeys(dice);
        EXPECT_TRUE(collected(*list.rules, keys) == withKeys(list.plain.states, keys));
    }
}

TEST_P(RandomWaitingRules, ListsThatAreAlikeGiveTheSame) {
    int alike = 0;
    for (const Listed& a : lists) {
        for (const Listed& b : lists) {
            const KeySet keys = randomKeys(dice);
            EXPECT_TRUE(WaitingRules::areAlike(a.rules.data(), a.rules.data(), keys));
            if (!WaitingRules::areAlike(a.rules.data(), b.rules.data(), keys))
                continue;
            EXPECT_TRUE(WaitingRules::areAlike(b.rules.data(), a.rules.data(), keys));
            EXPECT_TRUE(collected(*a.rules, keys) == collected(*b.rules, keys));
            ++alike;
        }
        const KeySet keys = randomKeys(dice);
        if (WaitingRules::areAlike(a.rules.data(), nullptr, keys)) {
            EXPECT_TRUE(collected(*a.rules, keys).empty());
        }
    }
    EXPECT_GE(alike, int(lists.size())); // each is like itself
}

/// What a class further up changes for a node that has no key of the rules that it begins.
TEST(WaitingRules, AreAlikeBelowAGroupThatDoesNotFit) {
    SimpleSelector compounds[3] = {{SimpleSelector::AuthorOrigin, "", ""},
                                   {SimpleSelector::AuthorOrigin, "", ""},
                                   {SimpleSelector::AuthorOrigin, "", ""}};
    const std::vector<Declaration> declarations;
    WaitingGroup groups[3];
    for (int i = 0; i < 3; ++i) {
        compounds[i].addClass(className(i));
        compounds[i].setCombinator(SimpleSelector::Descendant);
        groups[i].add(&declarations, &compounds[i], 0, i);
        groups[i].file();
    }
    const auto listOf = [&](const Groups& own, const WaitingRules::Pointer& rest) {
        return WaitingRules::Pointer(new WaitingRules(own, rest));
    };
    const WaitingRules::Pointer top = listOf({&groups[0]}, WaitingRules::Pointer());
    const WaitingRules::Pointer between = listOf({&groups[1]}, top);
    const WaitingRules::Pointer belowTop = listOf({&groups[2]}, top);
    const WaitingRules::Pointer belowBetween = listOf({&groups[2]}, between);
    KeySet keys;
    keys.insert(MatchKey::ofClass(className(0)));
    keys.insert(MatchKey::ofClass(className(2)));
    EXPECT_TRUE(WaitingRules::areAlike(belowTop.data(), belowBetween.data(), keys));
    EXPECT_TRUE(WaitingRules::areAlike(top.data(), between.data(), keys));
    EXPECT_FALSE(WaitingRules::areAlike(belowTop.data(), top.data(), keys));
    EXPECT_FALSE(WaitingRules::areAlike(belowTop.data(), nullptr, keys));
    const WaitingRules::Pointer more = listOf({&groups[1], &groups[2]}, top);
    EXPECT_TRUE(WaitingRules::areAlike(belowTop.data(), more.data(), keys));
    keys.insert(MatchKey::ofClass(className(1)));
    EXPECT_FALSE(WaitingRules::areAlike(belowTop.data(), belowBetween.data(), keys));
    EXPECT_FALSE(WaitingRules::areAlike(belowTop.data(), more.data(), keys));
    EXPECT_FALSE(WaitingRules::areAlike(top.data(), between.data(), keys));
}

TEST_P(RandomWaitingRules, VisitMeetsTheStatesInOrder) {
    for (const Listed& list : lists) {
        PlainStyle met;
        list.rules->visit([&met](const WaitingCompound& compound) {
            met.add({compound.declarations, compound.selector, compound.specificity});
        });
        EXPECT_TRUE(met.states == list.plain.states);
    }
}

TEST_P(RandomWaitingRules, EqualComparesTheStates) {
    for (const Listed& a : lists) {
        for (const Listed& b : lists)
            EXPECT_EQ(WaitingRules::equal(a.rules.data(), b.rules.data()), a.plain.states == b.plain.states);
        EXPECT_EQ(WaitingRules::equal(a.rules.data(), nullptr), a.plain.states.empty());
        EXPECT_EQ(WaitingRules::equal(nullptr, a.rules.data()), a.plain.states.empty());
    }
}

TEST_P(RandomWaitingRules, ListOfEqualStatesIsEqualHoweverItIsPutTogether) {
    for (const Listed& list : lists) {
        const WaitingRules::Pointer flat(new WaitingRules(list.plain.states, true));
        EXPECT_TRUE(WaitingRules::equal(flat.data(), list.rules.data()));
        if (list.plain.states.empty())
            continue;
        States raised = list.plain.states;
        ++raised[std::size_t(dice.roll(int(raised.size())))].specificity;
        const WaitingRules::Pointer other(new WaitingRules(raised, true));
        EXPECT_FALSE(WaitingRules::equal(other.data(), list.rules.data()));
        EXPECT_FALSE(WaitingRules::equal(list.rules.data(), other.data()));
    }
}

TEST_P(RandomWaitingRules, GoesOnWholeWhereEveryStateWaitsForDescendants) {
    for (const Listed& list : lists) {
        const States& states = list.plain.states;
        EXPECT_EQ(list.rules->goesOnWhole(), std::all_of(states.begin(), states.end(), [](const State& state) {
                      return state.selector->combinator() == SimpleSelector::Descendant;
                  }));
    }
}

INSTANTIATE_TEST_SUITE_P(Seeds, RandomWaitingRules, testing::Range(1, 41));

class WaitingRulesTest : public testing::Test {
protected:
    Dice dice{1};
    GroupPool pool{dice, 6, 3};
};

TEST_F(WaitingRulesTest, NullIsAnEmptyList) {
    const WaitingRules::Pointer empty(new WaitingRules);
    EXPECT_TRUE(WaitingRules::equal(nullptr, nullptr));
    EXPECT_TRUE(WaitingRules::equal(empty.data(), nullptr));
    EXPECT_TRUE(empty->states().empty());
}

TEST_F(WaitingRulesTest, ConsistsOfItsGroupsAndItsVeryRest) {
    const Groups groups = pool.all();
    Groups fewer = groups;
    fewer.pop_back();
    const WaitingRules::Pointer rest(new WaitingRules(fewer, WaitingRules::Pointer()));
    const WaitingRules::Pointer equalRest(new WaitingRules(fewer, WaitingRules::Pointer()));
    const WaitingRules rules(groups, rest);
    EXPECT_TRUE(rules.consistsOf(groups, rest.data()));
    EXPECT_FALSE(rules.consistsOf(groups, equalRest.data()));
    EXPECT_FALSE(rules.consistsOf(groups, nullptr));
    EXPECT_FALSE(rules.consistsOf(fewer, rest.data()));
    EXPECT_EQ(rest->length(), 1);
    EXPECT_EQ(rules.length(), 2);
}

TEST_F(WaitingRulesTest, GroupThatStandsInEveryListIsVisitedOnce) {
    const std::vector<Declaration> declarations;
    SimpleSelector compound(SimpleSelector::AuthorOrigin, "a", "");
    compound.setCombinator(SimpleSelector::Descendant);
    WaitingGroup group;
    group.add(&declarations, &compound, 1, 0);
    group.file();
    WaitingRules::Pointer rules;
    for (int i = 0; i < 3; ++i)
        rules = new WaitingRules(Groups{&group}, rules);
    int visits = 0;
    rules->visit([&visits](const WaitingCompound&) { ++visits; });
    EXPECT_EQ(visits, 1);
    KeySet keys;
    keys.insert(MatchKey::ofType(Gorvel::interned("a")));
    EXPECT_TRUE(collected(*rules, keys) == (States{{&declarations, &compound, 1}}));
}

TEST_F(WaitingRulesTest, ListMadeByHandRaisesAStateInItsPlace) {
    const std::vector<Declaration> declarations;
    const SimpleSelector a(SimpleSelector::AuthorOrigin, "a", "");
    const SimpleSelector b(SimpleSelector::AuthorOrigin, "b", "");
    WaitingRules rules;
    rules.add({&declarations, &a, 1});
    rules.add({&declarations, &b, 2});
    rules.add({&declarations, &a, 5});
    rules.add({&declarations, &b, 1});
    const States expected{{&declarations, &a, 5}, {&declarations, &b, 2}};
    EXPECT_TRUE(rules.states() == expected);
    KeySet keys;
    keys.insert(MatchKey::none()); // what was added by hand is tried at every node
    EXPECT_TRUE(collected(rules, keys) == expected);
    EXPECT_TRUE(rules.isMadeByHand());
    EXPECT_FALSE(rules.goesOnWhole());
}

/// Under a thread checker, or by chance, this shows whether the list is made once.
TEST_F(WaitingRulesTest, TwoThreadsMayAskForTheStatesAtOnce) {
    for (int round = 0; round < 200; ++round) {
        Listed list = inFrontOf({}, pool.any(dice));
        for (int i = 0; i < 5; ++i)
            list = inFrontOf(list, pool.any(dice));
        const States* seen[2] = {};
        const auto ask = [&list, &seen](int thread) { seen[thread] = &list.rules->states(); };
        std::thread other(ask, 1);
        ask(0);
        other.join();
        EXPECT_EQ(seen[0], seen[1]);
        EXPECT_TRUE(*seen[0] == list.plain.states);
    }
}

} // namespace
} // namespace Testing
