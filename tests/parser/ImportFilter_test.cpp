#include "Brisko/CSSParser.h"

#include "support/SheetDump.h"
#include "support/TraceGuard.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include <stdexcept>

namespace Testing {

namespace {

using Brisko::CSSParser;
using Brisko::StyleSheet;
using Strings = std::vector<std::string>;

constexpr Brisko::SimpleSelector::Origin author = Brisko::SimpleSelector::Origin(1);

/// A folder of sheets, and a filter that notes what it was asked.
class ImportFilter : public testing::Test {
protected:
    QString path(const QString& name) const { return m_folder.path() + "/" + name; }

    void write(const QString& name, const QByteArray& text) {
        QDir().mkpath(QFileInfo(path(name)).path());
        QFile file(path(name));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(text);
    }

    void filterBy(bool (*isAllowed)(const QString& path)) {
        parser.setImportFilter([this, isAllowed](const QString& asked) {
            questions.append(asked);
            return isAllowed(asked);
        });
    }

    CSSParser::ParseError parse(const QString& name) { return parser.parseSheet(sheet, path(name), &files, author); }

    std::string refusal(const QString& file, int line, const std::string& import) const {
        return path(file).toStdString() + ":" + std::to_string(line) + ": error: @import of '" + import +
               "' is refused";
    }

