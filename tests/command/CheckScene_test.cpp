#include "command/CommandRun.h"

namespace {

using Testing::CommandTest;
using Testing::RunResult;

class CheckScene : public CommandTest {
protected:
    /// The findings about a sheet with a scene: "line level rule: text", a line each.
    std::string findings(const std::string& scene, const std::string& sheet,
                         const std::vector<std::string>& more = {}) {
        std::vector<std::string> arguments = {
            "check", write("a.css", sheet), "--scene", write("scene.xml", scene), "--format", "json"};
        arguments.insert(arguments.end(), more.begin(), more.end());
        const RunResult result = run(arguments);
        EXPECT_EQ(result.exit, 0) << result.out << result.err;
        EXPECT_EQ(result.messages(), std::vector<std::string>());
        std::string text;
        for (const QJsonValue& finding : result.json()["findings"].toArray()) {
            EXPECT_EQ(finding["file"].toString().toStdString(), path("a.css"));
            QString line = QString::number(finding["line"].toInt()) + " " + finding["level"].toString() + " " +
                           finding["rule"].toString() + ": " + finding["text"].toString();
            text += QString(line + "\n").replace(QString::fromStdString(path("a.css")), "a.css").toStdString();
        }
        return text;
    }
};

const std::string panelScene =
    "<scene><panel id='main' class='a b'><button class='a'/><button class='a b'/></panel></scene>";

TEST_F(CheckScene, SheetThatIsAllOfUseIsQuiet) {
    EXPECT_EQ(
        findings(panelScene, "button { width: 1px }\npanel > .b { width: 2px; color: red }\nscene:hover { x: 1 }"), "");
}

TEST_F(CheckScene, RuleThatMatchesNothing) {
    EXPECT_EQ(findings(panelScene, "label {\n  width: 1px;\n  height: 1px\n}\nscene > button:hover { x: 1 }"),
              "2 warning unmatched-rule: no node of the scene matches 'label', whatever pseudo-classes are on\n"
              "5 warning unmatched-rule: no node of the scene matches 'scene > button:hover', whatever pseudo-classes "
              "are on\n");
}

TEST_F(CheckScene, EachSelectorOfAListCounts) {
    EXPECT_EQ(findings(panelScene, "button, label { width: 1px }"),
              "1 warning unmatched-rule: no node of the scene matches 'label', whatever pseudo-classes are on\n");
}

TEST_F(CheckScene, PseudoClassesMayBeOn) {
    EXPECT_EQ(findings(panelScene, "panel:hover > button:focus:active { width: 1px }\n.a:hover .b:hover { x: 1 }"), "");
}

TEST_F(CheckScene, PropertyThatNobodyServes) {
    EXPECT_EQ(findings(panelScene, "button { colour: red; zzzzzz: 1 }\n#main { WIDTH: 1px }\nlabel { heigth: 1px }"),
              "1 warning unserved-property: no attribute serves 'colour' on all 2 nodes that it reaches: did you mean "
              "'color'?\n"
              "1 warning unserved-property: no attribute serves 'zzzzzz' on all 2 nodes that it reaches\n"
              "2 warning unserved-property: no attribute serves 'WIDTH' on the node that it reaches: did you mean "
              "'width'?\n"
              "3 warning unmatched-rule: no node of the scene matches 'label', whatever pseudo-classes are on\n");
}

TEST_F(CheckScene, AnyPropertyServesAll) {
    EXPECT_EQ(findings(panelScene, "button { colour: red }", {"--any-property"}), "");
}

TEST_F(CheckScene, ValueThatIsRefused) {
    EXPECT_EQ(findings(panelScene, "button { opacity: solid }\npanel { color: 5px }"),
              "1 warning refused-value: 'opacity' does not take this value, and nothing weaker is tried\n"
              "2 warning refused-value: 'color' does not take this value, and nothing weaker is tried\n");
}

struct OverriddenCase {
    const char* name;
    const char* sheet;
    const char* findings; ///< "LINE by LINE" each, or "" for none
};

class CheckOverridden : public CheckScene, public testing::WithParamInterface<OverriddenCase> {};

TEST_P(CheckOverridden, DeclarationsAreFound) {
    std::string expected;
    std::istringstream lines(GetParam().findings);
    for (std::string line; std::getline(lines, line);) {
        const std::size_t by = line.find(" by ");
        expected += line.substr(0, by) + " a.css:" + line.substr(by + 4) + "\n";
    }
    std::string actual;
    std::istringstream found(findings(panelScene, GetParam().sheet));
    for (std::string line; std::getline(found, line);) {
        const std::size_t place = line.find("a.css:");
        EXPECT_NE(line.find("overridden-declaration"), std::string::npos) << line;
        actual +=
            line.substr(0, line.find(' ')) + " " + line.substr(place, line.find_first_of(" ,\n", place) - place) + "\n";
    }
    EXPECT_EQ(actual, expected);
}

INSTANTIATE_TEST_SUITE_P(
    Plain, CheckOverridden,
    testing::Values(OverriddenCase{"InTheSameRule", "button { width: 1px;\n width: 2px }", "1 by 2"},
                    OverriddenCase{"ByALaterRule", "button { width: 1px }\nbutton { width: 2px }", "1 by 2"},
                    OverriddenCase{"BySpecificity", "panel .a { width: 1px }\nbutton { width: 2px }", "2 by 1"},
                    OverriddenCase{"ByImportance", "button { width: 1px !important }\n#main .a { width: 2px }",
                                   "2 by 1"},
                    OverriddenCase{"OnOneNodeOnly", "button { width: 1px }\nbutton.b { width: 2px }", ""},
                    OverriddenCase{"OnEachNodeByAnother",
                                   "button { width: 1px }\nbutton.a { width: 2px }\nbutton.b { width: 3px }", "1 by 2"},
                    OverriddenCase{"ByOneSelectorOfAList", "button { width: 1px }\nscene, .a { width: 2px }", "1 by 2"},
                    OverriddenCase{"OtherProperty", "button { width: 1px }\nbutton { height: 2px }", ""}),
    [](const auto& tested) { return tested.param.name; });

INSTANTIATE_TEST_SUITE_P(
    States, CheckOverridden,
    testing::Values(
        OverriddenCase{"StateMayBeOff", "button { width: 1px }\nbutton:hover { width: 2px }", ""},
        OverriddenCase{"StrongerHoldsInAllStates",
                       "button:hover { width: 1px }\npanel > .a { width: 2px }\n"
                       "#main > .a { width: 3px }",
                       "1 by 3\n2 by 3"},
        OverriddenCase{"SameState", "button:hover { width: 1px }\n.a:hover { width: 2px }", "1 by 2"},
        OverriddenCase{"StrongerNeedsLess", "button:hover:focus { width: 1px }\n#main .a:focus { width: 2px }",
                       "1 by 2"},
        OverriddenCase{"StrongerNeedsMore", "button:hover { width: 1px }\nbutton:hover:focus { width: 2px }", ""},
        OverriddenCase{"OtherState", "button:hover { width: 1px }\n.a:focus { width: 2px }", ""},
        OverriddenCase{"StateOfAnAncestor", "panel:hover button { width: 1px }\n#main:hover .a { width: 2px }",
                       "1 by 2"},
        OverriddenCase{"OtherAncestor", "scene:hover button { width: 1px }\n#main:hover .a { width: 2px }", ""},
        OverriddenCase{"AncestorOfMany", ".a:hover .b { width: 1px }\n#main:hover > .b { width: 2px }", "1 by 2"},
        OverriddenCase{"UniversalAncestor", "*:hover .b { width: 1px }\n#main:hover > .b { width: 2px }", ""}),
    [](const auto& tested) { return tested.param.name; });

INSTANTIATE_TEST_SUITE_P(
    Shorthands, CheckOverridden,
    testing::Values(
        OverriddenCase{"LonghandByShorthand", "panel { border-top-width: 1px;\n border: 2px solid red }", "1 by 2"},
        OverriddenCase{"ShorthandInPart", "panel { border: 1px solid red;\n border-top-width: 2px }", ""},
        OverriddenCase{"ShorthandAsAWhole", "panel { border-top: 1px solid red;\n border: 2px solid red }", "1 by 2"},
        OverriddenCase{"ShorthandByItsLonghands",
                       "panel { padding: 1px;\n padding-top: 1px; padding-right: 1px; padding-bottom: 1px;\n "
                       "padding-left: 1px }",
                       "1 by 2"},
        OverriddenCase{
            "PartThatTheStrongerShorthandLeavesOut",
            "button { font-variant: small-caps }\nbutton.a { font: small-caps 1px a }\n#main > .a { font: 2px b }",
            ""}),
    [](const auto& tested) { return tested.param.name; });

TEST_F(CheckScene, TooManyChoicesOfAncestorsAreNoClaim) {
    std::string scene = "<b class='c'/>";
    for (int depth = 0; depth < 12; ++depth)
        scene = "<a>" + scene + "</a>";
    const std::string weak = "*:hover *:focus *:active b { width: 1px }\n";
    EXPECT_EQ(findings(scene, weak + "*:hover *:focus *:active b.c { width: 2px }"), "");
    EXPECT_EQ(findings(scene, weak + "b { width: 2px !important }"),
              "1 warning overridden-declaration: 'width' can never win: a.css:2 overrides it on the node that it "
              "reaches, whatever pseudo-classes are on\n");
}

TEST_F(CheckScene, SheetsThatChangeWhatNodesAreCalledAreNotJudged) {
    const std::string scene = "<scene><button class='primary' id='x'/></scene>";
    for (const char* sheet : {"button { width: 1px }\n.big { width: 3px }\nbutton:hover { css-class: big !important }",
                              ".primary { width: 10px }\nbutton:hover { css-class: big !important }",
                              "#x { width: 10px }\nbutton:hover { css-id: big !important }"})
        EXPECT_EQ(findings(scene, sheet), "") << sheet;
}

TEST_F(CheckScene, FileThatIsReadTwiceIsNotOverriddenByItself) {
    const std::string scene = write("s.xml", "<scene><button class='b'/></scene>");
    write("base.css", "button { width: 1px }\nbutton { height: 1px }\n.b { height: 2px }");
    const std::string a = write("a.css", "@import 'base.css';");
    const std::string b = write("b.css", "@import 'base.css';");
    const QJsonArray found = run({"check", a, b, "--scene", scene, "--format", "json"}).json()["findings"].toArray();
    ASSERT_EQ(found.size(), 1);
    EXPECT_EQ(found[0].toObject()["line"].toInt(), 2) << found[0].toObject()["text"].toString().toStdString();
}

TEST_F(CheckScene, OverriddenTextsSayWhere) {
    EXPECT_EQ(
        findings(panelScene, "#main { width: 1px;\n width: 2px }"),
        "1 warning overridden-declaration: 'width' can never win: a.css:2 overrides it on the node that it reaches, "
        "whatever pseudo-classes are on\n");
    EXPECT_EQ(
        findings(panelScene, "button { width: 1px }\n.a { width: 2px }\n.a.b { width: 3px }\npanel { width: 4px }"),
        "1 warning overridden-declaration: 'width' can never win: on all 2 nodes that it reaches, whatever "
        "pseudo-classes are on, something stronger is there, such as a.css:2\n"
        "4 warning overridden-declaration: 'width' can never win: a.css:3 overrides it on the node that it reaches, "
        "whatever pseudo-classes are on\n");
}

TEST_F(CheckScene, ValuesOfTheSceneWin) {
    const std::string scene = "<scene><a width='1'/><a width='2' class='b'/></scene>";
    EXPECT_EQ(findings(scene, "a { width: 3px }"), "1 warning overridden-declaration: 'width' can never win: the scene "
                                                   "itself sets it on all 2 nodes that it reaches\n");
    EXPECT_EQ(findings(scene, "a { width: 3px !important }"), "");
    const std::string mixed = "<scene><a width='1'/><a class='b'/></scene>";
    EXPECT_EQ(findings(mixed, "a { width: 3px }\n.b { width: 4px }"),
              "1 warning overridden-declaration: 'width' can never win: on all 2 nodes that it reaches, whatever "
              "pseudo-classes are on, the scene sets it or something stronger is there, such as a.css:2\n");
}

TEST_F(CheckScene, ChangesAreMadeFirst) {
    EXPECT_EQ(findings(panelScene, ".late { width: 1px }", {"--on", "#main", ".late"}), "");
}

TEST_F(CheckScene, OriginsAreCompared) {
    write("strong.css", ".a { width: 1px }");
    const RunResult result = run({"check", write("weak.css", "#main > .a { width: 2px }"), "--origin", "2",
                                  path("strong.css"), "--scene", write("scene.xml", panelScene)});
    EXPECT_EQ(result.exit, 0);
    EXPECT_NE(result.out.find("weak.css:1: warning: 'width' can never win: " + path("strong.css") + ":1 overrides it"),
              std::string::npos)
        << result.out;
}

TEST_F(CheckScene, FindingsAreLinesBehindTheMessages) {
    const std::string sheet = write("a.css", "label { width: 1px }\na + button { width: 2rem 1px }");
    const RunResult result = run({"check", sheet, "--scene", write("scene.xml", panelScene)});
    EXPECT_EQ(result.exit, 1);
    EXPECT_EQ(
        result.out,
        sheet + ": error: Sibling selectors are not supported\n" + sheet +
            ":1: warning: no node of the scene matches 'label', whatever pseudo-classes are on [unmatched-rule]\n" +
            sheet +
            ":2: note: '+' is no combinator here, and what stands on its left does not count: give the neighbour a "
            "class instead [sibling-selector]\n" +
            sheet +
            ":2: warning: '2rem' is left out, its unit is not known: write px, or em: there is no root size "
            "[unknown-unit]\n");
}

TEST_F(CheckScene, LintNeedsNoScene) {
    const std::string sheet = write("a.css", "label { width: 2vw 1px }");
    const RunResult result = run({"check", "--lint", sheet});
    EXPECT_EQ(result.exit, 0);
    EXPECT_EQ(result.out, sheet +
                              ":1: warning: '2vw' is left out, its unit is not known: write px, or have the program "
                              "set the property [unknown-unit]\n");
    EXPECT_EQ(run({"check", sheet}).out, "");
    EXPECT_FALSE(run({"check", sheet, "--format", "json"}).json().contains("findings"));
}

TEST_F(CheckScene, ImportedSheetsAreCheckedToo) {
    write("sub.css", "\nlabel { width: 1px }\nbutton { width: 1rem 1px }");
    const RunResult result =
        run({"check", write("a.css", "@import 'sub.css';"), "--scene", write("scene.xml", panelScene)});
    EXPECT_NE(result.out.find("sub.css:2: warning: no node of the scene matches 'label'"), std::string::npos)
        << result.out;
    EXPECT_NE(result.out.find("sub.css:3: warning: '1rem' is left out"), std::string::npos) << result.out;
}

TEST_F(CheckScene, SceneThatCannotBeReadFails) {
    const RunResult result = run({"check", write("a.css", "a { x: 1 }"), "--scene", path("none.xml")});
    EXPECT_EQ(result.exit, 2);
    EXPECT_EQ(result.err, "brisko: cannot read '" + path("none.xml") + "': no such file\n");
}

TEST_F(CheckScene, PartOfTheSheetsIsNotComparedWithTheScene) {
    const RunResult result = run({"check", write("a.css", "label { width: 1rem 1px }"), path("none.css"), "--scene",
                                  write("scene.xml", panelScene)});
    EXPECT_EQ(result.exit, 2);
    EXPECT_NE(result.out.find("unknown-unit"), std::string::npos);
    EXPECT_EQ(result.out.find("unmatched-rule"), std::string::npos);
}

TEST_F(CheckScene, SceneMessagesAreReported) {
    const std::string scene = write("scene.xml", "<scene><button shape='round'/></scene>");
    const RunResult result = run({"check", write("a.css", "button { width: 1px }"), "--scene", scene});
    EXPECT_EQ(result.exit, 0);
    EXPECT_EQ(result.out, scene + ":1: warning: attribute 'shape' of 'button' is ignored\n");
}

TEST_F(CheckScene, FindingsAreColoredAndStayOnTheirLine) {
    m_isTerminal = true;
    const std::string out = run({"check", "--lint", write("a.css", ".\xc2\x9b\\\x1b { x: 1 }")}).out;
    EXPECT_NE(out.find("\x1b[1;35mwarning: \x1b[0m"), std::string::npos) << out;
    EXPECT_NE(out.find("\\u009b"), std::string::npos) << out;
    EXPECT_EQ(out.find("\\\x1b"), std::string::npos) << out;
}

TEST_F(CheckScene, OptionsAreOfCheckOnly) {
    EXPECT_EQ(run({"style", "a.xml", "-s", "a.css", "--lint"}).exit, 2);
    EXPECT_EQ(run({"query", "a.xml", "a", "--scene", "a.xml"}).exit, 2);
    const RunResult result = run({"style", "a.xml", "-s", "a.css", "--format", "sarif"});
    EXPECT_EQ(result.exit, 2);
    EXPECT_NE(result.err.find("--format sarif is for check only"), std::string::npos) << result.err;
}

} // namespace
