#include "command/CommandRun.h"

namespace {

using Testing::CommandTest;
using Testing::RunResult;
using Testing::texts;

class ExplainCommand : public CommandTest {
protected:
    RunResult explain(const std::string& scene, const std::string& sheet, const std::vector<std::string>& more) {
        std::vector<std::string> arguments = {"explain", write("scene.xml", scene), "-s", write("a.css", sheet)};
        arguments.insert(arguments.end(), more.begin(), more.end());
        return run(arguments);
    }

    /// The candidates of the first node, each as "selector: text", with "(via shorthand)" and "lost by rule".
    std::vector<std::string> candidates(const std::string& scene, const std::string& sheet,
                                        std::vector<std::string> more) {
        more.insert(more.end(), {"--format", "json"});
        const RunResult result = explain(scene, sheet, more);
        EXPECT_EQ(result.exit, 0) << result.err;
        return shown(node(result));
    }

    /// What the first node has.
    static QJsonObject node(const RunResult& result) { return result.json()["nodes"].toArray().at(0).toObject(); }

    static std::vector<std::string> shown(const QJsonValue& explained) {
        std::vector<std::string> lines;
        for (const QJsonValue& candidate : explained["candidates"].toArray()) {
            QString line = candidate["selector"].toString() + ": " + candidate["text"].toString();
            if (!candidate["via"].isNull())
                line += " via " + candidate["via"].toString() + ": " + candidate["declared"].toString();
            EXPECT_EQ(candidate["wins"].toBool(), candidate["lostBy"].isNull());
            if (!candidate["wins"].toBool())
                line += ", " + candidate["lostBy"].toString();
            EXPECT_EQ(candidate["refused"].toBool(), candidate["lostBy"] == "refused");
            lines.push_back(line.toStdString());
        }
        return lines;
    }

    std::string source(int line) { return path("a.css") + ":" + std::to_string(line); }
};

using Lines = std::vector<std::string>;

TEST_F(ExplainCommand, JsonHoldsEveryField) {
    const RunResult result = explain("<scene><panel id='p' class='a'/></scene>",
                                     "panel { border: 1px solid red }\nscene > .a { border-top-width: 2px !important }",
                                     {"#p", "border-top-width", "--format", "json"});
    EXPECT_EQ(result.exit, 0);
    EXPECT_EQ(result.err, "");
    EXPECT_EQ(
        result.out,
        R"({"nodes": [{"path": "/scene/panel[1]", "property": "border-top-width", "candidates": [)"
        R"({"declaration": 1, "selector": "scene > .a", "specificity": 16777473, "origin": 1, "ids": 0, )"
        R"("classes": 1, "types": 1, "important": true, "source": ")" +
            source(2) +
            R"(", "text": "2px", "via": null, "wins": true, "lostBy": null}, )"
            R"({"declaration": 0, "selector": "panel", "specificity": 16777217, "origin": 1, "ids": 0, )"
            R"("classes": 0, "types": 1, "important": false, "source": ")" +
            source(1) +
            R"(", "text": "1px", "via": "border", "declared": "1px solid red", "wins": false, )"
            R"("lostBy": "importance"}], "layers": {"3": [{"type": 1, "unit": 1, "separator": null, "value": 2}]}, )"
            R"("value": [{"type": 1, "unit": 1, "separator": null, "value": 2}]}], "messages": []})"
            "\n");
}

struct CandidatesCase {
    const char* name;
    const char* sheet;
    const char* property;
    Lines expected;
};

class ExplainedCandidates : public ExplainCommand, public testing::WithParamInterface<CandidatesCase> {};

TEST_P(ExplainedCandidates, AreStrongestFirst) {
    const CandidatesCase& tested = GetParam();
    EXPECT_EQ(candidates("<scene><a id='i' class='c d' x='7'/></scene>", tested.sheet, {"a", tested.property}),
              tested.expected);
}

