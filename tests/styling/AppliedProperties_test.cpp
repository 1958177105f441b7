#include "styling/AppliedProperties.h"

#include "Gorvel/Name.h"

#include <gtest/gtest.h>

namespace Brisko {
namespace {

QByteArray name(int number) {
    return Gorvel::interned("property-" + QByteArray::number(number));
}

TEST(AppliedProperties, StartsWithoutProperties) {
    const AppliedProperties properties;
    EXPECT_EQ(properties.size(), 0);
    EXPECT_EQ(properties.indexOf(name(0)), -1);
    EXPECT_EQ(properties.nextGeneration(), 1u);
}

TEST(AppliedProperties, NewPropertyHoldsNothing) {
    AppliedProperties properties;
    EXPECT_EQ(properties.add(name(0)), 0);
    EXPECT_EQ(properties[0].name, name(0));
    EXPECT_EQ(properties[0].declaration, -1);
    EXPECT_EQ(properties[0].isImportant(), false);
    EXPECT_EQ(properties[0].generation(), 0u);
}

/// Few that are searched, and so many that a table takes over; before and after each is added.
TEST(AppliedProperties, FindsEveryPropertyAtItsPlace) {
    constexpr int names = 200;
    AppliedProperties properties;
    for (int i = 0; i < names; ++i) {
        ASSERT_EQ(properties.indexOf(name(i)), -1);
        ASSERT_EQ(properties.add(name(i)), i);
        for (int j = 0; j <= i; ++j)
            ASSERT_EQ(properties.indexOf(name(j)), j) << "of " << i + 1;
        ASSERT_EQ(properties.indexOf(name(names)), -1);
    }
    EXPECT_EQ(properties.size(), names);
}

TEST(AppliedProperties, KeepsWhatIsWrittenAsItGrows) {
    AppliedProperties properties;
    for (int i = 0; i < 100; ++i) {
        AppliedProperties::Property& property = properties[properties.add(name(i))];
        property.declaration = i;
        property.writing = AppliedProperties::writingOf(unsigned(3 * i), i % 2 == 1);
    }
    const AppliedProperties& read = properties;
    for (int i = 0; i < 100; ++i) {
        EXPECT_EQ(read[i].declaration, i);
        EXPECT_EQ(read[i].isImportant(), i % 2 == 1);
        EXPECT_EQ(read[i].generation(), unsigned(3 * i));
    }
}

TEST(AppliedProperties, GenerationsComeRound) {
    AppliedProperties properties;
    properties.setGeneration(5);
    EXPECT_EQ(properties.nextGeneration(), 6u);
    properties.setGeneration(0x7FFFFFFF);
    EXPECT_EQ(properties.nextGeneration(), 0u);
}

} // namespace
} // namespace Brisko
