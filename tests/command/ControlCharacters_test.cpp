#include "command/CommandRun.h"

#include <algorithm>

namespace {

using Testing::CommandTest;
using Testing::RunResult;

/// What comes out of the command where sheets, scenes, paths and arguments hold what a terminal would obey.
class ControlCharacters : public CommandTest {
protected:
    /// No control characters but the ends of lines.
    static void expectHarmless(const std::string& text) {
        const QString decoded = QString::fromUtf8(QByteArray::fromStdString(text));
        EXPECT_FALSE(decoded.contains(QChar::ReplacementCharacter)) << text;
        for (const QChar c : decoded) {
            const ushort code = c.unicode();
            const bool isControl = (code < 0x20 && code != '\n') || (code >= 0x7f && code <= 0x9f);
            EXPECT_FALSE(isControl || (code >= 0x202a && code <= 0x202e)) << code << " in " << text;
        }
    }

    RunResult runSafely(const std::vector<std::string>& arguments) {
        RunResult result = run(arguments);
        expectHarmless(result.out);
        expectHarmless(result.err);
        return result;
    }

    // Colours of the terminal, the C1 form of the same, text from right to left, a title, and the end of a line.
    const std::string attack = "\x1b[31m\xc2\x9b"
                               "7m\xe2\x80\xae\x1b]0;title\x07\rx";
    const std::string shown = "\\x1b[31m\\u009b7m\\u202e\\x1b]0;title\\x07\\x0dx";
};

TEST_F(ControlCharacters, OfATextInASheetAreShown) {
    const std::string sheet = write("a.css", "a { x: foo(\"" + attack + "\n) }");
    EXPECT_EQ(runSafely({"check", sheet}).out.find('\r'), std::string::npos);
}

TEST_F(ControlCharacters, OfEscapesInAnImportAreShown) {
    const std::string sheet = write("a.css", "@import '\\1b [31m\\9b 7m\\a next\\202e ';");
    const RunResult result = runSafely({"check", sheet});
    EXPECT_EQ(result.out, sheet + ": error: CSSParser::parseSheet # failed to open '" + path("") + "/" +
                              "\\x1b[31m\\u009b7m\\nnext\\u202e'\n" + sheet +
                              ": error: CSSParser::import # Failed @import \\x1b[31m\\u009b7m\\nnext\\u202e\n");
}

TEST_F(ControlCharacters, OfAPathAreShown) {
    EXPECT_NE(runSafely({"check", "no" + attack + ".css"}).err.find("no" + shown + ".css"), std::string::npos);
    EXPECT_NE(runSafely({"query", "no" + attack + ".xml", "a"}).err.find("no" + shown + ".xml"), std::string::npos);
    const std::string sheet = write(attack + ".css", "a + b { x: 1; y: }");
    runSafely({"check", sheet});
    EXPECT_NE(runSafely({"parse", sheet}).out.find(shown + ".css:1 */"), std::string::npos);
}

TEST_F(ControlCharacters, OfArgumentsAreShown) {
    EXPECT_NE(runSafely({"style", "--" + attack}).err.find(shown), std::string::npos);
    EXPECT_NE(runSafely({"parse", "--selectors", attack}).err.find("Selector parse error (" + shown),
              std::string::npos);
    EXPECT_NE(runSafely({"query", "s.xml", attack}).err.find(shown), std::string::npos);
}

TEST_F(ControlCharacters, OfASceneAreShown) {
    const std::string scene = write("s.xml", "<s><a \xc2\xb7\xe2\x80\x8d='1' x='\xc2\x9b"
                                             "31m'>\xc2\x9b"
                                             "7m\xe2\x80\xae</a></s>");
    runSafely({"query", scene, "a"});
    const std::string good = write("g.xml", "<s><a id='\xc2\x9b"
                                            "3m' class='\xe2\x80\xae'>\xc2\x9b"
                                            "7m\xe2\x80\xae</a></s>");
    const RunResult result = runSafely({"style", good, "-s", write("a.css", "")});
    EXPECT_NE(result.out.find("a#\\u009b3m.\\u202e"), std::string::npos);
    EXPECT_NE(result.out.find("text: \\u009b7m\\u202e (scene)"), std::string::npos);
}

TEST_F(ControlCharacters, OfWhatIsExplainedAreShown) {
    const std::string scene = write("s.xml", "<s><a id='\xc2\x9b"
                                             "3m' class='\xe2\x80\xae' text='\xc2\x9b"
                                             "7m'/></s>");
    const std::string sheet = write(attack + ".css", "a { text: \"\xc2\x9b\" }");
    const std::string selector = "#i\xc2\x9b t\xc2\x9b:p\xc2\x9b";
    const RunResult result = runSafely({"explain", scene, "-s", sheet, "a", "text", "--why-not", selector});
    EXPECT_NE(result.out.find("      - \"\\c2 \\9b \"  a  0,0,1  origin 1  "), std::string::npos) << result.out;
    EXPECT_NE(result.out.find(shown + ".css:1  overridden"), std::string::npos) << result.out;
    EXPECT_NE(result.out.find("not /s/a[1] (type is not t\xc3\x82\\u009b, no pseudo-class p\xc3\x82\\u009b)"),
              std::string::npos)
        << result.out;
    runSafely({"explain", scene, "-s", sheet, "a", attack});
    runSafely({"explain", scene, "-s", sheet, "a", "text", "--why-not", attack});
    runSafely({"explain", scene, "-s", sheet, "a", "text", "--why-not", selector, "--format", "json"});
}

TEST_F(ControlCharacters, OfAnUnknownImageAreShown) {
    const std::string sheet = write("a.css", "a { background: url('\x1b[31m.png') }");
    const RunResult result = runSafely({"render", write("s.xml", "<a/>"), "-s", sheet, "-o", path("a.png")});
    EXPECT_NE(result.err.find("'\\x1b[31m.png'"), std::string::npos);
}

TEST_F(ControlCharacters, InJsonAreEscapesOfJson) {
    const std::string sheet = write("a.css", "@import '\\1b [31m\\9b 7m\\202e ';");
    const RunResult result = runSafely({"parse", sheet, "--format", "json"});
    EXPECT_NE(result.messages().back().find("\x1b[31m\xc2\x9b"
                                            "7m\xe2\x80\xae"),
              std::string::npos); // as they were
}

TEST_F(ControlCharacters, OfParsedTextAreShownOnTerminalsOnly) {
    const std::string sheet = write("a.css", "a { x: \xc2\x9b"
                                             "31m }");
    EXPECT_NE(run({"parse", sheet})
                  .out.find("x: \xc2\x9b"
                            "31m;"),
              std::string::npos);
    m_isTerminal = true;
    EXPECT_NE(runSafely({"parse", sheet, "--color", "never"}).out.find("x: \\u009b31m;"), std::string::npos);
}

} // namespace
