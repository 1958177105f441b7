#include "Brisko/CSSParser.h"

#include "support/SheetDump.h"
#include "support/TraceGuard.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include <atomic>
#include <cstdio>
#include <thread>

#include <fcntl.h>
#include <sys/stat.h>

#include <sys/resource.h>
#include <unistd.h>

namespace Testing {

namespace {

using Brisko::CSSParser;
using Brisko::SimpleSelector;
using Brisko::StyleSheet;
using Strings = std::vector<std::string>;
using testing::Contains;
using testing::StartsWith;

constexpr SimpleSelector::Origin author = SimpleSelector::Origin(1);

/// A folder of sheets with the parser, the sheet and the list of files that a test needs.
class CSSParserFiles : public testing::Test {
protected:
    void SetUp() override { ASSERT_TRUE(m_folder.isValid()); }

    QString path(const QString& name) const { return m_folder.path() + "/" + name; }

    QString write(const QString& name, const QByteArray& text) {
        QDir().mkpath(QFileInfo(path(name)).path());
        QFile file(path(name));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(text);
        return path(name);
    }

    CSSParser::ParseError parse(const QString& name, SimpleSelector::Origin origin = author) {
        return parser.parseSheet(sheet, path(name), &files, origin);
    }

    std::string text(const QString& name) const { return path(name).toStdString(); }

    /// The path of the folder is taken out of the sources, so that they can be compared.
    std::string sources() const {
        QString dump = QString::fromStdString(dumpSheetWithSources(sheet));
        return dump.replace(m_folder.path() + "/", QString()).toStdString();
    }

