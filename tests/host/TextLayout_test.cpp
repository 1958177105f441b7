#include "Hexley/TextLayout.h"

#include <gtest/gtest.h>

namespace Testing {
namespace {

using Hexley::TextLayout;

TEST(TextLayout, PointIsFourThirdsOfAPixel) {
    EXPECT_EQ(TextLayout::dotsPerInch, 96.f);
    EXPECT_FLOAT_EQ(TextLayout::pointToPixelSize(12.f), 16.f);
    EXPECT_FLOAT_EQ(TextLayout::pointToPixelSize(72.f), 96.f);
    EXPECT_FLOAT_EQ(TextLayout::pixelToPointSize(16.f), 12.f);
    EXPECT_FLOAT_EQ(TextLayout::pixelToPointSize(96.f), 72.f);
}

TEST(TextLayout, ZeroAndNegativeSizesGoThrough) {
    EXPECT_EQ(TextLayout::pointToPixelSize(0.f), 0.f);
    EXPECT_EQ(TextLayout::pixelToPointSize(0.f), 0.f);
    EXPECT_FLOAT_EQ(TextLayout::pointToPixelSize(-12.f), -16.f);
}

TEST(TextLayout, OneIsTheInverseOfTheOther) {
    for (int i = 1; i <= 4000; ++i) {
        const float size = float(i) * 0.1f;
        EXPECT_FLOAT_EQ(TextLayout::pixelToPointSize(TextLayout::pointToPixelSize(size)), size);
        EXPECT_FLOAT_EQ(TextLayout::pointToPixelSize(TextLayout::pixelToPointSize(size)), size);
    }
}

TEST(TextLayout, ThirdsOfAPointComeBackToTheBit) {
    for (const float pixels : {9.6f, 128.f / 9.f, 19.2f})
        EXPECT_EQ(TextLayout::pointToPixelSize(TextLayout::pixelToPointSize(pixels)), pixels);
}

} // namespace
} // namespace Testing
