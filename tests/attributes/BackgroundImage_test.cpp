#include "Brisko/BackgroundImage.h"

#include <gtest/gtest.h>

namespace Testing {
namespace {

using Brisko::BackgroundImage;
using Ondex::Attribute;

TEST(BackgroundImage, DefaultLayer) {
    const BackgroundImage layer;
    EXPECT_FALSE(layer.image);
    EXPECT_EQ(int(layer.repeatX), 0);
    EXPECT_EQ(int(layer.repeatY), 0);
    EXPECT_EQ(int(layer.positionOriginX), 0);
    EXPECT_EQ(int(layer.positionOriginY), 3);
    EXPECT_EQ(layer.positionOffsetX, 0.f);
    EXPECT_EQ(layer.positionOffsetY, 0.f);
    EXPECT_EQ(layer.offsetUnitX, Attribute::VU_PXS);
    EXPECT_EQ(layer.offsetUnitY, Attribute::VU_PXS);
    EXPECT_EQ(int(layer.clip), 0);
    EXPECT_EQ(int(layer.origin), 1);
    EXPECT_EQ(int(layer.sizeModeX), 4);
    EXPECT_EQ(int(layer.sizeModeY), 4);
    EXPECT_EQ(layer.sizeX, 0.f);
    EXPECT_EQ(layer.sizeY, 0.f);
}

TEST(BackgroundImage, NumbersOfTheEnumerationsAreFixed) {
    EXPECT_EQ(int(BackgroundImage::BorderBox), 0);
    EXPECT_EQ(int(BackgroundImage::PaddingBox), 1);
    EXPECT_EQ(int(BackgroundImage::ContentBox), 2);
    EXPECT_EQ(int(BackgroundImage::RepeatTiles), 0);
    EXPECT_EQ(int(BackgroundImage::SpaceTiles), 1);
    EXPECT_EQ(int(BackgroundImage::RoundTiles), 2);
    EXPECT_EQ(int(BackgroundImage::NoRepeat), 3);
    EXPECT_EQ(int(BackgroundImage::Contain), 0);
    EXPECT_EQ(int(BackgroundImage::Cover), 1);
    EXPECT_EQ(int(BackgroundImage::Length), 2);
    EXPECT_EQ(int(BackgroundImage::Percentage), 3);
    EXPECT_EQ(int(BackgroundImage::Auto), 4);
}

TEST(BackgroundImage, ParsesTheWordsOfPositions) {
    const struct {
        const char* text;
        int origin;
    } rows[] = {{"left", 0}, {"center", 1}, {"right", 2}, {"top", 3},    {"bottom", 4}, {"Left", 5},  {"CENTER", 5},
                {"", 5},     {" left", 5},  {"left ", 5}, {"middle", 5}, {"10px", 5},   {"centre", 5}};
    for (const auto& row : rows)
        EXPECT_EQ(int(BackgroundImage::parsePosition(row.text)), row.origin) << '"' << row.text << '"';
    EXPECT_EQ(int(BackgroundImage::parsePosition(QString())), 5);
}

TEST(BackgroundImage, ComparesByValue) {
    const BackgroundImage layer;
    BackgroundImage other = layer;
    EXPECT_EQ(layer, other);
    other.repeatY = BackgroundImage::NoRepeat;
    EXPECT_NE(layer, other);
    other = layer;
    other.sizeY = 1.f;
    EXPECT_NE(layer, other);
    other = layer;
    other.offsetUnitX = Attribute::VU_PERCENTAGE;
    EXPECT_NE(layer, other);
}

} // namespace
} // namespace Testing
