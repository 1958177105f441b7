#include "command/CommandRun.h"

#include "brisko/SheetLoader.h"

#include <QFile>

#include <sys/stat.h>

namespace {

using Testing::CommandTest;
using Testing::RunResult;

/// Sheets, imports, scenes and images that are no files, or none that can be read.
class OddFiles : public CommandTest {
protected:
    OddFiles() {
        EXPECT_EQ(::mkfifo(path("pipe").c_str(), 0600), 0);
        write("a.xml", "<a/>");
        write("a.css", "a { opacity: 1 }");
    }

    void expectUnreadable(const std::vector<std::string>& arguments, const std::string& file, const char* reason) {
        const RunResult result = run(arguments);
        EXPECT_EQ(result.exit, 2);
        EXPECT_EQ(result.out, "");
        EXPECT_EQ(result.err, "brisko: cannot read '" + file + "': " + reason + "\n");
    }

    void expectUnreadableScene(const std::string& file, const char* reason) {
        expectUnreadable({"query", file, "a"}, file, reason);
    }

    void expectUnreadableSheet(const std::string& file, const char* reason) {
        expectUnreadable({"parse", file}, file, reason);
    }
};

TEST_F(OddFiles, PipesAreNotWaitedFor) {
    expectUnreadableScene(path("pipe"), "not a regular file");
    expectUnreadableSheet(path("pipe"), "not a regular file");
}

TEST_F(OddFiles, DevicesAreNotRead) {
    expectUnreadableScene("/dev/zero", "not a regular file");
    expectUnreadableSheet("/dev/zero", "not a regular file");
}

TEST_F(OddFiles, FoldersAreNamedAsSuch) {
    expectUnreadableScene(path(""), "is a directory");
    expectUnreadableSheet(path(""), "is a directory");
}

TEST_F(OddFiles, FilesBeyondTheLimitAreNotRead) {
    const std::string file = write("long", "x");
    if (!QFile::resize(QString::fromStdString(file), qint64(3) << 30))
        GTEST_SKIP() << "no files of that length here";
    expectUnreadableScene(file, "longer than 2 GiB");
    expectUnreadableSheet(file, "longer than 2 GiB");
    EXPECT_EQ(run({"check", file}).out,
              file + ": error: CSSParser::parseSheet # '" + file + "' is longer than 2 GiB\n");
}

TEST_F(OddFiles, ImportsAreReportedAndTheSheetGoesOn) {
    for (const char* name : {"pipe", "/dev/zero", "."}) {
        const std::string sheet = write("main.css", "@import '" + std::string(name) + "'; a { x: 1 }");
        const RunResult result = run({"parse", sheet});
        EXPECT_NE(result.out.find("a {"), std::string::npos) << name;
        EXPECT_NE(result.err.find("CSSParser::import # Failed @import " + std::string(name) + "\n"), std::string::npos)
            << result.err;
    }
}

TEST_F(OddFiles, ImagesAreReportedAndTheRestIsPainted) {
    for (const std::string& name : {path("pipe"), std::string("/dev/zero"), path("")}) {
        const std::string sheet = write("main.css", "a { background: url('" + name + "') }");
        const RunResult result = run({"render", path("a.xml"), "-s", sheet, "-o", path("a.png")});
        EXPECT_EQ(result.exit, 0) << name;
        EXPECT_NE(result.err.find("Cannot read image '" + name + "': File not found\n"), std::string::npos)
            << result.err;
    }
}

TEST_F(OddFiles, InputWithoutAnEndIsRefused) {
    m_input = std::string(std::size_t(Command::SheetLoader::LongestInput) + 1, ' ');
    const RunResult result = run({"parse", "-"});
    EXPECT_EQ(result.exit, 2);
    EXPECT_EQ(result.err, "brisko: cannot read the standard input: longer than 256 MiB\n");
}

} // namespace
