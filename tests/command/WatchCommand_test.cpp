#include "command/CommandRun.h"
#include "support/EventLoop.h"

#include <gmock/gmock.h>

#include <QColor>
#include <QImage>
#include <QProcess>

#include <csignal>

#include <sys/types.h>

namespace {

using testing::HasSubstr;

/// `brisko watch` as a process.
class WatchCommand : public Testing::CommandTest {
protected:
    ~WatchCommand() override {
        m_process.kill();
        m_process.waitForFinished(60000);
    }

    void start(const std::vector<std::string>& arguments) {
        QStringList all = {"watch"};
        for (const std::string& argument : arguments)
            all.append(QString::fromStdString(argument));
        start(BRISKO_PROGRAM, all);
    }
    void start(const QString& program, const QStringList& arguments) {
        m_process.start(program, arguments);
        ASSERT_TRUE(m_process.waitForStarted(60000));
    }
    /// Waits until so many lines of the output were written, or for the end of the process.
    bool waitForLines(int count) {
        return m_loop.waitFor([&] {
            m_out += m_process.readAllStandardOutput();
            return m_out.count('\n') >= count || m_process.state() == QProcess::NotRunning;
        }) && m_out.count('\n') >= count;
    }
    /// Waits until a text was written to the error stream, and takes all up to its end.
    bool waitForError(const std::string& text) {
        return m_loop.waitFor([&] {
            m_err += m_process.readAllStandardError();
            const int at = m_err.indexOf(text.c_str());
            m_err.remove(0, at < 0 ? 0 : at + int(text.size()));
            return at >= 0;
        });
    }
    /// What was written since the last call.
    std::string takeOut() { return std::exchange(m_out, QByteArray()).toStdString(); }
    int exitCodeAfter(int signal) {
        ::kill(pid_t(m_process.processId()), signal);
        EXPECT_TRUE(m_process.waitForFinished(60000));
        EXPECT_EQ(m_process.exitStatus(), QProcess::NormalExit);
        m_err += m_process.readAllStandardError();
        return m_process.exitCode();
    }

