#include "Gorvel/FlagsT.h"

#include <gtest/gtest.h>

namespace {

enum Side { NoSide = 0, Top = 1, Right = 2, Corner = 3, Left = 8 };
using Sides = Gorvel::FlagsT<Side>;

} // namespace

TEST(FlagsT, StartsEmpty) {
    EXPECT_EQ(Sides().toInt(), 0u);
    EXPECT_TRUE(Sides().isEmpty());
    EXPECT_FALSE(static_cast<bool>(Sides()));
}

TEST(FlagsT, JoinsAndIntersects) {
    const Sides sides = Sides(Top) | Left;
    EXPECT_EQ(sides.toInt(), 9u);
    EXPECT_EQ((sides & Left).toInt(), 8u);
    EXPECT_EQ((sides & Right).toInt(), 0u);
    Sides changed = sides;
    changed |= Right;
    EXPECT_EQ(changed, Sides(11u));
    changed &= Corner;
    EXPECT_EQ(changed, Sides(Corner));
    EXPECT_NE(changed, sides);
}

TEST(FlagsT, TestsForAllBitsOfAFlag) {
    EXPECT_TRUE(Sides(Corner).testFlag(Top));
    EXPECT_TRUE(Sides(Corner).testFlag(Corner));
    EXPECT_FALSE(Sides(Top).testFlag(Corner));
    EXPECT_FALSE(Sides().testFlag(Top));
}

TEST(FlagsT, FlagWithoutBitsIsOnlyInTheEmptySet) {
    EXPECT_TRUE(Sides().testFlag(NoSide));
    EXPECT_FALSE(Sides(Top).testFlag(NoSide));
}