INSTANTIATE_TEST_SUITE_P(
    Cases, ExplainedCandidates,
    testing::Values(
        CandidatesCase{"None", "scene { width: 1px }", "width", {}},
        CandidatesCase{
            "Importance", "#i { width: 1px } * { width: 2px !important }", "width", {"*: 2px", "#i: 1px, importance"}},
        CandidatesCase{"Specificity",
                       "#i { width: 1px } scene a.c.d { width: 2px } a { width: 3px }",
                       "width",
                       {"#i: 1px", "scene a.c.d: 2px, specificity", "a: 3px, specificity"}},
        CandidatesCase{"Order",
                       "a { width: 1px; width: 2px } a { width: 3px }",
                       "width",
                       {"a: 3px", "a: 2px, order", "a: 1px, order"}},
        CandidatesCase{"TwoSelectorsOfOneList", "a, .c, b { width: 1px }", "width", {".c: 1px", "a: 1px, specificity"}},
        CandidatesCase{"SameSelectorTwice", "a, a { width: 1px }", "width", {"a: 1px", "a: 1px, order"}},
        CandidatesCase{"ImportantOnesAmongThemselves",
                       "a { width: 1px !important } .c { width: 2px !important }",
                       "width",
                       {".c: 2px", "a: 1px, specificity"}},
        CandidatesCase{
            "Refused", "a { width: 1px } .c { width: foo }", "width", {".c: foo, refused", "a: 1px, specificity"}},
        CandidatesCase{"SceneOverridesNormalOnes",
                       "a { x: 1px } .c { x: 2px }",
                       "x",
                       {".c: 2px, user layer", "a: 1px, specificity"}},
        CandidatesCase{"ImportantOnesOverrideTheScene",
                       "a { x: 1px !important } .c { x: 2px }",
                       "x",
                       {"a: 1px", ".c: 2px, importance"}},
        CandidatesCase{
            "TupleGivesItsComponents", "a { size: 1px 2px; width: 3px }", "height", {"a: 2px via size: 1px 2px"}},
        CandidatesCase{"ComponentAfterTuple",
                       "a { size: 1px 2px; width: 3px }",
                       "width",
                       {"a: 3px", "a: 1px via size: 1px 2px, order"}},
        CandidatesCase{"TupleItself", "a { size: 1px 2px; width: 3px }", "size", {"a: 1px 2px"}},
        CandidatesCase{"TupleThatTheSceneOverridesInPart", "a { location: 1px 2px }", "location", {"a: 1px 2px"}},
        CandidatesCase{"FrameGivesItsSides",
                       "a { padding: 1px 2px } .c { padding-left: 3px }",
                       "padding-left",
                       {".c: 3px", "a: 2px via padding: 1px 2px, specificity"}},
        CandidatesCase{"ShorthandItself",
                       "a { border: 1px solid red } .c { border: 2px solid red }",
                       "border",
                       {".c: 2px solid red", "a: 1px solid red, specificity"}},
        CandidatesCase{"ShorthandsOfShorthands",
                       "a { border-top: 2px; border: 1px solid red; border-width: 3px 4px }",
                       "border-top-width",
                       {"a: 3px via border-width: 3px 4px", "a: 1px via border: 1px solid red, order",
                        "a: 2px via border-top: 2px, order"}},
        CandidatesCase{"FontIsMadeOnDemand",
                       ".c { font: 12px Foo } a { font-size: 5px }",
                       "font-size",
                       {".c: 12px via font: 12px Foo", "a: 5px, specificity"}},
        CandidatesCase{"NotServed", "a { frobnicate: 1 }", "frobnicate", {"a: 1, not served"}}),
    [](const auto& tested) { return tested.param.name; });

TEST_F(ExplainCommand, EveryNodeThatMatchesIsExplained) {
    const RunResult result =
        explain("<s><a/><b><a class='c'/></b></s>", ".c { width: 2px }", {"s a", "width", "--format", "json"});
    const QJsonArray nodes = result.json()["nodes"].toArray();
    ASSERT_EQ(nodes.size(), 2);
    EXPECT_EQ(nodes[0]["path"], "/s/a[1]");
    EXPECT_TRUE(nodes[0]["candidates"].toArray().isEmpty());
    EXPECT_TRUE(nodes[0]["layers"].toObject().isEmpty());
    EXPECT_EQ(nodes[0]["value"], 100);
    EXPECT_EQ(nodes[1]["path"], "/s/b[1]/a[1]");
    EXPECT_EQ(shown(nodes[1]), Lines{".c: 2px"});
    EXPECT_EQ(nodes[1]["layers"].toObject(), (QJsonObject{{"1", 2}}));
    EXPECT_EQ(nodes[1]["value"], 2);
}

TEST_F(ExplainCommand, PropertyThatNoNodeHas) {
    const RunResult result = explain("<s/>", "s { nothing: 1 }", {"s", "anything", "--format", "json"});
    EXPECT_EQ(result.exit, 0);
    EXPECT_EQ(result.err, "");
    EXPECT_EQ(result.out.substr(0, result.out.find(", \"messages\"")),
              R"({"nodes": [{"path": "/s", "property": "anything", "candidates": [], "layers": {}, "value": null}])");
    EXPECT_EQ(result.messages().size(), 1u);
}

