#include "styling/StateList.h"

#include <gtest/gtest.h>

namespace Brisko {
namespace {

using State = Style::MatchState;

class StateLists : public testing::Test {
protected:
    std::vector<std::vector<Declaration>> declarations = std::vector<std::vector<Declaration>>(40);
    std::vector<SimpleSelector> compounds =
        std::vector<SimpleSelector>(40, SimpleSelector(SimpleSelector::AuthorOrigin, "a", QString()));
    StateList list;
};

TEST_F(StateLists, AnswersThePlaceOfAState) {
    EXPECT_EQ(list.add({&declarations[0], &compounds[0], 1}), 0);
    EXPECT_EQ(list.add({&declarations[0], &compounds[1], 1}), 1);
    EXPECT_EQ(list.add({&declarations[1], &compounds[0], 1}), 2);
    EXPECT_EQ(list.add({&declarations[0], &compounds[1], 2}), 1);
    EXPECT_EQ(list.states().size(), 3u);
}

TEST_F(StateLists, KeepsTheHigherSpecificity) {
    list.add({&declarations[0], &compounds[0], 5});
    list.add({&declarations[0], &compounds[0], 3});
    EXPECT_EQ(list.states(), (std::vector<State>{{&declarations[0], &compounds[0], 5}}));
    list.add({&declarations[0], &compounds[0], 9});
    EXPECT_EQ(list.states(), (std::vector<State>{{&declarations[0], &compounds[0], 9}}));
}

TEST_F(StateLists, TakesStatesThatLeadNowhere) {
    EXPECT_EQ(list.add({nullptr, nullptr, 1}), 0);
    EXPECT_EQ(list.add({nullptr, nullptr, 2}), 0);
    EXPECT_EQ(list.add({&declarations[0], nullptr, 2}), 1);
}

/// Every pair of 40 lists and 40 compounds, twice, looked for in between: far beyond where the table takes over.
TEST_F(StateLists, LongListFindsEveryState) {
    std::vector<State> expected;
    for (const auto& declared : declarations) {
        for (const SimpleSelector& compound : compounds) {
            const State state{&declared, &compound, int(expected.size())};
            ASSERT_EQ(list.add(state), int(expected.size()));
            expected.push_back(state);
            const std::size_t earlier = expected.size() / 2;
            ASSERT_EQ(list.add(expected[earlier]), int(earlier));
        }
    }
    for (std::size_t i = 0; i < expected.size(); ++i)
        ASSERT_EQ(list.add(expected[i]), int(i));
    EXPECT_EQ(list.states(), expected);
}

TEST_F(StateLists, TakingGivesTheStates) {
    list.add({&declarations[0], &compounds[0], 5});
    EXPECT_EQ(list.take(), (std::vector<State>{{&declarations[0], &compounds[0], 5}}));
}

} // namespace
} // namespace Brisko
