#include "command/CommandRun.h"

namespace {

using Testing::childOf;
using Testing::CommandTest;
using Testing::RunResult;
using Testing::valueOf;

class SceneReader : public CommandTest {
protected:
    QJsonObject read(const std::string& scene) { return styledRoot(scene, "none { opacity: 1 }"); }
    std::vector<std::string> messagesOf(const std::string& scene) {
        return run({"query", write("scene.xml", scene), "*", "--format", "json"}).messages();
    }
};

TEST_F(SceneReader, TextOfAnElementIsTrimmed) {
    const QJsonObject root = read("<a>\n  one <b/> two\n</a>");
    EXPECT_EQ(valueOf(root, "text").toString(), "one  two");
    EXPECT_TRUE(valueOf(childOf(root, 0), "text").isUndefined());
}

TEST_F(SceneReader, BlankTextIsNone) {
    EXPECT_TRUE(valueOf(read("<a> \n\t </a>"), "text").isUndefined());
}

TEST_F(SceneReader, ElementNamedLikeAPropertyIsNoNode) {
    const QJsonObject root = read("<a><text> Hello </text><opacity>0.5</opacity><b/></a>");
    EXPECT_EQ(valueOf(root, "text").toString(), "Hello");
    EXPECT_EQ(valueOf(root, "opacity").toDouble(), 0.5);
    ASSERT_EQ(root["children"].toArray().size(), 1);
    EXPECT_EQ(childOf(root, 0)["type"].toString(), "b");
}

TEST_F(SceneReader, PropertyElementThatCannotBeReadIsNoNodeEither) {
    const QJsonObject root = read("<a><opacity>much<b/></opacity></a>");
    EXPECT_TRUE(root["children"].toArray().isEmpty());
    EXPECT_TRUE(valueOf(root, "opacity").isUndefined());
    const std::vector<std::string> messages = messagesOf("<a>\n<opacity>much</opacity></a>");
    ASSERT_FALSE(messages.empty());
    EXPECT_EQ(messages.back(),
              "warning: " + path("scene.xml") + ":2: element 'opacity' of 'a' could not be read: ignored");
}

TEST_F(SceneReader, ElementOfAnAttributeThatEveryNodeHasIsRead) {
    EXPECT_EQ(read("<a><css-id>x</css-id></a>")["id"].toString(), "x");
}

TEST_F(SceneReader, ElementThatNoAttributeConsumesIsANode) {
    const QJsonObject root = read("<a><transition id='t'>x<transition><b/></transition></transition></a>");
    const QJsonObject outer = childOf(root, 0);
    EXPECT_EQ(outer["type"].toString(), "transition");
    EXPECT_EQ(outer["id"].toString(), "t");
    EXPECT_EQ(valueOf(outer, "text").toString(), "x");
    EXPECT_EQ(childOf(childOf(outer, 0), 0)["type"].toString(), "b");
}

TEST_F(SceneReader, FontElementsAreRead) {
    const QJsonObject root =
        read("<a><font>italic 700 12px/14px Arial</font><font-stretch>condensed</font-stretch></a>");
    EXPECT_EQ(root["font"]["text"].toString(), "italic 700 12px/14px Arial");
    EXPECT_EQ(root["font"]["stretch"].toInt(), 75);
    EXPECT_TRUE(root["children"].toArray().isEmpty());
}

TEST_F(SceneReader, FontElementThatCannotBeReadIsNoNodeEither) {
    const QJsonObject root = read("<a><font>bold 12px Arial</font><font-style>slanted</font-style><b/></a>");
    EXPECT_FALSE(root.contains("font"));
    ASSERT_EQ(root["children"].toArray().size(), 1);
    EXPECT_EQ(childOf(root, 0)["type"].toString(), "b");
}

TEST_F(SceneReader, ElementsNamedLikePartsOfTheBoxAreNodesUnlessTheyAreRead) {
    const QJsonObject root = read("<a><border>2px solid red</border><background>red</background><width>20</width>"
                                  "<border-left-width>7</border-left-width><size/></a>");
    ASSERT_EQ(root["children"].toArray().size(), 3);
    EXPECT_EQ(childOf(root, 0)["type"].toString(), "border");
    EXPECT_EQ(childOf(root, 1)["type"].toString(), "background");
    EXPECT_EQ(childOf(root, 2)["type"].toString(), "size");
    EXPECT_EQ(valueOf(root, "width").toDouble(), 20);
    EXPECT_EQ(root["border"]["sides"][3]["width"].toDouble(), 7);
}

TEST_F(SceneReader, NodesAnswerToTheirElementOnly) {
    const QJsonObject root = styledRoot("<a><b/></a>", "Styleable { opacity: 0.25 } CSSBoxModel { opacity: 0.5 }");
    EXPECT_TRUE(valueOf(root, "opacity").isUndefined());
    EXPECT_TRUE(valueOf(childOf(root, 0), "opacity").isUndefined());
}

TEST_F(SceneReader, ChildNodeIsNoAttributeOfItsHost) {
    EXPECT_EQ(read("<a><b/><b/></a>")["children"].toArray().size(), 2);
}

struct AttributeCase {
    const char* name;
    const char* xml;
    const char* attribute;
    QVariant value;
};

class SceneAttributes : public CommandTest, public testing::WithParamInterface<AttributeCase> {};

TEST_P(SceneAttributes, AreSetOnTheUserLayer) {
    const AttributeCase& test = GetParam();
    const QJsonObject root = styledRoot(std::string("<a ") + test.xml + "/>", "a { opacity: 0.125 }");
    EXPECT_EQ(valueOf(root, test.attribute).toVariant(), test.value);
    EXPECT_TRUE(root["attributes"][test.attribute]["layers"].toObject().contains("2"));
}

INSTANTIATE_TEST_SUITE_P(Cases, SceneAttributes,
                         testing::Values(AttributeCase{"Float", "opacity='0.5'", "opacity", 0.5},
                                         AttributeCase{"Calc", "opacity='calc(1 / 2)'", "opacity", 0.5},
                                         AttributeCase{"Word", "visibility='hidden'", "visibility", 1.0},
                                         AttributeCase{"Words", "text='Hello,  world: 10px!'", "text",
                                                       "Hello,  world: 10px!"},
                                         AttributeCase{"QuotedText", "text='\"Hello\"'", "text", "Hello"},
                                         AttributeCase{"TextInUtf8", "text='caf\xc3\xa9 \xe2\x82\xac'", "text",
                                                       QString::fromUtf8("caf\xc3\xa9 \xe2\x82\xac")}),
                         [](const auto& tested) { return tested.param.name; });

TEST_F(SceneReader, ShorthandAttributeIsSplit) {
    const QJsonObject root = read("<a opacity='1' transition='opacity 1s'/>");
    EXPECT_EQ(valueOf(root, "transition-property")[0]["value"].toString(), "opacity");
    EXPECT_EQ(root["transitions"]["opacity"][0].toDouble(), 1);
}

struct ShorthandCase {
    const char* name;
    const char* xml;
    const char* attribute;
    const char* text;
};

class SceneShorthands : public CommandTest, public testing::WithParamInterface<ShorthandCase> {};

TEST_P(SceneShorthands, AreSplitOnTheUserLayer) {
    const ShorthandCase& test = GetParam();
    const QJsonObject root = styledRoot(std::string("<a ") + test.xml + "/>", "none { opacity: 1 }");
    EXPECT_EQ(root["attributes"][test.attribute]["text"].toString().toStdString(), test.text);
    EXPECT_TRUE(root["attributes"][test.attribute]["layers"].toObject().contains("2"));
}

INSTANTIATE_TEST_SUITE_P(
    Cases, SceneShorthands,
    testing::Values(ShorthandCase{"BorderWidth", "border='2px solid red'", "border-left-width", "2px"},
                    ShorthandCase{"BorderColor", "border='2px solid red'", "border-top-color",
                                  "rgba_pma(255, 0, 0, 1)"},
                    ShorthandCase{"BorderProperty", "border-width='1px 2px 3px'", "border-left-width", "2px"},
                    ShorthandCase{"BorderSide", "border-top='thick solid'", "border-top-width", "thick"},
                    ShorthandCase{"FontWeight", "font='bold 12px Arial'", "font-weight", "bold"},
                    ShorthandCase{"FontFamily", "font='bold 12px Foo, serif'", "font-family", "Foo, serif"},
                    ShorthandCase{"FontLonghand", "font-size='x-large'", "font-size", "x-large"},
                    ShorthandCase{"Background", "background='content-box red'", "background-clip", "content-box"},
                    ShorthandCase{"Frame", "padding='1px 2px'", "padding-left", "2"},
                    ShorthandCase{"Component", "margin-top='-3px'", "margin", "-3 0 0 0"},
                    ShorthandCase{"Size", "size='30px 40px'", "height", "40"}),
    [](const auto& tested) { return tested.param.name; });

TEST_F(SceneReader, ShorthandThatTakesNothingIsIgnoredWithAWarning) {
    EXPECT_EQ(messagesOf("<a border='?'/>").back(),
              "warning: " + path("scene.xml") + ":1: attribute 'border' of 'a' is ignored");
}

TEST_F(SceneReader, UnknownAttributeIsIgnoredWithAWarning) {
    EXPECT_EQ(messagesOf("<a>\n<b href='x'/></a>"),
              std::vector<std::string>{"warning: " + path("scene.xml") + ":2: attribute 'href' of 'b' is ignored"});
}

TEST_F(SceneReader, WhatIsNoContentIsPassedOver) {
    EXPECT_EQ(messagesOf("<?xml version='1.0'?><!DOCTYPE a><?php x?><!-- c --><a xml:lang='de' xmlns='urn:x' "
                         "xmlns:p='urn:p'><p:b xml:id='i'/><!-- d --><?y z?></a><!-- e -->"),
              std::vector<std::string>{});
    EXPECT_EQ(childOf(read("<a xmlns:p='urn:p'><p:b/></a>"), 0)["type"].toString(), "b");
}

TEST_F(SceneReader, XhtmlPageIsAScene) {
    const QJsonObject root = read("<!DOCTYPE html PUBLIC \"-//W3C//DTD XHTML 1.0 Strict//EN\" "
                                  "\"http://www.w3.org/TR/xhtml1/DTD/xhtml1-strict.dtd\">\n"
                                  "<html xmlns=\"http://www.w3.org/1999/xhtml\"><body class=\"&eacute;\">"
                                  "<p>a&nbsp;b &euro;&amp;&#65;</p></body></html>");
    const QJsonObject body = childOf(root, 0);
    EXPECT_EQ(valueOf(childOf(body, 0), "text").toString(), QString::fromUtf8("a\xc2\xa0"
                                                                              "b \xe2\x82\xac&A"));
    EXPECT_EQ(valueOf(body, "css-class").toString(), QString::fromUtf8("\xc3\xa9"));
}

struct BrokenCase {
    const char* name;
    const char* xml;
    const char* place;
};

class BrokenScene : public CommandTest, public testing::WithParamInterface<BrokenCase> {};

TEST_P(BrokenScene, FailsWithLineAndColumn) {
    const std::string scene = write("scene.xml", GetParam().xml);
    const RunResult result = run({"query", scene, "a", "--format", "json"});
    EXPECT_EQ(result.exit, 2);
    EXPECT_EQ(result.out, "");
    EXPECT_EQ(result.err.rfind(scene + ":" + GetParam().place + ": error: ", 0), 0u) << result.err;
}

INSTANTIATE_TEST_SUITE_P(Cases, BrokenScene,
                         testing::Values(BrokenCase{"Empty", "", "1:1"}, BrokenCase{"OpenElement", "<a>\n<b>", "2:4"},
                                         BrokenCase{"WrongEnd", "<a>\n</b>", "2:5"},
                                         BrokenCase{"OpenInsideProperty", "<a><text>x", "1:11"},
                                         BrokenCase{"UnknownEntity", "<a>&nbsp;</a>", "1:10"},
                                         BrokenCase{"TwoRoots", "<a/><b/>", "1:9"},
                                         BrokenCase{"NoXml", "a { }", "1:2"}),
                         [](const auto& tested) { return tested.param.name; });

std::string nested(int levels) {
    std::string xml;
    for (int i = 0; i < levels; ++i)
        xml += "<n>";
    for (int i = 0; i < levels; ++i)
        xml += "</n>";
    return xml;
}

TEST_F(SceneReader, DeepSceneIsRead) {
    const RunResult result = run({"query", write("s.xml", nested(3000)), "n > n n"});
    EXPECT_EQ(result.exit, 0);
    EXPECT_EQ(std::count(result.out.begin(), result.out.end(), '\n'), 2998);
}

TEST_F(SceneReader, TooDeepSceneIsRefused) {
    const std::string scene = write("s.xml", nested(100000));
    const RunResult result = run({"query", scene, "n"});
    EXPECT_EQ(result.exit, 2);
    EXPECT_EQ(result.err, scene + ":1:30004: error: elements are nested deeper than 10000 levels\n");
}

TEST_F(SceneReader, DeepNamesakesOfAttributesDoNotNestTheReader) {
    std::string xml = "<a>";
    for (int i = 0; i < 5000; ++i)
        xml += "<transition>";
    for (int i = 0; i < 5000; ++i)
        xml += "</transition>";
    const RunResult result = run({"query", write("s.xml", xml + "</a>"), "a > transition"});
    EXPECT_EQ(result.out, "/a/transition[1]\n");
}

TEST_F(SceneReader, WideSceneIsRead) {
    std::string xml = "<a>";
    for (int i = 0; i < 20000; ++i)
        xml += "<b/>";
    const RunResult result = run({"query", write("s.xml", xml + "</a>"), "b"});
    EXPECT_NE(result.out.find("/a/b[20000]\n"), std::string::npos);
}

} // namespace