TEST_F(ExplainCommand, AnyPropertyIsKeptAndExplained) {
    const std::string scene = "<s grid='1px'><a/></s>";
    const std::string sheet = "s { grid: a / 2px } a { flow: x }";
    EXPECT_EQ(candidates(scene, sheet, {"s", "grid", "--any-property"}), Lines{"s: a / 2px, user layer"});
    EXPECT_EQ(candidates(scene, sheet, {"a", "flow", "--any-property"}), Lines{"a: x"});
    const RunResult result = explain(scene, sheet, {"a", "grid", "--any-property", "--format", "json"});
    EXPECT_EQ(node(result)["value"], QJsonValue());
}

TEST_F(ExplainCommand, OriginsCountFirst) {
    const std::string strong = write("strong.css", "a { width: 1px }");
    const std::string weak = write("weak.css", "#i { width: 2px } a { width: 3px !important }");
    const RunResult result = run({"explain", write("s.xml", "<a id='i'/>"), "--origin", "2", "-s", strong, "--origin",
                                  "0", "-s", weak, "a", "width", "--format", "json"});
    EXPECT_EQ(shown(node(result)), Lines({"a: 3px", "a: 1px, importance", "#i: 2px, importance"}));
    EXPECT_EQ(node(result)["candidates"].toArray()[1].toObject()["origin"], 2);
}

TEST_F(ExplainCommand, ChangesAreExplained) {
    const std::string scene = "<s><a/></s>";
    const std::string sheet = "a { width: 1px } s:hover a { width: 2px } a.late { width: 3px } #new { width: 4px }";
    EXPECT_EQ(candidates(scene, sheet, {"a", "width", "--on", "s", ":hover"}),
              Lines({"s:hover a: 2px", "a: 1px, specificity"}));
    EXPECT_EQ(
        candidates(scene, sheet, {"a", "width", "--on", "s", ":hover", "--on", "s", "-:hover", "--on", "a", ".late"}),
        Lines({"a.late: 3px", "a: 1px, specificity"}));
    EXPECT_EQ(candidates(scene, sheet, {"#new", "width", "--on", "a", "#new"}),
              Lines({"#new: 4px", "a: 1px, specificity"}));
}

TEST_F(ExplainCommand, RulesThatChangeTheIdentityAreExplainedAsTheyEnded) {
    EXPECT_EQ(candidates("<s><a/></s>", "a { css-class: late; width: 1px } .late { width: 2px }", {"a", "width"}),
              Lines({".late: 2px", "a: 1px, specificity"}));
}

TEST_F(ExplainCommand, TransitionsHaveRunToTheirEnd) {
    EXPECT_EQ(candidates("<a/>", "a { transition: width 1s; width: 1px } a:hover { width: 2px }",
                         {"a", "width", "--on", "a", ":hover"}),
              Lines({"a:hover: 2px", "a: 1px, specificity"}));
}

TEST_F(ExplainCommand, MessagesAreThoseOfTheStylingOnce) {
    const std::string sheet = "a { background: url(a) red 1px blue } b + a { width: foo }";
    const RunResult styled = run({"style", write("s.xml", "<a/>"), "-s", write("a.css", sheet), "--format", "json"});
    const RunResult result =
        run({"explain", path("s.xml"), "-s", path("a.css"), "a", "background", "--format", "json"});
    EXPECT_EQ(result.messages(), styled.messages());
    EXPECT_FALSE(result.messages().empty());
    EXPECT_EQ(result.err, "");
    EXPECT_NE(run({"explain", path("s.xml"), "-s", path("a.css"), "a", "width"}).err.find("Sibling selectors"),
              std::string::npos);
}

TEST_F(ExplainCommand, ExitsWithOneWhereNoNodeMatches) {
    const RunResult json = explain("<a/>", "a { width: 1px }", {"b", "width", "--format", "json"});
    EXPECT_EQ(json.exit, 1);
    EXPECT_EQ(json.out, "{\"nodes\": [], \"messages\": []}\n");
    EXPECT_EQ(json.err, "");
    const RunResult text = explain("<a/>", "a { width: 1px }", {"b", "width"});
    EXPECT_EQ(text.exit, 1);
    EXPECT_EQ(text.out + text.err, "");
}

