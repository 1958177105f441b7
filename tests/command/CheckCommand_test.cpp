#include "command/CommandRun.h"

namespace {

using Testing::CommandTest;
using Testing::RunResult;
using Testing::texts;

class CheckCommand : public CommandTest {};

TEST_F(CheckCommand, SheetWithoutMistakesIsQuiet) {
    const RunResult result = run({"check", write("a.css", "a { x: 1 }")});
    EXPECT_EQ(result.exit, 0);
    EXPECT_EQ(result.out, "");
    EXPECT_EQ(result.err, "");
}

TEST_F(CheckCommand, SyntaxErrorIsALineThatEditorsParse) {
    const std::string sheet = write("a.css", "a { x: 1 }\nb { y: ; z: 2 }\n");
    const RunResult result = run({"check", sheet});
    EXPECT_EQ(result.exit, 1);
    EXPECT_EQ(result.out.rfind(sheet + ":2: error: syntax error, unexpected ';'", 0), 0u) << result.out;
    EXPECT_EQ(result.err, "");
}

TEST_F(CheckCommand, MessageWithoutPlaceIsGivenItsFile) {
    const std::string sheet = write("a.css", "a + b { x: 1 }");
    EXPECT_EQ(run({"check", sheet}).out, sheet + ": error: Sibling selectors are not supported\n");
}

TEST_F(CheckCommand, WarningIsNoError) {
    const std::string sheet = write("a.css", "a { x: vec2(1, 2) }");
    const RunResult result = run({"check", sheet});
    EXPECT_EQ(result.exit, 0);
    EXPECT_EQ(result.out, sheet + ":1: warning: vec2() is deprecated syntax\n");
}

TEST_F(CheckCommand, SheetsAreCheckedInOrder) {
    const std::string first = write("1.css", "a + b { x: 1 }");
    const std::string second = write("2.css", "a + b { x: 1 }");
    EXPECT_EQ(run({"check", first, second}).out, first + ": error: Sibling selectors are not supported\n" + second +
                                                     ": error: Sibling selectors are not supported\n");
}

TEST_F(CheckCommand, MissingImportIsAnErrorButNoFailure) {
    const std::string sheet = write("a.css", "@import \"none.css\";\na { x: 1 }");
    const RunResult result = run({"check", sheet});
    EXPECT_EQ(result.exit, 1);
    EXPECT_NE(result.out.find(sheet + ": error: CSSParser::import # Failed @import none.css\n"), std::string::npos);
}

TEST_F(CheckCommand, MissingSheetFailsAfterTheOthersWereChecked) {
    const std::string sheet = write("a.css", "a + b { x: 1 }");
    const RunResult result = run({"check", path("none.css"), sheet});
    EXPECT_EQ(result.exit, 2);
    EXPECT_EQ(result.err, "brisko: cannot read '" + path("none.css") + "': no such file\n");
    EXPECT_NE(result.out.find(sheet + ": error: Sibling"), std::string::npos);
}

TEST_F(CheckCommand, DirectoryIsRefused) {
    const RunResult result = run({"check", path(".")});
    EXPECT_EQ(result.exit, 2);
    EXPECT_NE(result.err.find("is a directory"), std::string::npos);
}

TEST_F(CheckCommand, JsonHoldsTheMessages) {
    const std::string sheet = write("a.css", "a + b { x: 1 }");
    const RunResult result = run({"check", sheet, "--format", "json"});
    EXPECT_EQ(result.exit, 1);
    EXPECT_EQ(result.err, "");
    EXPECT_EQ(texts(result.json()["files"]), std::vector<std::string>{sheet});
    EXPECT_EQ(result.json()["rules"].toInt(), 1);
    EXPECT_EQ(result.messages(), std::vector<std::string>{"error: Sibling selectors are not supported"});
}

TEST_F(CheckCommand, ControlCharactersStayOnOneLine) {
    const std::string sheet = write("a.css", "a { x: 'a\x1b[2J\n; y: 1 }");
    const RunResult result = run({"check", sheet});
    EXPECT_NE(result.out.find("Bad string 'a\\x1b[2J"), std::string::npos) << result.out;
    EXPECT_EQ(result.out.find('\x1b'), std::string::npos);
}

TEST_F(CheckCommand, QuotedTextIsNoPlace) {
    const std::string sheet = write("a.css", "a { x: \"b:3: error: c\n; y: 1 }");
    const std::string line = sheet + ": error: CSSParser::lex # Bad string 'b:3: error: c'\n";
    EXPECT_EQ(run({"check", sheet}).out.rfind(line, 0), 0u) << run({"check", sheet}).out;
}

TEST_F(CheckCommand, FileNameMayLookLikeAPlace) {
    const std::string sheet = write("a:1: b.css", "a { x: ; }");
    const std::string line = sheet + ":1: error: syntax error, unexpected ';'\n";
    EXPECT_EQ(run({"check", sheet}).out, line);
}

struct ColorCase {
    const char* name;
    const char* option; ///< of --color; empty for none
    bool isTerminal;
    bool noColor;
    bool isColored;
};

class CheckColors : public CommandTest, public testing::WithParamInterface<ColorCase> {};

TEST_P(CheckColors, FollowOptionTerminalAndEnvironment) {
    const ColorCase& test = GetParam();
    m_isTerminal = test.isTerminal;
    m_noColor = test.noColor;
    std::vector<std::string> arguments = {"check", write("a.css", "a + b { x: 1 }")};
    if (*test.option)
        arguments.insert(arguments.end(), {"--color", test.option});
    const RunResult result = run(arguments);
    EXPECT_EQ(result.out.find("\x1b[") != std::string::npos, test.isColored) << result.out;
}

INSTANTIATE_TEST_SUITE_P(Cases, CheckColors,
                         testing::Values(ColorCase{"PipeIsPlain", "", false, false, false},
                                         ColorCase{"TerminalIsColored", "", true, false, true},
                                         ColorCase{"NoColorIsObeyed", "", true, true, false},
                                         ColorCase{"AlwaysBeatsPipe", "always", false, false, true},
                                         ColorCase{"AlwaysBeatsNoColor", "always", true, true, true},
                                         ColorCase{"NeverBeatsTerminal", "never", true, false, false},
                                         ColorCase{"AutoIsTheDefault", "auto", true, false, true}),
                         [](const auto& tested) { return tested.param.name; });

} // namespace
