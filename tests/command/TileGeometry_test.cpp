#include "brisko/TileGeometry.h"

#include <gtest/gtest.h>

#include <limits>

namespace {

using Brisko::BackgroundImage;
using Command::layOutTiles;
using Command::TileAxis;
using Command::TileGrid;
using Ondex::Attribute;

const QRectF area(10, 20, 100, 50);
const QSizeF image(30, 10);

void expectAxis(const TileAxis& axis, double first, double size, double step, bool repeats) {
    EXPECT_DOUBLE_EQ(axis.first, first);
    EXPECT_DOUBLE_EQ(axis.size, size);
    EXPECT_DOUBLE_EQ(axis.step, step);
    EXPECT_EQ(axis.repeats, repeats);
}

TEST(TileGeometry, DefaultRepeatsTheImageFromTheCorner) {
    const TileGrid grid = layOutTiles(BackgroundImage(), image, area);
    expectAxis(grid.x, 10, 30, 30, true);
    expectAxis(grid.y, 20, 10, 10, true);
    EXPECT_TRUE(grid.isValid());
}

TEST(TileGeometry, SpaceSharesWhatIsLeftBetweenCopiesAndIgnoresThePosition) {
    BackgroundImage layer;
    layer.repeatX = BackgroundImage::SpaceTiles;
    layer.repeatY = BackgroundImage::SpaceTiles;
    layer.positionOffsetX = 7;
    const TileGrid grid = layOutTiles(layer, image, area);
    expectAxis(grid.x, 10, 30, 35, true);
    expectAxis(grid.y, 20, 10, 10, true);
}

TEST(TileGeometry, SpaceWithRoomForOneOnlyPlacesIt) {
    BackgroundImage layer;
    layer.repeatX = BackgroundImage::SpaceTiles;
    layer.positionOffsetX = 7;
    expectAxis(layOutTiles(layer, QSizeF(60, 10), area).x, 17, 60, 60, false);
}

TEST(TileGeometry, RoundFitsWholeCopies) {
    BackgroundImage layer;
    layer.repeatX = BackgroundImage::RoundTiles;
    layer.repeatY = BackgroundImage::RoundTiles;
    const TileGrid grid = layOutTiles(layer, QSizeF(40, 14), area);
    expectAxis(grid.x, 10, 100.0 / 3, 100.0 / 3, true); // 2.5 rounds up
    expectAxis(grid.y, 20, 12.5, 12.5, true);
}

TEST(TileGeometry, RoundOfAnImageLargerThanTheAreaFitsOne) {
    BackgroundImage layer;
    layer.repeatX = BackgroundImage::RoundTiles;
    expectAxis(layOutTiles(layer, QSizeF(300, 10), area).x, 10, 100, 100, true);
}

TEST(TileGeometry, RoundOfOneAxisKeepsTheRatioOfAnAutomaticOther) {
    BackgroundImage layer;
    layer.repeatX = BackgroundImage::RoundTiles;
    EXPECT_EQ(layOutTiles(layer, QSizeF(40, 20), QRectF(0, 0, 100, 100)).size(), QSizeF(100.0 / 3, 50.0 / 3));
    layer.sizeModeX = BackgroundImage::Length;
    layer.sizeX = 40;
    layer.sizeModeY = BackgroundImage::Length;
    layer.sizeY = 20;
    EXPECT_EQ(layOutTiles(layer, QSizeF(40, 20), QRectF(0, 0, 100, 100)).size(), QSizeF(100.0 / 3, 20));
}

struct SizeCase {
    const char* name;
    BackgroundImage::SizeMode modeX, modeY;
    float x, y;
    QSizeF size;
};

class TileSizes : public testing::TestWithParam<SizeCase> {};

TEST_P(TileSizes, SizeIs) {
    BackgroundImage layer;
    layer.sizeModeX = GetParam().modeX;
    layer.sizeModeY = GetParam().modeY;
    layer.sizeX = GetParam().x;
    layer.sizeY = GetParam().y;
    EXPECT_EQ(layOutTiles(layer, image, area).size(), GetParam().size);
}

constexpr auto Contain = BackgroundImage::Contain;
constexpr auto Cover = BackgroundImage::Cover;
constexpr auto Length = BackgroundImage::Length;
constexpr auto Percentage = BackgroundImage::Percentage;
constexpr auto Auto = BackgroundImage::Auto;

INSTANTIATE_TEST_SUITE_P(Modes, TileSizes,
                         testing::Values(SizeCase{"Contain", Contain, Contain, 0, 0, {100, 100.0 / 3}},
                                         SizeCase{"Cover", Cover, Cover, 0, 0, {150, 50}},
                                         SizeCase{"Auto", Auto, Auto, 0, 0, {30, 10}},
                                         SizeCase{"Lengths", Length, Length, 7, 8, {7, 8}},
                                         SizeCase{"LengthAndAuto", Length, Auto, 60, 0, {60, 20}},
                                         SizeCase{"AutoAndLength", Auto, Length, 0, 5, {15, 5}},
                                         SizeCase{"Percentages", Percentage, Percentage, 0.5f, 0.25f, {50, 12.5}},
                                         SizeCase{"AutoAndPercentage", Auto, Percentage, 0, 0.5f, {75, 25}}),
                         [](const auto& row) { return std::string(row.param.name); });

struct PositionCase {
    const char* name;
    BackgroundImage::PositionOrigin edge;
    float offset;
    Attribute::ValueUnit unit;
    double first;
};

class TilePositions : public testing::TestWithParam<PositionCase> {};

TEST_P(TilePositions, FirstCopyIsAt) {
    BackgroundImage layer;
    layer.repeatX = BackgroundImage::NoRepeat;
    layer.positionOriginX = GetParam().edge;
    layer.positionOffsetX = GetParam().offset;
    layer.offsetUnitX = GetParam().unit;
    expectAxis(layOutTiles(layer, image, area).x, GetParam().first, 30, 30, false);
}

INSTANTIATE_TEST_SUITE_P(
    Edges, TilePositions,
    testing::Values(PositionCase{"LeftPixels", BackgroundImage::Left, 5, Attribute::VU_PXS, 15},
                    PositionCase{"LeftPercent", BackgroundImage::Left, 0.5f, Attribute::VU_PERCENTAGE, 45},
                    PositionCase{"PlainNumber", BackgroundImage::Left, 5, Attribute::VU_UNKNOWN, 15},
                    PositionCase{"RightPixels", BackgroundImage::Right, 5, Attribute::VU_PXS, 75},
                    PositionCase{"RightPercent", BackgroundImage::Right, 1, Attribute::VU_PERCENTAGE, 10},
                    PositionCase{"Outside", BackgroundImage::Left, -40, Attribute::VU_PXS, -30}),
    [](const auto& row) { return std::string(row.param.name); });

TEST(TileGeometry, BottomIsMeasuredFromTheLowerEdge) {
    BackgroundImage layer;
    layer.positionOriginY = BackgroundImage::Bottom;
    layer.positionOffsetY = 5;
    EXPECT_DOUBLE_EQ(layOutTiles(layer, image, area).y.first, 55);
}

TEST(TileGeometry, NothingToPaintIsNotValid) {
    BackgroundImage layer;
    EXPECT_FALSE(layOutTiles(layer, QSizeF(0, 10), area).isValid());
    layer.sizeModeX = BackgroundImage::Length;
    EXPECT_FALSE(layOutTiles(layer, image, area).isValid());
    layer.sizeX = -5;
    EXPECT_FALSE(layOutTiles(layer, image, area).isValid());
    layer.sizeX = std::numeric_limits<float>::infinity();
    EXPECT_FALSE(layOutTiles(layer, image, area).isValid());
    layer.sizeX = std::numeric_limits<float>::quiet_NaN();
    EXPECT_FALSE(layOutTiles(layer, image, area).isValid());
}

TEST(TileGeometry, CoveredIsTheAreaExceptWhereNothingRepeats) {
    BackgroundImage layer;
    EXPECT_EQ(layOutTiles(layer, image, area).covered(QRectF(0, 0, 500, 500)), QRectF(0, 0, 500, 500));
    layer.repeatY = BackgroundImage::NoRepeat;
    EXPECT_EQ(layOutTiles(layer, image, area).covered(QRectF(0, 0, 500, 500)), QRectF(0, 20, 500, 10));
    EXPECT_TRUE(layOutTiles(layer, image, area).covered(QRectF(0, 40, 500, 500)).isEmpty());
}

} // namespace
