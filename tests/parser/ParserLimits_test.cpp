#include "Brisko/CSSParser.h"

#include "support/SheetDump.h"
#include "support/TraceGuard.h"

#include <gtest/gtest.h>

namespace Testing {

namespace {

using Brisko::CSSParser;
using Brisko::StyleSheet;
using Strings = std::vector<std::string>;

constexpr Brisko::SimpleSelector::Origin author = Brisko::SimpleSelector::Origin(1);

QByteArray nested(int levels) {
    return "calc(" + QByteArray(levels, '(') + "1" + QByteArray(levels, ')') + ")";
}

TEST(ParserLimits, BracketsNestThousandsDeep) {
    TraceGuard trace;
    EXPECT_EQ(dumpValue(CSSParser::parseValue(nested(4900))), "calc(1)");
}

TEST(ParserLimits, NestingBeyondTheStackGivesUp) {
    TraceGuard trace;
    StyleSheet sheet;
    EXPECT_FALSE(
        CSSParser().parseString(sheet, "a {x: 1}\nb {y: 2; z: " + nested(20000) + "} c {w: 3}", nullptr, author));
    EXPECT_EQ(dumpSheet(sheet), "a {x: 1} b {y: 2}");
    EXPECT_EQ(trace.takeErrors(), (Strings{":1: error: memory exhausted", "CSS Parse Error: On line 1"}));
}

TEST(ParserLimits, SelectorsHaveThousandsOfCompounds) {
    TraceGuard trace;
    const QByteArray text = QByteArray("a ").repeated(3000) + "b";
    const QList<Brisko::Selector> selectors = CSSParser::parseSelectors(text);
    ASSERT_EQ(selectors.size(), 1);
    EXPECT_EQ(selectors[0].size(), 3001);
}

TEST(ParserLimits, SelectorsBeyondTheStackGiveUp) {
    for (const char* joint : {" ", ">", " > "}) {
        TraceGuard trace;
        StyleSheet sheet;
        const QByteArray text = "a {x: 1}\n" + ("b" + QByteArray(joint)).repeated(6000) + "b {y: 2}\nc {z: 3}";
        EXPECT_FALSE(CSSParser().parseString(sheet, text, nullptr, author)) << joint;
        EXPECT_EQ(dumpSheet(sheet), "a {x: 1}") << joint;
        EXPECT_EQ(trace.takeErrors(), (Strings{":1: error: memory exhausted", "CSS Parse Error: On line 1"})) << joint;
    }
}

TEST(ParserLimits, SelectorsInSheetsHaveThousandsOfCompounds) {
    TraceGuard trace;
    StyleSheet sheet;
    EXPECT_TRUE(CSSParser().parseString(sheet, QByteArray("b ").repeated(3000) + "b {y: 2}", nullptr, author));
    ASSERT_EQ(sheet.rules().size(), 1u);
    EXPECT_EQ(sheet.rules()[0].selector().size(), 3001);
}

TEST(ParserLimits, ListsDoNotGrowTheStack) {
    TraceGuard trace;
    StyleSheet sheet;
    const int count = 11000; // more than the stack holds
    const QByteArray text = QByteArray("a{x:1}").repeated(count) + "b{" + QByteArray("x:1;").repeated(count) + "}" +
                            "@media all{" + QByteArray("c{y:2}").repeated(count) + "}" + "d" +
                            QByteArray(",d").repeated(count - 1) + "{z:" + QByteArray(" 3").repeated(count) + "}";
    EXPECT_TRUE(CSSParser().parseString(sheet, text, nullptr, author));
    ASSERT_EQ(sheet.rules().size(), size_t(3 * count + 1));
    EXPECT_EQ(sheet.rules()[size_t(count)].declarations().size(), size_t(count));
    EXPECT_EQ(sheet.rules().back().declarations()[0].value().size(), count);
}

TEST(ParserLimits, LongTokens) {
    TraceGuard trace;
    const QByteArray word(200000, 'w');
    EXPECT_EQ(CSSParser::parseValue(word).asKeyword(0), word);
    EXPECT_EQ(CSSParser::parseValue("'" + word + "'").asString(0), QString(word));
    EXPECT_EQ(CSSParser::parseValue("1 /*" + word + "*/ 2").size(), 2);
}

TEST(ParserLimits, TextMayEndAnywhere) {
    const QByteArray text = "a {x: 1}\n@media screen {b.c > d:e(f)[g=\"h\"] {y: url('i') / calc((50% - 1px) * 2), "
                            "rgb(1, 2, 3) !important; z {k: 'l'} ; }}\n@page :m {n: \\41 o}\n<!-- @import 'p' q; -->";
    const int firstRule = 8;
    for (int length = 0; length <= text.size(); ++length) {
        TraceGuard trace;
        StyleSheet sheet;
        CSSParser().parseString(sheet, text.left(length), nullptr, author);
        trace.takeErrors();
        if (length >= firstRule)
            EXPECT_EQ(dumpSheet(sheet).substr(0, 8), "a {x: 1}") << length;
        else
            EXPECT_LE(sheet.rules().size(), 1u) << length;
    }
}

TEST(ParserLimits, NulIsReportedAndTheSheetGoesOn) {
    TraceGuard trace;
    StyleSheet sheet;
    const char text[] = "a {x: 1} \0 b {y: 2}";
    EXPECT_TRUE(CSSParser().parseString(sheet, QByteArray(text, sizeof text - 1), nullptr, author));
    EXPECT_EQ(dumpSheet(sheet), "a {x: 1} b {y: 2}");
    EXPECT_EQ(trace.takeErrors(), Strings{":0: error: syntax error, unexpected invalid token"});
}

TEST(ParserLimits, EveryByteIsRecoveredFrom) {
    for (int byte = 0; byte < 256; ++byte) {
        TraceGuard trace;
        StyleSheet sheet;
        const QByteArray text = "a {x: 1} " + QByteArray(1, char(byte)) + "\n;/**/ b {y: 2} c {z: 3; w: 4}";
        CSSParser().parseString(sheet, text, nullptr, author);
        trace.takeErrors();
        const std::string dump = dumpSheet(sheet);
        EXPECT_EQ(dump.substr(0, 8), "a {x: 1}") << byte;
        EXPECT_NE(dump.find("w: 4"), std::string::npos) << byte << " " << dump;
    }
}

} // namespace

} // namespace Testing