TEST_F(ExplainCommand, WrongUsage) {
    const std::string scene = write("s.xml", "<a/>");
    const std::string sheet = write("a.css", "");
    const std::string usage = "; usage: brisko explain SCENE -s SHEET... SELECTOR PROPERTY\n";
    const std::string wanted =
        "brisko: explain: give a scene, a selector and a property, or a scene, a selector and --why-not SELECTOR" +
        usage;
    EXPECT_EQ(run({"explain", scene, "-s", sheet, "a"}).err, wanted);
    EXPECT_EQ(run({"explain", scene, "a", "width", "more"}).err, wanted);
    EXPECT_EQ(run({"explain", scene, "a", "width"}).err, "brisko: explain: no sheet given; use -s FILE" + usage);
    EXPECT_EQ(run({"explain", scene, "-s", sheet, ",", "width"}).exit, 2);
    EXPECT_EQ(run({"explain", scene, "-s", sheet, "a", "--why-not", "]"}).exit, 2);
    EXPECT_EQ(run({"explain", scene, "-s", path("none.css"), "a", "width", "--format", "json"}).exit, 2);
    EXPECT_EQ(run({"style", scene, "-s", sheet, "--why-not", "a"}).exit, 2);
}

TEST_F(ExplainCommand, SheetsAfterOneOptionEndBeforeTheSelector) {
    const std::string scene = write("s.xml", "<a/>");
    const std::string first = write("1.css", "a { width: 1px }");
    const std::string second = write("2.css", "a { width: 2px }");
    const RunResult result = run({"explain", scene, "-s", first, second, "a", "width", "--format", "json"});
    EXPECT_EQ(shown(node(result)), Lines({"a: 2px", "a: 1px, order"}));
}

TEST_F(ExplainCommand, TextHasALineForEachCandidate) {
    const RunResult result = explain("<s><a id='i' class='c' opacity='0.5'/></s>",
                                     "s > a { border: 1px solid red; opacity: 1 }\n"
                                     ".c { border-top-width: 2px } \n a { border-top-width: 3px !important }",
                                     {"a", "border-top-width"});
    EXPECT_EQ(result.exit, 0);
    EXPECT_EQ(result.err, "");
    EXPECT_EQ(result.out, "/s/a[1]  a#i.c\n"
                          "    border-top-width: 3px !important\n"
                          "      * 3px !important    a      0,0,1  origin 1  " +
                              source(3) +
                              "  wins\n"
                              "      - 2px               .c     0,1,0  origin 1  " +
                              source(2) +
                              "  lost: not important\n"
                              "      - 1px (via border)  s > a  0,0,2  origin 1  " +
                              source(1) + "  lost: not important\n");
    EXPECT_EQ(run({"explain", path("scene.xml"), "-s", path("a.css"), "a", "opacity"}).out,
              "/s/a[1]  a#i.c\n"
              "    opacity: 0.5 (scene)\n"
              "      - 1  s > a  0,0,2  origin 1  " +
                  source(1) + "  overridden: the scene sets the property\n");
    EXPECT_EQ(run({"explain", path("scene.xml"), "-s", path("a.css"), "s", "opacity"}).out,
              "/s  s\n"
              "    opacity: (the node has no such property)\n"
              "        no declaration of the sheets sets it\n");
    EXPECT_EQ(run({"explain", path("scene.xml"), "-s", path("a.css"), "a", "border"}).out,
              "/s/a[1]  a#i.c\n"
              "    border: (see its longhands)\n"
              "      * 1px solid red  s > a  0,0,2  origin 1  " +
                  source(1) + "  wins\n");
}

TEST_F(ExplainCommand, TextNamesEveryReason) {
    const std::string strong = write("strong.css", ".c { width: foo }");
    const std::string sheet = "a { width: 1px; bogus: 2; height: 3px; height: 4px } a.c { height: 5px }";
    const auto reasons = [&](const char* property) {
        const RunResult result = explain("<a class='c'/>", sheet, {"--origin", "3", "-s", strong, "a", property});
        Lines lines;
        for (const QString& line : QString::fromStdString(result.out).split('\n').mid(2)) {
            if (!line.isEmpty())
                lines.push_back(line.section("  ", -1).trimmed().toStdString());
        }
        return lines;
    };
    EXPECT_EQ(reasons("width"), Lines({"refused: the property does not take this value", "lost: of a lower origin"}));
    EXPECT_EQ(reasons("height"), Lines({"wins", "lost: less specific", "lost: less specific"}));
    EXPECT_EQ(reasons("bogus"), Lines({"not served: the node has no such property"}));
}

