#include "Brisko/AttributeFont.h"

#include "Hexley/TextLayout.h"
#include "attributes/ShorthandCase.h"
#include "styling/StylingFixture.h"

namespace Testing {
namespace {

using Brisko::AttributeFont;
using Brisko::FontKerning;
using Brisko::FontStretch;
using Brisko::FontStyle;
using Brisko::FontVariant;
using Ondex::Attribute;
using Ondex::StyleValue;

// Keywords of the enumerations

struct WordCase {
    const char* name;
    const char* longhand;
    const char* word;
    int value;
    const char* text; // of that value
};

void PrintTo(const WordCase& row, std::ostream* out) {
    *out << row.name;
}

const WordCase wordRows[] = {
    {"StyleNormal", "font-style", "normal", 0, "normal"},
    {"StyleItalic", "font-style", "italic", 1, "italic"},
    {"StyleObliqueIsItalic", "font-style", "oblique", 1, "italic"},
    {"VariantNormal", "font-variant", "normal", 0, "normal"},
    {"VariantSmallCaps", "font-variant", "small-caps", 1, "small-caps"},
    {"KerningAuto", "font-kerning", "auto", 0, "auto"},
    {"KerningNormal", "font-kerning", "normal", 1, "normal"},
    {"KerningNone", "font-kerning", "none", 2, "none"},
    {"StretchUltraCondensed", "font-stretch", "ultra-condensed", 50, "ultra-condensed"},
    {"StretchExtraCondensed", "font-stretch", "extra-condensed", 62, "extra-condensed"},
    {"StretchCondensed", "font-stretch", "condensed", 75, "condensed"},
    {"StretchSemiCondensed", "font-stretch", "semi-condensed", 87, "semi-condensed"},
    {"StretchNormal", "font-stretch", "normal", 100, "normal"},
    {"StretchSemiExpanded", "font-stretch", "semi-expanded", 112, "semi-expanded"},
    {"StretchExpanded", "font-stretch", "expanded", 125, "expanded"},
    {"StretchExtraExpanded", "font-stretch", "extra-expanded", 150, "extra-expanded"},
    {"StretchUltraExpanded", "font-stretch", "ultra-expanded", 200, "ultra-expanded"},
};

class FontWord : public testing::TestWithParam<WordCase> {};

TEST_P(FontWord, HasAFixedValue) {
    const WordCase& row = GetParam();
    TraceGuard trace;
    Ondex::Node node(nullptr, "node");
    const AttributeFont font(&node, "font");
    setValue(node, row.longhand, row.word);
    EXPECT_EQ(node.attribute(row.longhand)->asInt(nullptr, Attribute::UserLayer), row.value);
    EXPECT_EQ(textOf(node, row.longhand), row.text);
}

INSTANTIATE_TEST_SUITE_P(Rows, FontWord, testing::ValuesIn(wordRows), nameOfRow);

TEST(FontWords, AreTakenInTheirOwnCaseOnly) {
    Ondex::Node node(nullptr, "node");
    const AttributeFont font(&node, "font");
    for (const char* longhand : {"font-style", "font-variant", "font-kerning", "font-stretch"}) {
        EXPECT_FALSE(node.attribute(longhand)->set(StyleValue(QByteArray("NORMAL")), Attribute::UserLayer)) << longhand;
        EXPECT_FALSE(node.attribute(longhand)->set(StyleValue(QByteArray("bold")), Attribute::UserLayer)) << longhand;
    }
}

// Size in pixels

struct SizeCase {
    const char* name;
    QByteArray value;
    float pixels;
    Texts messages;
};

void PrintTo(const SizeCase& row, std::ostream* out) {
    *out << row.name;
}

const SizeCase sizeRows[] = {
    {"Pixels", "12px", 12.f, {}},
    {"FractionOfPixels", "12.5px", 12.5f, {}},
    {"EmsCountAsPixels", "2em", 2.f, {}},
    {"ExsCountAsPixels", "3ex", 3.f, {}},
    {"Percentage", "50%", 16.f, {"error: font-size: Percentage values not implemented (50%)"}},
    {"Integer", "12", 16.f, {"error: font-size: invalid value: '12', maybe you meant '12px'?"}},
    {"Real", "12.7", 16.f, {"error: font-size: invalid value: '12.7', maybe you meant '12px'?"}},
    {"XxSmall", "xx-small", 9.6f, {}},
    {"XSmall", "x-small", 12.f, {}},
    {"Small", "small", 14.222222f, {}},
    {"Medium", "medium", 16.f, {}},
    {"Large", "large", 19.2f, {}},
    {"XLarge", "x-large", 24.f, {}},
    {"XxLarge", "xx-large", 32.f, {}},
    {"Larger", "larger", 16.f, {"error: font-size: value larger not implemented"}},
    {"Smaller", "smaller", 16.f, {"error: font-size: value smaller not implemented"}},
    {"UnknownWordIsSilent", "huge", 16.f, {}},
    {"UpperCaseIsUnknown", "LARGE", 16.f, {}},
    {"TextIsSilent", "\"large\"", 16.f, {}},
    {"ColorIsSilent", "#123", 16.f, {}},
    {"TwoComponents", "12px 14px", 16.f, {"error: Invalid value for font-size: 12px 14px"}},
};

class FontSize : public testing::TestWithParam<SizeCase> {};

TEST_P(FontSize, InPixels) {
    const SizeCase& row = GetParam();
    TraceGuard trace;
    Ondex::Node node(nullptr, "node");
    AttributeFont font(&node, "font");
    font.setFontSize(40.f); // so that the row is a change in any case
    setValue(node, "font-size", row.value);
    EXPECT_FLOAT_EQ(font.fontSizePixels(), row.pixels);
    EXPECT_DOUBLE_EQ(font.toQFont().pointSizeF(), double(Hexley::TextLayout::pixelToPointSize(row.pixels)));
    EXPECT_EQ(trace.takeAll(), row.messages);
}

INSTANTIATE_TEST_SUITE_P(Rows, FontSize, testing::ValuesIn(sizeRows), nameOfRow);

TEST(FontSizes, EmptyValueIsReported) {
    TraceGuard trace;
    Ondex::Node node(nullptr, "node");
    AttributeFont font(&node, "font");
    font.setFontSize(StyleValue());
    EXPECT_EQ(trace.takeAll(), (Texts{"error: Invalid value for font-size: "}));
    EXPECT_EQ(font.fontSizePixels(), 16.f);
}

TEST(FontSizes, SizeThatQFontDoesNotTakeLeavesItAsItWas) {
    TraceGuard trace;
    Ondex::Node node(nullptr, "node");
    AttributeFont font(&node, "font");
    font.setFontSize(20.f);
    font.setFontSize(0.f);
    EXPECT_EQ(font.fontSizePixels(), 20.f);
    font.setFontSize(-5.f);
    EXPECT_EQ(font.fontSizePixels(), 20.f);
}

// Weight on the scale of QFont

struct WeightCase {
    const char* name;
    QByteArray value;
    int weight;
    Texts messages;
};

void PrintTo(const WeightCase& row, std::ostream* out) {
    *out << row.name;
}

Texts outOfRange(const std::string& number) {
    return {"error: font-weight: Invalid value '" + number + "'. Valid range of values is 100-900"};
}

const WeightCase weightRows[] = {
    {"W100", "100", 25, {}},
    {"W200", "200", 33, {}},
    {"W300", "300", 42, {}},
    {"W400", "400", 50, {}},
    {"W500", "500", 58, {}},
    {"W600", "600", 67, {}},
    {"W700", "700", 75, {}},
    {"W800", "800", 83, {}},
    {"W900", "900", 92, {}},
    {"HalvesGoUp", "406", 51, {}},
    {"JustBelowAHalf", "405", 50, {}},
    {"Normal", "normal", 50, {}},
    {"Bold", "bold", 75, {}},
    {"Bolder", "bolder", 50, {"error: font-weight: value 'bolder' not implemented"}},
    {"Lighter", "lighter", 50, {"error: font-weight: value 'lighter' not implemented"}},
    {"UnknownWord", "heavy", 50, {"error: font-weight: Invalid value 'heavy'"}},
    {"UpperCase", "BOLD", 50, {"error: font-weight: Invalid value 'BOLD'"}},
    {"SizeWord", "larger", 50, {"error: font-weight: Invalid value 'larger'"}},
    {"W99", "99", 50, outOfRange("99")},
    {"W901", "901", 50, outOfRange("901")},
    {"W950", "950", 50, outOfRange("950")},
    {"Zero", "0", 50, outOfRange("0")},
    {"Negative", "-700", 50, outOfRange("-700")},
    {"RealIsSilent", "700.5", 50, {}},
    {"TextIsSilent", "\"bold\"", 50, {}},
    {"WithUnit", "700px", 50, {"error: Invalid value for font-weight: 700px"}},
    {"Percentage", "50%", 50, {"error: Invalid value for font-weight: 50%"}},
    {"TwoComponents", "700 700", 50, {"error: Invalid value for font-weight: 700 700"}},
};

class FontWeight : public testing::TestWithParam<WeightCase> {};

TEST_P(FontWeight, OnTheScaleOfQFont) {
    const WeightCase& row = GetParam();
    TraceGuard trace;
    Ondex::Node node(nullptr, "node");
    AttributeFont font(&node, "font");
    font.setFontWeight(300);
    setValue(node, "font-weight", row.value);
    EXPECT_EQ(font.toQFont().weight(), row.weight);
    EXPECT_EQ(trace.takeAll(), row.messages);
    EXPECT_EQ(font.fontWeight(), row.weight);
    EXPECT_EQ(trace.takeAll(), row.messages);
}

INSTANTIATE_TEST_SUITE_P(Rows, FontWeight, testing::ValuesIn(weightRows), nameOfRow);

TEST(FontWeights, EveryNumberOfTheRangeRoundsToTheNearest) {
    TraceGuard trace;
    Ondex::Node node(nullptr, "node");
    AttributeFont font(&node, "font");
    for (int weight = 100; weight <= 900; ++weight) {
        font.setFontWeight(weight);
        EXPECT_EQ(font.fontWeight(), (weight + 200 + 6) / 12) << weight; // 50 - (400 - w) / 12
    }
}

TEST(FontWeights, IntegerStaysOneThroughStorage) {
    TraceGuard trace;
    Ondex::Node node(nullptr, "node");
    AttributeFont font(&node, "font");
    Attribute* weight = node.attribute("font-weight");
    const auto typeOf = [weight] { return static_cast<Ondex::AttributeT<StyleValue>*>(weight)->value().type(0); };
    font.setFontWeight(700);
    EXPECT_EQ(typeOf(), StyleValue::TYPE_INT);
    weight->set(900, Attribute::UserLayer, Attribute::VU_UNKNOWN);
    EXPECT_EQ(typeOf(), StyleValue::TYPE_INT);
    EXPECT_EQ(font.fontWeight(), 92);
    weight->set(QString("100"), Attribute::UserLayer, Attribute::VU_UNKNOWN);
    EXPECT_EQ(typeOf(), StyleValue::TYPE_INT);
    EXPECT_EQ(font.fontWeight(), 25);
}

// Families

struct FamilyCase {
    const char* name;
    QStringList families;
    const char* text;
};

void PrintTo(const FamilyCase& row, std::ostream* out) {
    *out << row.name;
}

const FamilyCase familyRows[] = {
    {"None", {}, ""},
    {"One", {"Foo"}, "Foo"},
    {"OneGeneric", {"serif"}, "serif"},
    {"AllWhereNoneIsGeneric", {"Foo", "Bar"}, "Foo, Bar"},
    {"UpToTheFirstGeneric", {"Foo", "sans-serif", "Bar"}, "Foo, sans-serif"},
    {"Serif", {"Foo", "serif", "Bar"}, "Foo, serif"},
    {"Cursive", {"Foo", "cursive", "Bar"}, "Foo, cursive"},
    {"Fantasy", {"Foo", "fantasy", "Bar"}, "Foo, fantasy"},
    {"Monospace", {"Foo", "monospace", "Bar"}, "Foo, monospace"},
    {"CaseDoesNotMatterAndStays", {"Foo", "Sans-Serif", "Bar"}, "Foo, Sans-Serif"},
    {"GenericFirst", {"serif", "Foo"}, "serif"},
    {"FirstOfSeveralGenerics", {"a", "b", "fantasy", "serif"}, "a, b, fantasy"},
    {"SystemFontsAreNotGeneric", {"caption", "Foo"}, "caption, Foo"},
};

class FontFamily : public testing::TestWithParam<FamilyCase> {};

TEST_P(FontFamily, ReachesTheQFont) {
    TraceGuard trace;
    Ondex::Node node(nullptr, "node");
    AttributeFont font(&node, "font");
    font.setFontFamily({"other"});
    font.setFontFamily(GetParam().families);
    EXPECT_EQ(font.toQFont().family(), GetParam().text);
    EXPECT_EQ(font.fontFamily(), GetParam().families);
}

INSTANTIATE_TEST_SUITE_P(Rows, FontFamily, testing::ValuesIn(familyRows), nameOfRow);

// What the QFont has of the enumerations

TEST(FontCache, StyleIsItalicOrNormal) {
    Ondex::Node node(nullptr, "node");
    AttributeFont font(&node, "font");
    font.setFontStyle(FontStyle::Italic);
    EXPECT_EQ(font.toQFont().style(), QFont::StyleItalic);
    font.setFontStyle(FontStyle::Normal);
    EXPECT_EQ(font.toQFont().style(), QFont::StyleNormal);
    font.setFontStyle(FontStyle::Oblique);
    EXPECT_EQ(font.toQFont().style(), QFont::StyleItalic);
}

TEST(FontCache, VariantIsTheCapitalization) {
    Ondex::Node node(nullptr, "node");
    AttributeFont font(&node, "font");
    font.setFontVariant(FontVariant::SmallCaps);
    EXPECT_EQ(font.toQFont().capitalization(), QFont::SmallCaps);
    font.setFontVariant(FontVariant::Normal);
    EXPECT_EQ(font.toQFont().capitalization(), QFont::MixedCase);
}

TEST(FontCache, OnlyNoneTurnsKerningOff) {
    Ondex::Node node(nullptr, "node");
    AttributeFont font(&node, "font");
    font.setFontKerning(FontKerning::None);
    EXPECT_FALSE(font.toQFont().kerning());
    font.setFontKerning(FontKerning::Normal);
    EXPECT_TRUE(font.toQFont().kerning());
    font.setFontKerning(FontKerning::None);
    font.setFontKerning(FontKerning::Auto);
    EXPECT_TRUE(font.toQFont().kerning());
}

TEST(FontCache, StretchIsTakenAsItIs) {
    Ondex::Node node(nullptr, "node");
    AttributeFont font(&node, "font");
    for (const WordCase& row : wordRows) {
        if (QByteArray(row.longhand) != "font-stretch" || row.value == 100)
            continue;
        font.setFontStretch(FontStretch(row.value));
        EXPECT_EQ(font.toQFont().stretch(), row.value) << row.word;
        EXPECT_EQ(font.fontStretch(), FontStretch(row.value)) << row.word;
    }
    font.setFontStretch(FontStretch::Normal);
    EXPECT_EQ(font.toQFont().stretch(), 100);
}

} // namespace
} // namespace Testing
