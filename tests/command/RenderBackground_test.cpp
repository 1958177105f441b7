#include "command/RenderFixture.h"

namespace {

using Testing::RenderCase;
using Testing::RenderTest;

constexpr char red[] = "#ffff0000";
constexpr char green[] = "#ff00ff00";
constexpr char blue[] = "#ff0000ff";
constexpr char black[] = "#ff000000";
constexpr char none[] = "#00000000";

/// The image has 10 x 10 pixels: red, green, blue and transparent quarters.
class RenderBackground : public RenderTest, public testing::WithParamInterface<RenderCase> {};

TEST_P(RenderBackground, PixelsAre) {
    writeTiles();
    expectPixels(render(GetParam().scene, GetParam().sheet), GetParam().pixels);
}

RenderCase background(const char* name, const char* sheet, std::vector<Testing::Pixel> pixels) {
    return {name, "<s/>", sheet, std::move(pixels)};
}

INSTANTIATE_TEST_SUITE_P(
    Repeats, RenderBackground,
    testing::Values(
        background(
            "Repeat", "s { background: url(tiles.png), transparent }",
            {{0, 0, red}, {5, 0, green}, {0, 5, blue}, {9, 9, none}, {10, 10, red}, {99, 0, green}, {90, 95, blue}}),
        background("RepeatX", "s { background: url(tiles.png) repeat-x, transparent }",
                   {{0, 0, red}, {95, 4, green}, {90, 9, blue}, {0, 10, none}}),
        background("RepeatY", "s { background: url(tiles.png) repeat-y, transparent }",
                   {{0, 0, red}, {4, 94, red}, {5, 90, green}, {10, 0, none}}),
        background("NoRepeat", "s { background: url(tiles.png) no-repeat, transparent }",
                   {{0, 0, red}, {9, 0, green}, {10, 0, none}, {0, 10, none}}),
        background("TwoWords", "s { background: url(tiles.png) no-repeat repeat, transparent }",
                   {{0, 20, red}, {10, 20, none}}),
        background("Space", "s { width: 45px; height: 15px; background: url(tiles.png) space, transparent }",
                   {{0, 0, red},
                    {9, 0, green},
                    {10, 0, none},
                    {11, 0, none},
                    {12, 0, red},
                    {35, 0, red},
                    {44, 0, green},
                    {0, 10, none}}),
        background("SpaceWithoutRoomForTwoHasAPosition",
                   "s { width: 15px; height: 15px; background: url(tiles.png) space right bottom, transparent }",
                   {{4, 5, none}, {5, 5, red}, {14, 5, green}, {5, 4, none}}),
        background("Round", "s { width: 36px; height: 44px; background: url(tiles.png) round, transparent }",
                   {{1, 1, red}, {7, 1, green}, {10, 1, red}, {28, 1, red}, {1, 34, red}, {1, 42, blue}}),
        background("RepeatReachesIntoTheBorder",
                   "s { border: 5px solid transparent; background: url(tiles.png), transparent }",
                   {{0, 0, none}, {5, 0, blue}, {0, 5, green}, {5, 5, red}}),
        background(
            "AnEmptyOriginBoxStillPlacesTiles",
            "s { width: 0; height: 0; padding: 10; background: url(tiles.png) content-box border-box, transparent }",
            {{10, 10, red}, {15, 10, green}, {0, 0, red}, {19, 19, none}}),
        background("ManySmallTiles", "s { width: 200px; background: url(tiles.png) 0 0 / 2px 2px, transparent }",
                   {{0, 0, red}, {1, 0, green}, {0, 1, blue}, {1, 1, none}, {198, 98, red}, {199, 98, green}})),
    Testing::renderCaseName);

INSTANTIATE_TEST_SUITE_P(
    Positions, RenderBackground,
    testing::Values(
        background("Pixels", "s { background: url(tiles.png) no-repeat 20px 30px, transparent }",
                   {{19, 30, none}, {20, 30, red}, {29, 30, green}, {30, 30, none}, {20, 29, none}}),
        background("Percent", "s { background: url(tiles.png) no-repeat 50% 100%, transparent }",
                   {{44, 90, none}, {45, 90, red}, {54, 90, green}, {45, 89, none}}),
        background("Center", "s { background: url(tiles.png) no-repeat center, transparent }",
                   {{45, 45, red}, {54, 45, green}, {44, 45, none}}),
        background("RightBottom", "s { background: url(tiles.png) no-repeat right bottom, transparent }",
                   {{90, 90, red}, {99, 90, green}, {89, 90, none}}),
        background("OffsetsFromEdges", "s { background: url(tiles.png) no-repeat right 10px bottom 20px, transparent }",
                   {{80, 70, red}, {89, 70, green}, {79, 70, none}, {80, 69, none}}),
        background("PercentFromTheFarEdge", "s { background: url(tiles.png) no-repeat right 100% top, transparent }",
                   {{0, 0, red}, {10, 0, none}}),
        background("ShiftsRepeatedTiles", "s { background: url(tiles.png) 3px 0, transparent }",
                   {{2, 0, green}, {3, 0, red}, {13, 0, red}}),
        background("RefersToTheOriginBox",
                   "s { padding: 7px; border: 3px solid transparent; "
                   "background: url(tiles.png) no-repeat content-box border-box, transparent }",
                   {{9, 10, none}, {10, 10, red}}),
        background(
            "PaddingBoxIsTheDefaultOrigin",
            "s { padding: 7px; border: 3px solid transparent; background: url(tiles.png) no-repeat, transparent }",
            {{2, 3, none}, {3, 3, red}})),
    Testing::renderCaseName);

INSTANTIATE_TEST_SUITE_P(
    Sizes, RenderBackground,
    testing::Values(
        background("Length", "s { background: url(tiles.png) no-repeat 0 0 / 40px 20px, transparent }",
                   {{10, 5, red}, {30, 5, green}, {10, 15, blue}, {40, 5, none}, {10, 20, none}}),
        background("LengthAndAuto", "s { background: url(tiles.png) no-repeat 0 0 / 40px, transparent }",
                   {{10, 10, red}, {30, 10, green}, {10, 30, blue}, {10, 40, none}}),
        background("AutoAndPercent",
                   "s { background: url(tiles.png) no-repeat, transparent; background-size: auto 20% }",
                   {{4, 4, red}, {15, 4, green}, {20, 4, none}}),
        background("Contain", "s { width: 40px; background: url(tiles.png) no-repeat 0 0 / contain, transparent }",
                   {{10, 10, red}, {30, 10, green}, {10, 30, blue}, {10, 40, none}}),
        background("Cover", "s { width: 40px; background: url(tiles.png) no-repeat 0 0 / cover, transparent }",
                   {{25, 25, red}, {25, 75, blue}, {39, 25, red}}),
        background("ZeroShowsNothing", "s { background: url(tiles.png) 0 0 / 0 10px, transparent }", {{0, 0, none}}),
        background("Smaller", "s { background: url(tiles.png) no-repeat 0 0 / 2px 2px, transparent }",
                   {{0, 0, red}, {1, 0, green}, {0, 1, blue}, {2, 0, none}})),
    Testing::renderCaseName);

INSTANTIATE_TEST_SUITE_P(
    Clips, RenderBackground,
    testing::Values(background("PaddingBox",
                               "s { padding: 5px; border: 5px solid transparent; "
                               "background: url(tiles.png) padding-box, transparent }",
                               {{4, 5, none}, {5, 5, red}, {114, 5, green}, {115, 5, none}, {5, 115, none}}),
                    background("ContentBoxWithBorderBoxOrigin",
                               "s { padding: 5px; border: 5px solid transparent; "
                               "background: url(tiles.png) border-box content-box, transparent }",
                               {{9, 10, none}, {10, 10, red}, {109, 10, green}, {110, 10, none}})),
    Testing::renderCaseName);

INSTANTIATE_TEST_SUITE_P(
    Layers, RenderBackground,
    testing::Values(background("FirstIsOnTopAndColorAtTheBottom",
                               "s { background: url(tiles.png) no-repeat, url(tiles.png) no-repeat 5px 5px, black }",
                               {{0, 0, red}, {5, 5, red}, {9, 5, red}, {10, 5, green}, {5, 10, blue}, {0, 50, black}}),
                    background("MissingImageLeavesTheOthers", "s { background: none, url(tiles.png) no-repeat, black }",
                               {{0, 0, red}, {50, 0, black}})),
    Testing::renderCaseName);

} // namespace
