#include "parser/SheetCase.h"

namespace Testing {

namespace {

const ParseCase selectorRows[] = {
    {"OneSelector", "a", "a", {}},
    {"TwoSelectors", "a, b > c", "a, b > c", {}},
    {"Empty", "", "", {"string:0: error: syntax error, unexpected end of file", "CSS Selector parse error ()"}},
    {"Blank", " ", "", {"string:0: error: syntax error, unexpected WHITESPACE", "CSS Selector parse error ( )"}},
    {"LeadingBlank",
     " a",
     "",
     {"string:0: error: syntax error, unexpected WHITESPACE", "CSS Selector parse error ( a)"}},
    {"TrailingBlank", "a ", "a", {}},
    {"TrailingComma",
     "a,",
     "a",
     {"string:0: error: syntax error, unexpected end of file", "CSS Selector parse error (a,)"}},
    {"LeadingComma", ",a", "", {"string:0: error: syntax error, unexpected COMMA", "CSS Selector parse error (,a)"}},
    {"Block",
     "a {",
     "a",
     {"string:0: error: syntax error, unexpected '{', expecting end of file", "CSS Selector parse error (a {)"}},
    {"Class", ".b", ".b", {}},
    {"Two", "a b, c.d:e#f", "a b, c.d:e#f", {}},
    {"Sibling", "a + b", "b", {"Sibling selectors are not supported"}},
    {"Attribute", "a[b]", "a", {"string:0: error: Attribute selectors not implemented"}},
    {"ErrorLater",
     "a, b ]",
     "a, b",
     {"string:0: error: syntax error, unexpected ']', expecting end of file", "CSS Selector parse error (a, b ])"}},
    {"ErrorInSecond",
     "a, ]",
     "a",
     {"string:0: error: syntax error, unexpected ']'", "CSS Selector parse error (a, ])"}},
    {"At", "@a", "", {"string:0: error: syntax error, unexpected AT_RULE", "CSS Selector parse error (@a)"}},
    {"NewlineError",
     "a,\n ]",
     "a",
     {"string:1: error: syntax error, unexpected ']'", "CSS Selector parse error (a,\n ])"}},
    {"BadStringInAList", "a \"b\n, c", "a, c", {"CSSParser::lex # Bad string 'b'"}},
    {"PseudoElementIsRefused",
     "a::b",
     "",
     {"string:0: error: syntax error, unexpected ':', expecting IDENT or FUNCTION", "CSS Selector parse error (a::b)"}},
    {"FunctionalPseudo", "a:not(b)", "a:not", {"string:0: error: Function-like pseudo-selectors not implemented"}},
    {"UniversalAlone", "*", "*", {}},
};

class SelectorMode : public testing::TestWithParam<ParseCase> {};

TEST_P(SelectorMode, Row) {
    const ParseCase& row = GetParam();
    TraceGuard trace;
    std::string result;
    for (const Brisko::Selector& selector : Brisko::CSSParser::parseSelectors(QString::fromUtf8(row.text)))
        result += (result.empty() ? "" : ", ") + dumpSelector(selector);
    EXPECT_EQ(result, row.result);
    EXPECT_EQ(trace.takeErrors(), row.errors);
}

INSTANTIATE_TEST_SUITE_P(Rows, SelectorMode, testing::ValuesIn(selectorRows), nameOfRow);

const ParseCase valueRows[] = {
    {"TwoTerms", "1px solid", "1px solid", {}},
    {"Empty", "", "", {"string:0: error: syntax error, unexpected end of file", "CSSParser # expr parser error ()"}},
    {"Blank", " ", "", {"string:0: error: syntax error, unexpected WHITESPACE", "CSSParser # expr parser error ( )"}},
    {"LeadingBlankIsRefused",
     " 1",
     "",
     {"string:0: error: syntax error, unexpected WHITESPACE", "CSSParser # expr parser error ( 1)"}},
    {"TrailingBlank", "1 ", "1", {}},
    {"AllSeparators", "10px 20px / 5px, 1em", "10px 20px / 5px, 1em", {}},
    {"CommaList", "a b, c", "a b, c", {}},
    {"SemicolonIsTooMuch",
     "1;",
     "1",
     {"string:0: error: syntax error, unexpected ';', expecting end of file", "CSSParser # expr parser error (1;)"}},
    {"ImportantIsTooMuch",
     "1 !important",
     "1",
     {"string:0: error: syntax error, unexpected IMPORTANT_SYM, expecting end of file",
      "CSSParser # expr parser error (1 !important)"}},
    {"NoValue", "]", "", {"string:0: error: syntax error, unexpected ']'", "CSSParser # expr parser error (])"}},
    {"UnknownFunction", "foo(1)", "", {"Unknown / unimplemented CSS function foo"}},
    {"UnknownFunctionAmongTerms",
     "1 foo(1)",
     "",
     {"Unknown / unimplemented CSS function foo", "string:0: error: Broken expression"}},
    {"FunctionUnclosed",
     "rgb(1,2,3",
     "",
     {"string:0: error: syntax error, unexpected end of file", "CSSParser # expr parser error (rgb(1,2,3)"}},
    {"BadTokenAfterAValueKeepsTheValue",
     "1 ]",
     "1",
     {"string:0: error: syntax error, unexpected ']', expecting end of file", "CSSParser # expr parser error (1 ])"}},
    {"StringCutByTheEnd", "'a", "\"a\"", {"CSSParser::lex # EOF in the string"}},
    {"StringCutByANewlineAtTheEnd", "\"a\n", "\"a\"", {"CSSParser::lex # EOF in the string"}},
    {"BadStringIsDropped", "\"a\n b", "b", {"CSSParser::lex # Bad string 'a'"}},
    {"StringCutByTheEndAfterATerm", "1 \"a\n", "1 \"a\"", {"CSSParser::lex # EOF in the string"}},
    {"UnknownUnitLeavesNothing",
     "5vw",
     "",
     {"string:0: error: syntax error, unexpected end of file", "CSSParser # expr parser error (5vw)"}},
    {"ExponentLeavesNothing",
     "1e3",
     "",
     {"string:0: error: syntax error, unexpected end of file", "CSSParser # expr parser error (1e3)"}},
    {"SlashWithoutTerm",
     "1 /",
     "",
     {"string:0: error: syntax error, unexpected end of file", "CSSParser # expr parser error (1 /)"}},
    {"CommaWithoutTerm",
     "1,",
     "",
     {"string:0: error: syntax error, unexpected end of file", "CSSParser # expr parser error (1,)"}},
    {"UriUnclosed",
     "url(x",
     "",
     {"CSS parser: bad URI", "string:0: error: syntax error, unexpected end of file",
      "CSSParser # expr parser error (url(x)"}},
    {"CommentUnclosed",
     "/* x",
     "",
     {"CSS parser: unclosed comment at EOF", "string:0: error: syntax error, unexpected end of file",
      "CSSParser # expr parser error (/* x)"}},
    {"TermThenUnclosedComment", "1 /* x", "1", {"CSS parser: unclosed comment at EOF"}},
    {"LineOfAnError",
     "1\n\n]",
     "1",
     {"string:2: error: syntax error, unexpected ']', expecting end of file",
      "CSSParser # expr parser error (1\n\n])"}},
    {"CalcUnclosed",
     "calc(1",
     "",
     {"string:0: error: syntax error, unexpected end of file, expecting '+' or ')' or '-'",
      "CSSParser # expr parser error (calc(1)"}},
    {"HexColour", "#f00", "rgba_pma(1 0 0 1)", {}},
    {"ColonIsTooMuch",
     "a:b",
     "a",
     {"string:0: error: syntax error, unexpected ':', expecting end of file", "CSSParser # expr parser error (a:b)"}},
    {"CommentBetweenTerms", "1 /**/ 2", "1 2", {}},
    {"StringAndUriAreAlike", "'a' url('a')", "\"a\" \"a\"", {}},
    {"Calculation", "calc(100% / 4)", "calc(0 at 0, 0.25 at 1)", {}},
    {"KeywordOnly", "Auto", "Auto", {}},
};

class ValueMode : public testing::TestWithParam<ParseCase> {};

TEST_P(ValueMode, Row) {
    const ParseCase& row = GetParam();
    TraceGuard trace;
    Brisko::CSSParser parser;
    EXPECT_EQ(dumpValue(parser.expr(row.text)), row.result);
    EXPECT_EQ(trace.takeErrors(), row.errors);
}

INSTANTIATE_TEST_SUITE_P(Rows, ValueMode, testing::ValuesIn(valueRows), nameOfRow);

} // namespace

} // namespace Testing