    Testing::EventLoop m_loop;
    QProcess m_process;
    QByteArray m_out;
    QByteArray m_err;
};

TEST_F(WatchCommand, ChecksAgainAtEveryChange) {
    const std::string sheet = write("a.css", "a + b { x: 1 }");
    const std::string line = sheet + ": error: Sibling selectors are not supported\n";
    start({"check", sheet});
    ASSERT_TRUE(waitForLines(1));
    EXPECT_EQ(takeOut(), line);
    write("a.css", "\na + b { x: 1 }");
    ASSERT_TRUE(waitForLines(2));
    EXPECT_EQ(takeOut(), "==> " + sheet + " changed\n" + line);
    EXPECT_EQ(exitCodeAfter(SIGINT), 0);
    EXPECT_EQ(m_err, "");
}

TEST_F(WatchCommand, ChecksAgainWhenTheSceneChanges) {
    const std::string scene = write("s.xml", "<s/>");
    start({"check", write("a.css", "b { opacity: 1 }"), "--scene", scene, "--format", "json"});
    ASSERT_TRUE(waitForLines(1));
    EXPECT_THAT(takeOut(), HasSubstr("unmatched-rule"));
    write("s.xml", "<s><b/></s>");
    ASSERT_TRUE(waitForLines(1));
    EXPECT_EQ(takeOut().find("unmatched-rule"), std::string::npos);
    EXPECT_EQ(exitCodeAfter(SIGINT), 0);
}

TEST_F(WatchCommand, WritesOneJsonDocumentALineForEachRun) {
    const std::string scene = write("s.xml", "<s/>");
    const std::string import = path("late.css");
    const std::string sheet = write("a.css", "@import 'late.css';");
    start({"style", scene, "-s", sheet, "--format", "json"});
    ASSERT_TRUE(waitForLines(1));
    takeOut();
    write("late.css", "s { opacity: 0.5 }");
    ASSERT_TRUE(waitForLines(1));
    const QJsonObject imported = Testing::RunResult{0, takeOut(), ""}.json();
    EXPECT_EQ(Testing::valueOf(imported["root"].toObject(), "opacity").toDouble(), 0.5);
    EXPECT_EQ(Testing::texts(imported["files"]), (std::vector<std::string>{sheet, import}));
    write("s.xml", "<s id='new'/>");
    ASSERT_TRUE(waitForLines(1));
    EXPECT_EQ(Testing::RunResult({0, takeOut(), ""}).json()["root"].toObject()["id"].toString(), "new");
    EXPECT_EQ(exitCodeAfter(SIGTERM), 0);
    EXPECT_EQ(m_err, "");
}

TEST_F(WatchCommand, ReportsARunThatFailsAndGoesOn) {
    const std::string scene = path("s.xml");
    const std::string sheet = write("a.css", "@import 'b.css';");
    write("b.css", "s { opacity: 0.5 }");
    start({"style", scene, "-s", sheet, "--color", "never"});
    ASSERT_TRUE(waitForError("brisko: cannot read '" + scene + "': no such file\n"));
    write("s.xml", "<s><b>");
    ASSERT_TRUE(waitForError(scene + ":1:7: error: "));
    write("b.css", "s { opacity: 0.25 }");
    ASSERT_TRUE(waitForError(scene + ":1:7: error: "));
    ASSERT_TRUE(waitForLines(2));
    EXPECT_EQ(takeOut(), "==> " + scene + " changed\n==> " + path("b.css") + " changed\n");
    write("s.xml", "<s/>");
    ASSERT_TRUE(waitForLines(4));
    EXPECT_THAT(takeOut(), HasSubstr("opacity: 0.25 "));
    EXPECT_EQ(exitCodeAfter(SIGINT), 0);
}

TEST_F(WatchCommand, RendersAgain) {
    const std::string scene = write("s.xml", "<s/>");
    const std::string sheet = write("a.css", "s { background: red }");
    const std::string picture = path("out.png");
    start({"render", scene, "-s", sheet, "-o", picture, "--format", "json"});
    ASSERT_TRUE(waitForLines(1));
    EXPECT_EQ(QImage(QString::fromStdString(picture)).pixelColor(5, 5), QColor("red"));
    takeOut();
    write("a.css", "s { background: blue }");
    ASSERT_TRUE(waitForLines(1));
    EXPECT_EQ(QImage(QString::fromStdString(picture)).pixelColor(5, 5), QColor("blue"));
    EXPECT_EQ(exitCodeAfter(SIGINT), 0);
}

TEST_F(WatchCommand, TellsTheTimeOnATerminal) {
    const QString sheet = QString::fromStdString(write("a.css", "a { x: 1 }"));
    start("script", {"-qec", "NO_COLOR=1 exec " BRISKO_PROGRAM " watch check " + sheet, "/dev/null"});
    ASSERT_TRUE(waitForLines(1));
    EXPECT_EQ(takeOut(), "brisko: watching 1 file; Ctrl+C ends it\r\n");
    write("a.css", "a + b { x: 1 }");
    ASSERT_TRUE(waitForLines(3));
    EXPECT_THAT(takeOut(), testing::MatchesRegex("\r\n==> [0-9:]{8} .*a.css changed\r\n"
                                                 ".*a.css: error: Sibling selectors are not supported\r\n"));
    m_process.write("\x03");
    EXPECT_TRUE(m_process.waitForFinished(60000));
    EXPECT_EQ(m_process.exitCode(), 0);
}

TEST_F(WatchCommand, OptionsMayStandBeforeTheCommand) {
    const std::string sheet = write("a.css", "a { x: 1 }");
    start({"--format", "json", "-s", sheet, "check"});
    ASSERT_TRUE(waitForLines(1));
    EXPECT_EQ(Testing::texts(Testing::RunResult{0, takeOut(), ""}.json()["files"]), std::vector<std::string>{sheet});
    EXPECT_EQ(exitCodeAfter(SIGINT), 0);
}

TEST_F(WatchCommand, WrongUsageEndsAtOnce) {
    const std::string usage = "; usage: brisko watch (style|render|inspect|check) ...\n";
    EXPECT_EQ(run({"watch"}).err, "brisko: watch: no command given" + usage);
    EXPECT_EQ(run({"watch", "query", "s.xml", "a"}).err, "brisko: watch: 'query' cannot be watched" + usage);
    EXPECT_EQ(run({"watch", "view", "s.xml"}).err, "brisko: watch: 'view' cannot be watched" + usage);
    EXPECT_EQ(run({"watch", "watch"}).err, "brisko: watch: 'watch' cannot be watched" + usage);
    EXPECT_EQ(run({"watch", "watch", "check", "a.css"}).err, "brisko: watch: 'watch' cannot be watched" + usage);
    EXPECT_EQ(run({"watch", "style", "s.xml"}).exit, 2);
    const Testing::RunResult change = run({"watch", "style", "s.xml", "-s", "a.css", "--on", "a", "b"});
    EXPECT_EQ(change.exit, 2);
    EXPECT_THAT(change.err, HasSubstr("'b'"));
}

TEST_F(WatchCommand, HasItsHelp) {
    const Testing::RunResult help = run({"watch", "--help"});
    EXPECT_EQ(help.exit, 0);
    EXPECT_THAT(help.out, HasSubstr("Usage: brisko watch (style|render|inspect|check) ..."));
    EXPECT_THAT(run({"watch", "check", "--help"}).out, HasSubstr("Usage: brisko check"));
}

} // namespace