    QTemporaryDir m_folder;
    TraceGuard trace;
    CSSParser parser;
    StyleSheet sheet;
    QStringList files;
    QStringList questions;
};

bool all(const QString&) {
    return true;
}

bool none(const QString&) {
    return false;
}

TEST_F(ImportFilter, IsAskedWithThePathThatIsOpened) {
    write("main.css", "@import 'deep/one.css'; @import '" + path("two.css").toUtf8() + "'; a {x: 1}");
    write("deep/one.css", "@import '../two.css'; b {x: 1}");
    write("two.css", "c {x: 1}");
    filterBy(all);
    EXPECT_EQ(parse("main.css"), CSSParser::NoError);
    EXPECT_EQ(questions, (QStringList{path("deep/one.css"), path("deep/../two.css"), path("two.css")}));
    EXPECT_EQ(files, QStringList{path("main.css")} + questions);
    EXPECT_EQ(dumpSheet(sheet), "c {x: 1} b {x: 1} c {x: 1} a {x: 1}");
}

TEST_F(ImportFilter, RefusesWithOneMessageAndTheSheetGoesOn) {
    write("main.css", "a {x: 1}\n@import 'sub.css';\nb {y: 2}");
    write("sub.css", "c {z: 3}");
    filterBy(none);
    EXPECT_EQ(parse("main.css"), CSSParser::NoError);
    EXPECT_EQ(dumpSheet(sheet), "a {x: 1} b {y: 2}");
    EXPECT_EQ(files, QStringList{path("main.css")});
    EXPECT_EQ(trace.takeErrors(), Strings{refusal("main.css", 2, "sub.css")});
}

TEST_F(ImportFilter, IsNotAskedAboutTheSheetItself) {
    write("main.css", "a {x: 1}");
    filterBy(none);
    EXPECT_EQ(parse("main.css"), CSSParser::NoError);
    EXPECT_TRUE(questions.isEmpty());
}

TEST_F(ImportFilter, HoldsForImportsOfImports) {
    write("main.css", "@import 'one.css';");
    write("one.css", "\n@import 'secret.css'; b {y: 2}");
    write("secret.css", "c {z: 3}");
    filterBy([](const QString& asked) { return !asked.contains("secret"); });
    EXPECT_EQ(parse("main.css"), CSSParser::NoError);
    EXPECT_EQ(dumpSheet(sheet), "b {y: 2}");
    EXPECT_EQ(trace.takeErrors(), Strings{refusal("one.css", 2, "secret.css")});
}

TEST_F(ImportFilter, HoldsForUrisAndStrings) {
    filterBy(none);
    EXPECT_TRUE(parser.parseString(sheet, "@import url(sub.css); @import 'a\nb';", &files, author));
    EXPECT_EQ(questions, QStringList{"./sub.css)"});
    EXPECT_TRUE(files.isEmpty());
    const Strings errors = trace.takeErrors();
    ASSERT_GE(errors.size(), 2u);
    EXPECT_EQ(errors[0], "CSSParser::importURI # URI import is not fully implemented");
    EXPECT_EQ(errors[1], ":0: error: @import of 'sub.css)' is refused");
}

TEST_F(ImportFilter, IsNotAskedWhereTheMediumDoesNotMatch) {
    write("main.css", "@import 'sub.css' print;");
    filterBy(none);
    EXPECT_EQ(parse("main.css"), CSSParser::NoError);
    EXPECT_TRUE(questions.isEmpty());
}

TEST_F(ImportFilter, IsAskedBeforeTheFileIsLookedAt) {
    write("main.css", "@import 'missing.css'; @import 'main.css'; @import '/dev/zero'; a {x: 1}");
    filterBy(none);
    EXPECT_EQ(parse("main.css"), CSSParser::NoError);
    EXPECT_EQ(questions, (QStringList{path("missing.css"), path("main.css"), "/dev/zero"}));
    EXPECT_EQ(trace.takeErrors(), (Strings{refusal("main.css", 1, "missing.css"), refusal("main.css", 1, "main.css"),
                                           refusal("main.css", 1, "/dev/zero")}));
}

TEST_F(ImportFilter, ThatThrowsRefuses) {
    write("main.css", "@import 'sub.css'; a {x: 1} @import 'sub.css'; b {y: 2}");
    write("sub.css", "c {z: 3}");
    parser.setImportFilter([this](const QString&) -> bool {
        if (questions.isEmpty()) {
            questions.append("first");
            throw std::runtime_error("lost");
        }
        throw 7;
    });
    EXPECT_NO_THROW(EXPECT_EQ(parse("main.css"), CSSParser::NoError));
    EXPECT_EQ(dumpSheet(sheet), "a {x: 1} b {y: 2}");
    EXPECT_EQ(trace.takeErrors(), (Strings{refusal("main.css", 1, "sub.css"), refusal("main.css", 1, "sub.css")}));
}

TEST_F(ImportFilter, MayReplaceItself) {
    write("main.css", "@import 'sub.css'; @import 'sub.css'; a {x: 1}");
    write("sub.css", "c {z: 3}");
    const std::string kept(100, 'k');
    parser.setImportFilter([this, kept](const QString&) {
        parser.setImportFilter(nullptr);
        return kept.size() != 100;
    });
    EXPECT_EQ(parse("main.css"), CSSParser::NoError);
    EXPECT_EQ(dumpSheet(sheet), "c {z: 3} a {x: 1}");
    EXPECT_EQ(trace.takeErrors(), Strings{refusal("main.css", 1, "sub.css")});
}

TEST_F(ImportFilter, ThatIsEmptyLetsEverythingPass) {
    write("main.css", "@import 'sub.css';");
    write("sub.css", "c {z: 3}");
    filterBy(none);
    parser.setImportFilter(nullptr);
    EXPECT_EQ(parse("main.css"), CSSParser::NoError);
    EXPECT_EQ(dumpSheet(sheet), "c {z: 3}");
}

TEST_F(ImportFilter, StaysFromParseToParse) {
    write("main.css", "@import 'sub.css';");
    filterBy(none);
    parse("main.css");
    parse("main.css");
    EXPECT_EQ(questions.size(), 2);
    trace.takeErrors();
}

TEST_F(ImportFilter, APathWithANulIsToldWhole) {
    filterBy([](const QString&) { return false; });
    EXPECT_TRUE(parser.parseString(sheet, "@import 'i\\0 .css';", &files, author));
    EXPECT_EQ(trace.takeErrors(), Strings{":0: error: @import of 'i\\x00.css' is refused"});
}

} // namespace

} // namespace Testing
