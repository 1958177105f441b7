#include "styling/WholeValues.h"

#include "Ondex/AttributeT.h"
#include "styling/TestAttributes.h"

#include <gtest/gtest.h>

namespace Brisko {
namespace {

using Ondex::Attribute;
using Ondex::AttributeT;
using Ondex::StyleValue;

/// What an application may write: nothing tells from outside that it looks at values.
class SplittingFloat : public AttributeT<float> {
public:
    using AttributeT<float>::AttributeT;
    bool handleShorthand(const StyleValue&, Gorvel::ArrayMap<Attribute*, StyleValue>&) override { return true; }
};

class NamedFloat : public AttributeT<float> {
public:
    using AttributeT<float>::AttributeT;
};

TEST(WholeValues, TypedAttributesTakeTheirValuesWhole) {
    EXPECT_TRUE(areValuesWhole(AttributeT<float>(nullptr, "a")));
    EXPECT_TRUE(areValuesWhole(AttributeT<int>(nullptr, "a")));
    EXPECT_TRUE(areValuesWhole(AttributeT<bool>(nullptr, "a")));
    EXPECT_TRUE(areValuesWhole(AttributeT<QString>(nullptr, "a")));
    EXPECT_TRUE(areValuesWhole(AttributeT<StyleValue>(nullptr, "a")));
    EXPECT_TRUE(areValuesWhole(AttributeT<Gorvel::Color>(nullptr, "a")));
    EXPECT_TRUE(areValuesWhole(AttributeT<Gorvel::ColorPMA>(nullptr, "a")));
}

TEST(WholeValues, ThoseOfOtherClassesHaveToBeAsked) {
    EXPECT_FALSE(areValuesWhole(SplittingFloat(nullptr, "a")));
    EXPECT_FALSE(areValuesWhole(NamedFloat(nullptr, "a"))) << "which is not told from one that splits values";
    EXPECT_FALSE(areValuesWhole(Attribute(nullptr, "a")));
    EXPECT_FALSE(areValuesWhole(Testing::PairAttribute(nullptr, "a")));
}

} // namespace
} // namespace Brisko
