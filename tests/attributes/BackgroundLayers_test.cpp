#include "attributes/BackgroundFixture.h"

namespace Testing {
namespace {

using Brisko::AttributeBackground;
using Brisko::BackgroundImage;
using Brisko::CSSParser;
using Ondex::Attribute;
using Ondex::StyleValue;

Texts badBox(const std::string& property, const std::string& text) {
    return {"warning: CSSBoxModel::reloadBackground # Unsupported value for " + property + ": '" + text +
            "', available values: border-box, content-box or padding-box"};
}

const Texts badSize = {"warning: CSSBoxModel::reloadBackground # Unsupported value for background-size"};
const Texts badRepeat = {"warning: CSSBoxModel::reloadBackground # Unsupported value for background-repeat"};

/// A background of @p count layers without images, which stay where there are two or more.
struct Layers {
    explicit Layers(int count) {
        QStringList images;
        for (int i = 0; i < count; ++i)
            images.append("none");
        background.setImages(images);
    }
    const BackgroundImage& operator[](std::size_t i) const { return background.bgImages().at(i); }

    TraceGuard trace;
    Ondex::Node node{nullptr, "node"};
    AttributeBackground background{&node, "background"};
};

// Images

TEST_F(BackgroundOfNode, ImagesMakeTheLayers) {
    background.setImages({"a.png", "none", "c.png"});
    ASSERT_EQ(layerCount(), 3);
    EXPECT_EQ(imageOf(0), 1);
    EXPECT_EQ(imageOf(1), 0);
    EXPECT_EQ(imageOf(2), 3);
}

TEST_F(BackgroundOfNode, LayersOfTheSameImageShareIt) {
    background.setImages({"a.png", "a.png"});
    EXPECT_TRUE(layer(0).image);
    EXPECT_EQ(layer(0).image, layer(1).image);
}

TEST_F(BackgroundOfNode, UnquotedUrlIsFound) {
    setShorthand(background, "url(a.png), url(b.png)");
    ASSERT_EQ(layerCount(), 2);
    EXPECT_EQ(imageOf(0), 1);
    EXPECT_EQ(imageOf(1), 2);
}

TEST_F(BackgroundOfNode, MissingImageLeavesTheLayerEmpty) {
    background.setImages({"a.png", "missing-of-layers.png"});
    EXPECT_EQ(trace.takeWarnings().size(), 1u);
    ASSERT_EQ(layerCount(), 2);
    EXPECT_FALSE(layer(1).image);
}

TEST_F(BackgroundOfNode, OnlyTheExactWordIsNone) {
    background.setImages({"None", "none"});
    EXPECT_EQ(trace.takeWarnings().size(), 1u);
    EXPECT_EQ(layerCount(), 2);
}

TEST_F(BackgroundOfNode, OneLayerWithoutImageVanishesAndTwoStay) {
    background.setImages({"none"});
    EXPECT_EQ(layerCount(), 0);
    background.setImages({"none", "none"});
    EXPECT_EQ(layerCount(), 2);
    background.setImages({"missing-alone.png"});
    EXPECT_EQ(trace.takeWarnings().size(), 1u);
    EXPECT_EQ(layerCount(), 0);
    background.setImages({"a.png"});
    EXPECT_EQ(layerCount(), 1);
    background.setImages({});
    EXPECT_EQ(layerCount(), 0);
}

TEST_F(BackgroundOfNode, LayerOfTheShorthandHasEveryField) {
    setShorthand(background, "url(a.png) space round content-box padding-box right 10px bottom 50% / 10px 20px, none");
    ASSERT_EQ(layerCount(), 2);
    BackgroundImage expected;
    expected.image = Hexley::Mipmap::acquire("a.png", false);
    expected.repeatX = BackgroundImage::SpaceTiles;
    expected.repeatY = BackgroundImage::RoundTiles;
    expected.positionOriginX = BackgroundImage::Right;
    expected.positionOriginY = BackgroundImage::Bottom;
    expected.positionOffsetX = 10.f;
    expected.positionOffsetY = 0.5f;
    expected.offsetUnitY = Attribute::VU_PERCENTAGE;
    expected.clip = BackgroundImage::PaddingBox;
    expected.origin = BackgroundImage::ContentBox;
    expected.sizeModeX = BackgroundImage::Length;
    expected.sizeModeY = BackgroundImage::Length;
    expected.sizeX = 10.f;
    expected.sizeY = 20.f;
    EXPECT_EQ(layer(0), expected);
    BackgroundImage second;
    second.offsetUnitX = second.offsetUnitY = Attribute::VU_PERCENTAGE;
    EXPECT_EQ(layer(1), second);
}

TEST_F(BackgroundOfNode, LayersAreReplacedNotPatched) {
    setShorthand(background, "url(a.png) no-repeat, url(b.png) space");
    setShorthand(background, "url(b.png), url(a.png)");
    EXPECT_EQ(imageOf(0), 2);
    EXPECT_EQ(imageOf(1), 1);
    EXPECT_EQ(layer(0).repeatX, BackgroundImage::RepeatTiles);
}

// Clip and origin

struct BoxCase {
    const char* name;
    const char* text;
    int box; // -1 for the default
};

void PrintTo(const BoxCase& row, std::ostream* out) {
    *out << row.name;
}

const BoxCase boxRows[] = {
    {"BorderBox", "border-box", 0},  {"PaddingBox", "padding-box", 1}, {"ContentBox", "content-box", 2},
    {"MarginBox", "margin-box", -1}, {"UpperCase", "CONTENT-BOX", -1}, {"Blanks", " content-box", -1},
    {"EmptyText", "", -1},
};

class BackgroundBox : public testing::TestWithParam<BoxCase> {};

TEST_P(BackgroundBox, OfALayer) {
    const BoxCase& row = GetParam();
    Layers layers(2);
    layers.background.setClip({"padding-box", row.text});
    EXPECT_EQ(int(layers[1].clip), row.box < 0 ? 0 : row.box);
    EXPECT_EQ(layers.trace.takeAll(), row.box < 0 ? badBox("background-clip", row.text) : Texts());
    layers.background.setClip({});
    layers.background.setOrigin({"border-box", row.text});
    EXPECT_EQ(int(layers[1].origin), row.box < 0 ? 1 : row.box);
    EXPECT_EQ(layers.trace.takeAll(), row.box < 0 ? badBox("background-origin", row.text) : Texts());
}

INSTANTIATE_TEST_SUITE_P(Rows, BackgroundBox, testing::ValuesIn(boxRows), nameOfRow);

TEST(BackgroundBoxes, DefaultWithoutLists) {
    Layers layers(2);
    for (std::size_t i = 0; i < 2; ++i) {
        EXPECT_EQ(layers[i].clip, BackgroundImage::BorderBox);
        EXPECT_EQ(layers[i].origin, BackgroundImage::PaddingBox);
    }
}

TEST(BackgroundBoxes, ShorterListsRepeatAndLongerOnesAreCutOff) {
    Layers layers(5);
    layers.background.setClip({"content-box", "padding-box"});
    layers.background.setOrigin({"content-box", "border-box", "padding-box", "border-box", "content-box", "nosuch"});
    const BackgroundImage::Box clips[] = {BackgroundImage::ContentBox, BackgroundImage::PaddingBox,
                                          BackgroundImage::ContentBox, BackgroundImage::PaddingBox,
                                          BackgroundImage::ContentBox};
    const BackgroundImage::Box origins[] = {BackgroundImage::ContentBox, BackgroundImage::BorderBox,
                                            BackgroundImage::PaddingBox, BackgroundImage::BorderBox,
                                            BackgroundImage::ContentBox};
    for (std::size_t i = 0; i < 5; ++i) {
        EXPECT_EQ(layers[i].clip, clips[i]) << i;
        EXPECT_EQ(layers[i].origin, origins[i]) << i;
    }
}

TEST(BackgroundBoxes, BadItemIsReportedOnceThoughLayersCopyIt) {
    Layers layers(4);
    layers.background.setClip({"content-box", "margin-box"});
    EXPECT_EQ(layers.trace.takeAll(), badBox("background-clip", "margin-box"));
    EXPECT_EQ(layers[1].clip, BackgroundImage::BorderBox);
    EXPECT_EQ(layers[2].clip, BackgroundImage::ContentBox);
    EXPECT_EQ(layers[3].clip, BackgroundImage::BorderBox);
}

// Colour clip

TEST(BackgroundColorClip, OneClipCountsWithoutImages) {
    const struct {
        const char* text;
        int box;
    } rows[] = {{"content-box", 2}, {"padding-box", 1}, {"border-box", 0}};
    for (const auto& row : rows) {
        Layers layers(0);
        layers.background.setClip({row.text});
        EXPECT_EQ(int(layers.background.backgroundColorClip()), row.box) << row.text;
    }
}

TEST(BackgroundColorClip, BadClipWithoutImagesLeavesItAsItWas) {
    Layers layers(0);
    layers.background.setClip({"content-box"});
    layers.background.setClip({"margin-box"});
    EXPECT_EQ(layers.trace.takeAll(), badBox("background-clip", "margin-box"));
    EXPECT_EQ(layers.background.backgroundColorClip(), BackgroundImage::ContentBox);
}

TEST(BackgroundColorClip, SeveralClipsWithoutImagesAreTheBorderBox) {
    Layers layers(0);
    layers.background.setClip({"content-box"});
    layers.background.setClip({"content-box", "content-box"});
    EXPECT_EQ(layers.background.backgroundColorClip(), BackgroundImage::BorderBox);
    layers.background.setClip({"content-box"});
    layers.background.setClip({});
    EXPECT_EQ(layers.background.backgroundColorClip(), BackgroundImage::BorderBox);
}

TEST(BackgroundColorClip, IsTheClipOfTheLastLayer) {
    Layers layers(3);
    layers.background.setClip({"content-box", "padding-box", "border-box"});
    EXPECT_EQ(layers.background.backgroundColorClip(), BackgroundImage::BorderBox);
    layers.background.setClip({"content-box", "padding-box"});
    EXPECT_EQ(layers.background.backgroundColorClip(), BackgroundImage::ContentBox);
    layers.background.setClip({"content-box", "border-box", "padding-box", "border-box"});
    EXPECT_EQ(layers.background.backgroundColorClip(), BackgroundImage::PaddingBox);
}

TEST(BackgroundColorClip, IsTakenBeforeTheOnlyLayerVanishes) {
    Layers layers(1);
    layers.background.setClip({"content-box"});
    EXPECT_TRUE(layers.background.bgImages().empty());
    EXPECT_EQ(layers.background.backgroundColorClip(), BackgroundImage::ContentBox);
}

TEST(BackgroundColorClip, BadClipOfTheOnlyLayerIsTheBorderBox) {
    Layers layers(1);
    layers.background.setClip({"content-box"});
    layers.background.setClip({"margin-box"});
    EXPECT_EQ(layers.trace.takeAll(), badBox("background-clip", "margin-box"));
    EXPECT_EQ(layers.background.backgroundColorClip(), BackgroundImage::BorderBox);
}

// Size

struct SizeCase {
    const char* name;
    QByteArray value;
    int modeX, modeY;
    float x, y;
    Texts messages;
};

void PrintTo(const SizeCase& row, std::ostream* out) {
    *out << row.name;
}

const SizeCase sizeRows[] = {
    {"Contain", "contain", 0, 0, 0.f, 0.f, {}},
    {"Cover", "cover", 1, 1, 0.f, 0.f, {}},
    {"Auto", "auto", 4, 4, 0.f, 0.f, {}},
    {"Percentage", "50%", 3, 4, 0.5f, 0.f, {}},
    {"Pixels", "10px", 2, 4, 10.f, 0.f, {}},
    {"Ems", "2em", 2, 4, 2.f, 0.f, {}},
    {"PlainNumber", "10", 2, 4, 10.f, 0.f, {}},
    {"UnknownWordIsALengthOfZero", "large", 2, 4, 0.f, 0.f, {}},
    {"TwoLengths", "10px 20px", 2, 2, 10.f, 20.f, {}},
    {"TwoPercentages", "50% 25%", 3, 3, 0.5f, 0.25f, {}},
    {"LengthAndPercentage", "10px 25%", 2, 3, 10.f, 0.25f, {}},
    {"PercentageAndLength", "50% 20px", 3, 2, 0.5f, 20.f, {}},
    {"AutoAndLength", "auto 20px", 4, 2, 0.f, 20.f, {}},
    {"LengthAndAuto", "10px auto", 2, 4, 10.f, 0.f, {}},
    {"TwoAutos", "auto auto", 4, 4, 0.f, 0.f, {}},
    {"ContainInAPairIsALengthOfZero", "contain 20px", 2, 2, 0.f, 20.f, {}},
    {"ThreeLengths", "10px 20px 30px", 4, 4, 0.f, 0.f, badSize},
};

class BackgroundSize : public testing::TestWithParam<SizeCase> {};

TEST_P(BackgroundSize, OfALayer) {
    const SizeCase& row = GetParam();
    Layers layers(2);
    layers.background.setSize(CSSParser::parseValue(row.value));
    for (std::size_t i = 0; i < 2; ++i) { // the second layer copies the first
        EXPECT_EQ(int(layers[i].sizeModeX), row.modeX);
        EXPECT_EQ(int(layers[i].sizeModeY), row.modeY);
        EXPECT_EQ(layers[i].sizeX, row.x);
        EXPECT_EQ(layers[i].sizeY, row.y);
    }
    EXPECT_EQ(layers.trace.takeAll(), row.messages);
}

INSTANTIATE_TEST_SUITE_P(Rows, BackgroundSize, testing::ValuesIn(sizeRows), nameOfRow);

TEST(BackgroundSizes, ShorterListsRepeat) {
    Layers layers(5);
    layers.background.setSize(CSSParser::parseValue("cover, 10px 50%, contain"));
    const int modes[] = {1, 2, 0, 1, 2};
    for (std::size_t i = 0; i < 5; ++i)
        EXPECT_EQ(int(layers[i].sizeModeX), modes[i]) << i;
    EXPECT_EQ(layers[4].sizeX, 10.f);
    EXPECT_EQ(layers[4].sizeY, 0.5f);
    EXPECT_EQ(layers[4].sizeModeY, BackgroundImage::Percentage);
}

TEST(BackgroundSizes, EmptyValueLeavesTheDefault) {
    Layers layers(2);
    layers.background.setSize(StyleValue());
    EXPECT_EQ(layers[0].sizeModeX, BackgroundImage::Auto);
}

// Repeat

struct RepeatCase {
    const char* name;
    QByteArray value;
    int x, y;
    Texts messages;
};

void PrintTo(const RepeatCase& row, std::ostream* out) {
    *out << row.name;
}

const RepeatCase repeatRows[] = {
    {"RepeatX", "repeat-x", 0, 3, {}},
    {"RepeatY", "repeat-y", 3, 0, {}},
    {"Repeat", "repeat", 0, 0, {}},
    {"Space", "space", 1, 1, {}},
    {"Round", "round", 2, 2, {}},
    {"NoRepeat", "no-repeat", 3, 3, {}},
    {"RepeatRepeat", "repeat repeat", 0, 0, {}},
    {"RepeatSpace", "repeat space", 0, 1, {}},
    {"RepeatRound", "repeat round", 0, 2, {}},
    {"RepeatNoRepeat", "repeat no-repeat", 0, 3, {}},
    {"SpaceRepeat", "space repeat", 1, 0, {}},
    {"SpaceSpace", "space space", 1, 1, {}},
    {"SpaceRound", "space round", 1, 2, {}},
    {"SpaceNoRepeat", "space no-repeat", 1, 3, {}},
    {"RoundRepeat", "round repeat", 2, 0, {}},
    {"RoundSpace", "round space", 2, 1, {}},
    {"RoundRound", "round round", 2, 2, {}},
    {"RoundNoRepeat", "round no-repeat", 2, 3, {}},
    {"NoRepeatRepeat", "no-repeat repeat", 3, 0, {}},
    {"NoRepeatSpace", "no-repeat space", 3, 1, {}},
    {"NoRepeatRound", "no-repeat round", 3, 2, {}},
    {"NoRepeatNoRepeat", "no-repeat no-repeat", 3, 3, {}},
    {"UnknownWord", "sometimes", 0, 0, badRepeat},
    {"UpperCase", "SPACE", 0, 0, badRepeat},
    {"Number", "3", 0, 0, badRepeat},
    {"UnknownFirstOfAPair", "sometimes round", 0, 2, badRepeat},
    {"UnknownSecondOfAPair", "round sometimes", 2, 0, badRepeat},
    {"BothOfAPairUnknown", "now then", 0, 0, badRepeat},
    {"RepeatXInAPairIsUnknown", "repeat-x round", 0, 2, badRepeat},
    {"ThreeWords", "round round round", 0, 0, badRepeat},
};

class BackgroundRepeat : public testing::TestWithParam<RepeatCase> {};

TEST_P(BackgroundRepeat, OfALayer) {
    const RepeatCase& row = GetParam();
    Layers layers(2);
    layers.background.setRepeat(CSSParser::parseValue(row.value));
    for (std::size_t i = 0; i < 2; ++i) {
        EXPECT_EQ(int(layers[i].repeatX), row.x);
        EXPECT_EQ(int(layers[i].repeatY), row.y);
    }
    EXPECT_EQ(layers.trace.takeAll(), row.messages);
}

INSTANTIATE_TEST_SUITE_P(Rows, BackgroundRepeat, testing::ValuesIn(repeatRows), nameOfRow);

TEST_F(BackgroundOfNode, ThirdLayerCopiesTheRepeatOfTheFirst) {
    background.setImages({"a.png", "b.png", "c.png"});
    background.setRepeat(CSSParser::parseValue("no-repeat, repeat-x"));
    const int repeats[][2] = {{3, 3}, {0, 3}, {3, 3}};
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(int(layer(i).repeatX), repeats[i][0]) << i;
        EXPECT_EQ(int(layer(i).repeatY), repeats[i][1]) << i;
    }
}

} // namespace
} // namespace Testing
