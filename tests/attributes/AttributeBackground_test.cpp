#include "Brisko/AttributeBackground.h"

#include "Ondex/Archive.h"
#include "attributes/BackgroundFixture.h"
#include "styling/StylingFixture.h"

#include <memory>

namespace Testing {
namespace {

using Brisko::AttributeBackground;
using Brisko::BackgroundImage;
using Brisko::CSSParser;
using Gorvel::ColorPMA;
using Ondex::Attribute;
using Ondex::StyleValue;

const Texts longhands = {"background-color", "background-image",  "background-clip",    "background-origin",
                         "background-size",  "background-repeat", "background-position"};

/// The parts of a shorthand, each list as it is expected.
std::string partsOf(const std::string& image, const std::string& clip, const std::string& origin,
                    const std::string& size, const std::string& repeat, const std::string& position,
                    const std::string& color) {
    return "background-image: " + image + "; background-clip: " + clip + "; background-origin: " + origin +
           "; background-size: " + size + "; background-repeat: " + repeat + "; background-position: " + position +
           "; background-color: " + color;
}

const std::string white = "rgba_pma(1 1 1 1)";
const std::string red = "rgba_pma(1 0 0 1)";

/// The parts of one layer that gives a position only.
std::string onlyPosition(const std::string& position, const std::string& color = white) {
    return partsOf("none", "border-box", "padding-box", "auto", "repeat", position, color);
}

std::string onlyRepeat(const std::string& repeat) {
    return partsOf("none", "border-box", "padding-box", "auto", repeat, "0% 0%", white);
}

std::string onlySize(const std::string& size, const std::string& position = "0% 0%") {
    return partsOf("none", "border-box", "padding-box", size, "repeat", position, white);
}

std::string onlyBoxes(const std::string& origin, const std::string& clip) {
    return partsOf("none", clip, origin, "auto", "repeat", "0% 0%", white);
}

Texts unexpected(const std::string& word) {
    return {"error: AttributeBackground # parse error, unexpected '" + word + "'"};
}

class BackgroundShorthand : public testing::TestWithParam<ShorthandCase> {};

TEST_P(BackgroundShorthand, GivesTheLonghandsTheirParts) {
    Ondex::Node node(nullptr, "node");
    AttributeBackground background(&node, "background");
    expectCase(background, GetParam());
}

const ShorthandCase imageRows[] = {
    {"Url",
     "url(a.png)",
     true,
     partsOf("\"a.png)\"", "border-box", "padding-box", "auto", "repeat", "0% 0%", white),
     {}},
    {"QuotedUrl",
     "url(\"a.png\")",
     true,
     partsOf("\"a.png\"", "border-box", "padding-box", "auto", "repeat", "0% 0%", white),
     {}},
    {"TextIsAnImageToo",
     "\"a.png\"",
     true,
     partsOf("\"a.png\"", "border-box", "padding-box", "auto", "repeat", "0% 0%", white),
     {}},
    {"None", "none", true, onlyPosition("0% 0%"), {}},
    {"LaterImageReplaces",
     "url(\"a.png\") url(\"b.png\")",
     true,
     partsOf("\"b.png\"", "border-box", "padding-box", "auto", "repeat", "0% 0%", white),
     {}},
    {"NoneReplacesAnImage", "url(\"a.png\") none", true, onlyPosition("0% 0%"), {}},
    {"UpperCaseNoneIsAPosition", "NONE left", true, onlyPosition("NONE left"), {}},
    {"LayersGiveOneItemEach",
     "url(\"a.png\") no-repeat center / 10px 20px, url(\"b.png\")",
     true,
     partsOf("\"a.png\", \"b.png\"", "border-box, border-box", "padding-box, padding-box", "10px 20px, auto",
             "no-repeat, repeat", "center, 0% 0%", white),
     {}},
    {"ThreeEmptyLayers",
     "none, none, none",
     true,
     partsOf("none, none, none", "border-box, border-box, border-box", "padding-box, padding-box, padding-box",
             "auto, auto, auto", "repeat, repeat, repeat", "0% 0%, 0% 0%, 0% 0%", white),
     {}},
};
INSTANTIATE_TEST_SUITE_P(Image, BackgroundShorthand, testing::ValuesIn(imageRows), nameOfRow);

const ShorthandCase boxRows[] = {
    {"OneBoxIsOriginAndClip", "content-box", true, onlyBoxes("content-box", "content-box"), {}},
    {"SecondBoxIsTheClip", "content-box padding-box", true, onlyBoxes("content-box", "padding-box"), {}},
    {"ThirdBoxIsTheClip", "content-box padding-box border-box", true, onlyBoxes("content-box", "border-box"), {}},
    {"AnyWordWithBox", "my-boxes", true, onlyBoxes("my-boxes", "my-boxes"), {}},
    {"UpperCaseBoxIsAPosition", "CONTENT-BOX left", true, onlyPosition("CONTENT-BOX left"), {}},
};
INSTANTIATE_TEST_SUITE_P(Box, BackgroundShorthand, testing::ValuesIn(boxRows), nameOfRow);

const ShorthandCase repeatRows[] = {
    {"Repeat", "repeat", true, onlyRepeat("repeat"), {}},
    {"RepeatX", "repeat-x", true, onlyRepeat("repeat-x"), {}},
    {"RepeatY", "repeat-y", true, onlyRepeat("repeat-y"), {}},
    {"NoRepeat", "no-repeat", true, onlyRepeat("no-repeat"), {}},
    {"Space", "space", true, onlyRepeat("space"), {}},
    {"Round", "round", true, onlyRepeat("round"), {}},
    {"Pair", "space round", true, onlyRepeat("space round"), {}},
    {"WordsApart",
     "space 10px round",
     true,
     partsOf("none", "border-box", "padding-box", "auto", "space round", "10px", white),
     {}},
    {"AnyWordWithRepeat", "my-repeating", true, onlyRepeat("my-repeating"), {}},
    {"WordWithSpaceIsAPosition", "spaced left", true, onlyPosition("spaced left"), {}},
};
INSTANTIATE_TEST_SUITE_P(Repeat, BackgroundShorthand, testing::ValuesIn(repeatRows), nameOfRow);

const ShorthandCase sizeRows[] = {
    {"SizeOfTwoLengths", "left / 10px 20px", true, onlySize("10px 20px", "left"), {}},
    {"SizeOfOneLength", "left / 10px", true, onlySize("10px", "left"), {}},
    {"SizeWithoutUnitFollowedByLength", "left / 10 20px", true, onlySize("10 20px", "left"), {}},
    {"NumberWithoutUnitIsNoHeight", "left / 10px 20", true, onlySize("10px", "left 20"), {}},
    {"WordIsNoHeight", "left / 10px auto", true, onlySize("10px", "left auto"), {}},
    {"WordAsSize", "left / cover", true, onlySize("cover", "left"), {}},
    {"WordThenLength", "left / auto 20px", true, onlySize("auto 20px", "left"), {}},
    {"ThirdLengthIsAPosition", "left / 10px 20px 30px", true, onlySize("10px 20px", "left 30px"), {}},
    {"SecondSlashGoesOnWithTheSize", "left / 10px / 20px", true, onlySize("10px 20px", "left"), {}},
    {"SizeAfterAnImage",
     "url(\"a\") / 50% 50%",
     true,
     partsOf("\"a\"", "border-box", "padding-box", "50% 50%", "repeat", "0% 0%", white),
     {}},
    {"WordOfTheSizeIsNoColor", "left / red", true, onlySize("red", "left"), {}},
};
INSTANTIATE_TEST_SUITE_P(Size, BackgroundShorthand, testing::ValuesIn(sizeRows), nameOfRow);

const ShorthandCase positionRows[] = {
    {"Word", "center", true, onlyPosition("center"), {}},
    {"Numbers", "10px 20", true, onlyPosition("10px 20"), {}},
    {"FourPieces", "right 10px bottom 20px", true, onlyPosition("right 10px bottom 20px"), {}},
    {"UnknownWordAtTheEnd", "left fancy", true, onlyPosition("left fancy"), {}},
    {"PiecesApart",
     "left no-repeat 20px",
     true,
     partsOf("none", "border-box", "padding-box", "auto", "no-repeat", "left 20px", white),
     {}},
};
INSTANTIATE_TEST_SUITE_P(Position, BackgroundShorthand, testing::ValuesIn(positionRows), nameOfRow);

const ShorthandCase colorRows[] = {
    {"ColorWordAlone", "red", true, onlyPosition("0% 0%", red), {}},
    {"ColorWordInUpperCase", "RED", true, onlyPosition("0% 0%", red), {}},
    {"TransparentIsAColorWord", "transparent", true, onlyPosition("0% 0%", "rgba_pma(0 0 0 0)"), {}},
    {"ColorWordAtTheEnd", "left red", true, onlyPosition("left", red), {}},
    {"ColorWordBeforeTheEndIsAPosition", "red left", true, onlyPosition("red left"), {}},
    {"ColorWordOfTheFirstLayerIsAPosition",
     "red, none",
     true,
     partsOf("none, none", "border-box, border-box", "padding-box, padding-box", "auto, auto", "repeat, repeat",
             "red, 0% 0%", white),
     {}},
    {"ColorWordOfTheLastLayer",
     "none, red",
     true,
     partsOf("none, none", "border-box, border-box", "padding-box, padding-box", "auto, auto", "repeat, repeat",
             "0% 0%, 0% 0%", red),
     {}},
    {"TypedColorAlone", "#f00", true, onlyPosition("0% 0%", red), {}},
    {"TypedColorWithAlpha", "rgba(255, 0, 0, 0.5)", true, onlyPosition("0% 0%", "rgba_pma(0.5 0 0 0.5)"), {}},
    {"TypedColorAtTheEndOfAnyLayer",
     "left #f00, none",
     true,
     partsOf("none, none", "border-box, border-box", "padding-box, padding-box", "auto, auto", "repeat, repeat",
             "left, 0% 0%", red),
     {}},
    {"LaterColorReplaces",
     "#00f, #f00",
     true,
     partsOf("none, none", "border-box, border-box", "padding-box, padding-box", "auto, auto", "repeat, repeat",
             "0% 0%, 0% 0%", red),
     {}},
    {"TypedColorBeforeTheEndIsUnexpected", "#f00 left", false, onlyPosition("left"), unexpected("")},
    {"EveryUnexpectedColorIsReported",
     "#f00 #0f0 left",
     false,
     onlyPosition("left"),
     {unexpected("")[0], unexpected("")[0]}},
    {"CalculationIsUnexpected", "left calc(1 + 2)", false, onlyPosition("left"), unexpected("")},
    {"ReadingGoesOnAfterTheUnexpected", "#f00 url(\"a\"), #00f", false,
     partsOf("\"a\", none", "border-box, border-box", "padding-box, padding-box", "auto, auto", "repeat, repeat",
             "0% 0%, 0% 0%", "rgba_pma(0 0 1 1)"),
     unexpected("")},
};
INSTANTIATE_TEST_SUITE_P(Color, BackgroundShorthand, testing::ValuesIn(colorRows), nameOfRow);

// Structure

TEST_F(BackgroundOfNode, MakesItsLonghandsInOrder) {
    Texts names = {"background"};
    names.insert(names.end(), longhands.begin(), longhands.end());
    EXPECT_EQ(namesOf(node), names);
    for (const std::string& longhand : longhands)
        EXPECT_EQ(node.attribute(longhand.c_str())->ownerShorthand(), &background) << longhand;
}

TEST_F(BackgroundOfNode, LonghandsHaveTheirDefaults) {
    EXPECT_EQ(background.color(), ColorPMA(1.f, 1.f, 1.f, 1.f));
    EXPECT_EQ(background.images(), QStringList());
    EXPECT_EQ(background.clip(), QStringList());
    EXPECT_EQ(background.origin(), QStringList());
    EXPECT_EQ(dumpValue(background.size()), "auto");
    EXPECT_EQ(dumpValue(background.repeat()), "repeat");
    EXPECT_TRUE(background.position().isEmpty());
    EXPECT_EQ(layerCount(), 0);
    EXPECT_EQ(background.backgroundColorClip(), BackgroundImage::BorderBox);
}

TEST_F(BackgroundOfNode, TextOfTheColorHasSixDigits) {
    background.setColor(ColorPMA(1.f / 3.f, 0.f, 1.f, 1.f / 3.f));
    EXPECT_EQ(textOf(node, "background-color"), "rgba_pma(85, 0, 255, 0.333333)");
}

TEST_F(BackgroundOfNode, SettersWriteTheUserLayer) {
    background.setColor(ColorPMA(0.5f, 0.f, 0.f, 0.5f));
    background.setImages({"a.png"});
    background.setClip({"content-box"});
    background.setOrigin({"border-box"});
    background.setSize(CSSParser::parseValue("10px 20px"));
    background.setRepeat(StyleValue(QByteArray("no-repeat")));
    background.setPosition(StyleValue(QByteArray("center")));
    const Texts values = {
        "rgba_pma(127.5, 0, 0, 0.5)", "a.png", "content-box", "border-box", "10px 20px", "no-repeat", "center"};
    for (std::size_t i = 0; i < longhands.size(); ++i)
        EXPECT_EQ(textOf(node, longhands[i].c_str(), Attribute::UserLayer).toStdString(), values[i]) << longhands[i];
    EXPECT_EQ(background.color(), ColorPMA(0.5f, 0.f, 0.f, 0.5f));
    EXPECT_EQ(background.images(), QStringList{"a.png"});
    EXPECT_EQ(background.clip(), QStringList{"content-box"});
    EXPECT_EQ(background.origin(), QStringList{"border-box"});
}

TEST_F(BackgroundOfNode, EveryLonghandThatChangesRebuildsOnce) {
    ChangeCount changes(background);
    const Texts values = {"red", "\"a.png\"", "content-box", "border-box", "cover", "no-repeat", "center"};
    for (std::size_t i = 0; i < longhands.size(); ++i) {
        setValue(node, longhands[i].c_str(), values[i].c_str());
        EXPECT_EQ(changes.take(), 1) << longhands[i];
        setValue(node, longhands[i].c_str(), values[i].c_str());
        EXPECT_EQ(changes.take(), 0) << longhands[i];
    }
}

TEST_F(BackgroundOfNode, DeserializeReadsNothing) {
    Ondex::ArchiveElement element("background");
    for (const char* content : {"", "red", "url(a.png)"}) {
        element.set(content);
        EXPECT_FALSE(background.deserialize(element)) << content;
    }
    EXPECT_FALSE(background.deserialize(Ondex::ArchiveElement()));
    for (const std::string& longhand : longhands)
        EXPECT_FALSE(node.attribute(longhand.c_str())->isChanged()) << longhand;
}

TEST_F(BackgroundOfNode, EmptyValueGivesTheColorOnly) {
    Parts parts;
    EXPECT_TRUE(background.handleShorthand(StyleValue(), parts));
    EXPECT_EQ(dumpParts(parts), "background-color: " + white);
}

// In the cascade

TEST(BackgroundInSheets, ShorthandRebuildsOncePerLonghandThatChanges) {
    TraceGuard trace;
    TestNode node("a");
    AttributeBackground background(&node, "background");
    ChangeCount changes(background);
    const auto style = Brisko::Style(sheetOf("a {background: none, no-repeat center / 10px 20px, red}"));
    node.setStyle(style);
    EXPECT_EQ(changes.take(), 7);
    EXPECT_EQ(background.bgImages().size(), 3u);
    node.setStyle(style);
    EXPECT_EQ(changes.take(), 0);
    styleWith(node, "a {background: none, no-repeat center / 10px 20px, blue}");
    EXPECT_EQ(changes.take(), 1);
}

TEST(BackgroundInSheets, LonghandAfterTheShorthandWins) {
    TraceGuard trace;
    TestNode node("a");
    const AttributeBackground background(&node, "background");
    styleWith(node, "a {background-color: red; background: content-box blue; background-clip: padding-box}");
    EXPECT_EQ(background.color(), ColorPMA(0.f, 0.f, 1.f, 1.f));
    EXPECT_EQ(background.origin(), QStringList{"content-box"});
    EXPECT_EQ(background.clip(), QStringList{"padding-box"});
    EXPECT_EQ(background.backgroundColorClip(), BackgroundImage::PaddingBox);
}

TEST(BackgroundInSheets, RefusedShorthandIsNotApplied) {
    TraceGuard trace;
    TestNode node("a");
    const AttributeBackground background(&node, "background");
    styleWith(node, "a {background: #f00 left}");
    const Texts errors = trace.takeErrors();
    ASSERT_EQ(errors.size(), 2u);
    EXPECT_EQ("error: " + errors[0], unexpected("")[0]);
    EXPECT_NE(errors[1].find("# Failed to set property 'background' to ["), std::string::npos) << errors[1];
    for (const std::string& longhand : longhands)
        EXPECT_FALSE(node.attribute(longhand.c_str())->isChanged()) << longhand;
}

TEST(BackgroundInSheets, RuleThatNoLongerMatchesTakesItsLayersAway) {
    TraceGuard trace;
    TestNode node("a");
    const AttributeBackground background(&node, "background");
    styleWith(node, "a.on {background: content-box, padding-box red}");
    node.addCSSClass("on");
    EXPECT_EQ(background.bgImages().size(), 2u);
    EXPECT_EQ(background.backgroundColorClip(), BackgroundImage::PaddingBox);
    node.removeCSSClass("on");
    EXPECT_EQ(background.bgImages().size(), 0u);
    EXPECT_EQ(background.backgroundColorClip(), BackgroundImage::BorderBox);
    EXPECT_EQ(background.color(), ColorPMA(1.f, 1.f, 1.f, 1.f));
}

// Lifetimes

TEST(BackgroundLifetime, HostDeletesTheLonghandsToo) {
    auto node = std::make_unique<Ondex::Node>(nullptr, "node");
    auto* background = new AttributeBackground(node.get(), "background");
    background->setImages({"none", "none"});
    node.reset();
}

TEST(BackgroundLifetime, DeletedAloneLeavesTheNode) {
    Ondex::Node node(nullptr, "node");
    Ondex::AttributeT<float> other(&node, "other");
    delete new AttributeBackground(&node, "background");
    EXPECT_EQ(namesOf(node), (Texts{"other"}));
}

TEST(BackgroundLifetime, ListenerMayDeleteTheBackground) {
    Ondex::Node node(nullptr, "node");
    auto* background = new AttributeBackground(&node, "background");
    background->addListener([background] { delete background; }, 5);
    setValue(node, "background-color", "red");
    EXPECT_EQ(namesOf(node), Texts());
}

} // namespace
} // namespace Testing
