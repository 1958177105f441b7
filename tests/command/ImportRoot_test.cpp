#include "command/CommandRun.h"

#include <QDir>
#include <QFile>

namespace {

using Testing::CommandTest;
using Testing::RunResult;

/// A folder "root" of sheets, and others beside it.
class ImportRoot : public CommandTest {
protected:
    ImportRoot() {
        write("outside.css", "out { x: 1 }");
        write("rootless/sub.css", "out { x: 1 }");
        write("root/sub.css", "in { x: 1 }");
        write("root/deep/sub.css", "deep { x: 1 }");
    }

    /// The rules and messages of a sheet in the folder that has this import and a rule "main".
    RunResult runImport(const std::string& import, const std::string& folder = "root") {
        return run({"parse", write("root/main.css", "@import '" + import + "'; main { x: 1 }"), "--import-root",
                    path(folder)});
    }

    static bool has(const RunResult& result, const std::string& rule) {
        return result.out.find(rule + " {") != std::string::npos;
    }

    void expectRefused(const std::string& import) {
        const RunResult result = runImport(import);
        EXPECT_EQ(result.exit, 0);
        EXPECT_TRUE(has(result, "main")) << import;
        EXPECT_FALSE(has(result, "out")) << import;
        EXPECT_EQ(result.err, path("root/main.css") + ":1: error: @import of '" + import + "' is refused\n");
    }

    void expectAllowed(const std::string& import, const std::string& rule) {
        const RunResult result = runImport(import);
        EXPECT_TRUE(has(result, rule)) << import;
        EXPECT_EQ(result.err, "") << import;
    }

    void link(const std::string& target, const std::string& name) {
        ASSERT_TRUE(QFile::link(QString::fromStdString(target), QString::fromStdString(path(name))));
    }
};

TEST_F(ImportRoot, FilesInsideAreImported) {
    expectAllowed("sub.css", "in");
    expectAllowed("deep/sub.css", "deep");
    expectAllowed(path("root/sub.css"), "in");
    expectAllowed("deep/../sub.css", "in");
    expectAllowed("../root/sub.css", "in");
}

TEST_F(ImportRoot, FilesOutsideAreRefused) {
    expectRefused("../outside.css");
    expectRefused(path("outside.css"));
    expectRefused("deep/../../outside.css");
    expectRefused("../rootless/sub.css"); // a name that only begins like the folder
    expectRefused("/etc/passwd");
    expectRefused("..");
}

TEST_F(ImportRoot, SymbolicLinksAreFollowed) {
    link(path("outside.css"), "root/link.css");
    expectRefused("link.css");
    link(path("rootless"), "root/folder");
    expectRefused("folder/sub.css");
    expectRefused("folder/../outside.css"); // ".." behind a link leads elsewhere than the text says
    link(path("nowhere.css"), "root/dangling.css");
    expectRefused("dangling.css");
    link(path("root/deep"), "inner");
    expectAllowed("../inner/sub.css", "deep");
}

TEST_F(ImportRoot, ItMayBeALinkOrRelativeOrTheWholeSystem) {
    link(path("root"), "alias");
    for (const std::string& folder : {std::string("alias"), std::string("root/deep/.."), std::string("root/")})
        EXPECT_TRUE(has(runImport("sub.css", folder), "in")) << folder;
    const RunResult all = run({"parse", write("root/main.css", "@import '../outside.css';"), "--import-root", "/"});
    EXPECT_TRUE(has(all, "out"));
    const QString before = QDir::currentPath();
    QDir::setCurrent(QString::fromStdString(path("root")));
    m_input = "@import 'sub.css'; @import '../outside.css';";
    const RunResult relative = run({"parse", "-", "--import-root", "."});
    QDir::setCurrent(before);
    EXPECT_TRUE(has(relative, "in"));
    EXPECT_EQ(relative.err, "<stdin>:0: error: @import of '../outside.css' is refused\n");
}

TEST_F(ImportRoot, WhatIsMissingInsideIsMissing) {
    EXPECT_NE(runImport("none.css").err.find("CSSParser::import # Failed @import none.css"), std::string::npos);
}

TEST_F(ImportRoot, NobodyLearnsWhatIsMissingOutside) {
    expectRefused("../none.css");
    expectRefused("/none/none.css");
    expectRefused("none/none.css");
    expectRefused(":/none.css");
}

TEST_F(ImportRoot, HoldsForImportsOfImports) {
    write("root/sub.css", "@import '../outside.css'; in { x: 1 }");
    const RunResult result = runImport("sub.css");
    EXPECT_TRUE(has(result, "in"));
    EXPECT_EQ(result.err, path("root/sub.css") + ":1: error: @import of '../outside.css' is refused\n");
}

TEST_F(ImportRoot, SheetsOfTheCommandLineMayLieAnywhere) {
    EXPECT_TRUE(has(run({"parse", path("outside.css"), "--import-root", path("root")}), "out"));
}

TEST_F(ImportRoot, EveryCommandHasIt) {
    const std::string sheet = write("main.css", "@import 'outside.css'; a { opacity: 1 }");
    const std::string scene = write("s.xml", "<a/>");
    const std::vector<std::vector<std::string>> commands = {{"check", sheet},
                                                            {"parse", sheet},
                                                            {"style", scene, "-s", sheet},
                                                            {"query", scene, "-s", sheet, "a"},
                                                            {"render", scene, "-s", sheet, "-o", path("a.png")}};
    for (std::vector<std::string> arguments : commands) {
        arguments.insert(arguments.end(), {"--import-root", path("root")});
        const RunResult result = run(arguments);
        EXPECT_EQ(result.exit, arguments[0] == "check" ? 1 : 0) << arguments[0];
        EXPECT_NE((result.out + result.err).find(":1: error: @import of 'outside.css' is refused\n"), std::string::npos)
            << arguments[0];
    }
}

TEST_F(ImportRoot, MustBeAFolder) {
    for (const char* name : {"none", "outside.css"}) {
        const RunResult result = run({"check", path("root/sub.css"), "--import-root", path(name)});
        EXPECT_EQ(result.exit, 2);
        EXPECT_EQ(result.err, "brisko: --import-root: '" + path(name) + "' is no folder\n");
    }
}

} // namespace
