#include "command/RenderFixture.h"

namespace {

using Testing::RenderCase;
using Testing::RenderTest;

constexpr char red[] = "#ffff0000";
constexpr char green[] = "#ff008000";
constexpr char blue[] = "#ff0000ff";
constexpr char black[] = "#ff000000";
constexpr char white[] = "#ffffffff";
constexpr char none[] = "#00000000";

class RenderBoxes : public RenderTest, public testing::WithParamInterface<RenderCase> {};

TEST_P(RenderBoxes, PixelsAre) {
    expectPixels(render(GetParam().scene, GetParam().sheet), GetParam().pixels);
}

INSTANTIATE_TEST_SUITE_P(
    Locations, RenderBoxes,
    testing::Values(
        RenderCase{"ChildLiesInTheContentBoxOfItsParent",
                   "<s><a/></s>",
                   "s { border: 2px solid black; padding: 3px } a { x: 10; y: 20; width: 4px; height: 5px; "
                   "background: red }",
                   {{14, 25, none}, {15, 25, red}, {18, 29, red}, {19, 29, none}, {15, 24, none}, {15, 30, none}}},
        RenderCase{"OwnPaddingAndBorderOfAChildGrowOutwards",
                   "<s><a/></s>",
                   "a { x: 10; y: 10; width: 4px; height: 4px; padding: 1px; border: 2px solid blue; background: red }",
                   {{6, 10, none}, {7, 10, blue}, {8, 10, blue}, {9, 10, red}, {14, 10, red}, {15, 10, blue}}},
        RenderCase{"LocationsAddUp",
                   "<s><a><b/></a></s>",
                   "a { x: 10; y: 10; padding: 7px } b { x: 5; y: 6; width: 1px; height: 1px; background: red }",
                   {{15, 16, red}, {14, 16, none}, {16, 16, none}}},
        RenderCase{"LocationOfTheRootDoesNotCount",
                   "<s/>",
                   "s { x: 50; y: 50; width: 10px; height: 10px; background: red }",
                   {{0, 0, red}, {9, 9, red}}},
        RenderCase{"MarginOfTheRootIsShown",
                   "<s/>",
                   "s { margin: 3px; width: 4px; height: 4px; background: red }",
                   {{2, 3, none}, {3, 3, red}, {6, 6, red}, {7, 7, none}, {9, 9, none}}},
        RenderCase{"LaterNodesCoverEarlierOnes",
                   "<s><a><b/></a><c/></s>",
                   "a { background: red; z-index: 9 } b { width: 20px; height: 20px; background: blue } "
                   "c { width: 10px; height: 10px; background: green }",
                   {{5, 5, green}, {15, 15, blue}, {25, 25, red}}},
        RenderCase{"ChildrenMayStandOutOfTheirParent",
                   "<s><a><b/></a></s>",
                   "a { width: 10px; height: 10px } b { x: 30; background: red; width: 10px; height: 10px }",
                   {{29, 0, none}, {30, 0, red}, {39, 9, red}}}),
    Testing::renderCaseName);

INSTANTIATE_TEST_SUITE_P(
    Borders, RenderBoxes,
    testing::Values(
        RenderCase{"OneColor",
                   "<s/>",
                   "s { width: 10px; height: 10px; border: 3px solid red }",
                   {{0, 0, red}, {2, 2, red}, {3, 3, none}, {12, 12, none}, {13, 12, red}, {15, 15, red}, {2, 8, red}}},
        RenderCase{"OneColorOfFourWidths",
                   "<s/>",
                   "s { width: 10px; height: 10px; border: 1px solid red; border-width: 1px 2px 3px 4px }",
                   {{8, 0, red},
                    {8, 1, none},
                    {3, 5, red},
                    {4, 5, none},
                    {13, 5, none},
                    {14, 5, red},
                    {15, 5, red},
                    {8, 10, none},
                    {8, 11, red},
                    {8, 13, red}}},
        RenderCase{"CornersAreMitredWhereColorsDiffer",
                   "<s/>",
                   "s { width: 20px; height: 20px; border: 10px solid; border-color: red green blue black }",
                   {{20, 5, red},
                    {35, 20, green},
                    {20, 35, blue},
                    {5, 20, black},
                    {8, 2, red},
                    {2, 8, black},
                    {31, 2, red},
                    {37, 8, green},
                    {37, 31, green},
                    {31, 37, blue},
                    {8, 37, blue},
                    {2, 31, black},
                    {20, 20, none}}},
        RenderCase{"MitreRunsFromTheOuterToTheInnerCorner",
                   "<s/>",
                   "s { width: 20px; height: 20px; border-top: 10px solid red; border-left: 20px solid blue }",
                   {{17, 3, red}, {17, 5, red}, {13, 8, blue}, {3, 0, red}, {3, 4, blue}, {30, 5, red}, {39, 0, red}}},
        RenderCase{"TranslucentSidesDoNotOverlap",
                   "<s/>",
                   "s { width: 20px; height: 20px; border: 10px solid; border-color: rgba(255, 0, 0, 0.2) "
                   "rgba(0, 0, 255, 0.2) rgba(255, 0, 0, 0.2) rgba(0, 0, 255, 0.2) }",
                   {{5, 4, "#33ff0000"}, {4, 6, "#330000ff"}, {34, 4, "#33ff0000"}, {36, 4, "#330000ff"}}},
        RenderCase{"StyleNoneTakesNoRoom",
                   "<s/>",
                   "s { width: 10px; height: 10px; border-left: 5px none red; border-top: 2px solid red }",
                   {{0, 0, red}, {9, 1, red}, {0, 2, none}}},
        RenderCase{"TransparentBorderTakesRoomAndShowsTheBackground",
                   "<s/>",
                   "s { width: 10px; height: 10px; border: 2px solid transparent; background: red }",
                   {{0, 0, red}, {13, 13, red}}},
        RenderCase{"BorderCoversTheBackground",
                   "<s/>",
                   "s { width: 10px; height: 10px; border: 2px solid blue; background: red }",
                   {{1, 1, blue}, {2, 2, red}}}),
    Testing::renderCaseName);

INSTANTIATE_TEST_SUITE_P(
    ColorClips, RenderBoxes,
    testing::Values(
        RenderCase{"BorderBox",
                   "<s/>",
                   "s { width: 10px; height: 10px; padding: 2px; border: 3px solid transparent; background: red; "
                   "background-clip: border-box }",
                   {{0, 0, red}, {19, 19, red}}},
        RenderCase{"PaddingBox",
                   "<s/>",
                   "s { width: 10px; height: 10px; padding: 2px; border: 3px solid transparent; "
                   "background: padding-box red }",
                   {{2, 2, none}, {3, 3, red}, {16, 16, red}, {17, 17, none}}},
        RenderCase{"ContentBox",
                   "<s/>",
                   "s { width: 10px; height: 10px; padding: 2px; border: 3px solid transparent; "
                   "background: content-box red }",
                   {{4, 4, none}, {5, 5, red}, {14, 14, red}, {15, 15, none}}},
        RenderCase{"ShorthandWithoutAColorIsWhite", "<s/>", "s { background: none }", {{4, 99, white}}}),
    Testing::renderCaseName);

INSTANTIATE_TEST_SUITE_P(
    Opacity, RenderBoxes,
    testing::Values(RenderCase{"ReachesTheNodeAndItsChildrenAsOne",
                               "<s><a><b/></a></s>",
                               "a { width: 10px; height: 10px; background: red; opacity: 0.2 } "
                               "b { x: 5; width: 10px; height: 10px; background: blue }",
                               {{2, 2, "#33ff0000"}, {7, 2, "#330000ff"}, {12, 2, "#330000ff"}, {15, 2, none}}},
                    RenderCase{"Multiplies",
                               "<s><a><b/></a></s>",
                               "s { opacity: 0.2 } b { width: 10px; height: 10px; background: red; opacity: 0 } "
                               "a { width: 10px; height: 10px; background: blue; opacity: 1 }",
                               {{2, 2, "#330000ff"}}},
                    RenderCase{"EndsWithTheNode",
                               "<s><a><b/></a><c/></s>",
                               "a { width: 10px; height: 10px; background: red; opacity: 0.2 } b { opacity: 0.4 } "
                               "c { x: 20; width: 10px; height: 10px; background: blue }",
                               {{2, 2, "#33ff0000"}, {22, 2, blue}}},
                    RenderCase{"ZeroShowsNothing",
                               "<s><a><b/></a><c/></s>",
                               "a { background: red; opacity: 0 } b { background: blue } "
                               "c { width: 5px; height: 5px; background: green }",
                               {{2, 2, green}, {7, 7, none}}},
                    RenderCase{"IsLimited", "<s/>", "s { background: red; opacity: 7 }", {{2, 2, red}}}),
    Testing::renderCaseName);

INSTANTIATE_TEST_SUITE_P(
    Visibility, RenderBoxes,
    testing::Values(
        RenderCase{"HiddenNodesPaintNothingAndTheirChildrenDo",
                   "<s><a><b/></a></s>",
                   "a { width: 20px; height: 20px; background: red; border: 1px solid red; visibility: hidden } "
                   "b { width: 10px; height: 10px; background: blue }",
                   {{15, 15, none}, {20, 20, none}, {5, 5, blue}}},
        RenderCase{"CollapsedNodesToo", "<s/>", "s { background: red; visibility: collapse }", {{5, 5, none}}},
        RenderCase{"VisibleIsTheDefault", "<s/>", "s { background: red; visibility: visible }", {{5, 5, red}}},
        RenderCase{"HiddenGroupsStillFade",
                   "<s><a><b/></a></s>",
                   "a { visibility: hidden; opacity: 0.2; background: red } b { width: 4px; background: blue }",
                   {{2, 2, "#330000ff"}, {5, 5, none}}}),
    Testing::renderCaseName);

} // namespace
