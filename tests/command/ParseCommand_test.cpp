#include "command/CommandRun.h"

#include <QJsonDocument>

namespace {

using Testing::CommandTest;
using Testing::RunResult;
using Testing::texts;

class ParseCommand : public CommandTest {
protected:
    QJsonObject parseInput(const std::string& css) {
        m_input = css;
        const RunResult result = run({"parse", "-", "--format", "json"});
        EXPECT_EQ(result.exit, 0);
        EXPECT_EQ(result.err, "");
        return result.json();
    }
};

std::string compact(const QJsonValue& value) {
    return QJsonDocument(value.toArray()).toJson(QJsonDocument::Compact).toStdString();
}

TEST_F(ParseCommand, SheetIsWrittenAsParsed) {
    const std::string sheet =
        write("a.css", "@import \"sub.css\";\npanel > .b.A:hover#c { color: red; x: 1 !important }");
    const std::string sub = write("sub.css", "s { y: 2 }");
    const RunResult result = run({"parse", "--origin", "4", sheet, "--format", "json"});
    EXPECT_EQ(result.exit, 0);
    const QJsonObject json = result.json();
    EXPECT_EQ(json["result"].toInt(-1), 0);
    EXPECT_EQ(texts(json["files"]), (std::vector<std::string>{sheet, sub}));
    ASSERT_EQ(json["rules"].toArray().size(), 2);
    const QJsonObject rule = json["rules"].toArray()[1].toObject();
    const QJsonArray selector = rule["selector"].toArray();
    ASSERT_EQ(selector.size(), 2);
    EXPECT_EQ(selector[0]["type"].toString(), "panel");
    EXPECT_EQ(selector[0]["combinator"].toInt(-1), 0);
    EXPECT_EQ(selector[1]["combinator"].toInt(-1), 1);
    EXPECT_EQ(selector[1]["type"].toString(), "");
    EXPECT_EQ(selector[1]["id"].toString(), "c");
    EXPECT_EQ(texts(selector[1]["classes"]), (std::vector<std::string>{"a", "b"}));
    EXPECT_EQ(texts(selector[1]["pseudoClasses"]), std::vector<std::string>{"hover"});
    EXPECT_EQ(selector[1]["origin"].toInt(), 4);
    EXPECT_EQ(selector[1]["text"].toString(), ".a.b:hover#c");
    const QJsonArray declarations = rule["declarations"].toArray();
    ASSERT_EQ(declarations.size(), 2);
    EXPECT_EQ(declarations[0]["id"].toInt(-1), 1);
    EXPECT_EQ(declarations[0]["property"].toString(), "color");
    EXPECT_FALSE(declarations[0]["important"].toBool(true));
    EXPECT_EQ(declarations[0]["source"].toString().toStdString(), sheet + ":2");
    EXPECT_EQ(declarations[0]["text"].toString(), "red");
    EXPECT_TRUE(declarations[1]["important"].toBool());
}

TEST_F(ParseCommand, StandardInputCountsLinesFrom0AndHasNoName) {
    const QJsonObject json = parseInput("a { x: 1 }");
    EXPECT_EQ(json["result"].toInt(-1), 0);
    EXPECT_TRUE(json["files"].toArray().isEmpty());
    EXPECT_EQ(json["rules"][0]["declarations"][0]["source"].toString(), ":0");
}

TEST_F(ParseCommand, ParserThatGivesUpIsResult2AndExit0) {
    m_input = "a { x: 1 } b { y";
    const RunResult result = run({"parse", "-", "--format", "json"});
    EXPECT_EQ(result.exit, 0);
    EXPECT_EQ(result.json()["result"].toInt(), 2);
    EXPECT_FALSE(result.messages().empty());
}

TEST_F(ParseCommand, MissingSheetIsResult1AndExit2) {
    const RunResult result = run({"parse", path("none.css"), "--format", "json"});
    EXPECT_EQ(result.exit, 2);
    EXPECT_EQ(result.err, "brisko: cannot read '" + path("none.css") + "': no such file\n");
    EXPECT_EQ(result.json()["result"].toInt(), 1);
    EXPECT_EQ(run({"parse", path("none.css")}).exit, 2);
}

struct ValueCase {
    const char* name;
    const char* css;
    const char* json;
};

class ParseValue : public CommandTest, public testing::WithParamInterface<ValueCase> {};

TEST_P(ParseValue, IsWrittenByType) {
    const RunResult result = run({"parse", "--value", GetParam().css, "--format", "json"});
    EXPECT_EQ(result.exit, 0);
    EXPECT_EQ(result.err, "");
    EXPECT_EQ(compact(result.json()["value"]), GetParam().json);
}

INSTANTIATE_TEST_SUITE_P(
    Cases, ParseValue,
    testing::Values(
        ValueCase{"Integer", "12", R"([{"separator":null,"type":2,"unit":0,"value":12}])"},
        ValueCase{"Real", "0.1", R"([{"separator":null,"type":1,"unit":0,"value":0.1}])"},
        ValueCase{"Pixels", "10px", R"([{"separator":null,"type":1,"unit":1,"value":10}])"},
        ValueCase{"PercentIsAFraction", "50%", R"([{"separator":null,"type":1,"unit":2,"value":0.5}])"},
        ValueCase{"Ems", "-1.5em", R"([{"separator":null,"type":1,"unit":3,"value":-1.5}])"},
        ValueCase{"Exs", "2ex", R"([{"separator":null,"type":1,"unit":4,"value":2}])"},
        ValueCase{"HexColorIsPremultiplied", "#f00", R"([{"separator":null,"type":4,"unit":0,"value":[1,0,0,1]}])"},
        ValueCase{"FunctionColorIsPremultiplied", "rgba(255, 0, 0, 0.5)",
                  R"([{"separator":null,"type":3,"unit":0,"value":[0.5,0,0,0.5]}])"},
        ValueCase{"String", "'a\\\"b'", R"([{"separator":null,"type":5,"unit":0,"value":"a\"b"}])"},
        ValueCase{"Keyword", "solid", R"([{"separator":null,"type":6,"unit":0,"value":"solid"}])"},
        ValueCase{"Expression", "calc(50% - 10px)",
                  R"([{"separator":null,"type":7,"unit":0,"value":{"at":[-10,-9.5],"constant":false}}])"},
        ValueCase{"ConstantExpression", "calc(2 * 3)",
                  R"([{"separator":null,"type":7,"unit":0,"value":{"at":[6,6],"constant":true}}])"},
        ValueCase{"Separators", "1 2 / 3, 4",
                  R"([{"separator":null,"type":2,"unit":0,"value":1},{"separator":0,"type":2,"unit":0,"value":2},)"
                  R"({"separator":2,"type":2,"unit":0,"value":3},{"separator":1,"type":2,"unit":0,"value":4}])"},
        ValueCase{"ControlCharacters", "'a\\0 \\1f \\a b'",
                  "[{\"separator\":null,\"type\":5,\"unit\":0,\"value\":\"a\\u0000\\u001f\\nb\"}]"},
        ValueCase{"LoneSurrogate", "'\\d800'",
                  "[{\"separator\":null,\"type\":5,\"unit\":0,\"value\":\"\xef\xbf\xbd\"}]"},
        ValueCase{"Infinity", "99999999999999999999999999999999999999999.0",
                  R"([{"separator":null,"type":1,"unit":0,"value":"inf"}])"},
        ValueCase{"Nothing", "", "[]"}),
    [](const auto& tested) { return tested.param.name; });

