#include "attributes/BackgroundFixture.h"

namespace Testing {
namespace {

using Brisko::AttributeBackground;
using Brisko::CSSParser;

const char* const badPosition = "warning: CSSBoxModel::reloadBackground # Unsupported value for background-position";

/// A position, where it lies, and whether it is reported.
struct PositionCase {
    const char* value;
    const char* position;
};

/// Compares every row; the second layer has to copy the first.
void expectPositions(const PositionCase* rows, std::size_t count, const Texts& messages) {
    for (std::size_t i = 0; i < count; ++i) {
        const PositionCase& row = rows[i];
        TraceGuard trace;
        Ondex::Node node(nullptr, "node");
        AttributeBackground background(&node, "background");
        background.setImages({"none", "none"});
        background.setPosition(CSSParser::parseValue(row.value));
        ASSERT_EQ(background.bgImages().size(), 2u);
        EXPECT_EQ(dumpPosition(background.bgImages()[0]), row.position) << row.value;
        EXPECT_EQ(dumpPosition(background.bgImages()[1]), row.position) << row.value;
        EXPECT_EQ(trace.takeAll(), messages) << row.value;
    }
}

template <std::size_t count>
void expectPositions(const PositionCase (&rows)[count]) {
    expectPositions(rows, count, {});
}

template <std::size_t count>
void expectUnsupported(const char* const (&values)[count]) {
    for (const char* value : values) {
        const PositionCase row = {value, "left 0px, top 0px"};
        expectPositions(&row, 1, {badPosition});
    }
}

TEST(BackgroundPosition, OneComponent) {
    expectPositions({
        {"left", "left 0px, top 50%"},
        {"center", "left 50%, top 50%"},
        {"right", "right 0px, top 50%"},
        {"top", "left 50%, top 0px"},
        {"bottom", "left 50%, bottom 0px"},
        {"10px", "left 10px, top 50%"},
        {"25%", "left 25%, top 50%"},
        {"2em", "left 2em, top 50%"},
        {"-10px", "left -10px, top 50%"},
        {"7", "left 7.0, top 50%"},
        {"0", "left 0.0, top 50%"},
        {"fancy", "left 0.0, top 50%"},
        {"LEFT", "left 0.0, top 50%"},
    });
}

TEST(BackgroundPosition, TwoComponents) {
    expectPositions({
        {"left left", "left 0px, left 0px"},
        {"left center", "left 0px, top 50%"},
        {"left right", "left 0px, right 0px"},
        {"left top", "left 0px, top 0px"},
        {"left bottom", "left 0px, bottom 0px"},
        {"left 10px", "left 0px, top 10px"},
        {"center left", "left 0px, top 50%"},
        {"center center", "left 50%, top 50%"},
        {"center right", "right 0px, top 50%"},
        {"center top", "left 50%, top 0px"},
        {"center bottom", "left 50%, bottom 0px"},
        {"center 10px", "left 50%, top 10px"},
        {"right left", "right 0px, left 0px"},
        {"right center", "right 0px, top 50%"},
        {"right right", "right 0px, right 0px"},
        {"right top", "right 0px, top 0px"},
        {"right bottom", "right 0px, bottom 0px"},
        {"right 10px", "right 0px, top 10px"},
        {"top left", "left 0px, top 0px"},
        {"top center", "left 50%, top 0px"},
        {"top right", "right 0px, top 0px"},
        {"top top", "top 0px, top 0px"},
        {"top bottom", "top 0px, bottom 0px"},
        {"top 10px", "top 0px, top 10px"},
        {"bottom left", "left 0px, bottom 0px"},
        {"bottom center", "left 50%, bottom 0px"},
        {"bottom right", "right 0px, bottom 0px"},
        {"bottom top", "bottom 0px, top 0px"},
        {"bottom bottom", "bottom 0px, bottom 0px"},
        {"bottom 10px", "bottom 0px, top 10px"},
        {"10px left", "left 10px, left 0px"},
        {"10px center", "left 10px, top 50%"},
        {"10px right", "left 10px, right 0px"},
        {"10px top", "left 10px, top 0px"},
        {"10px bottom", "left 10px, bottom 0px"},
        {"10px 20px", "left 10px, top 20px"},
        {"25% 75%", "left 25%, top 75%"},
        {"10px 50%", "left 10px, top 50%"},
        {"1 2", "left 1.0, top 2.0"},
    });
}

TEST(BackgroundPosition, TwoWordsAndAnOffset) {
    expectPositions({
        {"left left 20px", "left 0px, left 20px"},
        {"left center 20px", "left 0px, top 50%"},
        {"left right 20px", "left 0px, right 20px"},
        {"left top 20px", "left 0px, top 20px"},
        {"left bottom 20px", "left 0px, bottom 20px"},
        {"center left 20px", "left 20px, top 50%"},
        {"center center 20px", "left 50%, top 50%"},
        {"center right 20px", "right 20px, top 50%"},
        {"center top 20px", "left 50%, top 20px"},
        {"center bottom 20px", "left 50%, bottom 20px"},
        {"right left 20px", "right 0px, left 20px"},
        {"right center 20px", "right 0px, top 50%"},
        {"right right 20px", "right 0px, right 20px"},
        {"right top 20px", "right 0px, top 20px"},
        {"right bottom 20px", "right 0px, bottom 20px"},
        {"top left 20px", "left 20px, top 0px"},
        {"top center 20px", "left 50%, top 0px"},
        {"top right 20px", "right 20px, top 0px"},
        {"top top 20px", "top 0px, top 20px"},
        {"top bottom 20px", "top 0px, bottom 20px"},
        {"bottom left 20px", "left 20px, bottom 0px"},
        {"bottom center 20px", "left 50%, bottom 0px"},
        {"bottom right 20px", "right 20px, bottom 0px"},
        {"bottom top 20px", "bottom 0px, top 20px"},
        {"bottom bottom 20px", "bottom 0px, bottom 20px"},
        {"right bottom 25%", "right 0px, bottom 25%"},
        {"right bottom 5", "right 0px, bottom 5.0"},
        {"right bottom fancy", "right 0px, bottom 0.0"},
    });
}

TEST(BackgroundPosition, WordOffsetAndWord) {
    expectPositions({
        {"left 10px left", "left 10px, left 0px"},       {"left 10px center", "left 10px, top 50%"},
        {"left 10px right", "left 10px, right 0px"},     {"left 10px top", "left 10px, top 0px"},
        {"left 10px bottom", "left 10px, bottom 0px"},   {"right 10px left", "right 10px, left 0px"},
        {"right 10px center", "right 10px, top 50%"},    {"right 10px right", "right 10px, right 0px"},
        {"right 10px top", "right 10px, top 0px"},       {"right 10px bottom", "right 10px, bottom 0px"},
        {"top 10px left", "left 0px, top 10px"},         {"top 10px center", "left 50%, top 10px"},
        {"top 10px right", "right 0px, top 10px"},       {"top 10px top", "top 10px, top 0px"},
        {"top 10px bottom", "top 10px, bottom 0px"},     {"bottom 10px left", "left 0px, bottom 10px"},
        {"bottom 10px center", "left 50%, bottom 10px"}, {"bottom 10px right", "right 0px, bottom 10px"},
        {"bottom 10px top", "bottom 10px, top 0px"},     {"bottom 10px bottom", "bottom 10px, bottom 0px"},
        {"right 25% bottom", "right 25%, bottom 0px"},
    });
}

TEST(BackgroundPosition, TwoWordsWithAnOffsetEach) {
    expectPositions({
        {"left 10px left 20px", "left 10px, left 20px"},
        {"left 10px right 20px", "left 10px, right 20px"},
        {"left 10px top 20px", "left 10px, top 20px"},
        {"left 10px bottom 20px", "left 10px, bottom 20px"},
        {"right 10px left 20px", "right 10px, left 20px"},
        {"right 10px right 20px", "right 10px, right 20px"},
        {"right 10px top 20px", "right 10px, top 20px"},
        {"right 10px bottom 20px", "right 10px, bottom 20px"},
        {"top 10px left 20px", "left 20px, top 10px"},
        {"top 10px right 20px", "right 20px, top 10px"},
        {"top 10px top 20px", "top 10px, top 20px"},
        {"top 10px bottom 20px", "top 10px, bottom 20px"},
        {"bottom 10px left 20px", "left 20px, bottom 10px"},
        {"bottom 10px right 20px", "right 20px, bottom 10px"},
        {"bottom 10px top 20px", "bottom 10px, top 20px"},
        {"bottom 10px bottom 20px", "bottom 10px, bottom 20px"},
        {"right 25% bottom 75%", "right 25%, bottom 75%"},
        {"bottom 25% right 10px", "right 10px, bottom 25%"},
    });
}

TEST(BackgroundPosition, OtherFormsOfThreeAreReported) {
    expectUnsupported({"10px 20px 30px", "10px 20px left", "10px left 20px", "10px left top", "left 10px 20px",
                       "left top right", "center center center", "center 10px left", "center 10px center",
                       "center 10px right", "center 10px top", "center 10px bottom"});
}

TEST(BackgroundPosition, OtherFormsOfFourAndMoreAreReported) {
    expectUnsupported({"10px 20px 30px 40px", "left top right bottom", "left top 10px 20px", "10px left 20px top",
                       "10px 20px left top", "left 10px 20px top", "10px left top 20px", "left 10px top bottom",
                       "left top 10px right", "left 10px 20px 30px", "center 10px top 20px", "left 10px center 20px",
                       "center 10px center 20px", "left 10px top 20px 30px", "left 10px top 20px right"});
}

TEST(BackgroundPosition, TextIsAWordToo) {
    expectPositions({{"\"right\" 10px", "right 0px, top 10px"}});
}

TEST(BackgroundPosition, ColorIsAnOffsetOfZero) {
    expectPositions({{"#123 top", "left 0.0, top 0px"}});
}

TEST(BackgroundPosition, CenterIsTheFractionOneHalf) {
    Ondex::Node node(nullptr, "node");
    AttributeBackground background(&node, "background");
    background.setImages({"none", "none"});
    background.setPosition(CSSParser::parseValue("center"));
    const Brisko::BackgroundImage& layer = background.bgImages()[0];
    EXPECT_EQ(int(layer.positionOriginX), 0);
    EXPECT_EQ(int(layer.positionOriginY), 3);
    EXPECT_EQ(layer.positionOffsetX, 0.5f);
    EXPECT_EQ(layer.positionOffsetY, 0.5f);
    EXPECT_EQ(int(layer.offsetUnitX), 2);
    EXPECT_EQ(int(layer.offsetUnitY), 2);
}

TEST(BackgroundPosition, ListsRepeatAndEmptyOnesLeaveTheDefault) {
    TraceGuard trace;
    Ondex::Node node(nullptr, "node");
    AttributeBackground background(&node, "background");
    background.setImages({"none", "none", "none", "none", "none"});
    EXPECT_EQ(dumpPosition(background.bgImages()[4]), "left 0px, top 0px");
    background.setPosition(CSSParser::parseValue("right 10px bottom 20px, center, 1px 2px"));
    const char* const positions[] = {"right 10px, bottom 20px", "left 50%, top 50%", "left 1px, top 2px",
                                     "right 10px, bottom 20px", "left 50%, top 50%"};
    for (std::size_t i = 0; i < 5; ++i)
        EXPECT_EQ(dumpPosition(background.bgImages()[i]), positions[i]) << i;
}

TEST(BackgroundPosition, BadItemIsReportedOnceThoughLayersCopyIt) {
    TraceGuard trace;
    Ondex::Node node(nullptr, "node");
    AttributeBackground background(&node, "background");
    background.setImages({"none", "none", "none"});
    background.setPosition(CSSParser::parseValue("1px 2px 3px"));
    EXPECT_EQ(trace.takeAll(), (Texts{badPosition}));
}

} // namespace
} // namespace Testing
