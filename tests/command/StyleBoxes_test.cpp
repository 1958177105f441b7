#include "command/CommandRun.h"

#include <QImage>
#include <QJsonDocument>

namespace {

using Testing::childOf;
using Testing::CommandTest;
using Testing::RunResult;
using Testing::texts;
using Testing::valueOf;

std::string compact(const QJsonValue& value) {
    return QJsonDocument(QJsonArray{value}).toJson(QJsonDocument::Compact).toStdString();
}

/// What a path of keys and indices, separated by blanks, leads to, as JSON in an array.
std::string at(const QJsonObject& node, const char* path) {
    QJsonValue value = node;
    for (const QString& step : QString(path).split(' ')) {
        bool isIndex = false;
        const int index = step.toInt(&isIndex);
        value = isIndex ? value[index] : value[step];
    }
    return compact(value);
}

struct BoxCase {
    const char* name;
    const char* declarations;
    const char* path; ///< of keys and indices, from the node
    const char* value;
};

class StyleBoxes : public CommandTest, public testing::WithParamInterface<BoxCase> {};

TEST_P(StyleBoxes, AreWritten) {
    const QJsonObject root = styledRoot("<a/>", std::string("a { ") + GetParam().declarations + " }");
    EXPECT_EQ(at(root, GetParam().path), GetParam().value);
}

constexpr char uneven[] = "width: 200px; height: 50px; padding: 1px 2px 3px 4px; border: 5px solid red; "
                          "border-left: none; margin: 10px 20px";
constexpr char sized[] = "background: url(x.png) repeat-x right 10px bottom 20% / 50% 30px, url(y.png) round "
                         "center / cover content-box padding-box";
constexpr char font[] = "font: italic small-caps 700 expanded 24px/1.5 Foo, sans-serif, Bar; font-kerning: none";

INSTANTIATE_TEST_SUITE_P(
    Boxes, StyleBoxes,
    testing::Values(BoxCase{"ContentOfAFreshNode", "", "boxes content", "[[0,0,100,100]]"},
                    BoxCase{"SizeOfAFreshNode", "", "boxes size", "[[100,100]]"},
                    BoxCase{"Content", uneven, "boxes content", "[[0,0,200,50]]"},
                    BoxCase{"Padding", uneven, "boxes padding", "[[-4,-1,202,53]]"},
                    BoxCase{"BorderBox", uneven, "boxes border", "[[-4,-6,207,58]]"},
                    BoxCase{"Margin", uneven, "boxes margin", "[[-24,-16,227,68]]"},
                    BoxCase{"Size", uneven, "boxes size", "[[251,84]]"},
                    BoxCase{"BackgroundIsTheBorderBox", uneven, "boxes background", "[[-4,-6,207,58]]"},
                    BoxCase{"BackgroundInThePadding", "padding: 5px; background: padding-box red", "boxes background",
                            "[[-5,-5,105,105]]"},
                    BoxCase{"BackgroundInTheContent", "padding: 5px; background: content-box red", "boxes background",
                            "[[0,0,100,100]]"},
                    BoxCase{"WhatIsNotFinite", "width: calc(1 / 0)", "boxes content 2", "[\"inf\"]"}),
    [](const auto& tested) { return tested.param.name; });

INSTANTIATE_TEST_SUITE_P(
    Borders, StyleBoxes,
    testing::Values(
        BoxCase{"NoneIsUniform", "", "border uniform", "[true]"}, BoxCase{"NoFrame", "", "border frame", "[[0,0,0,0]]"},
        BoxCase{"FreshSide", "", "border sides 3", R"([{"color":[1,1,1,1],"style":0,"width":0}])"},
        BoxCase{"FourEqualSides", "border: 2px solid red", "border uniform", "[true]"},
        BoxCase{"OneOtherColor", "border: 2px solid red; border-left-color: blue", "border uniform", "[false]"},
        BoxCase{"FrameOfAllSides", "border: solid; border-width: 1px 2px 3px", "border frame", "[[1,2,3,2]]"},
        BoxCase{"FrameWithoutStyle", "border: 2px none red", "border frame", "[[0,0,0,0]]"},
        BoxCase{"SideKeepsItsWidthWithoutStyle", "border: 2px none red", "border sides 0",
                R"([{"color":[1,0,0,1],"style":0,"width":2}])"},
        BoxCase{"RightIsTheSecondSide", "border-right: thick solid rgba(0, 0, 255, 0.5)", "border sides 1",
                R"([{"color":[0,0,0.5,0.5],"style":1,"width":5}])"}),
    [](const auto& tested) { return tested.param.name; });

INSTANTIATE_TEST_SUITE_P(
    Backgrounds, StyleBoxes,
    testing::Values(BoxCase{"FreshColor", "", "background color", "[[1,1,1,1]]"},
                    BoxCase{"NoLayers", "", "background layers", "[[]]"},
                    BoxCase{"Color", "background: rgba(255, 0, 0, 0.5)", "background color", "[[0.5,0,0,0.5]]"},
                    BoxCase{"ColorClip", "background: content-box red", "background colorClip", "[2]"},
                    BoxCase{"ColorAloneIsNoLayer", "background: red", "background layers", "[[]]"},
                    BoxCase{"NoImage", sized, "background layers 0 image", "[false]"},
                    BoxCase{"Repeat", sized, "background layers 0 repeat", "[[0,3]]"},
                    BoxCase{"PositionOrigin", sized, "background layers 0 positionOrigin", "[[2,4]]"},
                    BoxCase{"OffsetUnit", sized, "background layers 0 offsetUnit", "[[1,2]]"},
                    BoxCase{"SizeMode", sized, "background layers 0 sizeMode", "[[3,2]]"},
                    BoxCase{"ClipByDefault", sized, "background layers 0 clip", "[0]"},
                    BoxCase{"OriginByDefault", sized, "background layers 0 origin", "[1]"},
                    BoxCase{"Cover", sized, "background layers 1 sizeMode", "[[1,1]]"},
                    BoxCase{"Center", sized, "background layers 1 positionOffset", "[[0.5,0.5]]"},
                    BoxCase{"Clip", sized, "background layers 1 clip", "[1]"},
                    BoxCase{"Origin", sized, "background layers 1 origin", "[2]"},
                    BoxCase{"ClipOfTheLastLayer", sized, "background colorClip", "[1]"},
                    BoxCase{"WholeLayer", "background-image: url(x.png), none", "background layers 0",
                            R"([{"clip":0,"image":false,"offsetUnit":[1,1],"origin":1,"positionOffset":[0,0],)"
                            R"("positionOrigin":[0,3],"repeat":[0,0],"size":[0,0],"sizeMode":[4,4]}])"}),
    [](const auto& tested) { return tested.param.name; });

INSTANTIATE_TEST_SUITE_P(
    Fonts, StyleBoxes,
    testing::Values(BoxCase{"Family", font, "font family", R"([["Foo","sans-serif","Bar"]])"},
                    BoxCase{"Style", font, "font style", "[1]"}, BoxCase{"Variant", font, "font variant", "[1]"},
                    BoxCase{"Weight", font, "font weight", "[75]"}, BoxCase{"Kerning", font, "font kerning", "[2]"},
                    BoxCase{"Stretch", font, "font stretch", "[125]"},
                    BoxCase{"SizeInPixels", font, "font sizePixels", "[24]"},
                    BoxCase{"Text", font, "font text", R"(["italic 700 24px/1.5 Foo, sans-serif, Bar"])"},
                    BoxCase{"Cache", font, "font cache",
                            R"([{"family":"Foo, sans-serif","italic":true,"kerning":false,"pointSize":18,)"
                            R"("smallCaps":true,"stretch":125,"weight":75}])"},
                    BoxCase{"LineHeightMakesAFont", "line-height: 20px", "font text",
                            R"(["normal normal medium/20px "])"},
                    BoxCase{"SizeOfThatFont", "line-height: 20px", "font sizePixels", "[16]"},
                    BoxCase{"PointsOfThatFont", "line-height: 20px", "font cache pointSize", "[12]"}),
    [](const auto& tested) { return tested.param.name; });

INSTANTIATE_TEST_SUITE_P(
    Tuples, StyleBoxes,
    testing::Values(BoxCase{"ComponentListsTheTuple", "width: 20px", "attributes size value", "[[20,100]]"},
                    BoxCase{"TupleOnALayer", "width: 20px", "attributes size layers", R"([{"1":[20,100]}])"},
                    BoxCase{"TupleText", "height: 20px", "attributes size text", "[\"100 20\"]"},
                    BoxCase{"TupleHasNoSource", "height: 20px", "attributes size source", "[null]"},
                    BoxCase{"Frame", "padding: 1px 2px 3px", "attributes padding value", "[[1,2,3,2]]"},
                    BoxCase{"ImportantComponent", "margin-left: 7px !important", "attributes margin layers",
                            R"([{"3":[0,0,0,7]}])"},
                    BoxCase{"Location", "y: 3px", "attributes location value", "[[0,3]]"}),
    [](const auto& tested) { return tested.param.name; });

class StyleBoxModel : public CommandTest {};

TEST_F(StyleBoxModel, MembersStandInOrder) {
    const std::string sheet = write("a.css", "a { font: 12px Foo; background: url(n.png), none; width: 1px }");
    const std::string out = run({"style", write("s.xml", "<a/>"), "-s", sheet, "--format", "json"}).out;
    const char* keys[] = {
        "path",       "type",        "id",        "classes",  "pseudoClasses", "attributes",     "boxes",
        "content",    "padding",     "border",    "margin",   "background",    "size",           "border",
        "uniform",    "frame",       "sides",     "width",    "style",         "color",          "background",
        "color",      "colorClip",   "layers",    "image",    "repeat",        "positionOrigin", "positionOffset",
        "offsetUnit", "clip",        "origin",    "sizeMode", "size",          "font",           "family",
        "style",      "variant",     "weight",    "kerning",  "stretch",       "sizePixels",     "text",
        "cache",      "family",      "pointSize", "weight",   "italic",        "smallCaps",      "stretch",
        "kerning",    "transitions", "waiting",   "children"};
    std::size_t place = out.find("\"root\"");
    for (const char* key : keys) {
        if (key == std::string("boxes"))
            place = out.find("\"boxes\"");
        else
            place = out.find('"' + std::string(key) + "\": ", place + 1);
        ASSERT_NE(place, std::string::npos) << key << '\n' << out;
    }
}

TEST_F(StyleBoxModel, FontStandsOnlyWhereTheNodeHasOne) {
    const QJsonObject root = styledRoot("<a><b/></a>", "b { font-weight: bold }");
    EXPECT_FALSE(root.contains("font"));
    EXPECT_EQ(at(childOf(root, 0), "font weight"), "[75]");
}

TEST_F(StyleBoxModel, CompoundsAreNoValuesOfTheirOwn) {
    const QJsonObject root =
        styledRoot("<a/>", "a { font: 12px Foo; border: 1px solid red; background: red; padding: 1px }");
    for (const char* compound : {"font", "border", "border-top", "border-width", "background", "transition"})
        EXPECT_TRUE(valueOf(root, compound).isUndefined()) << compound;
    for (const char* listed : {"font-size", "border-top-width", "background-color", "padding", "padding-top"})
        EXPECT_FALSE(valueOf(root, listed).isUndefined()) << listed;
}

TEST_F(StyleBoxModel, SourceIsThatOfTheShorthand) {
    const QJsonObject root = styledRoot("<a/>", "a { margin: 1px;\n border: 1px solid red;\n font: 12px Foo }");
    for (const auto& [name, line] : {std::pair{"margin-left", ":1"}, {"border-top-color", ":2"}, {"font-size", ":3"}})
        EXPECT_EQ(root["attributes"].toObject()[QString(name)].toObject()["source"].toString().toStdString(),
                  path("sheet.css") + line);
}

TEST_F(StyleBoxModel, BadValuesAreReportedByTheAttributes) {
    const std::string sheet = write("a.css", "a { border-top: 2px dashed red; font: bold; background-clip: margin-box; "
                                             "background-image: none }");
    const RunResult result = run({"style", write("s.xml", "<a/>"), "-s", sheet, "--format", "json"});
    const std::vector<std::string> messages = result.messages();
    for (const char* expected :
         {"error: border-top-style: 'dashed' not implemented.",
          "error: Invalid property for shorthand font: <font-size> and <font-family> must be set",
          "warning: CSSBoxModel::reloadBackground # Unsupported value for background-clip: 'margin-box', "
          "available values: border-box, content-box or padding-box"})
        EXPECT_NE(std::find(messages.begin(), messages.end(), expected), messages.end()) << expected;
}

TEST_F(StyleBoxModel, ImagesAreFoundBesideTheSheetAndBesideTheScene) {
    QImage image(2, 2, QImage::Format_ARGB32);
    image.fill(Qt::red);
    write("sub/keep", "");
    ASSERT_TRUE(image.save(QString::fromStdString(path("scene.png"))));
    ASSERT_TRUE(image.save(QString::fromStdString(path("sub/sheet.png"))));
    const std::string sheet = write("sub/a.css", "a { background: url(sheet.png) no-repeat, url('scene.png') }");
    const RunResult result = run({"style", write("s.xml", "<a/>"), "-s", sheet, "--format", "json"});
    EXPECT_EQ(result.messages(), std::vector<std::string>{});
    const QJsonObject root = result.json()["root"].toObject();
    EXPECT_EQ(at(root, "background layers 0 image"), "[true]");
    EXPECT_EQ(at(root, "background layers 1 image"), "[true]");
}

struct LineCase {
    const char* name;
    const char* declarations;
    const char* line;
};

class StyleBoxLine : public CommandTest, public testing::WithParamInterface<LineCase> {};

TEST_P(StyleBoxLine, ShowsTheBoxesInText) {
    const std::string sheet = write("a.css", std::string("a { ") + GetParam().declarations + " }");
    const std::string out = run({"style", write("s.xml", "<a/>"), "-s", sheet}).out;
    EXPECT_EQ(out.rfind(std::string("/a  a\n    ") + GetParam().line + "\n", 0), 0u) << out;
    EXPECT_EQ(out.find("    padding: "), std::string::npos) << out;
}

INSTANTIATE_TEST_SUITE_P(
    Lines, StyleBoxLine,
    testing::Values(LineCase{"Fresh", "", "[ 100 x 100 at 0, 0 ]"},
                    LineCase{"Place", "x: 1.5px; y: -2px; width: 10px", "[ 10 x 100 at 1.5, -2 ]"},
                    LineCase{"OneWidth", "padding: 5px", "[ 100 x 100 at 0, 0; padding 5; in all 110 x 110 ]"},
                    LineCase{"TwoWidths", "margin: 5px 6px", "[ 100 x 100 at 0, 0; margin 5 6; in all 112 x 110 ]"},
                    LineCase{"ThreeWidths", "padding: 5px 6px 7px",
                             "[ 100 x 100 at 0, 0; padding 5 6 7; in all 112 x 112 ]"},
                    LineCase{"FourWidths", "border-top: 1px solid; border-right: 2px solid",
                             "[ 100 x 100 at 0, 0; border 1 2 0 0; in all 102 x 101 ]"},
                    LineCase{"All", "padding: 1px; border: 2px solid; margin: 3px",
                             "[ 100 x 100 at 0, 0; padding 1; border 2; margin 3; in all 112 x 112 ]"}),
    [](const auto& tested) { return tested.param.name; });

} // namespace
