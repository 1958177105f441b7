#include "command/CommandRun.h"

namespace {

using Testing::CommandTest;
using Testing::RunResult;
using Testing::texts;

constexpr char scene[] = R"(<scene>
  <panel id="one" class="Dark wide"><button/><label/><button pseudo="hover"/></panel>
  <panel class="light"><group><button class="dark"/></group></panel>
  <button/>
</scene>)";

struct QueryCase {
    const char* name;
    const char* selector;
    const char* paths; ///< separated by blanks
};

class QueryPaths : public CommandTest, public testing::WithParamInterface<QueryCase> {};

TEST_P(QueryPaths, AreThoseOfTheMatchingNodes) {
    const RunResult result = run({"query", write("scene.xml", scene), GetParam().selector});
    std::string expected = GetParam().paths;
    const bool any = !expected.empty();
    for (char& c : expected)
        c = c == ' ' ? '\n' : c;
    EXPECT_EQ(result.out, any ? expected + "\n" : "");
    EXPECT_EQ(result.exit, any ? 0 : 1);
    EXPECT_EQ(result.err, "");
}

INSTANTIATE_TEST_SUITE_P(
    Cases, QueryPaths,
    testing::Values(QueryCase{"Root", "scene", "/scene"},
                    QueryCase{"TypeCountsAmongSiblingsOfItsType", "button",
                              "/scene/panel[1]/button[1] /scene/panel[1]/button[2] /scene/panel[2]/group[1]/button[1] "
                              "/scene/button[1]"},
                    QueryCase{"Child", "scene > button", "/scene/button[1]"},
                    QueryCase{"Descendant", ".light button", "/scene/panel[2]/group[1]/button[1]"},
                    QueryCase{"DescendantGoesBackForAnotherAncestor", "scene > panel button.dark",
                              "/scene/panel[2]/group[1]/button[1]"},
                    QueryCase{"ChildAfterDescendant", "scene group > button", "/scene/panel[2]/group[1]/button[1]"},
                    QueryCase{"ChildOfTheWrongHost", "panel > group > label", ""},
                    QueryCase{"ClassInAnyCase", ".DARK", "/scene/panel[1] /scene/panel[2]/group[1]/button[1]"},
                    QueryCase{"Id", "#one", "/scene/panel[1]"},
                    QueryCase{"PseudoClass", ":hover", "/scene/panel[1]/button[2]"},
                    QueryCase{"List", "label, #one", "/scene/panel[1] /scene/panel[1]/label[1]"},
                    QueryCase{"NodeIsNotItsOwnAncestor", "scene scene", ""}, QueryCase{"NothingMatches", "slider", ""}),
    [](const auto& tested) { return tested.param.name; });

class QueryCommand : public CommandTest {};

TEST_F(QueryCommand, JsonHoldsPathsAndMessages) {
    const RunResult result = run({"query", write("scene.xml", scene), "panel + label", "--format", "json"});
    EXPECT_EQ(result.exit, 0);
    EXPECT_EQ(result.err, "");
    EXPECT_EQ(texts(result.json()["paths"]), std::vector<std::string>{"/scene/panel[1]/label[1]"});
    EXPECT_EQ(result.messages(), std::vector<std::string>{"error: Sibling selectors are not supported"});
}

TEST_F(QueryCommand, SheetsStyleTheSceneFirst) {
    const std::string sheet = write("a.css", "scene > button { css-class: late }");
    const std::string file = write("scene.xml", scene);
    EXPECT_EQ(run({"query", file, ".late"}).exit, 1);
    const RunResult result = run({"query", file, "-s", sheet, ".late"});
    EXPECT_EQ(result.exit, 0);
    EXPECT_EQ(result.out, "/scene/button[1]\n");
    EXPECT_EQ(result.err, "");
}

TEST_F(QueryCommand, SheetsAfterOneOptionEndBeforeTheSelector) {
    const std::string first = write("a.css", "scene > button { css-class: early }");
    const std::string second = write("b.css", "scene > button { css-id: last }");
    const RunResult result = run({"query", write("scene.xml", scene), "-s", first, second, "#last"});
    EXPECT_EQ(result.err, "");
    EXPECT_EQ(result.out, "/scene/button[1]\n");
}

TEST_F(QueryCommand, SeesChanges) {
    const RunResult result =
        run({"query", write("scene.xml", scene), ".a .b", "--on", "panel", ".a", "--on", ".a > button", ".b"});
    EXPECT_EQ(result.out, "/scene/panel[1]/button[1]\n/scene/panel[1]/button[2]\n");
}

} // namespace
