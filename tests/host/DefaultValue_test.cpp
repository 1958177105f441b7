#include "Ondex/DefaultValue.h"

#include "Gorvel/Color.h"
#include "Ondex/AttributeT.h"

#include <gtest/gtest.h>

#include <cmath>

using Gorvel::ColorPMA;
using Ondex::Attribute;
using Ondex::AttributeT;
using Ondex::DefaultValue;
using Ondex::StyleValue;

TEST(DefaultValue, TakesNoMoreThanAPointer) {
    EXPECT_LE(sizeof(DefaultValue<float>), sizeof(void*));
    EXPECT_EQ(sizeof(DefaultValue<StyleValue>), sizeof(void*));
    EXPECT_EQ(sizeof(DefaultValue<ColorPMA>), sizeof(void*));
}

TEST(DefaultValue, SharesWhatIsLarge) {
    const DefaultValue<StyleValue> first(StyleValue(QByteArray("medium")));
    const DefaultValue<StyleValue> second(first);
    EXPECT_EQ(second.value(), StyleValue(QByteArray("medium")));
    EXPECT_EQ(&first.value(), &second.value());
}

TEST(DefaultValue, ChangesOneCopyOnly) {
    const DefaultValue<StyleValue> first(StyleValue(QByteArray("medium")));
    DefaultValue<StyleValue> second(first);
    second.set(StyleValue(7));
    EXPECT_EQ(second.value(), StyleValue(7));
    EXPECT_EQ(first.value(), StyleValue(QByteArray("medium")));
    second.set(second.value());
    EXPECT_EQ(second.value(), StyleValue(7));
    second.set(StyleValue());
    EXPECT_TRUE(second.value().isEmpty());
}

TEST(DefaultValue, IsExact) {
    const DefaultValue<ColorPMA> color(ColorPMA(-0.f, 0.f, 0.f, 0.f));
    EXPECT_TRUE(std::signbit(color.value().red()));
    EXPECT_EQ(DefaultValue<float>(2.f).value(), 2.f);
}

TEST(DefaultValue, OfAnAttributeIsItsOwn) {
    const DefaultValue<StyleValue> medium(StyleValue(QByteArray("medium")));
    AttributeT<StyleValue> first(nullptr, "first", medium);
    AttributeT<StyleValue> second(nullptr, "second", medium);
    first.setValue(StyleValue(1), Attribute::DefaultLayer);
    EXPECT_EQ(first.value(), StyleValue(1));
    EXPECT_EQ(first.defaultValue(), StyleValue(1));
    second.setValue(StyleValue(2), Attribute::UserLayer);
    EXPECT_EQ(second.defaultValue(), StyleValue(QByteArray("medium")));
    second.setAsDefaults();
    EXPECT_EQ(second.defaultValue(), StyleValue(2));
    EXPECT_EQ(medium.value(), StyleValue(QByteArray("medium")));
}
