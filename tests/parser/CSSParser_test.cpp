#include "Brisko/CSSParser.h"

#include "support/SheetDump.h"
#include "support/TraceGuard.h"

#include <gtest/gtest.h>

namespace Testing {

namespace {

using Brisko::CSSParser;
using Brisko::Selector;
using Brisko::SimpleSelector;
using Brisko::StyleSheet;
using Strings = std::vector<std::string>;

constexpr SimpleSelector::Origin author = SimpleSelector::Origin(1);

/// What the parser makes of a text for a medium.
std::string sheetOf(const QByteArray& text, const QString& media = "screen") {
    StyleSheet sheet;
    CSSParser parser;
    parser.setMedia(media);
    parser.parseString(sheet, text, nullptr, author);
    return dumpSheet(sheet);
}

TEST(CSSParserSettings, NewParserHasTheDefaultResolution) {
    EXPECT_EQ(CSSParser().dpi(), CSSParser::defaultDpi());
    EXPECT_EQ(CSSParser::defaultDpi(), 40.053f);
}

TEST(CSSParserSettings, OwnResolutionIsUsedUntilItIsZeroAgain) {
    TraceGuard trace;
    CSSParser parser;
    parser.setDpi(96.f);
    EXPECT_EQ(parser.dpi(), 96.f);
    EXPECT_EQ(dumpValue(parser.expr("1in")), "96px");
    parser.setDpi(0.f);
    EXPECT_EQ(parser.dpi(), CSSParser::defaultDpi());
    EXPECT_EQ(dumpValue(parser.expr("1in")), "40.053px");
}

TEST(CSSParserSettings, NegativeResolutionMeansTheDefault) {
    CSSParser parser;
    parser.setDpi(-1.f);
    EXPECT_EQ(parser.dpi(), CSSParser::defaultDpi());
}

TEST(CSSParserSettings, ChangedDefaultReachesEveryParserWithoutItsOwn) {
    CSSParser before;
    CSSParser own;
    own.setDpi(96.f);
    const float old = CSSParser::defaultDpi();
    CSSParser::setDefaultDpi(72.f);
    EXPECT_EQ(before.dpi(), 72.f);
    EXPECT_EQ(CSSParser().dpi(), 72.f);
    EXPECT_EQ(own.dpi(), 96.f);
    CSSParser::setDefaultDpi(old);
}

TEST(CSSParserSettings, MediumIsScreenUntilSet) {
    CSSParser parser;
    EXPECT_EQ(parser.media(), QString("screen"));
    parser.setMedia("print");
    EXPECT_EQ(parser.media(), QString("print"));
}

TEST(CSSParserSettings, MediumDecidesWhichBlocksAreKept) {
    TraceGuard trace;
    const QByteArray text = "@media print {a {x: 1}} @media screen {b {y: 2}} @media all {c {z: 3}}";
    EXPECT_EQ(sheetOf(text), "b {y: 2} c {z: 3}");
    EXPECT_EQ(sheetOf(text, "print"), "a {x: 1} c {z: 3}");
    EXPECT_EQ(sheetOf(text, "PRINT"), "a {x: 1} c {z: 3}");
    EXPECT_EQ(sheetOf(text, "tty"), "c {z: 3}");
    EXPECT_EQ(sheetOf(text, ""), "c {z: 3}");
}

TEST(CSSParserString, TwoRuleSetsAreTwoRules) {
    TraceGuard trace;
    StyleSheet sheet;
    EXPECT_TRUE(CSSParser().parseString(sheet, "a { x: 1 } b { y: 2 }", nullptr, author));
    EXPECT_EQ(dumpSheet(sheet), "a {x: 1} b {y: 2}");
}

TEST(CSSParserString, EmptyRuleSetIsNoRule) {
    TraceGuard trace;
    StyleSheet sheet;
    EXPECT_TRUE(CSSParser().parseString(sheet, "a { }", nullptr, author));
    EXPECT_TRUE(sheet.isEmpty());
}

TEST(CSSParserString, SelectorListIsARuleForEach) {
    TraceGuard trace;
    StyleSheet sheet;
    EXPECT_TRUE(CSSParser().parseString(sheet, "a, b { x: 1 }", nullptr, author));
    EXPECT_EQ(dumpSheet(sheet), "a {x: 1} b {x: 1}");
    EXPECT_EQ(sheet.rules()[0].declarations()[0].id(), sheet.rules()[1].declarations()[0].id());
}

TEST(CSSParserString, SourcesHaveNoFileAndLinesFromZero) {
    TraceGuard trace;
    StyleSheet sheet;
    CSSParser().parseString(sheet, "a {x: 1;\ny: 2;}", nullptr, author);
    EXPECT_EQ(sheet.source(0), QString(":0"));
    EXPECT_EQ(sheet.source(1), QString(":1"));
    EXPECT_EQ(sheet.source(2), QString());
}

TEST(CSSParserString, FileListStaysEmptyForTheTextItself) {
    TraceGuard trace;
    StyleSheet sheet;
    QStringList files{"before"};
    CSSParser().parseString(sheet, "a {x: 1}", &files, author);
    EXPECT_EQ(files, QStringList{"before"});
}

TEST(CSSParserString, OriginReachesEveryCompound) {
    TraceGuard trace;
    for (unsigned origin = 0; origin <= 7; ++origin) {
        StyleSheet sheet;
        CSSParser().parseString(sheet, "a.b > *:c #d, [e] {x: 1}", nullptr, SimpleSelector::Origin(origin));
        ASSERT_EQ(sheet.rules().size(), 2u);
        for (const Brisko::Rule& rule : sheet.rules()) {
            for (const SimpleSelector* compound = rule.selector().front().get(); compound; compound = compound->next())
                EXPECT_EQ(unsigned(compound->origin()), origin);
        }
        trace.takeErrors();
    }
}

TEST(CSSParserString, GivingUpCommitsWhatIsPending) {
    TraceGuard trace;
    StyleSheet sheet;
    EXPECT_FALSE(CSSParser().parseString(sheet, "a {x: 1}\nb {y: 2; z: 3\n", nullptr, author));
    EXPECT_EQ(dumpSheet(sheet), "a {x: 1} b {y: 2; z: 3}");
    EXPECT_EQ(trace.takeErrors(), (Strings{":2: error: syntax error, unexpected end of file, expecting '}'",
                                           "CSS Parse Error: On line 2"}));
}

TEST(CSSParserString, GivingUpKeepsEvenTheRulesOfAForeignMedium) {
    TraceGuard trace;
    StyleSheet sheet;
    EXPECT_FALSE(CSSParser().parseString(sheet, "@media print {a {x: 1} b {y: 2", nullptr, author));
    EXPECT_EQ(dumpSheet(sheet), "a {x: 1} b {y: 2}");
    EXPECT_EQ(trace.takeErrors().back(), "CSS Parse Error: On line 0");
}

TEST(CSSParserString, SecondTextGoesBehindTheFirst) {
    TraceGuard trace;
    StyleSheet sheet;
    CSSParser parser;
    parser.parseString(sheet, "a {x: 1}", nullptr, author);
    parser.parseString(sheet, "b {y: 2}", nullptr, author);
    EXPECT_EQ(dumpSheetWithSources(sheet), "a {x: 1 @:0 #0} b {y: 2 @:0 #1}");
}

TEST(CSSParserString, NothingOfABrokenTextReachesTheNext) {
    TraceGuard trace;
    CSSParser parser;
    StyleSheet first;
    EXPECT_FALSE(parser.parseString(first, "a, b {x: 1; y", nullptr, author));
    StyleSheet second;
    EXPECT_TRUE(parser.parseString(second, "c {z: 3}", nullptr, author));
    EXPECT_EQ(dumpSheetWithSources(second), "c {z: 3 @:0 #0}");
    trace.takeErrors();
}

TEST(CSSParserString, DeclarationsOfALastPageDoNotReachTheNextText) {
    TraceGuard trace;
    CSSParser parser;
    StyleSheet first;
    EXPECT_TRUE(parser.parseString(first, "@page {x: 1}", nullptr, author));
    EXPECT_TRUE(first.isEmpty());
    StyleSheet second;
    EXPECT_TRUE(parser.parseString(second, "c {z: 3}", nullptr, author));
    EXPECT_EQ(dumpSheet(second), "c {z: 3}");
    EXPECT_EQ(trace.takeErrors(), Strings{":0: error: @page rules are ignored"});
}

TEST(CSSParserString, BadStringFlagDoesNotReachTheNextText) {
    TraceGuard trace;
    CSSParser parser;
    StyleSheet first;
    EXPECT_FALSE(parser.parseString(first, "a {x: 1 'b\n", nullptr, author));
    trace.takeErrors();
    StyleSheet second;
    EXPECT_TRUE(parser.parseString(second, "a {x: 1}", nullptr, author));
    EXPECT_EQ(dumpSheet(second), "a {x: 1}");
}

TEST(CSSParserString, DebugMessagesTellTheSteps) {
    TraceGuard trace;
    Gorvel::Trace::setDebugEnabled(true);
    StyleSheet sheet;
    CSSParser().parseString(sheet, "a, b {x: 1; y: 2} @media print {c {z: 3}}", nullptr, author);
    Gorvel::Trace::setDebugEnabled(false);
    EXPECT_EQ(trace.takeDebug(), (Strings{
                                     "CSSParser::add(Selector*) # selector pushed (stack 1)",
                                     "CSSParser::add(Selector*) # selector pushed (stack 2)",
                                     "CSSParser::add(Declaration&) # declaration pushed (stack 1)",
                                     "CSSParser::add(Declaration&) # declaration pushed (stack 2)",
                                     "CSSParser::parseRule # parsing rule (2 selectors, 2 declarations)",
                                     "CSSParser::commit # 2 rules",
                                     "CSSParser::add(Selector*) # selector pushed (stack 1)",
                                     "CSSParser::add(Declaration&) # declaration pushed (stack 1)",
                                     "CSSParser::parseRule # parsing rule (1 selectors, 1 declarations)",
                                     "CSSParser::rollback # 1 rules",
                                 }));
}

TEST(CSSParserString, DebugIsSilentAboutARuleSetWithoutDeclarations) {
    TraceGuard trace;
    Gorvel::Trace::setDebugEnabled(true);
    StyleSheet sheet;
    CSSParser().parseString(sheet, "a {}", nullptr, author);
    Gorvel::Trace::setDebugEnabled(false);
    EXPECT_EQ(trace.takeDebug(),
              (Strings{"CSSParser::add(Selector*) # selector pushed (stack 1)", "CSSParser::commit # 0 rules"}));
}

TEST(CSSParserSelectors, ListInOrderWithOriginOne) {
    TraceGuard trace;
    const QList<Selector> selectors = CSSParser().selectors("a, b > c.d");
    ASSERT_EQ(selectors.size(), 2);
    EXPECT_EQ(dumpSelector(selectors[0]), "a");
    EXPECT_EQ(dumpSelector(selectors[1]), "b > c.d");
    EXPECT_EQ(unsigned(selectors[1].front()->origin()), 1u);
    EXPECT_EQ(unsigned(selectors[1].front()->next()->origin()), 1u);
}

TEST(CSSParserSelectors, OriginOfAnEarlierSheetIsForgotten) {
    TraceGuard trace;
    CSSParser parser;
    StyleSheet sheet;
    parser.parseString(sheet, "a {x: 1}", nullptr, SimpleSelector::Origin(5));
    EXPECT_EQ(unsigned(parser.selectors("b")[0].front()->origin()), 1u);
}

TEST(CSSParserSelectors, ErrorReturnsTheSelectorsBeforeIt) {
    TraceGuard trace;
    const QList<Selector> selectors = CSSParser().selectors("a,");
    ASSERT_EQ(selectors.size(), 1);
    EXPECT_EQ(dumpSelector(selectors[0]), "a");
    EXPECT_EQ(trace.takeErrors(),
              (Strings{"string:0: error: syntax error, unexpected end of file", "CSS Selector parse error (a,)"}));
}

TEST(CSSParserSelectors, StaticFormUsesAParserOfItsOwn) {
    TraceGuard trace;
    EXPECT_EQ(CSSParser::parseSelectors("a, b").size(), 2);
    EXPECT_EQ(CSSParser::parseSelectors("a > b c")[0].size(), 3);
}

TEST(CSSParserSelectors, TextIsUtf8) {
    TraceGuard trace;
    const QList<Selector> selectors = CSSParser::parseSelectors(QString::fromUtf8("\xc3\xa9"));
    ASSERT_EQ(selectors.size(), 1);
    // Identifiers are taken as Latin-1 and written as UTF-8.
    EXPECT_EQ(selectors[0].front()->cssType(), QByteArray("\xc3\x83\xc2\xa9"));
}

TEST(CSSParserSelectors, CombinatorsOfParsedSelectorsDoNotCountInComparison) {
    TraceGuard trace;
    const Selector child = CSSParser::parseSelectors("a > b")[0];
    const Selector descendant = CSSParser::parseSelectors("a b")[0];
    EXPECT_TRUE(child == descendant);
    EXPECT_FALSE(child < descendant);
    EXPECT_FALSE(descendant < child);
}

TEST(CSSParserSimpleSelector, LeftmostCompoundWithoutItsSuccessor) {
    TraceGuard trace;
    const SimpleSelector compound = CSSParser::parseSimpleSelector("a.b > c");
    EXPECT_EQ(compound.toString(), QByteArray("a.b"));
    EXPECT_EQ(compound.cssType(), QByteArray("a"));
    EXPECT_TRUE(compound.cssClasses().contains("b"));
    EXPECT_EQ(compound.next(), nullptr);
    EXPECT_EQ(compound.combinator(), SimpleSelector::None);
    EXPECT_EQ(unsigned(compound.origin()), 1u);
}

TEST(CSSParserSimpleSelector, FirstOfADescendantChain) {
    TraceGuard trace;
    EXPECT_EQ(CSSParser::parseSimpleSelector("a b").cssType(), QByteArray("a"));
    EXPECT_EQ(CSSParser::parseSimpleSelector("a b, c").cssType(), QByteArray("a"));
}

TEST(CSSParserSimpleSelector, FailureIsAnEmptyCompoundOfOriginOne) {
    TraceGuard trace;
    const SimpleSelector compound = CSSParser::parseSimpleSelector("");
    EXPECT_TRUE(compound.isEmpty());
    EXPECT_EQ(compound.toString(), QByteArray());
    EXPECT_TRUE(compound.pseudoClasses().empty());
    EXPECT_EQ(unsigned(compound.origin()), 1u);
    EXPECT_EQ(compound.next(), nullptr);
    EXPECT_EQ(trace.takeErrors(),
              (Strings{"string:0: error: syntax error, unexpected end of file", "CSS Selector parse error ()"}));
}

TEST(CSSParserSimpleSelector, ErrorBehindTheFirstStillGivesTheFirst) {
    TraceGuard trace;
    EXPECT_EQ(CSSParser::parseSimpleSelector("a:b ]").toString(), QByteArray("a:b"));
    trace.takeErrors();
}

TEST(CSSParserValue, EmptyTextIsAnEmptyValueWithoutMessages) {
    TraceGuard trace;
    EXPECT_TRUE(CSSParser::parseValue("").isEmpty());
    EXPECT_TRUE(CSSParser::parseValue(QByteArray()).isEmpty());
}

TEST(CSSParserValue, TwoTermsAreTwoComponents) {
    TraceGuard trace;
    const Ondex::StyleValue value = CSSParser::parseValue("1px solid");
    ASSERT_EQ(value.size(), 2);
    EXPECT_EQ(value.unit(0), Ondex::Attribute::VU_PXS);
    EXPECT_EQ(value.asKeyword(1), QByteArray("solid"));
}

TEST(CSSParserValue, UnitsAndSeparatorsOfFourComponents) {
    TraceGuard trace;
    const Ondex::StyleValue value = CSSParser::parseValue("10px 20px / 5px, 1em");
    ASSERT_EQ(value.size(), 4);
    using Ondex::Attribute;
    EXPECT_EQ(value.units(), (QList<Attribute::ValueUnit>{Attribute::VU_PXS, Attribute::VU_PXS, Attribute::VU_PXS,
                                                          Attribute::VU_EMS}));
    EXPECT_EQ(value[1].separator(), Ondex::StyleValue::SEPARATOR_WHITE_SPACE);
    EXPECT_EQ(value[2].separator(), Ondex::StyleValue::SEPARATOR_SLASH);
    EXPECT_EQ(value[3].separator(), Ondex::StyleValue::SEPARATOR_COMMA);
}

TEST(CSSParserValue, IntegersAndRealsDiffer) {
    TraceGuard trace;
    const Ondex::StyleValue integer = CSSParser::parseValue("12");
    EXPECT_EQ(integer.type(0), Ondex::StyleValue::TYPE_INT);
    EXPECT_EQ(integer.asInt(0), 12);
    const Ondex::StyleValue real = CSSParser::parseValue("12.5");
    EXPECT_EQ(real.type(0), Ondex::StyleValue::TYPE_FLOAT);
    EXPECT_EQ(real.unit(0), Ondex::Attribute::VU_UNKNOWN);
    EXPECT_EQ(real.asFloat(0), 12.5f);
}

TEST(CSSParserValue, CommaSplitsIntoParts) {
    TraceGuard trace;
    const QList<Ondex::StyleValue> parts = CSSParser::parseValue("a b, c").split(Ondex::StyleValue::SEPARATOR_COMMA);
    ASSERT_EQ(parts.size(), 2);
    EXPECT_EQ(dumpValue(parts[0]), "a b");
    EXPECT_EQ(dumpValue(parts[1]), "c");
}

TEST(CSSParserValue, ResultOfAnEarlierValueIsForgotten) {
    TraceGuard trace;
    CSSParser parser;
    EXPECT_EQ(dumpValue(parser.expr("1px")), "1px");
    EXPECT_TRUE(parser.expr("]").isEmpty());
    EXPECT_EQ(trace.takeErrors().size(), 2u);
    EXPECT_EQ(dumpValue(parser.expr("2px")), "2px");
}

TEST(CSSParserSheet, RulesOfOneListShareTheirDeclarations) {
    const TraceGuard trace;
    StyleSheet sheet;
    CSSParser().parseString(sheet, "a, b { x: 1 } c { x: 1 }", nullptr, author);
    ASSERT_EQ(sheet.rules().size(), 3u);
    EXPECT_EQ(&sheet.rules()[0].declarations(), &sheet.rules()[1].declarations());
    EXPECT_NE(&sheet.rules()[1].declarations(), &sheet.rules()[2].declarations());
}

TEST(CSSParserValue, ValueAfterABrokenSheet) {
    TraceGuard trace;
    CSSParser parser;
    StyleSheet sheet;
    parser.parseString(sheet, "a {x: ", nullptr, author);
    trace.takeErrors();
    EXPECT_EQ(dumpValue(parser.expr("a, b")), "a, b");
    EXPECT_EQ(parser.selectors("a, b").size(), 2);
}

} // namespace

} // namespace Testing
