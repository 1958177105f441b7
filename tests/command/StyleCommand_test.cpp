#include "command/CommandRun.h"

#include <QJsonDocument>

#include <algorithm>

namespace {

using Testing::childOf;
using Testing::CommandTest;
using Testing::RunResult;
using Testing::texts;
using Testing::valueOf;

class StyleCommand : public CommandTest {};

std::string compact(const QJsonObject& object) {
    return QJsonDocument(object).toJson(QJsonDocument::Compact).toStdString();
}

TEST_F(StyleCommand, DocumentHasFilesRulesMessagesAndRoot) {
    const std::string sheet = write("a.css", "@import 'b.css';\na { color: red } c + a { none: 1 }");
    const std::string sub = write("b.css", "a { opacity: 0.5 }");
    const RunResult result = run({"style", write("s.xml", "<a/>"), "-s", sheet, "--format", "json"});
    EXPECT_EQ(result.exit, 0);
    EXPECT_EQ(result.err, "");
    EXPECT_EQ(texts(result.json()["files"]), (std::vector<std::string>{sheet, sub}));
    EXPECT_EQ(result.json()["rules"].toInt(), 3);
    EXPECT_EQ(result.messages(), (std::vector<std::string>{
                                     "error: Sibling selectors are not supported",
                                     "error: Styleable::setStyle # Brisko::CSSBoxModel # Attribute none not found"}));
    EXPECT_EQ(result.json()["root"].toObject()["path"].toString(), "/a");
}

TEST_F(StyleCommand, NodeSaysWhatItIs) {
    const QJsonObject root =
        styledRoot("<scene><a id='X' class='b  A' pseudo='hover focus'/><c/><a/></scene>", "x { color: red }");
    EXPECT_EQ(root["type"].toString(), "scene");
    const QJsonObject a = childOf(root, 0);
    EXPECT_EQ(a["path"].toString(), "/scene/a[1]");
    EXPECT_EQ(a["id"].toString(), "X");
    EXPECT_EQ(texts(a["classes"]), (std::vector<std::string>{"a", "b"}));
    EXPECT_EQ(texts(a["pseudoClasses"]), (std::vector<std::string>{"focus", "hover"}));
    EXPECT_EQ(valueOf(a, "css-class").toString(), "b  A");
    EXPECT_EQ(childOf(root, 1)["path"].toString(), "/scene/c[1]");
    EXPECT_EQ(childOf(root, 2)["path"].toString(), "/scene/a[2]");
}

TEST_F(StyleCommand, AttributeHasValueTextLayersAndSource) {
    const QJsonObject root = styledRoot("<a opacity='0.5'/>", "a { opacity: 0.1 }\n* { opacity: 0.25 !important }");
    const QJsonObject opacity = root["attributes"]["opacity"].toObject();
    EXPECT_EQ(opacity["value"].toDouble(), 0.25);
    EXPECT_EQ(opacity["text"].toString(), "0.25");
    EXPECT_EQ(compact(opacity["layers"].toObject()), R"({"2":0.5,"3":0.25})");
    EXPECT_EQ(opacity["source"].toString().toStdString(), path("sheet.css") + ":2");
}

TEST_F(StyleCommand, SourceIsLeftOutWhereNoSheetSetsTheValue) {
    const QJsonObject root = styledRoot("<a opacity='0.5'/>", "b { opacity: 0.1 }");
    EXPECT_EQ(compact(root["attributes"]["opacity"].toObject()), R"({"layers":{"2":0.5},"text":"0.5","value":0.5})");
}

struct TypeCase {
    const char* name;
    const char* declaration;
    const char* attribute;
    const char* value; ///< as JSON, in an array
};

class StyleTypes : public CommandTest, public testing::WithParamInterface<TypeCase> {};

TEST_P(StyleTypes, ValueIsWrittenByType) {
    const QJsonObject root = styledRoot("<a/>", std::string("a { ") + GetParam().declaration + " }");
    const QJsonArray value{valueOf(root, GetParam().attribute)};
    EXPECT_EQ(QJsonDocument(value).toJson(QJsonDocument::Compact).toStdString(), GetParam().value);
}

INSTANTIATE_TEST_SUITE_P(Cases, StyleTypes,
                         testing::Values(TypeCase{"Color", "color: rgba(255, 0, 0, 0.5)", "color", "[[0.5,0,0,0.5]]"},
                                         TypeCase{"ColorName", "color: blue", "color", "[[0,0,1,1]]"},
                                         TypeCase{"Float", "opacity: 0.3", "opacity", "[0.3]"},
                                         TypeCase{"ConstantCalc", "opacity: calc(1 / 4)", "opacity", "[0.25]"},
                                         TypeCase{"Enumeration", "visibility: collapse", "visibility", "[2]"},
                                         TypeCase{"Integer", "z-index: -3", "z-index", "[-3]"},
                                         TypeCase{"Text", "text: 'a b'", "text", "[\"a b\"]"},
                                         TypeCase{"Values", "transition: opacity 1s", "transition-duration",
                                                  R"([[{"separator":null,"type":1,"unit":0,"value":1}]])"}),
                         [](const auto& tested) { return tested.param.name; });

/// The names sorted, as QJsonObject has them.
std::vector<std::string> attributesOfABoxAnd(const std::string& name) {
    std::vector<std::string> names = {"css-class",
                                      "css-id",
                                      "transition",
                                      "transition-property",
                                      "transition-duration",
                                      "transition-delay",
                                      "location",
                                      "x",
                                      "y",
                                      "size",
                                      "width",
                                      "height",
                                      "padding",
                                      "margin",
                                      "background",
                                      "background-color",
                                      "background-image",
                                      "background-clip",
                                      "background-origin",
                                      "background-size",
                                      "background-position",
                                      "background-repeat",
                                      "border",
                                      "border-width",
                                      "border-style",
                                      "border-color",
                                      name};
    for (const std::string side : {"-top", "-right", "-bottom", "-left"}) {
        names.insert(names.end(), {"padding" + side, "margin" + side, "border" + side});
        for (const char* longhand : {"-width", "-style", "-color"})
            names.push_back("border" + side + longhand);
    }
    std::sort(names.begin(), names.end());
    return names;
}

TEST_F(StyleCommand, AllListsDefaultsToo) {
    const QJsonObject few = styledRoot("<a/>", "a { opacity: 1 }");
    EXPECT_EQ(texts(QJsonArray::fromStringList(few["attributes"].toObject().keys())),
              std::vector<std::string>{"opacity"});
    const QJsonObject all = styledRoot("<a/>", "a { opacity: 1 }", {"--all"});
    EXPECT_EQ(texts(QJsonArray::fromStringList(all["attributes"].toObject().keys())), attributesOfABoxAnd("opacity"));
    for (const char* compound : {"transition", "background", "border", "border-top", "border-width"})
        EXPECT_TRUE(valueOf(all, compound).isNull()) << compound;
    EXPECT_EQ(valueOf(all, "margin").toArray(), (QJsonArray{0, 0, 0, 0}));
}

TEST_F(StyleCommand, TransitionsAreListedAndOver) {
    const QJsonObject root =
        styledRoot("<a opacity='0'/>", "a { opacity: 1; transition: opacity 2s 0.5s }", {"--on", "a", ".b"});
    EXPECT_EQ(compact(root["transitions"].toObject()), R"({"opacity":[2,0.5]})");
}

TEST_F(StyleCommand, RunningTransitionsEndBeforeChangesAndBeforeTheOutput) {
    const QJsonObject root =
        styledRoot("<a/>", "a { opacity: 0; transition: opacity 2s } .b { opacity: 0.5 } .c { opacity: 0.75 }",
                   {"--on", "a", ".b", "--on", "a", ".c"});
    EXPECT_EQ(valueOf(root, "opacity").toDouble(), 0.75);
}

TEST_F(StyleCommand, WaitingIsWhatTheChildrenAreHanded) {
    const QJsonObject root = styledRoot("<a><b/></a>", "a b.c:d { opacity: 1 } a > e { opacity: 1 }");
    const QJsonArray waiting = root["waiting"].toArray();
    ASSERT_EQ(waiting.size(), 2);
    EXPECT_EQ(waiting[0]["selector"].toString(), "b.c:d");
    EXPECT_EQ(waiting[0]["specificity"].toInt(), 0x1000001);
    EXPECT_EQ(waiting[1]["selector"].toString(), "e");
    EXPECT_EQ(childOf(root, 0)["waiting"].toArray().size(), 1);
}

TEST_F(StyleCommand, HigherOriginWinsWhateverTheOrder) {
    const std::string low = write("low.css", "#i { z-index: 1 }");
    const std::string high = write("high.css", "* { z-index: 2 }");
    const std::string scene = write("s.xml", "<a id='i'/>");
    const auto value = [&](const std::vector<std::string>& sheets) {
        std::vector<std::string> arguments = {"style", scene, "--format", "json"};
        arguments.insert(arguments.end(), sheets.begin(), sheets.end());
        return valueOf(run(arguments).json()["root"].toObject(), "z-index").toInt();
    };
    EXPECT_EQ(value({"-s", low, "-s", high}), 1);
    EXPECT_EQ(value({"--origin", "5", "-s", high, "--origin", "1", "-s", low}), 2);
    EXPECT_EQ(value({"-s", low, "--origin", "2", "-s", high}), 2);
}

TEST_F(StyleCommand, AnyPropertyKeepsValuesAsWritten) {
    const char css[] = "a { gap: 10px; family: 'A b', serif; flow: calc(50% + 1px); ink: #f00 } none { back: 1 }";
    const QJsonObject root = styledRoot("<a gap='3em'><back/></a>", css, {"--any-property"});
    EXPECT_EQ(root["attributes"]["family"]["value"].toArray().size(), 2);
    EXPECT_EQ(root["attributes"]["family"]["value"][1]["separator"].toInt(), 1);
    EXPECT_EQ(root["attributes"]["gap"]["layers"]["1"][0]["unit"].toInt(), 1);
    EXPECT_EQ(root["attributes"]["gap"]["value"][0]["unit"].toInt(), 3);
    EXPECT_EQ(root["attributes"]["flow"]["value"][0]["type"].toInt(), 7);
    EXPECT_EQ(root["attributes"]["ink"]["value"][0]["value"][0].toDouble(), 1);
    EXPECT_EQ(childOf(root, 0)["type"].toString(), "back");
    const RunResult without = run({"style", path("scene.xml"), "-s", path("sheet.css"), "--format", "json"});
    EXPECT_EQ(without.messages(),
              (std::vector<std::string>{"warning: " + path("scene.xml") + ":1: attribute 'gap' of 'a' is ignored",
                                        "error: Styleable::setStyle # Brisko::CSSBoxModel # Attribute gap not found",
                                        "error: Styleable::setStyle # Brisko::CSSBoxModel # Attribute family not found",
                                        "error: Styleable::setStyle # Brisko::CSSBoxModel # Attribute flow not found",
                                        "error: Styleable::setStyle # Brisko::CSSBoxModel # Attribute ink not found"}));
}

TEST_F(StyleCommand, AnyPropertyKeepsTextsThatCouldBeOtherValues) {
    const QJsonObject root = styledRoot("<a/>", "a { q: 'a'; num: '12px'; word: a }", {"--any-property"});
    EXPECT_EQ(root["attributes"]["q"]["value"][0]["type"].toInt(), 5);
    EXPECT_EQ(root["attributes"]["num"]["value"][0]["type"].toInt(), 5);
    EXPECT_EQ(root["attributes"]["num"]["value"][0]["value"].toString(), "12px");
    EXPECT_EQ(root["attributes"]["word"]["value"][0]["type"].toInt(), 6);
}

TEST_F(StyleCommand, AnyPropertyLeavesServedOnesAlone) {
    const char css[] = "a { width: 10px; padding: 1px 2px; border: 3px solid red; color: red; font: bold 12px Foo }";
    const QJsonObject plain = styledRoot("<a><font-size>14px</font-size></a>", css);
    const QJsonObject any = styledRoot("<a><font-size>14px</font-size></a>", css, {"--any-property"});
    EXPECT_EQ(compact(any), compact(plain));
    EXPECT_EQ(valueOf(any, "width").toDouble(), 10);
    EXPECT_EQ(any["font"]["sizePixels"].toDouble(), 14);
}

TEST_F(StyleCommand, ChangesAreMadeInOrder) {
    const char css[] = "a { z-index: 1 } a:hover { z-index: 2 } a.x { z-index: 3 } #y { z-index: 4 }";
    const std::vector<std::pair<std::vector<std::string>, int>> cases = {
        {{}, 1},
        {{"--on", "a", ":hover"}, 2},
        {{"--on", "a", ":hover", "--on", ":hover", "-:hover"}, 1},
        {{"--on", "a", ".X"}, 3},
        {{"--on", "a", ".x", "--on", ".x", "-.x"}, 1},
        {{"--on", "a", ".x", "--on", ".x", "#y"}, 4},
        {{"--on", ".x", "#y", "--on", "a", ".x"}, 3},
    };
    for (const auto& [changes, expected] : cases)
        EXPECT_EQ(valueOf(styledRoot("<a/>", css, changes), "z-index").toInt(), expected);
}

TEST_F(StyleCommand, NodesAreCollectedBeforeTheyAreChanged) {
    const QJsonObject root =
        styledRoot("<a class='x'><b class='x'><c/></b></a>", "d { z-index: 1 }", {"--on", ".x > .x, .x", "-.x"});
    EXPECT_TRUE(root["classes"].toArray().isEmpty());
    EXPECT_TRUE(childOf(root, 0)["classes"].toArray().isEmpty());
}

TEST_F(StyleCommand, TextShowsPathsValuesAndSources) {
    const std::string sheet = write("a.css", "a { opacity: 0.5 }\nb { z-index: 2 !important; bad: 1 }");
    const std::string scene = write("s.xml", "<a id='i'><b class='c' text='hi'/></a>");
    const RunResult result = run({"style", scene, "-s", sheet});
    EXPECT_EQ(result.exit, 0);
    EXPECT_EQ(result.out.rfind("/a  a#i\n    [ 100 x 100 at 0, 0 ]\n", 0), 0u) << result.out;
    EXPECT_NE(result.out.find("\n/a/b[1]  b.c\n    [ "), std::string::npos) << result.out;
    EXPECT_NE(result.out.find("    opacity: 0.5"), std::string::npos);
    EXPECT_NE(result.out.find(" " + sheet + ":1\n"), std::string::npos);
    EXPECT_NE(result.out.find("    z-index: 2 !important"), std::string::npos);
    EXPECT_NE(result.out.find("    text: hi (scene)\n"), std::string::npos);
    EXPECT_EQ(result.err, scene + ": error: Styleable::setStyle # Brisko::CSSBoxModel # Attribute bad not found\n");
}

TEST_F(StyleCommand, UnreadableFilesExitWith2) {
    const std::string sheet = write("a.css", "a { opacity: 0.5 }");
    const std::string scene = write("s.xml", "<a/>");
    const RunResult noScene = run({"style", path("none.xml"), "-s", sheet, "--format", "json"});
    EXPECT_EQ(noScene.exit, 2);
    EXPECT_EQ(noScene.err, "brisko: cannot read '" + path("none.xml") + "': no such file\n");
    const RunResult noSheet = run({"style", scene, "-s", path("none.css"), "--format", "json"});
    EXPECT_EQ(noSheet.exit, 2);
    EXPECT_EQ(noSheet.err, "brisko: cannot read '" + path("none.css") + "': no such file\n");
    EXPECT_EQ(run({"style", path("."), "-s", sheet}).exit, 2);
}

TEST_F(StyleCommand, RunsLeaveNothingBehind) {
    EXPECT_EQ(valueOf(styledRoot("<a/>", "a { gap: 1 }", {"--any-property"}), "gap").toArray().size(), 1);
    EXPECT_TRUE(valueOf(styledRoot("<a/>", "a { gap: 1 }"), "gap").isUndefined());
}

} // namespace
