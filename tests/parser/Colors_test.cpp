#include "Brisko/CSSParser.h"

#include "support/SheetDump.h"
#include "support/TraceGuard.h"

#include <gtest/gtest.h>

#include <QColor>

#include <ostream>

namespace Testing {

namespace {

using Brisko::CSSParser;
using Strings = std::vector<std::string>;

/// A value, its components, and the messages on the way, each with its level.
struct ColorCase {
    const char* name;
    QByteArray text;
    std::string value;
    Strings messages;
};

void PrintTo(const ColorCase& row, std::ostream* out) {
    *out << row.name;
}

std::string nameOfColorRow(const testing::TestParamInfo<ColorCase>& info) {
    return info.param.name;
}

class ColorValue : public testing::TestWithParam<ColorCase> {};

TEST_P(ColorValue, Components) {
    const ColorCase& row = GetParam();
    TraceGuard trace;
    EXPECT_EQ(dumpValue(CSSParser::parseValue(row.text)), row.value) << row.text.constData();
    EXPECT_EQ(trace.takeAll(), row.messages) << row.text.constData();
}

const ColorCase hexRows[] = {
    {"ThreeDigits", "#f00", "rgba_pma(1 0 0 1)", {}},
    {"ThreeDigitsAreDoubled", "#48c", "rgba_pma(0.2667 0.5333 0.8 1)", {}},
    {"ThreeDigitsUpperCase", "#48C", "rgba_pma(0.2667 0.5333 0.8 1)", {}},
    {"FourDigitsHaveAlpha", "#f008", "rgba_pma(0.5333 0 0 0.5333)", {}},
    {"FourDigitsTransparent", "#fff0", "rgba_pma(0 0 0 0)", {}},
    {"SixDigits", "#4080ff", "rgba_pma(0.251 0.502 1 1)", {}},
    {"SixDigitsUpperCase", "#4080FF", "rgba_pma(0.251 0.502 1 1)", {}},
    {"EightDigitsHaveAlpha", "#ff000080", "rgba_pma(0.502 0 0 0.502)", {}},
    {"EightDigitsTransparent", "#12345600", "rgba_pma(0 0 0 0)", {}},
    {"EightDigitsOpaque", "#0000ffff", "rgba_pma(0 0 1 1)", {}},
    {"OneDigitIsOpaqueBlack", "#f", "rgba_pma(0 0 0 1)", {}},
    {"TwoDigitsAreOpaqueBlack", "#ff", "rgba_pma(0 0 0 1)", {}},
    {"FiveDigitsAreOpaqueBlack", "#12345", "rgba_pma(0 0 0 1)", {}},
    {"SevenDigitsAreOpaqueBlack", "#1234567", "rgba_pma(0 0 0 1)", {}},
    {"NineDigitsAreOpaqueBlack", "#123456789", "rgba_pma(0 0 0 1)", {}},
    {"OtherCharactersStopTheReading", "#xyz", "rgba_pma(0 0 0 1)", {}},
    {"RedIsReadBeforeTheStop", "#fx0", "rgba_pma(1 0 0 1)", {}},
    {"GreenIsReadBeforeTheStop", "#ffx", "rgba_pma(1 1 0 1)", {}},
    {"AlphaNotReadOfFourStaysOpaque", "#f00g", "rgba_pma(1 0 0 1)", {}},
    {"BlueNotReadOfFourStaysBlack", "#ffgf", "rgba_pma(1 1 0 1)", {}},
    {"SixStopAtAFieldsStart", "#ffxx00", "rgba_pma(1 0 0 1)", {}},
    {"SixStopInsideAFieldKeepsItsFirstDigit", "#00fx00", "rgba_pma(0 0.05882 0 1)", {}},
    {"AlphaNotReadOfEightStaysOpaque", "#ff0000x0", "rgba_pma(1 0 0 1)", {}},
    {"AlphaHalfReadOfEight", "#ff00008x", "rgba_pma(0.03137 0 0 0.03137)", {}},
    {"SignIsNoDigit", "#-ff", "rgba_pma(0 0 0 1)", {}},
    {"PrefixOfHexNumbersIsNoDigit", "#0x10ff", "rgba_pma(0 0 0 1)", {}},
    {"BehindOtherTerms", "1px solid #f00", "1px solid rgba_pma(1 0 0 1)", {}},
};
INSTANTIATE_TEST_SUITE_P(Hex, ColorValue, testing::ValuesIn(hexRows), nameOfColorRow);

const ColorCase rgbRows[] = {
    {"Rgb", "rgb(255, 128, 0)", "rgba_pma(1 0.502 0 1)", {}},
    {"RgbPercentages", "rgb(100%, 50%, 0%)", "rgba_pma(1 0.5 0 1)", {}},
    {"RgbFirstPercentageTakesAllAsTheyAre", "rgb(50%, 255, 0)", "rgba_pma(0.5 255 0 1)", {}},
    {"RgbLaterPercentageIsDivided", "rgb(255, 51%, 0)", "rgba_pma(1 0.002 0 1)", {}},
    {"RgbIsNotClamped", "rgb(510, -255, 0)", "rgba_pma(2 -1 0 1)", {}},
    {"RgbReals", "rgb(127.5, 0.0, 255.0)", "rgba_pma(0.5 0 1 1)", {}},
    {"RgbOtherUnitsAreNumbers", "rgb(255px, 255em, 0ex)", "rgba_pma(1 1 0 1)", {}},
    {"RgbSeparatorsDoNotMatter", "rgb(255 0 / 255)", "rgba_pma(1 0 1 1)", {}},
    {"RgbUpperCase", "RGB(255, 0, 0)", "rgba_pma(1 0 0 1)", {}},
    {"RgbBlanksInside", "rgb( 255 , 0 , 0 )", "rgba_pma(1 0 0 1)", {}},
    {"RgbWordsAreZero", "rgb(a, 255, 'b')", "rgba_pma(0 1 0 1)", {}},
    {"RgbCalculationsAreZero", "rgb(calc(255), 255, 0)", "rgba_pma(0 1 0 1)", {}},
    {"Rgba", "rgba(255, 0, 0, 0.5)", "rgba_pma(0.5 0 0 0.5)", {}},
    {"RgbaUpperCase", "RGBA(255, 0, 0, 1)", "rgba_pma(1 0 0 1)", {}},
    {"RgbaPercentages", "rgba(100%, 50%, 0%, 1)", "rgba_pma(1 0.5 0 1)", {}},
    {"RgbaAlphaPercentage", "rgba(255, 0, 0, 50%)", "rgba_pma(0.5 0 0 0.5)", {}},
    {"RgbaAlphaIsNotClamped", "rgba(255, 0, 0, 2)", "rgba_pma(2 0 0 2)", {}},
    {"RgbaTransparent", "rgba(255, 255, 255, 0)", "rgba_pma(0 0 0 0)", {}},
    {"RgbaPma", "rgba_pma(128, 0, 0, 0.5)", "rgba_pma(0.502 0 0 0.5)", {}},
    {"RgbaPmaIsNotClamped", "rgba_pma(510, 0, 0, 0.5)", "rgba_pma(2 0 0 0.5)", {}},
    {"RgbaPmaPercentagesAreDividedToo", "rgba_pma(51%, 0, 0, 1)", "rgba_pma(0.002 0 0 1)", {}},
    {"RgbaPmaUpperCase", "RGBA_PMA(255, 0, 0, 1)", "rgba_pma(1 0 0 1)", {}},
    {"TwoColours", "rgb(255,0,0) rgb(0,255,0)", "rgba_pma(1 0 0 1) rgba_pma(0 1 0 1)", {}},
};
INSTANTIATE_TEST_SUITE_P(Rgb, ColorValue, testing::ValuesIn(rgbRows), nameOfColorRow);

const ColorCase hueRows[] = {
    {"Hsl", "hsl(120, 100%, 50%)", "rgba_pma(0 1 0 1)", {}},
    {"HslWraps", "hsl(480, 100%, 50%)", "rgba_pma(0 1 0 1)", {}},
    {"HslWrapsBelow", "hsl(-120, 100%, 50%)", "rgba_pma(0 0 1 1)", {}},
    {"HslOfAFullTurnIsRed", "hsl(360, 100%, 50%)", "rgba_pma(1 0 0 1)", {}},
    {"HslSaturationIsClamped", "hsl(0, 150%, 50%)", "rgba_pma(1 0 0 1)", {}},
    {"HslSaturationIsClampedBelow", "hsl(0, -1, 50%)", "rgba_pma(0.5 0.5 0.5 1)", {}},
    {"HslSaturationBeyondNumbersIsNone",
     "hsl(0, 1000000000000000000000000000000000000000.0deg, 50%)",
     "rgba_pma(0.5 0.5 0.5 1)",
     {}},
    {"HslLightnessIsClamped", "hsl(0, 100%, 2)", "rgba_pma(1 1 1 1)", {}},
    {"HslPlainNumbers", "hsl(0, 1, 0.5)", "rgba_pma(1 0 0 1)", {}},
    {"HslIntegersAreNotPercentages", "hsl(0, 100, 0)", "rgba_pma(0 0 0 1)", {}},
    {"HslUpperCase", "HSL(120, 100%, 50%)", "rgba_pma(0 1 0 1)", {}},
    {"Hsla", "hsla(120, 100%, 50%, 0.2)", "rgba_pma(0 0.2 0 0.2)", {}},
    {"HslaAlphaIsClamped", "hsla(120, 100%, 50%, 2)", "rgba_pma(0 1 0 1)", {}},
    {"HslaAlphaIsClampedBelow", "hsla(120, 100%, 50%, -1)", "rgba_pma(0 0 0 0)", {}},
    {"Hsv", "hsv(240, 100%, 100%)", "rgba_pma(0 0 1 1)", {}},
    {"HsvHalfValue", "hsv(0, 100%, 50%)", "rgba_pma(0.5 0 0 1)", {}},
    {"HsvWraps", "hsv(600, 100%, 100%)", "rgba_pma(0 0 1 1)", {}},
    {"HsvValueIsClamped", "hsv(0, 100%, 150%)", "rgba_pma(1 0 0 1)", {}},
    {"HsvWithoutSaturationIsGrey", "hsv(77, 0, 1)", "rgba_pma(1 1 1 1)", {}},
    {"Hsva", "hsva(0, 100%, 100%, 0.4)", "rgba_pma(0.4 0 0 0.4)", {}},
    {"HsvaAlphaIsClamped", "hsva(0, 100%, 100%, 7)", "rgba_pma(1 0 0 1)", {}},
};
INSTANTIATE_TEST_SUITE_P(Hue, ColorValue, testing::ValuesIn(hueRows), nameOfColorRow);

Strings unknown(const std::string& name) {
    return {"error: Unknown / unimplemented CSS function " + name};
}

const ColorCase refusedRows[] = {
    {"RgbOfTwo", "rgb(1, 2)", "", unknown("rgb")},
    {"RgbOfFour", "rgb(1, 2, 3, 4)", "", unknown("rgb")},
    {"RgbaOfThree", "rgba(1, 2, 3)", "", unknown("rgba")},
    {"RgbaOfFive", "rgba(1, 2, 3, 4, 5)", "", unknown("rgba")},
    {"HslOfTwo", "hsl(1, 2)", "", unknown("hsl")},
    {"HslOfFour", "hsl(1, 2, 3, 4)", "", unknown("hsl")},
    {"HslaOfThree", "hsla(1, 2, 3)", "", unknown("hsla")},
    {"HsvOfFour", "hsv(1, 2, 3, 4)", "", unknown("hsv")},
    {"HsvaOfThree", "hsva(1, 2, 3)", "", unknown("hsva")},
    {"RgbaPmaOfThree", "rgba_pma(1, 2, 3)", "", unknown("rgba_pma")},
    {"UnknownName", "foo(1)", "", unknown("foo")},
    {"UnknownNameIsLowerCased", "FOO(1)", "", unknown("foo")},
    {"WrongCountIsNamedInLowerCase", "RGB(1)", "", unknown("rgb")},
    {"VectorOfFive", "vec5(1, 2, 3, 4, 5)", "", unknown("vec5")},
    {"VectorOfOne", "vec1(1)", "", unknown("vec1")},
    {"VectorOfAnotherKind", "vec2d(1, 2)", "", unknown("vec2d")},
};
INSTANTIATE_TEST_SUITE_P(Refused, ColorValue, testing::ValuesIn(refusedRows), nameOfColorRow);

std::string deprecated(const std::string& name) {
    return "warning: string:0: " + name + "() is deprecated syntax";
}

std::string incomprehensible(const std::string& name) {
    return "error: string:0: error: incomprehensible arguments for " + name;
}

const ColorCase vectorRows[] = {
    {"OfTwo", "vec2(1, 2)", "1, 2", {deprecated("vec2")}},
    {"OfThree", "vec3(1, 2, 3)", "1, 2, 3", {deprecated("vec3")}},
    {"OfFour", "vec4(1, 2, 3, 4)", "1, 2, 3, 4", {deprecated("vec4")}},
    {"OfIntegers", "vec3i(1, 2, 3)", "1, 2, 3", {deprecated("vec3i")}},
    {"OfFloats", "vec2f(1.5, 2.5)", "1.5, 2.5", {deprecated("vec2f")}},
    {"SuffixDoesNotSetTheKind", "vec2i(1.5, 2.5)", "1.5, 2.5", {deprecated("vec2i")}},
    {"UpperCase", "VEC2(1, 2)", "1, 2", {deprecated("vec2")}},
    {"OfLengths", "vec2(1px, 2em)", "1px, 2em", {deprecated("vec2")}},
    {"SeparatorsStay", "vec3(1 2 / 3)", "1 2 / 3", {deprecated("vec3")}},
    {"TooMany", "vec2(1, 2, 3)", "", {deprecated("vec2"), incomprehensible("vec2")}},
    {"TooFew", "vec4f(1, 2, 3)", "", {deprecated("vec4f"), incomprehensible("vec4f")}},
    {"MixedKinds", "vec2(1, 2.5)", "", {deprecated("vec2"), incomprehensible("vec2")}},
    {"Words", "vec2(a, b)", "", {deprecated("vec2"), incomprehensible("vec2")}},
    {"AmongOtherTerms", "a vec2(1, 2) b", "a 1, 2 b", {deprecated("vec2")}},
};
INSTANTIATE_TEST_SUITE_P(Vectors, ColorValue, testing::ValuesIn(vectorRows), nameOfColorRow);

TEST(ColorPrecision, HexFieldsAreDividedBy255) {
    TraceGuard trace;
    const Gorvel::ColorPMA color = CSSParser::parseValue("#ff000080")[0].asColorPMA();
    EXPECT_FLOAT_EQ(color.alpha(), float(128 / 255.0));
    EXPECT_FLOAT_EQ(color.red(), float(128 / 255.0));
    EXPECT_EQ(color.green(), 0.f);
}

TEST(ColorPrecision, DegreesAreRadiansByThenAndAlmostRed) {
    TraceGuard trace;
    const Gorvel::ColorPMA color = CSSParser::parseValue("hsl(120deg, 100%, 50%)")[0].asColorPMA();
    const Gorvel::ColorPMA expected = Gorvel::Color(QColor::fromHslF(2.0943951 / 360, 1.0, 0.5, 1.0));
    EXPECT_NEAR(color.red(), expected.red(), 1e-4);
    EXPECT_NEAR(color.green(), expected.green(), 1e-3);
    EXPECT_NEAR(color.blue(), expected.blue(), 1e-4);
    EXPECT_GT(color.red(), 0.99f);
    EXPECT_LT(color.green(), 0.05f);
}

TEST(ColorPrecision, HueWrapsIntoTheSameColour) {
    TraceGuard trace;
    EXPECT_EQ(dumpValue(CSSParser::parseValue("hsl(480, 100%, 50%)")),
              dumpValue(CSSParser::parseValue("hsl(120, 100%, 50%)")));
}

TEST(ColorPrecision, StraightAndPremultipliedAreColours) {
    TraceGuard trace;
    for (const char* text : {"#f00", "rgb(1,2,3)", "rgba_pma(1,2,3,1)", "hsl(1,1,1)"}) {
        const int type = CSSParser::parseValue(text).type(0);
        EXPECT_TRUE(type == 3 || type == 4) << text;
    }
}

TEST(ColorMessages, WarningAndErrorNameTheLine) {
    TraceGuard trace;
    Brisko::StyleSheet sheet;
    CSSParser().parseString(sheet, "a {\nx: vec2(1, 2);\n\ny: vec2(1);\nz: 3 }", nullptr,
                            Brisko::SimpleSelector::Origin(1));
    EXPECT_EQ(dumpSheet(sheet), "a {x: 1, 2; z: 3}");
    EXPECT_EQ(trace.takeAll(),
              (Strings{"warning: :1: vec2() is deprecated syntax", "warning: :3: vec2() is deprecated syntax",
                       "error: :3: error: incomprehensible arguments for vec2"}));
}

TEST(ColorMessages, DroppedFunctionsTakeTheirDeclarationWithThem) {
    TraceGuard trace;
    Brisko::StyleSheet sheet;
    CSSParser().parseString(sheet, "a {x: rgb(1, 2); y: foo(1) 2; z: 3}", nullptr, Brisko::SimpleSelector::Origin(1));
    EXPECT_EQ(dumpSheet(sheet), "a {z: 3}");
    EXPECT_EQ(trace.takeAll(),
              (Strings{"error: Unknown / unimplemented CSS function rgb",
                       "error: Unknown / unimplemented CSS function foo", "error: :0: error: Broken expression"}));
}

} // namespace

} // namespace Testing
