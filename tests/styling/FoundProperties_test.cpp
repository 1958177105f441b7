#include "styling/FoundProperties.h"

#include <gtest/gtest.h>

namespace Brisko {
namespace {

TEST(FoundProperties, NothingIsFoundAtFirst) {
    FoundProperties found;
    found.reserve(3);
    for (unsigned property = 0; property < 3; ++property)
        EXPECT_EQ(found.placeOf(property), -1);
}

TEST(FoundProperties, EnteredPlaceIsFound) {
    FoundProperties found;
    found.reserve(3);
    found.enter(1, 7);
    EXPECT_EQ(found.placeOf(0), -1);
    EXPECT_EQ(found.placeOf(1), 7);
    found.enter(1, 0);
    EXPECT_EQ(found.placeOf(1), 0);
}

TEST(FoundProperties, EveryRoundForgetsTheOneBefore) {
    FoundProperties found;
    found.reserve(2);
    for (int round = 0; round < 1000; ++round) {
        EXPECT_EQ(found.placeOf(0), -1);
        EXPECT_EQ(found.placeOf(1), -1);
        found.enter(unsigned(round % 2), round);
        EXPECT_EQ(found.placeOf(unsigned(round % 2)), round);
        found.clear();
    }
}

TEST(FoundProperties, MakingRoomKeepsWhatWasEntered) {
    FoundProperties found;
    found.reserve(1);
    found.enter(0, 5);
    found.reserve(1000);
    EXPECT_EQ(found.placeOf(0), 5);
    EXPECT_EQ(found.placeOf(999), -1);
    found.reserve(1); // never less
    found.enter(999, 6);
    EXPECT_EQ(found.placeOf(999), 6);
}

TEST(FoundProperties, RoomMadeInALaterRoundIsEmpty) {
    FoundProperties found;
    found.clear();
    found.clear();
    found.reserve(1);
    EXPECT_EQ(found.placeOf(0), -1);
}

} // namespace
} // namespace Brisko
