#include "brisko/SourceExcerpts.h"

#include "command/CommandRun.h"

#include <sstream>

namespace {

using Command::JsonWriter;

class SourceExcerpts : public Testing::CommandTest {
protected:
    static std::string written(const Command::SourceExcerpts& excerpts) {
        std::ostringstream out;
        JsonWriter json(out, JsonWriter::Spacing::Compact);
        excerpts.write(json);
        return out.str();
    }

    std::string expected(const std::string& parts) const {
        return R"([{"file":")" + path("a.css") + R"(","parts":)" + parts + "}]";
    }

    QString file(const std::string& name) const { return QString::fromStdString(path(name)); }
};

std::string lines(int first, int last) {
    std::string text;
    for (int line = first; line <= last; ++line)
        text += "l" + std::to_string(line) + "\n";
    return text;
}

TEST_F(SourceExcerpts, PartsThatMeetAreOne) {
    write("a.css", lines(1, 100));
    Command::SourceExcerpts excerpts({file("a.css")});
    excerpts.add(file("a.css"), 2);
    excerpts.add(file("a.css"), 2 + 2 * Command::SourceExcerpts::Context + 1);
    EXPECT_EQ(written(excerpts).find(R"(],[)"), std::string::npos);
    excerpts.add(file("a.css"), 80);
    EXPECT_NE(written(excerpts).find(R"("l27"],[72,"l72",)"), std::string::npos) << written(excerpts);
}

TEST_F(SourceExcerpts, LinesBehindTheEndAreNone) {
    write("a.css", "x\ny");
    Command::SourceExcerpts excerpts({file("a.css")});
    excerpts.add(file("a.css"), 1);
    EXPECT_EQ(written(excerpts), expected(R"([[1,"x","y"]])"));
    Command::SourceExcerpts behind({file("a.css")});
    behind.add(file("a.css"), 1000);
    EXPECT_EQ(written(behind), expected("[]"));
}

TEST_F(SourceExcerpts, LongLinesAreCutOff) {
    write("a.css", std::string(100000, 'a') + "\r\n" + std::string(400, 'b'));
    Command::SourceExcerpts excerpts({file("a.css")});
    excerpts.add(file("a.css"), 1);
    EXPECT_EQ(written(excerpts),
              expected("[[1,\"" + std::string(400, 'a') + "\xe2\x80\xa6\",\"" + std::string(400, 'b') + "\"]]"));
}

TEST_F(SourceExcerpts, OtherFilesAreNotRead) {
    write("a.css", "a");
    write("secret", "b");
    Command::SourceExcerpts excerpts({file("a.css")});
    excerpts.add(file("secret"), 1);
    excerpts.add(file("a.css"), 0);
    excerpts.add(file("a.css"), -5);
    EXPECT_EQ(written(excerpts), "[]");
}

TEST_F(SourceExcerpts, FilesThatHaveGoneAreLeftOut) {
    write("b.css", "b");
    Command::SourceExcerpts excerpts({file("a.css"), file("b.css")});
    excerpts.add(file("a.css"), 1);
    excerpts.add(file("b.css"), 1);
    EXPECT_EQ(written(excerpts), R"([{"file":")" + path("b.css") + R"(","parts":[[1,"b"]]}])");
}

} // namespace
