#include "Brisko/BackgroundImage.h"

#include "Hexley/Mipmap.h"

#include <gtest/gtest.h>

namespace Testing {
namespace {

using Brisko::BackgroundImage;
using Ondex::Attribute;

/// A black pixel (PNG).
const QString onePixel =
    QStringLiteral("data:image/png;base64,"
                   "iVBORw0KGgoAAAANSUhEUgAAAAEAAAABCAAAAAA6fptVAAAACklEQVR4nGNgAAAAAgABSK+kcQAAAABJ"
                   "RU5ErkJggg==");

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

TEST(BackgroundImage, EveryFieldIsCompared) {
    using Change = void (*)(BackgroundImage & layer);
    const Change changes[] = {
        [](BackgroundImage& layer) { layer.image = Hexley::Mipmap::acquire(onePixel, false); },
        [](BackgroundImage& layer) { layer.repeatX = BackgroundImage::NoRepeat; },
        [](BackgroundImage& layer) { layer.repeatY = BackgroundImage::NoRepeat; },
        [](BackgroundImage& layer) { layer.positionOriginX = BackgroundImage::Right; },
        [](BackgroundImage& layer) { layer.positionOriginY = BackgroundImage::Bottom; },
        [](BackgroundImage& layer) { layer.positionOffsetX = 1.f; },
        [](BackgroundImage& layer) { layer.positionOffsetY = 1.f; },
        [](BackgroundImage& layer) { layer.offsetUnitX = Attribute::VU_PERCENTAGE; },
        [](BackgroundImage& layer) { layer.offsetUnitY = Attribute::VU_PERCENTAGE; },
        [](BackgroundImage& layer) { layer.clip = BackgroundImage::ContentBox; },
        [](BackgroundImage& layer) { layer.origin = BackgroundImage::ContentBox; },
        [](BackgroundImage& layer) { layer.sizeModeX = BackgroundImage::Cover; },
        [](BackgroundImage& layer) { layer.sizeModeY = BackgroundImage::Cover; },
        [](BackgroundImage& layer) { layer.sizeX = 1.f; },
        [](BackgroundImage& layer) { layer.sizeY = 1.f; },
    };
    const BackgroundImage layer;
    EXPECT_EQ(layer, BackgroundImage(layer));
    int number = 0;
    for (const Change change : changes) {
        BackgroundImage other = layer;
        change(other);
        EXPECT_NE(layer, other) << "change " << number++;
    }
}

} // namespace
} // namespace Testing