TEST_F(ExplainCommand, ColoursMarkWinnerAndLosers) {
    m_isTerminal = true;
    const RunResult result = explain("<a/>", "a { width: 1px; width: 2px }", {"a", "width"});
    EXPECT_EQ(result.out, "\x1b[1m/a\x1b[0m  a\n"
                          "    width: 2\n"
                          "      * \x1b[1;32m2px\x1b[0m  a  0,0,1  origin 1  " +
                              source(1) +
                              "\x1b[0m  \x1b[1;32mwins\x1b[0m\n"
                              "      - \x1b[2;9m1px\x1b[0m\x1b[2m  a  0,0,1  origin 1  " +
                              source(1) + "\x1b[0m  \x1b[33mlost: declared earlier\x1b[0m\n");
    EXPECT_EQ(explain("<a/>", "a { width: 1px; width: 2px }", {"a", "width", "--color", "never"}).out.find('\x1b'),
              std::string::npos);
}

constexpr char tree[] = "<s><p class='a'><q><n id='i' class='x' pseudo='hover'/></q></p></s>";

TEST_F(ExplainCommand, WhyNotJsonHoldsEveryField) {
    const RunResult result =
        explain(tree, "", {"n", "--why-not", "p.b:on > q n, n", "--why-not", "t s", "--format", "json"});
    EXPECT_EQ(result.exit, 0);
    EXPECT_EQ(result.err, "");
    EXPECT_EQ(result.out,
              R"({"nodes": [], "whyNot": [{"path": "/s/p[1]/q[1]/n[1]", "selector": "p.b:on > q n", "matches": false, )"
              R"("compound": 0, "text": "p.b:on", "noSuchAncestor": false, "attempts": [{"path": "/s/p[1]", "unmet": [)"
              R"({"condition": "class", "name": "b"}, {"condition": "pseudo-class", "name": "on"}]}]}, )"
              R"({"path": "/s/p[1]/q[1]/n[1]", "selector": "n", "matches": true}, )"
              R"({"path": "/s/p[1]/q[1]/n[1]", "selector": "t s", "matches": false, "compound": 1, "text": "s", )"
              R"("noSuchAncestor": false, "attempts": [{"path": "/s/p[1]/q[1]/n[1]", "unmet": [{"condition": "type", )"
              R"("name": "s"}]}]}], "messages": []})"
              "\n");
}

TEST_F(ExplainCommand, WhyNotTextNamesTheCompoundAndWhatEachNodeLacks) {
    EXPECT_EQ(explain(tree, "",
                      {"n", "--why-not", "t.z#k n", "--why-not", "n#i.x:hover:on", "--why-not", "t > s q n",
                       "--why-not", "s n"})
                  .out,
              "/s/p[1]/q[1]/n[1]  n#i.x:hover\n"
              "    t.z#k n does not match\n"
              "      t.z#k: not /s/p[1]/q[1] (type is not t, id is not k, no class z)\n"
              "      t.z#k: not /s/p[1] (type is not t, id is not k, no class z)\n"
              "      t.z#k: not /s (type is not t, id is not k, no class z)\n"
              "    n.x:hover:on#i does not match\n"
              "      n.x:hover:on#i: not /s/p[1]/q[1]/n[1] (no pseudo-class on)\n"
              "    t > s q n does not match\n"
              "      t: no such ancestor\n"
              "    s n matches\n");
}

TEST_F(ExplainCommand, WhyNotGoesBesideAProperty) {
    const RunResult text = explain(tree, "n { width: 1px }", {"n", "width", "--why-not", "p > n"});
    EXPECT_EQ(text.out, "/s/p[1]/q[1]/n[1]  n#i.x:hover\n"
                        "    width: 1\n"
                        "      * 1px  n  0,0,1  origin 1  " +
                            source(1) +
                            "  wins\n"
                            "    p > n does not match\n"
                            "      p: not /s/p[1]/q[1] (type is not p)\n");
    const RunResult json = explain(tree, "n { width: 1px }", {"n", "width", "--why-not", "p > n", "--format", "json"});
    EXPECT_EQ(shown(node(json)), Lines{"n: 1px"});
    EXPECT_EQ(json.json()["whyNot"].toArray().size(), 1);
}

TEST_F(ExplainCommand, WhyNotExitsWithOneWhereTheFirstSelectorMatchesNothing) {
    EXPECT_EQ(explain(tree, "", {"none", "--why-not", "n"}).exit, 1);
    EXPECT_EQ(explain(tree, "", {"n", "--why-not", "none"}).exit, 0);
}

} // namespace
