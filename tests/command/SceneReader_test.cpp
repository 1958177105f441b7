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