    QTemporaryDir m_folder;
    TraceGuard trace;
    CSSParser parser;
    StyleSheet sheet;
    QStringList files;
};

#ifdef __SANITIZE_ADDRESS__
constexpr bool isSanitized = true;
#else
constexpr bool isSanitized = false;
#endif

/// Leaves the process that many file descriptors more while it lives.
class FewDescriptors {
public:
    explicit FewDescriptors(int more) {
        getrlimit(RLIMIT_NOFILE, &m_before);
        const int free = dup(0);
        close(free);
        rlimit limit = m_before;
        limit.rlim_cur = rlim_t(free + more);
        setrlimit(RLIMIT_NOFILE, &limit);
    }
    ~FewDescriptors() { setrlimit(RLIMIT_NOFILE, &m_before); }
    FewDescriptors(const FewDescriptors&) = delete;
    FewDescriptors& operator=(const FewDescriptors&) = delete;

private:
    rlimit m_before;
};

/// Makes a folder the working directory while it lives.
class WorkingFolder {
public:
    explicit WorkingFolder(const QString& path) : m_before(QDir::currentPath()) { QDir::setCurrent(path); }
    ~WorkingFolder() { QDir::setCurrent(m_before); }
    WorkingFolder(const WorkingFolder&) = delete;
    WorkingFolder& operator=(const WorkingFolder&) = delete;

private:
    QString m_before;
};

TEST_F(CSSParserFiles, FileIsReadWithLinesFromOne) {
    write("main.css", "a {x: 1}\nb {\n y: 2 }\n");
    EXPECT_EQ(parse("main.css"), CSSParser::NoError);
    EXPECT_EQ(sources(), "a {x: 1 @main.css:1 #0} b {y: 2 @main.css:3 #1}");
    EXPECT_EQ(files, QStringList{path("main.css")});
}

TEST_F(CSSParserFiles, EmptyFileIsNoError) {
    write("main.css", "");
    EXPECT_EQ(parse("main.css"), CSSParser::NoError);
    EXPECT_TRUE(sheet.isEmpty());
    EXPECT_EQ(files.size(), 1);
}

TEST_F(CSSParserFiles, FileListMayBeNull) {
    write("main.css", "@import 'sub.css'; a {x: 1}");
    write("sub.css", "b {y: 2}");
    EXPECT_EQ(parser.parseSheet(sheet, path("main.css"), nullptr, author), CSSParser::NoError);
    EXPECT_EQ(dumpSheet(sheet), "b {y: 2} a {x: 1}");
}

TEST_F(CSSParserFiles, MissingFileIsAnOpenErrorAndIsNotListed) {
    EXPECT_EQ(parse("missing.css"), CSSParser::OpenError);
    EXPECT_TRUE(files.isEmpty());
    EXPECT_EQ(trace.takeErrors(), Strings{"CSSParser::parseSheet # failed to open '" + text("missing.css") + "'"});
}

TEST_F(CSSParserFiles, FolderIsAnOpenError) {
    EXPECT_EQ(parse(""), CSSParser::OpenError);
    EXPECT_EQ(trace.takeErrors(), Strings{"CSSParser::parseSheet # failed to open '" + text("") + "'"});
    EXPECT_TRUE(files.isEmpty());
}

TEST_F(CSSParserFiles, DeviceIsAnOpenError) {
    EXPECT_EQ(parser.parseSheet(sheet, "/dev/null", &files, author), CSSParser::OpenError);
    EXPECT_EQ(trace.takeErrors(), Strings{"CSSParser::parseSheet # failed to open '/dev/null'"});
    EXPECT_TRUE(files.isEmpty());
}

TEST_F(CSSParserFiles, PipeIsAnOpenErrorAndIsNotWaitedFor) {
    ASSERT_EQ(::mkfifo(text("pipe").c_str(), 0600), 0);
    EXPECT_EQ(parse("pipe"), CSSParser::OpenError);
    EXPECT_EQ(trace.takeErrors(), Strings{"CSSParser::parseSheet # failed to open '" + text("pipe") + "'"});
    write("main.css", "@import 'pipe'; a {x: 1}");
    EXPECT_EQ(parse("main.css"), CSSParser::NoError);
    EXPECT_EQ(trace.takeErrors().back(), "CSSParser::import # Failed @import pipe");
    EXPECT_EQ(dumpSheet(sheet), "a {x: 1}");
}

TEST_F(CSSParserFiles, FileThatChangesMeanwhileIsReportedAndWhatWasReadCounts) {
    // A thread that goes on touching the file does so sooner or later between its opening and its end.
    const std::string file = write("main.css", "a {x: 1}").toStdString();
    std::atomic<bool> goesOn{true};
    std::thread writer([&file, &goesOn] {
        for (time_t second = 1; goesOn; ++second) {
            const timespec times[2] = {{second, 0}, {second, 0}};
            ::utimensat(AT_FDCWD, file.c_str(), times, 0);
        }
    });
    Strings errors;
    for (int attempt = 0; errors.empty() && attempt < 100000; ++attempt) {
        StyleSheet own;
        EXPECT_EQ(parser.parseSheet(own, path("main.css"), nullptr, author), CSSParser::NoError);
        EXPECT_EQ(dumpSheet(own), "a {x: 1}");
        errors = trace.takeErrors();
    }
    goesOn = false;
    writer.join();
    EXPECT_EQ(errors, Strings{"CSSParser::parseSheet # '" + file + "' changed while it was read"});
}

TEST_F(CSSParserFiles, EmptyPathIsAnOpenError) {
    EXPECT_EQ(parser.parseSheet(sheet, "", &files, author), CSSParser::OpenError);
    EXPECT_EQ(trace.takeErrors(), Strings{"CSSParser::parseSheet # failed to open ''"});
}

TEST_F(CSSParserFiles, SyntaxErrorCommitsWhatWasReadAndNamesFileAndLine) {
    write("main.css", "a {x: 1}\nb {y: 2;\n");
    EXPECT_EQ(parse("main.css"), CSSParser::SyntaxError);
    EXPECT_EQ(dumpSheet(sheet), "a {x: 1} b {y: 2}");
    EXPECT_EQ(trace.takeErrors(),
              (Strings{text("main.css") + ":3: error: syntax error, unexpected end of file, expecting IDENT or '}'",
                       "CSS Parse Error: On line 3"}));
    EXPECT_EQ(files.size(), 1);
}

TEST_F(CSSParserFiles, AbsorbedErrorIsNoSyntaxError) {
    write("main.css", "a {x: 1}\n] b {y: 2}");
    EXPECT_EQ(parse("main.css"), CSSParser::NoError);
    EXPECT_EQ(dumpSheet(sheet), "a {x: 1} b {y: 2}");
    EXPECT_EQ(trace.takeErrors(), Strings{text("main.css") + ":2: error: syntax error, unexpected ']'"});
}

TEST_F(CSSParserFiles, ByteOrderMarkIsSkipped) {
    write("main.css", "\xef\xbb\xbf@charset \"utf-8\"; a {x: 1}");
    EXPECT_EQ(parse("main.css"), CSSParser::NoError);
    EXPECT_EQ(dumpSheet(sheet), "a {x: 1}");
}

TEST_F(CSSParserFiles, LongFileIsReadInBlocks) {
    QByteArray rules;
    for (int i = 0; i < 4000; ++i)
        rules += "a.class-" + QByteArray::number(i) + " {x: " + QByteArray::number(i) + "px}\n";
    write("main.css", rules);
    EXPECT_EQ(parse("main.css"), CSSParser::NoError);
    ASSERT_EQ(sheet.rules().size(), 4000u);
    EXPECT_EQ(sheet.source(3999), path("main.css") + ":4000");
    EXPECT_EQ(dumpValue(sheet.rules().back().declarations()[0].value()), "3999px");
}

TEST_F(CSSParserFiles, OriginIsThatOfTheCaller) {
    write("main.css", "@import 'sub.css'; a {x: 1}");
    write("sub.css", "b {y: 2}");
    EXPECT_EQ(parse("main.css", SimpleSelector::Origin(6)), CSSParser::NoError);
    ASSERT_EQ(sheet.rules().size(), 2u);
    for (const Brisko::Rule& rule : sheet.rules())
        EXPECT_EQ(unsigned(rule.selector().front()->origin()), 6u);
}

TEST_F(CSSParserFiles, DebugNamesSheetAndPath) {
    write("main.css", "");
    Gorvel::Trace::setDebugEnabled(true);
    parse("main.css");
    Gorvel::Trace::setDebugEnabled(false);
    char expected[1024];
    std::snprintf(expected, sizeof expected, "CSSParser::parseSheet # (%p, %s)", static_cast<void*>(&sheet),
                  text("main.css").c_str());
    EXPECT_EQ(trace.takeDebug(), Strings{expected});
}

TEST_F(CSSParserFiles, ImportListsBothFilesTheImportingOneFirst) {
    write("main.css", "@import \"sub.css\"; a {x: 1}");
    write("sub.css", "\nb {y: 2}");
    EXPECT_EQ(parse("main.css"), CSSParser::NoError);
    EXPECT_EQ(files, (QStringList{path("main.css"), path("sub.css")}));
    EXPECT_EQ(sources(), "b {y: 2 @sub.css:2 #0} a {x: 1 @main.css:1 #1}");
}

TEST_F(CSSParserFiles, ImportStandsBetweenTheRulesAroundIt) {
    write("main.css", "a {x: 1} @import 'sub.css'; c {z: 3}");
    write("sub.css", "b {y: 2}");
    EXPECT_EQ(parse("main.css"), CSSParser::NoError);
    EXPECT_EQ(dumpSheet(sheet), "a {x: 1} b {y: 2} c {z: 3}");
}

TEST_F(CSSParserFiles, ImportIsRelativeToTheImportingFile) {
    write("main.css", "@import 'deep/one.css';");
    write("deep/one.css", "@import 'two.css'; @import '../three.css';");
    write("deep/two.css", "a {x: 1}");
    write("three.css", "b {y: 2}");
    EXPECT_EQ(parse("main.css"), CSSParser::NoError);
    EXPECT_EQ(files,
              (QStringList{path("main.css"), path("deep/one.css"), path("deep/two.css"), path("deep/../three.css")}));
    EXPECT_EQ(dumpSheet(sheet), "a {x: 1} b {y: 2}");
}

TEST_F(CSSParserFiles, ImportOfAnAbsolutePath) {
    write("far/sub.css", "a {x: 1}");
    write("main.css", "@import '" + path("far/sub.css").toUtf8() + "';");
    EXPECT_EQ(parse("main.css"), CSSParser::NoError);
    EXPECT_EQ(files, (QStringList{path("main.css"), path("far/sub.css")}));
}

TEST_F(CSSParserFiles, ImportFromAStringIsRelativeToTheWorkingFolder) {
    write("sub.css", "a {x: 1}");
    const WorkingFolder folder(m_folder.path());
    EXPECT_TRUE(parser.parseString(sheet, "@import 'sub.css';", &files, author));
    EXPECT_EQ(files, QStringList{"./sub.css"});
    EXPECT_EQ(dumpSheetWithSources(sheet), "a {x: 1 @./sub.css:1 #0}");
}

TEST_F(CSSParserFiles, ImportFromAFileWithoutFolderIsRelativeToTheWorkingFolder) {
    write("main.css", "@import 'sub.css';");
    write("sub.css", "a {x: 1}");
    const WorkingFolder folder(m_folder.path());
    EXPECT_EQ(parser.parseSheet(sheet, "main.css", &files, author), CSSParser::NoError);
    EXPECT_EQ(files, (QStringList{"main.css", "./sub.css"}));
}

TEST_F(CSSParserFiles, ImportOfAMissingFileIsReportedAndParsingGoesOn) {
    write("main.css", "@import 'missing.css'; a {x: 1}");
    EXPECT_EQ(parse("main.css"), CSSParser::NoError);
    EXPECT_EQ(dumpSheet(sheet), "a {x: 1}");
    EXPECT_EQ(trace.takeErrors(), (Strings{"CSSParser::parseSheet # failed to open '" + text("missing.css") + "'",
                                           "CSSParser::import # Failed @import missing.css"}));
    EXPECT_EQ(files, QStringList{path("main.css")});
}

TEST_F(CSSParserFiles, ImportOfANameWithAZeroIsReportedAndNothingIsPrinted) {
    const QByteArray zero(1, '\0');
    testing::internal::CaptureStderr(); // the toolkit prints what it thinks of such names
    EXPECT_TRUE(parser.parseString(sheet, "@import 'a" + zero + "b.css'; a {x: 1}", &files, author));
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
    EXPECT_THAT(trace.takeErrors(), Contains(StartsWith("CSSParser::import # Failed @import ")));
    EXPECT_EQ(dumpSheet(sheet), "a {x: 1}");
    EXPECT_TRUE(files.isEmpty());
}

TEST_F(CSSParserFiles, ImportOfAFolderIsReported) {
    QDir().mkpath(path("folder"));
    write("main.css", "@import 'folder'; a {x: 1}");
    EXPECT_EQ(parse("main.css"), CSSParser::NoError);
    EXPECT_THAT(trace.takeErrors(), Contains("CSSParser::import # Failed @import folder"));
    EXPECT_EQ(dumpSheet(sheet), "a {x: 1}");
}

TEST_F(CSSParserFiles, SyntaxErrorOfAnImportIsItsOwnAffair) {
    write("main.css", "@import 'sub.css'; a {x: 1}");
    write("sub.css", "b {y: 2");
    EXPECT_EQ(parse("main.css"), CSSParser::NoError);
    EXPECT_EQ(dumpSheet(sheet), "b {y: 2} a {x: 1}");
    EXPECT_EQ(trace.takeErrors(),
              (Strings{text("sub.css") + ":1: error: syntax error, unexpected end of file, expecting '}'",
                       "CSS Parse Error: On line 1"}));
}

TEST_F(CSSParserFiles, ImportForAForeignMediumIsNotRead) {
    write("main.css", "@import 'sub.css' print; @import 'other.css' print, tty; a {x: 1}");
    EXPECT_EQ(parse("main.css"), CSSParser::NoError);
    EXPECT_EQ(files.size(), 1);
    EXPECT_EQ(dumpSheet(sheet), "a {x: 1}");
}

TEST_F(CSSParserFiles, ImportForTheMediumIsRead) {
    write("main.css", "@import 'sub.css' screen; @import 'sub.css' print, ALL;");
    write("sub.css", "b {y: 2}");
    EXPECT_EQ(parse("main.css"), CSSParser::NoError);
    EXPECT_EQ(dumpSheet(sheet), "b {y: 2} b {y: 2}");
}

TEST_F(CSSParserFiles, ImportTakesTheMediumOfTheImportingParser) {
    write("main.css", "@import 'sub.css';");
    write("sub.css", "@media print {a {x: 1}} @media screen {b {y: 2}}");
    parser.setMedia("print");
    EXPECT_EQ(parse("main.css"), CSSParser::NoError);
    EXPECT_EQ(dumpSheet(sheet), "a {x: 1}");
}

TEST_F(CSSParserFiles, ImportDoesNotTakeTheResolutionOfTheImportingParser) {
    write("main.css", "@import 'sub.css'; a {x: 1in}");
    write("sub.css", "b {y: 1in}");
    parser.setDpi(96.f);
    EXPECT_EQ(parse("main.css"), CSSParser::NoError);
    EXPECT_EQ(dumpSheet(sheet), "b {y: 40.053px} a {x: 96px}");
}

TEST_F(CSSParserFiles, ImportTwiceSideBySideIsReadTwice) {
    write("main.css", "@import 'sub.css'; @import 'sub.css';");
    write("sub.css", "b {y: 2}");
    EXPECT_EQ(parse("main.css"), CSSParser::NoError);
    EXPECT_EQ(dumpSheet(sheet), "b {y: 2} b {y: 2}");
    EXPECT_EQ(files, (QStringList{path("main.css"), path("sub.css"), path("sub.css")}));
}

TEST_F(CSSParserFiles, ImportOfAUriIsReportedAndTried) {
    write("main.css", "@import url(\"sub.css\"); a {x: 1}");
    write("sub.css", "b {y: 2}");
    EXPECT_EQ(parse("main.css"), CSSParser::NoError);
    EXPECT_EQ(dumpSheet(sheet), "b {y: 2} a {x: 1}");
    EXPECT_EQ(trace.takeErrors(), Strings{"CSSParser::importURI # URI import is not fully implemented"});
}

TEST_F(CSSParserFiles, ImportOfAnUnquotedUriKeepsItsBracket) {
    write("main.css", "@import url(sub.css); @import url(other.css);");
    write("sub.css)", "b {y: 2}");
    EXPECT_EQ(parse("main.css"), CSSParser::NoError);
    EXPECT_EQ(dumpSheet(sheet), "b {y: 2}");
    EXPECT_EQ(trace.takeErrors(), (Strings{"CSSParser::importURI # URI import is not fully implemented",
                                           "CSSParser::importURI # URI import is not fully implemented",
                                           "CSSParser::parseSheet # failed to open '" + text("other.css)") + "'",
                                           "CSSParser::import # Failed @import other.css)"}));
}

TEST_F(CSSParserFiles, ImportOfAUriWithAMediaList) {
    write("main.css", "@import url('sub.css') print; @import url('sub.css') screen;");
    write("sub.css", "b {y: 2}");
    EXPECT_EQ(parse("main.css"), CSSParser::NoError);
    EXPECT_EQ(dumpSheet(sheet), "b {y: 2}");
    EXPECT_EQ(trace.takeErrors(), Strings{"CSSParser::importURI # URI import is not fully implemented"});
}

TEST_F(CSSParserFiles, ImportOfTheFileItselfFails) {
    write("main.css", "@import 'main.css'; a {x: 1}");
    EXPECT_EQ(parse("main.css"), CSSParser::NoError);
    EXPECT_EQ(dumpSheet(sheet), "a {x: 1}");
    EXPECT_EQ(files.size(), 1);
    EXPECT_EQ(trace.takeErrors(), (Strings{text("main.css") + ":1: error: @import of 'main.css' leads back to a file "
                                                              "that is being read",
                                           "CSSParser::import # Failed @import main.css"}));
}

TEST_F(CSSParserFiles, ImportThatLeadsBackThroughOthersFails) {
    write("main.css", "@import 'one.css'; a {x: 1}");
    write("one.css", "@import 'two.css'; b {y: 2}");
    write("two.css", "@import './main.css'; @import 'one.css'; c {z: 3}");
    EXPECT_EQ(parse("main.css"), CSSParser::NoError);
    EXPECT_EQ(dumpSheet(sheet), "c {z: 3} b {y: 2} a {x: 1}");
    EXPECT_EQ(files.size(), 3);
    const Strings errors = trace.takeErrors();
    EXPECT_THAT(errors, Contains("CSSParser::import # Failed @import ./main.css"));
    EXPECT_THAT(errors, Contains("CSSParser::import # Failed @import one.css"));
}

TEST_F(CSSParserFiles, ImportThatLeadsBackByAnotherNameFails) {
    write("main.css", "@import 'link.css'; a {x: 1}");
    ASSERT_TRUE(QFile::link(path("main.css"), path("link.css")));
    EXPECT_EQ(parse("main.css"), CSSParser::NoError);
    EXPECT_EQ(dumpSheet(sheet), "a {x: 1}");
    EXPECT_EQ(trace.takeErrors().back(), "CSSParser::import # Failed @import link.css");
}

TEST_F(CSSParserFiles, FileMayBeReadAgainAfterACycle) {
    write("main.css", "@import 'main.css'; a {x: 1}");
    parse("main.css");
    parse("main.css");
    EXPECT_EQ(dumpSheet(sheet), "a {x: 1} a {x: 1}");
    trace.takeErrors();
}

TEST_F(CSSParserFiles, ImportsAreFollowedSixteenLevelsDown) {
    for (int i = 0; i <= 20; ++i) {
        const QByteArray number = QByteArray::number(i);
        write("s" + number + ".css", "@import 's" + QByteArray::number(i + 1) + ".css'; a" + number + " {x: 1}");
    }
    EXPECT_EQ(parse("s0.css"), CSSParser::NoError);
    EXPECT_EQ(sheet.rules().size(), 17u);
    EXPECT_EQ(files.size(), 17);
    const Strings errors = trace.takeErrors();
    EXPECT_EQ(errors, (Strings{text("s16.css") + ":1: error: @import of 's17.css' is nested deeper than 16 levels",
                               "CSSParser::import # Failed @import s17.css"}));
}

TEST_F(CSSParserFiles, ImportsThatMultiplyStopAfterAThousand) {
    constexpr int levels = 8; // each imports the next one ten times: a hundred million in all
    for (int i = 0; i < levels; ++i) {
        const QByteArray next = "@import 's" + QByteArray::number(i + 1) + ".css'; ";
        write("s" + QString::number(i) + ".css", next.repeated(10) + "a {x: 1}");
    }
    write("s8.css", "b {y: 2}");
    EXPECT_EQ(parse("s0.css"), CSSParser::NoError);
    EXPECT_EQ(files.size(), 1001);
    EXPECT_EQ(sheet.rules().size(), 1001u);
    const Strings errors = trace.takeErrors();
    ASSERT_GE(errors.size(), 2u);
    EXPECT_EQ(errors[0].substr(errors[0].find(": error: @import")),
              ": error: @import of 's8.css' comes after 1000 others");
    files.clear();
    parse("s7.css");
    EXPECT_EQ(files.size(), 11); // the next sheet begins anew
}

TEST_F(CSSParserFiles, NothingIsOpenedWhereNoDescriptorIsLeft) {
    if (isSanitized)
        GTEST_SKIP() << "the checks of types need descriptors of their own";
    write("main.css", "a {x: 1}");
    {
        const FewDescriptors none(0);
        EXPECT_EQ(parse("main.css"), CSSParser::OpenError);
    }
    EXPECT_EQ(trace.takeErrors(), Strings{"CSSParser::parseSheet # failed to open '" + text("main.css") + "'"});
    EXPECT_TRUE(files.isEmpty());
    EXPECT_TRUE(sheet.isEmpty());
    EXPECT_EQ(parse("main.css"), CSSParser::NoError);
}

TEST_F(CSSParserFiles, RulesOfAnUnfinishedRuleSetStayApartFromAnImport) {
    // An import inside of a media block is an error that ends the block; the block is committed before the import.
    write("main.css", "@media screen {a {x: 1} @import 'sub.css'; c {z: 3}");
    write("sub.css", "b {y: 2}");
    EXPECT_EQ(parse("main.css"), CSSParser::NoError);
    EXPECT_EQ(dumpSheet(sheet), "a {x: 1} b {y: 2} c {z: 3}");
    EXPECT_EQ(trace.takeErrors().size(), 1u);
}

} // namespace

} // namespace Testing
