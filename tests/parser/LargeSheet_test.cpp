#include "support/TraceGuard.h"

#include "Brisko/CSSParser.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace Testing {

using namespace Brisko;

namespace {

constexpr int manyRules = 200000;
constexpr int commentSize = 20 * 1000 * 1000;
constexpr int zeroCount = 2 * 1000 * 1000;
constexpr auto origin = SimpleSelector::AuthorOrigin;

} // namespace

// These cases are about time and memory that grow with the text only: with its square they would not end.

TEST(LargeSheet, ManyRulesAreRead) {
    TraceGuard trace;
    StyleSheet sheet;
    EXPECT_TRUE(CSSParser().parseString(sheet, QByteArray("a { x: 1 }\n").repeated(manyRules), nullptr, origin));
    ASSERT_EQ(sheet.rules().size(), std::size_t(manyRules));
    EXPECT_EQ(sheet.source(manyRules - 1), QString(":%1").arg(manyRules - 1));
}

TEST(LargeSheet, ManyRulesOfAMediaBlockAreRead) {
    TraceGuard trace;
    StyleSheet sheet;
    const QByteArray text = "@media all {" + QByteArray("a { x: 1 }").repeated(manyRules) + '}';
    EXPECT_TRUE(CSSParser().parseString(sheet, text, nullptr, origin));
    EXPECT_EQ(sheet.rules().size(), std::size_t(manyRules));
}

TEST(LargeSheet, TokenLongerThanABlockOfTheFile) {
    TraceGuard trace;
    const QTemporaryDir directory;
    const QString path = directory.filePath("large.css");
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("/*" + QByteArray(commentSize, '\n') + "*/ a { x: 1 }");
    file.close();
    StyleSheet sheet;
    EXPECT_EQ(CSSParser().parseSheet(sheet, path, nullptr, origin), CSSParser::NoError);
    EXPECT_EQ(sheet.source(0), path + QString(":%1").arg(commentSize + 1));
}

TEST(LargeSheet, NulBytesInOneTokenStayInIt) {
    TraceGuard trace;
    StyleSheet sheet;
    const QByteArray zeros(zeroCount, '\0');
    EXPECT_TRUE(CSSParser().parseString(sheet, "/*" + zeros + "*/ a { x: \"" + zeros + "\" }", nullptr, origin));
    ASSERT_EQ(sheet.rules().size(), 1u);
    EXPECT_EQ(sheet.rules()[0].declarations()[0].value().asString(0), QString(zeroCount, QChar::Null));
}

} // namespace Testing
