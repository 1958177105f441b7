#include "Brisko/AttributeFont.h"

#include "attributes/ShorthandCase.h"
#include "styling/StylingFixture.h"

namespace Testing {
namespace {

using Brisko::AttributeFont;
using Brisko::CSSParser;
using Ondex::Attribute;
using Ondex::StyleValue;

const std::string style = "; font-style: 0";
const std::string weight = "; font-weight: normal";
const std::string kerning = "; font-kerning: 0";
const std::string height = "; line-height: normal";
/// The resets where size and family alone were given.
const std::string resets = style + weight + kerning + height;

Texts badHeight(const std::string& value) {
    return {"error: Invalid property for shorthand font: Invalid value for 'line-height' (" + value + ")"};
}

const Texts incomplete = {"error: Invalid property for shorthand font: <font-size> and <font-family> must be set"};

Texts systemFont(const std::string& word) {
    return {"warning: Shorthand property font does not implement system font type '" + word + "'"};
}

class FontShorthand : public testing::TestWithParam<ShorthandCase> {};

TEST_P(FontShorthand, GivesTheLonghandsTheirParts) {
    Ondex::Node node(nullptr, "node");
    AttributeFont font(&node, "font");
    expectCase(font, GetParam());
}

const ShorthandCase familyRows[] = {
    {"SizeAndFamilyResetTheRest", "12px Arial", true, "font-size: 12px; font-family: Arial" + resets, {}},
    {"UnquotedNameKeepsItsFirstWord", "12px Times New Roman", true, "font-size: 12px; font-family: Times" + resets, {}},
    {"ListOfFamilies",
     "12px \"Times New Roman\", serif",
     true,
     "font-size: 12px; font-family: \"Times New Roman\", serif" + resets,
     {}},
    {"SlashesBetweenFamiliesBecomeCommas", "12px a/b, c", true, "font-size: 12px; font-family: a, b, c" + resets, {}},
    {"ListAfterTheFamilyIsDropped", "12px a b, c", true, "font-size: 12px; font-family: a" + resets, {}},
    {"KeywordsAfterTheSizeAreFamilies", "12px bold", true, "font-size: 12px; font-family: bold" + resets, {}},
    {"NumberAfterTheSizeIsAFamily", "12px 700", true, "font-size: 12px; font-family: 700" + resets, {}},
    {"SizesAfterTheFamilyAreDropped", "12px a 14px/20px", true, "font-size: 12px; font-family: a" + resets, {}},
    {"EverythingInOrder",
     "bold italic 14px/20px \"Times New Roman\", serif",
     true,
     "font-weight: bold; font-style: italic; font-size: 14px; line-height: 20px; font-family: \"Times New Roman\", "
     "serif; font-kerning: 0",
     {}},
};
INSTANTIATE_TEST_SUITE_P(Family, FontShorthand, testing::ValuesIn(familyRows), nameOfRow);

/// The parts of `WORD 12px a` where the word gives @p part.
std::string withWord(const std::string& part) {
    std::string parts = part + "; font-size: 12px; font-family: a";
    for (const std::string& reset : {style, weight, kerning, height}) {
        const std::string longhand = reset.substr(2, reset.find(':') - 1);
        if (part.find(longhand) == std::string::npos)
            parts += reset;
    }
    return parts;
}

const std::string plain = "font-size: 12px; font-family: a" + resets;

const ShorthandCase wordRows[] = {
    {"NormalSetsFour",
     "normal 12px a",
     true,
     withWord("font-style: normal; font-variant: normal; font-weight: normal; font-stretch: normal"),
     {}},
    {"Italic", "italic 12px a", true, withWord("font-style: italic"), {}},
    {"Oblique", "oblique 12px a", true, withWord("font-style: oblique"), {}},
    {"SmallCaps", "small-caps 12px a", true, withWord("font-variant: small-caps"), {}},
    {"Bold", "bold 12px a", true, withWord("font-weight: bold"), {}},
    {"BolderIsIgnored", "bolder 12px a", true, plain, {}},
    {"LighterIsIgnored", "lighter 12px a", true, plain, {}},
    {"LargerIsAWeightAndAnOverriddenSize",
     "larger 12px a",
     true,
     "font-weight: larger; font-size: 12px; font-family: a" + style + kerning + height,
     {}},
    {"SmallerIsAWeightAndAnOverriddenSize",
     "smaller 12px a",
     true,
     "font-weight: smaller; font-size: 12px; font-family: a" + style + kerning + height,
     {}},
    {"UltraCondensed", "ultra-condensed 12px a", true, withWord("font-stretch: ultra-condensed"), {}},
    {"ExtraCondensed", "extra-condensed 12px a", true, withWord("font-stretch: extra-condensed"), {}},
    {"Condensed", "condensed 12px a", true, withWord("font-stretch: condensed"), {}},
    {"SemiCondensed", "semi-condensed 12px a", true, withWord("font-stretch: semi-condensed"), {}},
    {"SemiExpanded", "semi-expanded 12px a", true, withWord("font-stretch: semi-expanded"), {}},
    {"Expanded", "expanded 12px a", true, withWord("font-stretch: expanded"), {}},
    {"ExtraExpanded", "extra-expanded 12px a", true, withWord("font-stretch: extra-expanded"), {}},
    {"UltraExpanded", "ultra-expanded 12px a", true, withWord("font-stretch: ultra-expanded"), {}},
    {"KerningWordsAreIgnored", "auto none 12px a", true, plain, {}},
    {"UpperCaseIsIgnored", "BOLD Italic 12px a", true, plain, {}},
    {"UnknownWordIsIgnored", "fancy 12px a", true, plain, {}},
    {"TextIsIgnored", "\"bold\" 12px a", true, plain, {}},
    {"Weight100", "100 12px a", true, withWord("font-weight: 100"), {}},
    {"Weight900", "900 12px a", true, withWord("font-weight: 900"), {}},
    {"WeightBetweenTheHundreds", "450 12px a", true, withWord("font-weight: 450"), {}},
    {"Weight99IsIgnored", "99 12px a", true, plain, {}},
    {"Weight901IsIgnored", "901 12px a", true, plain, {}},
    {"RealWeightIsIgnored", "400.0 12px a", true, plain, {}},
    {"LaterGroupOverrides",
     "bold italic 300 oblique 12px a",
     true,
     "font-weight: 300; font-style: oblique; font-size: 12px; font-family: a" + kerning + height,
     {}},
    {"NormalAfterBoldResetsTheWeight",
     "bold normal 12px a",
     true,
     "font-weight: normal; font-style: normal; font-variant: normal; font-stretch: normal; font-size: 12px; "
     "font-family: a" +
         kerning + height,
     {}},
};
INSTANTIATE_TEST_SUITE_P(Words, FontShorthand, testing::ValuesIn(wordRows), nameOfRow);

std::string withSize(const std::string& size) {
    return "font-size: " + size + "; font-family: a" + resets;
}

const ShorthandCase sizeRows[] = {
    {"Pixels", "12px a", true, withSize("12px"), {}},
    {"Percentage", "50% a", true, withSize("50%"), {}},
    {"Ems", "2em a", true, withSize("2em"), {}},
    {"Exs", "2ex a", true, withSize("2ex"), {}},
    {"XxSmall", "xx-small a", true, withSize("xx-small"), {}},
    {"XSmall", "x-small a", true, withSize("x-small"), {}},
    {"Small", "small a", true, withSize("small"), {}},
    {"Medium", "medium a", true, withSize("medium"), {}},
    {"Large", "large a", true, withSize("large"), {}},
    {"XLarge", "x-large a", true, withSize("x-large"), {}},
    {"XxLarge", "xx-large a", true, withSize("xx-large"), {}},
    {"LargerIsAWeightToo",
     "larger a",
     true,
     "font-weight: larger; font-size: larger; font-family: a" + style + kerning + height,
     {}},
    {"SmallerIsAWeightToo",
     "smaller a",
     true,
     "font-weight: smaller; font-size: smaller; font-family: a" + style + kerning + height,
     {}},
    {"LengthAfterASizeReplacesIt", "10px 12px a", true, withSize("12px"), {}},
    {"LengthWithHeightAfterASizeReplacesIt",
     "medium 12px/14px a",
     true,
     "font-size: 12px; line-height: 14px; font-family: a" + style + weight + kerning,
     {}},
    {"SizeWordAfterASizeIsTheFamily", "12px large", true, "font-size: 12px; font-family: large" + resets, {}},
    {"UpperCaseIsNoSize", "LARGE a", false, "", incomplete},
    {"PlainNumberIsNoSize", "12 a", false, "", incomplete},
};
INSTANTIATE_TEST_SUITE_P(Size, FontShorthand, testing::ValuesIn(sizeRows), nameOfRow);

std::string withHeight(const std::string& lineHeight) {
    return "font-size: 12px; line-height: " + lineHeight + "; font-family: a" + style + weight + kerning;
}

const ShorthandCase heightRows[] = {
    {"HeightInPixels", "12px/14px a", true, withHeight("14px"), {}},
    {"HeightAsPercentage", "12px/50% a", true, withHeight("50%"), {}},
    {"HeightInEms", "12px/2em a", true, withHeight("2em"), {}},
    {"HeightInExs", "12px/2ex a", true, withHeight("2ex"), {}},
    {"HeightAsNumber", "12px/1.5 a", true, withHeight("1.5"), {}},
    {"HeightAsInteger", "12px/2 a", true, withHeight("2"), {}},
    {"HeightNormal", "12px/normal a", true, withHeight("normal"), {}},
    {"OtherWordIsReportedAndTheRestGoesOn", "12px/abc a", true, plain, badHeight("abc")},
    {"SizeWordIsNoHeight", "12px/medium a", true, plain, badHeight("medium")},
    {"CommaOffersAHeightToo", "12px, 14px a", true, withHeight("14px"), {}},
    {"SizeWordWithHeight",
     "large/20px a",
     true,
     "font-size: large; line-height: 20px; font-family: a" + style + weight + kerning,
     {}},
    {"PairBeforeTheSizeOffersAHeight",
     "bold/2 12px a",
     true,
     "line-height: 2; font-size: 12px; font-family: a" + style + weight + kerning,
     {}},
    {"PairOfWordsBeforeTheSizeIsReported", "bold, italic 12px a", true, plain, badHeight("italic")},
    {"PairSetsNoWeight",
     "bold/normal 12px a",
     true,
     "line-height: normal; font-size: 12px; font-family: a" + style + weight + kerning,
     {}},
    {"GroupOfThreeOffersNone", "12px/14px/16px a", true, plain, {}},
    {"LargerOfAPairIsNoWeight",
     "larger/2 a",
     true,
     "font-size: larger; line-height: 2; font-family: a" + style + weight + kerning,
     {}},
};
INSTANTIATE_TEST_SUITE_P(Height, FontShorthand, testing::ValuesIn(heightRows), nameOfRow);

const ShorthandCase refusedRows[] = {
    {"Caption", "caption", false, "", systemFont("caption")},
    {"Icon", "icon", false, "", systemFont("icon")},
    {"Menu", "menu", false, "", systemFont("menu")},
    {"MessageBox", "message-box", false, "", systemFont("message-box")},
    {"SmallCaption", "small-caption", false, "", systemFont("small-caption")},
    {"StatusBar", "status-bar", false, "", systemFont("status-bar")},
    {"UpperCaseCaption", "CAPTION", false, "", incomplete},
    {"CaptionAmongOthers", "caption bold", false, "font-weight: bold", incomplete},
    {"CaptionAsText", "\"caption\"", false, "", incomplete},
    {"BoldAlone", "bold", false, "font-weight: bold", incomplete},
    {"SizeAlone", "bold 12px", false, "font-weight: bold; font-size: 12px", incomplete},
    {"SizeAndHeightAlone", "12px/14px", false, "font-size: 12px; line-height: 14px", incomplete},
    {"FamilyAlone", "Arial", false, "", incomplete},
    {"FamiliesAloneAreAPairToo", "Arial, serif", false, "", {badHeight("serif")[0], incomplete[0]}},
};
INSTANTIATE_TEST_SUITE_P(Refused, FontShorthand, testing::ValuesIn(refusedRows), nameOfRow);

TEST(FontShorthandName, MessagesNameTheAttribute) {
    TraceGuard trace;
    Ondex::Node node(nullptr, "node");
    AttributeFont font(&node, "label-font");
    Parts parts;
    EXPECT_FALSE(font.handleShorthand(CSSParser::parseValue("12px/x"), parts));
    EXPECT_FALSE(font.handleShorthand(CSSParser::parseValue("menu"), parts));
    EXPECT_EQ(trace.takeAll(),
              (Texts{"error: Invalid property for shorthand label-font: Invalid value for 'line-height' (x)",
                     "error: Invalid property for shorthand label-font: <font-size> and <font-family> must be set",
                     "warning: Shorthand property label-font does not implement system font type 'menu'"}));
}

TEST(FontShorthandValues, EmptyValueIsIncomplete) {
    TraceGuard trace;
    Ondex::Node node(nullptr, "node");
    AttributeFont font(&node, "font");
    Parts parts;
    EXPECT_FALSE(font.handleShorthand(StyleValue(), parts));
    EXPECT_EQ(trace.takeAll(), incomplete);
    EXPECT_TRUE(parts.isEmpty());
}

// In the cascade

class FontInSheets : public testing::Test {
protected:
    TraceGuard trace;
    TestNode node{"a"};
    AttributeFont font{&node, "font"};
};

TEST_F(FontInSheets, ShorthandSetsTheLonghandsOnTheStyleLayer) {
    styleWith(node, "a {font: italic bold 14px/20px \"Times New Roman\", serif}");
    EXPECT_EQ(font.fontFamily(), (QStringList{"Times New Roman", "serif"}));
    EXPECT_EQ(font.fontStyle(), Brisko::FontStyle::Italic);
    EXPECT_EQ(font.fontWeight(), 75);
    EXPECT_EQ(font.fontSizePixels(), 14.f);
    EXPECT_EQ(dumpValue(font.lineHeight()), "20px");
    EXPECT_EQ(textOf(node, "font-size", Attribute::StyleLayer), "14px");
    EXPECT_EQ(textOf(node, "font-size", Attribute::UserLayer), "none");
}

TEST_F(FontInSheets, ResetTakesKerningButNeitherVariantNorStretch) {
    styleWith(node, "a {font-kerning: none; font-variant: small-caps; font-stretch: condensed; font: 12px a}");
    EXPECT_EQ(font.fontKerning(), Brisko::FontKerning::Auto);
    EXPECT_EQ(font.fontVariant(), Brisko::FontVariant::SmallCaps);
    EXPECT_EQ(font.fontStretch(), Brisko::FontStretch::Condensed);
}

TEST_F(FontInSheets, LonghandAfterTheShorthandWinsAndBeforeItLoses) {
    styleWith(node, "a {font-weight: 300; font: 12px a; font-size: 20px}");
    EXPECT_EQ(font.fontWeight(), 50);
    EXPECT_EQ(font.fontSizePixels(), 20.f);
}

TEST_F(FontInSheets, PartsOfARefusedShorthandAreNotApplied) {
    styleWith(node, "a {font: bold 12px}");
    const Texts errors = trace.takeErrors();
    ASSERT_EQ(errors.size(), 2u);
    EXPECT_EQ("error: " + errors[0], incomplete[0]);
    EXPECT_NE(errors[1].find("# Failed to set property 'font' to [bold 12px]"), std::string::npos) << errors[1];
    for (const char* longhand : {"font-weight", "font-size"})
        EXPECT_FALSE(node.attribute(longhand)->isChanged()) << longhand;
}

TEST_F(FontInSheets, LargerStaysAWeightThatIsNotKnown) {
    styleWith(node, "a {font: larger 12px b}");
    EXPECT_EQ(trace.takeAll(), (Texts{"error: font-weight: Invalid value 'larger'"}));
    EXPECT_EQ(font.toQFont().weight(), 50);
}

TEST_F(FontInSheets, EveryLonghandThatChangesSendsOneChange) {
    ChangeCount changes(font);
    const auto sheetStyle = Brisko::Style(sheetOf("a {font: italic bold 14px/20px Arial}"));
    node.setStyle(sheetStyle);
    EXPECT_EQ(changes.take(), 4); // family, style, weight, size; the line height does not count
    node.setStyle(sheetStyle);
    EXPECT_EQ(changes.take(), 0);
}

TEST_F(FontInSheets, WeightStaysAnInteger) {
    styleWith(node, "a {font-weight: 900}");
    const auto& weightValue = static_cast<Ondex::AttributeT<StyleValue>&>(*node.attribute("font-weight")).value();
    EXPECT_EQ(weightValue.type(0), StyleValue::TYPE_INT);
    EXPECT_EQ(font.fontWeight(), 92);
}

} // namespace
} // namespace Testing