TEST_F(ParseCommand, BrokenValueIsEmptyWithAMessage) {
    const RunResult result = run({"parse", "--value", "1 ]", "--format", "json"});
    EXPECT_EQ(result.exit, 0);
    EXPECT_EQ(result.messages().back(), "error: CSSParser # expr parser error (1 ])");
}

TEST_F(ParseCommand, SelectorsAreAListOfChains) {
    const RunResult result = run({"parse", "--selectors", "a b > c, #d", "--format", "json"});
    const QJsonArray selectors = result.json()["selectors"].toArray();
    ASSERT_EQ(selectors.size(), 2);
    ASSERT_EQ(selectors[0].toArray().size(), 3);
    EXPECT_EQ(selectors[0][0]["type"].toString(), "a");
    EXPECT_EQ(selectors[0][1]["combinator"].toInt(), 2);
    EXPECT_EQ(selectors[0][2]["combinator"].toInt(), 1);
    EXPECT_EQ(selectors[1][0]["id"].toString(), "d");
    EXPECT_TRUE(result.messages().empty());
}

TEST_F(ParseCommand, SelectorsKeepWhatStoodBeforeAMistake) {
    const RunResult result = run({"parse", "--selectors", "a,", "--format", "json"});
    EXPECT_EQ(result.exit, 0);
    EXPECT_EQ(result.json()["selectors"].toArray().size(), 1);
    EXPECT_EQ(result.messages().back(), "error: CSS Selector parse error (a,)");
}

TEST_F(ParseCommand, SimpleSelectorIsTheLeftmostCompound) {
    const QJsonObject json = run({"parse", "--simple-selector", "a.b > c", "--format", "json"}).json();
    EXPECT_EQ(json["compound"]["text"].toString(), "a.b");
    EXPECT_EQ(json["compound"]["origin"].toInt(), 1);
}

