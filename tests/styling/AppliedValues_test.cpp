#include "styling/AppliedValues.h"

#include <gtest/gtest.h>

#include <iterator>
#include <limits>
#include <memory>

namespace Brisko {
namespace {

using Ondex::Attribute;
using Ondex::StyleValue;

constexpr Claim normal(int specificity, int declaration) {
    return {specificity, declaration, false};
}
constexpr Claim important(int specificity, int declaration) {
    return {specificity, declaration, true};
}

TEST(Claim, ImportanceOutranksSpecificity) {
    EXPECT_TRUE(important(0, 0).beats(normal(9, 9)));
    EXPECT_FALSE(normal(9, 9).beats(important(0, 0)));
}

TEST(Claim, SpecificityOutranksTheOrder) {
    EXPECT_TRUE(normal(2, 0).beats(normal(1, 9)));
    EXPECT_FALSE(normal(1, 9).beats(normal(2, 0)));
    EXPECT_TRUE(important(2, 0).beats(important(1, 9)));
}

TEST(Claim, LaterDeclarationWinsAndTheSameOneDoesNot) {
    EXPECT_TRUE(normal(1, 2).beats(normal(1, 1)));
    EXPECT_FALSE(normal(1, 1).beats(normal(1, 2)));
    EXPECT_FALSE(normal(1, 1).beats(normal(1, 1)));
}

TEST(Claim, SpecificitiesFromTheLowestToTheHighestStayInOrder) {
    constexpr int lowest = std::numeric_limits<int>::min();
    constexpr int highest = std::numeric_limits<int>::max();
    const Claim inOrder[] = {
        {},           normal(lowest, lowest),  normal(lowest, highest),   normal(-1, 0),
        normal(0, 0), normal(highest, lowest), important(lowest, lowest), important(highest, highest)};
    for (std::size_t i = 0; i < std::size(inOrder); ++i) {
        for (std::size_t j = 0; j < std::size(inOrder); ++j)
            EXPECT_EQ(inOrder[i].beats(inOrder[j]), i > j) << i << " and " << j;
    }
    EXPECT_FALSE(normal(highest, highest).isImportant());
    EXPECT_TRUE(important(lowest, lowest).isImportant());
}

class AppliedValuesTest : public testing::Test {
protected:
    Attribute* attribute(int number) {
        while (int(attributes.size()) <= number)
            attributes.push_back(std::make_unique<Attribute>(nullptr, "a"));
        return attributes[std::size_t(number)].get();
    }

    bool offer(int place, const StyleValue& value, const Claim& claim) {
        if (!applied.isWon(place, claim))
            return false;
        EXPECT_EQ(&applied.take(place, value, claim), &applied[place]);
        return true;
    }

    std::vector<std::unique_ptr<Attribute>> attributes;
    AppliedValues applied;
};

TEST_F(AppliedValuesTest, FirstOfferWins) {
    const StyleValue value(1);
    const int place = applied.placeOf(attribute(0), nullptr);
    EXPECT_EQ(applied[place].value, nullptr);
    EXPECT_TRUE(offer(place, value, normal(-5, -1)));
    EXPECT_EQ(applied[place].value, &value);
    EXPECT_EQ(applied[place].attribute, attribute(0));
}

TEST_F(AppliedValuesTest, LosingOfferChangesNothing) {
    const StyleValue first(1);
    const StyleValue second(2);
    const int place = applied.placeOf(attribute(0), nullptr);
    offer(place, first, normal(2, 1));
    applied[place].isShorthand = true;
    EXPECT_FALSE(offer(place, second, normal(1, 7)));
    EXPECT_EQ(applied[place].value, &first);
    EXPECT_EQ(applied[place].claim.declaration(), 1);
    EXPECT_TRUE(applied[place].isShorthand);
}

TEST_F(AppliedValuesTest, WinningOfferReplacesTheShorthandMark) {
    const StyleValue value(1);
    const int place = applied.placeOf(attribute(0), nullptr);
    offer(place, value, normal(1, 1));
    applied[place].isShorthand = true;
    EXPECT_TRUE(offer(place, value, important(0, 2)));
    EXPECT_FALSE(applied[place].isShorthand);
    EXPECT_TRUE(applied[place].claim.isImportant());
}

TEST_F(AppliedValuesTest, KeepsACopyOfANameThatNobodyElseKeeps) {
    const QByteArray kept("kept");
    EXPECT_EQ(applied[applied.placeOf(attribute(0), &kept)].name, &kept);
    const int place = applied.placeOf(attribute(1), nullptr);
    attributes[1]->setName("renamed");
    EXPECT_EQ(*applied[place].name, "a");
}

/// Few that are searched, and so many that a table takes over; two rounds, because the lists are used again.
TEST_F(AppliedValuesTest, PlacesFollowTheOrderOfTheFirstOffers) {
    for (const int count : {100, 10, 100}) {
        for (int i = 0; i < count; ++i) {
            ASSERT_EQ(applied.placeOf(attribute(i), nullptr), i);
            for (int j = 0; j <= i; ++j)
                ASSERT_EQ(applied.placeOf(attribute(j), nullptr), j);
        }
        EXPECT_EQ(applied.size(), count);
        applied.clear();
        EXPECT_EQ(applied.size(), 0);
    }
}

TEST_F(AppliedValuesTest, ForgottenAttributeKeepsTheOthersInPlace) {
    for (const int count : {5, 60}) {
        for (int i = 0; i < count; ++i)
            applied.placeOf(attribute(i), nullptr);
        applied.forget(attribute(2));
        applied.forget(attribute(count)); // was never there
        EXPECT_EQ(applied[2].attribute, nullptr);
        EXPECT_EQ(applied.placeOf(attribute(3), nullptr), 3);
        EXPECT_EQ(applied.placeOf(attribute(count - 1), nullptr), count - 1);
        EXPECT_EQ(applied.placeOf(attribute(2), nullptr), count); // another one at that address
        applied.clear();
    }
}

} // namespace
} // namespace Brisko
