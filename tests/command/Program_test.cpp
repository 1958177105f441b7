#include "command/CommandRun.h"

#include <QProcess>

#include <cstdio>

namespace {

using Testing::CommandTest;

/// The program itself: what main() hands to the command.
class Program : public CommandTest {
protected:
    int start(const QStringList& arguments, const QByteArray& input = QByteArray(), const char* noColor = nullptr) {
        QProcess process;
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert("LC_ALL", "C");
        environment.remove("NO_COLOR");
        if (noColor)
            environment.insert("NO_COLOR", noColor);
        process.setProcessEnvironment(environment);
        process.start(BRISKO_PROGRAM, arguments);
        process.write(input);
        process.closeWriteChannel();
        EXPECT_TRUE(process.waitForFinished(60000));
        EXPECT_EQ(process.exitStatus(), QProcess::NormalExit);
        m_out = process.readAllStandardOutput();
        m_err = process.readAllStandardError();
        return process.exitCode();
    }

    QByteArray m_out;
    QByteArray m_err;
};

TEST_F(Program, ReadsTheStandardInput) {
    EXPECT_EQ(start({"parse", "-"}, "a { x: 1 }"), 0);
    EXPECT_EQ(m_out, "/* 1 rules */\na {\n    x: 1; /* :0 */\n}\n");
    EXPECT_EQ(m_err, "");
}

TEST_F(Program, AnswersWithTheExitCode) {
    const QString sheet = QString::fromStdString(write("a.css", "a + b { x: 1 }"));
    EXPECT_EQ(start({"check", sheet}), 1);
    EXPECT_EQ(start({"check", "none.css"}), 2);
    EXPECT_EQ(m_err, "brisko: cannot read 'none.css': no such file\n");
    EXPECT_EQ(start({}), 2);
}

TEST_F(Program, PipesAreNotColored) {
    const QString sheet = QString::fromStdString(write("a.css", "a + b { x: 1 }"));
    start({"check", sheet});
    EXPECT_FALSE(m_out.contains('\x1b'));
    start({"check", sheet, "--color", "always"}, QByteArray(), "1");
    EXPECT_TRUE(m_out.contains('\x1b'));
}

TEST_F(Program, FileNamesAreUtf8InEveryLocale) {
    const QByteArray name = QByteArray::fromStdString(path("\xc3\xa4.css"));
    // Written by the system call, because the name of the file must not depend on the locale of this test.
    FILE* file = std::fopen(name.constData(), "w");
    ASSERT_NE(file, nullptr);
    std::fputs("a + b { x: 1 }", file);
    std::fclose(file);
    QProcess process;
    process.start("/bin/sh", {"-c", "LC_ALL=C exec " BRISKO_PROGRAM " check \"$1\"/*.css", "sh",
                              QString::fromStdString(path(""))});
    ASSERT_TRUE(process.waitForFinished(60000));
    EXPECT_EQ(process.exitCode(), 1);
    EXPECT_EQ(process.readAllStandardOutput(), name + ": error: Sibling selectors are not supported\n");
}

} // namespace