TEST_F(ParseCommand, MediaHoldsForImportsDpiDoesNot) {
    write("sub.css", "b { x: 1in }");
    const std::string sheet = write("a.css", "@import 'sub.css' print; @media print { a { x: 1in } } c { y: 1 }");
    const QJsonObject json = run({"parse", sheet, "--media", "print", "--dpi", "96", "--format", "json"}).json();
    ASSERT_EQ(json["rules"].toArray().size(), 3);
    EXPECT_NEAR(json["rules"][0]["declarations"][0]["value"][0]["value"].toDouble(), 40.053, 1e-6);
    EXPECT_EQ(json["rules"][1]["declarations"][0]["value"][0]["value"].toDouble(), 96);
    EXPECT_EQ(run({"parse", sheet, "--format", "json"}).json()["rules"].toArray().size(), 1);
    const QJsonObject plain = run({"parse", "--value", "1in", "--format", "json"}).json();
    EXPECT_NEAR(plain["value"][0]["value"].toDouble(), 40.053, 1e-6);
}

TEST_F(ParseCommand, TextGoesToOutputAndMessagesToErrors) {
    m_input = "a + b, c { x: 1px solid }";
    const RunResult result = run({"parse", "-"});
    EXPECT_EQ(result.exit, 0);
    EXPECT_EQ(result.out, "/* 2 rules */\nb,\nc {\n    x: 1px solid; /* :0 */\n}\n");
    EXPECT_EQ(result.err, "<stdin>: error: Sibling selectors are not supported\n");
}

TEST_F(ParseCommand, DebugMessagesComeOnRequest) {
    m_input = "a { x: 1 }";
    EXPECT_EQ(run({"parse", "-"}).err, "");
    EXPECT_NE(run({"parse", "-", "--debug"}).err.find("<stdin>: debug: CSSParser::commit # 1 rules\n"),
              std::string::npos);
}

class ParseRoundTrip : public ParseCommand, public testing::WithParamInterface<const char*> {
protected:
    /// The rules without what changes: numbers, sources and cached texts of values.
    static QJsonArray essence(const QJsonObject& json) {
        QJsonArray rules;
        for (const QJsonValue& rule : json["rules"].toArray()) {
            QJsonArray declarations;
            for (const QJsonValue& declaration : rule["declarations"].toArray()) {
                QJsonObject kept = declaration.toObject();
                kept.remove("source");
                declarations.append(kept);
            }
            rules.append(QJsonObject{{"selector", rule["selector"]}, {"declarations", declarations}});
        }
        return rules;
    }
};

TEST_P(ParseRoundTrip, TextParsesToTheSameRules) {
    const QJsonArray before = essence(parseInput(GetParam()));
    ASSERT_FALSE(before.isEmpty());
    const std::string text = run({"parse", "-"}).out;
    const QJsonArray after = essence(parseInput(text));
    EXPECT_EQ(compact(after), compact(before)) << text;
}

INSTANTIATE_TEST_SUITE_P(
    Cases, ParseRoundTrip,
    testing::Values(
        "a { x: 1 }", "a, b > c d { x: 1; y: 2 !important } e { z: 3 }", "* { x: 1 } :hover { y: 1 }",
        "a.b.C:hover#d:focus { x: 1 }", "a\\:b .c\\41 d#\\e9 { x: y }", "a\\4>b { x: 1 }", "a\\4/**/ b { x\\5:1 }",
        "\xc3\xa9t\xc3\xa9.\xc3\x89 > \xe2\x82\xac { \xc3\xa9: \xe2\x82\xac }", "a:n\xe2\x82\xac(x) { x: 1 }",
        "a:\xef\xbb\xbf(x) { x: url(\xef\xbb\xbfy) }", "a { x: 1 -2 +3 1.5 -0.0 1e3 2s 250ms }",
        "a { x: 1px 2em 3ex 33.3% 0.1% 1in 90deg }", "a { x: 0.00000000001 123456789.5 }",
        "a { x: 9999999999999999999999999999999999999999.5 b, -9999999999999999999999999999999999999999.5px }",
        "a { x: 99999999999999999999999999999999999999999999999999.5deg }", "a { x: 'a\"b\\\\c\\a d' url( \"e f\" ) }",
        "a { x: '\\e9\\20ac\\0 \\d800 1' url(x.png) }", "a { x: #f00 #f008 #12345678 #012 }",
        "a { x: rgb(1, 2, 3) rgba(10%, 0.3, 0.7, 0.3) hsl(200, 60%, 80%) rgba_pma(1, 2, 3, 0.4) }",
        "a { x: rgba(255, 0, 0, 0) rgba(300, -20, 0, 2) }",
        "a { x: calc(50% - 10px) calc((1 + 2) * 3 / 4) calc(1 - (2 - 3)) calc(50% * (2 + 50%)) }",
        "a { x: b, c / d e; y: f !important }", "a { x: b\\4; y: c\\4 !important; z: d\\4 e }",
        "a { x: b\\4/**/ 'c' d\\4/**/ e\\4 , f\\4/**/ / g\\4 }"));

} // namespace
