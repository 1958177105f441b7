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
