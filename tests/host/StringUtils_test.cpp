#include "Gorvel/StringUtils.h"

#include <gtest/gtest.h>

#include <typeinfo>

namespace Shapes {
struct Circle {};
} // namespace Shapes

using Gorvel::StringUtils;

TEST(StringUtils, DemanglesTypeNames) {
    EXPECT_EQ(StringUtils::demangle(typeid(Shapes::Circle).name()), "Shapes::Circle");
    EXPECT_EQ(StringUtils::demangle(typeid(int).name()), "int");
}

TEST(StringUtils, LeavesOtherTextsAlone) {
    EXPECT_EQ(StringUtils::demangle("not a type!"), "not a type!");
    EXPECT_EQ(StringUtils::demangle(""), "");
    EXPECT_EQ(StringUtils::demangle(nullptr), "");
}

TEST(StringUtils, KnowsEscapesThatTakeABlankAlong) {
    for (const char* open : {"\\4", "a\\4f", "\\123456", "\\\\\\a"})
        EXPECT_TRUE(StringUtils::endsInOpenEscape(open)) << open;
    for (const char* closed : {"", "a", "4", "\\4 ", "\\g", "\\\\a", "\\1234567", "\\4-"})
        EXPECT_FALSE(StringUtils::endsInOpenEscape(closed)) << closed;
}
