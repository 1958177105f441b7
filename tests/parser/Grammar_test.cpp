#include "parser/SheetCase.h"

namespace Testing {

namespace {

const ParseCase sheetRows[] = {
    {"EmptySheet", "", "", {}},
    {"BlankSheet", " \n\t ", "", {}},
    {"CommentOnlySheet", "/* nothing */", "", {}},
    {"CharsetUtf8IsSilent", "@charset \"utf-8\";", "", {}},
    {"CharsetUtf8UpperCase", "@CHARSET \"UTF-8\"; a {x: 1}", "a {x: 1}", {}},
    {"CharsetForeignIsReported",
     "@charset \"latin1\"; a {x: 1}",
     "a {x: 1}",
     {":0: error: Unsupported character encoding 'latin1'"}},
    {"CharsetReportComesWhenTheSheetIsComplete",
     "@charset \"latin1\";\na {x: 1}\nb {y: 2}\n",
     "a {x: 1} b {y: 2}",
     {":3: error: Unsupported character encoding 'latin1'"}},
    {"CharsetAfterBlankIsAnError",
     " @charset \"utf-8\"; a {x: 1}",
     "a {x: 1}",
     {":0: error: syntax error, unexpected CHARSET_SYM"}},
    {"CdoAndCdcAreSkipped", "<!-- a {x: 1} --> b {y: 2}", "a {x: 1} b {y: 2}", {}},
    {"CdcAlone", "--> a {x: 1}", "a {x: 1}", {}},
    {"CdoBetweenRules", "a {x: 1} <!-- b {y: 2}", "a {x: 1} b {y: 2}", {}},
    {"RuleSetsInOrder", "a {x: 1} b {y: 2} c {z: 3}", "a {x: 1} b {y: 2} c {z: 3}", {}},
    {"CommitPerTopLevelRuleSet",
     "a {x: 1} ] b {y: 2}",
     "a {x: 1} b {y: 2}",
     {":0: error: syntax error, unexpected ']'"}},
    {"MediaScreenIsKept", "@media screen { a {x: 1} }", "a {x: 1}", {}},
    {"MediaPrintIsDropped", "@media print { a {x: 1} } b {y: 2}", "b {y: 2}", {}},
    {"MediaListKeepsWhenOneMatches", "@media PRINT, ALL {a {x: 1}}", "a {x: 1}", {}},
    {"MediaCaseIgnored", "@MEDIA ScReEn{a {x: 1}}", "a {x: 1}", {}},
    {"MediaAllMatches", "@media all{a {x: 1}}", "a {x: 1}", {}},
    {"MediaListOfForeignMediaIsDropped", "@media print, tty {a {x: 1}} b {y: 1}", "b {y: 1}", {}},
    {"MediaEmptyBlock", "@media screen {} a {x: 1}", "a {x: 1}", {}},
    {"MediaSeveralRuleSets", "@media screen {a {x: 1} b {y: 2}} c {z: 3}", "a {x: 1} b {y: 2} c {z: 3}", {}},
    {"MediaBlankBeforeComma", "@media print , screen {a {x: 1}}", "a {x: 1}", {}},
    {"MediaAfterRule", "c {z: 3} @media print {a {x: 1} b {y: 2}} d {w: 4}", "c {z: 3} d {w: 4}", {}},
    {"DroppedMediaStillNumbersDeclarations", "@media print {a {x: 1; y: 2}} b {z: 3}", "b {z: 3}", {}},
    {"PageDeclarationsJoinTheNextRuleSet",
     "@page {x: 1} a {y: 2}",
     "a {x: 1; y: 2}",
     {":0: error: @page rules are ignored"}},
    {"PageWithPseudoPage", "@page :first {x: 1} a {y: 2}", "a {x: 1; y: 2}", {":0: error: @page rules are ignored"}},
    {"PageEmpty", "@page {} a {y: 2}", "a {y: 2}", {":0: error: @page rules are ignored"}},
    {"PageAtTheEndLeavesNothing", "a {y: 2} @page {x: 1}", "a {y: 2}", {":0: error: @page rules are ignored"}},
    {"PageDeclarationsJoinAnEmptyRuleSet", "@page {x: 1} a {}", "a {x: 1}", {":0: error: @page rules are ignored"}},
    {"PageDeclarationsJoinEverySelectorOfTheNext",
     "@page {x: 1; z: 2 !important} a, b {y: 2}",
     "a {x: 1; z: 2 !important; y: 2} b {x: 1; z: 2 !important; y: 2}",
     {":0: error: @page rules are ignored"}},
    {"PageNameIsAnError",
     "@page left {x: 1} a {y: 2}",
     "left {x: 1} a {y: 2}",
     {":0: error: syntax error, unexpected IDENT, expecting '{'"}},
    {"TwoPagesBothJoin",
     "@page {x: 1} @page :left {y: 2} a {z: 3} b {w: 4}",
     "a {x: 1; y: 2; z: 3} b {w: 4}",
     {":0: error: @page rules are ignored", ":0: error: @page rules are ignored"}},
    {"AtRuleWithABlockIsSkippedWithIt",
     "@font-face {x: 1} a {y: 2}",
     "a {y: 2}",
     {":0: error: syntax error, unexpected AT_RULE"}},
    {"AtRuleWithUriAndSemicolon",
     "@namespace url(x); a {y: 2} b {z: 3}",
     "a {y: 2} b {z: 3}",
     {":0: error: syntax error, unexpected AT_RULE"}},
    {"AtBeforeABlankIsAnError",
     "a {x: 1} @ b",
     "a {x: 1}",
     {":0: error: syntax error, unexpected WHITESPACE, expecting IDENT"}},
    {"AtIdentEndsTheSheet", "@/**/b", "", {":0: error: Ignoring unknown @rule b"}},
    {"AtIdentMayBeFollowedByNothing",
     "@/**/b c {x: 1}",
     "",
     {":0: error: Ignoring unknown @rule b", ":0: error: syntax error, unexpected WHITESPACE, expecting end of file",
      "CSS Parse Error: On line 0"}},
};

class GrammarSheet : public testing::TestWithParam<ParseCase> {};

TEST_P(GrammarSheet, Row) {
    checkSheet(GetParam(), dumpSheet);
}

INSTANTIATE_TEST_SUITE_P(Rows, GrammarSheet, testing::ValuesIn(sheetRows), nameOfRow);

const ParseCase selectorRows[] = {
    {"SelectorListGivesARuleEach", "a, b > c {x: 1}", "a {x: 1} b > c {x: 1}", {}},
    {"SelectorListWithBlankBeforeComma", "a , b {x: 1}", "a {x: 1} b {x: 1}", {}},
    {"SelectorListOfThree", "a,b,c{x:1;y:2}", "a {x: 1; y: 2} b {x: 1; y: 2} c {x: 1; y: 2}", {}},
    {"EmptyRuleSetGivesNoRule", "a {}", "", {}},
    {"EmptyRuleSetBetweenOthers", "a {x: 1} b { } c {y: 2}", "a {x: 1} c {y: 2}", {}},
    {"TypeSelector", "panel {x: 1}", "panel {x: 1}", {}},
    {"TypeKeepsItsCase", "Panel {x: 1}", "Panel {x: 1}", {}},
    {"UniversalSelector", "* {x: 1}", "* {x: 1}", {}},
    {"UniversalWithClass", "*.b {x: 1}", ".b {x: 1}", {}},
    {"TypeWithClass", "a.b {x: 1}", "a.b {x: 1}", {}},
    {"TypeWithId", "a#i {x: 1}", "a#i {x: 1}", {}},
    {"TypeWithPseudoClass", "a:hover {x: 1}", "a:hover {x: 1}", {}},
    {"ClassAlone", ".b {x: 1}", ".b {x: 1}", {}},
    {"IdAlone", "#i {x: 1}", "#i {x: 1}", {}},
    {"PseudoClassAlone", ":hover {x: 1}", ":hover {x: 1}", {}},
    {"SeveralClasses", ".a.b.c {x: 1}", ".a.b.c {x: 1}", {}},
    {"ClassAfterId", "#i.b {x: 1}", ".b#i {x: 1}", {}},
    {"PseudoAfterClass", "a.b:c:d {x: 1}", "a.b:c:d {x: 1}", {}},
    {"DescendantCombinator", "a b c {x: 1}", "a b c {x: 1}", {}},
    {"ChildCombinator", "a>b > c {x: 1}", "a > b > c {x: 1}", {}},
    {"ChildCombinatorWithoutBlanks", "a>b>c{x:1}", "a > b > c {x: 1}", {}},
    {"MixedCombinators", "a > b c {x: 1}", "a > b c {x: 1}", {}},
    {"CommentIsNoCombinator",
     "a/**/b {x: 1}",
     "b {x: 1}",
     {":0: error: syntax error, unexpected IDENT, expecting COMMA or '{'"}},
    {"DescendantAcrossComment", "a /**/ b {x: 1}", "a b {x: 1}", {}},
    {"SiblingSelectsTheRightSide", "a + b {x: 1}", "b {x: 1}", {"Sibling selectors are not supported"}},
    {"SiblingWithoutBlanks", "a+b {x: 1}", "b {x: 1}", {"Sibling selectors are not supported"}},
    {"SiblingKeepsWhatIsLeftOfIt", "a > b + c {x: 1}", "a > c {x: 1}", {"Sibling selectors are not supported"}},
    {"SiblingInTheMiddle", "a + b > c {x: 1}", "b > c {x: 1}", {"Sibling selectors are not supported"}},
    {"SiblingTwice",
     "a + b + c {x: 1}",
     "c {x: 1}",
     {"Sibling selectors are not supported", "Sibling selectors are not supported"}},
    {"HexadecimalIdStartsWithADigit", "#123 {x: 1}", "#123 {x: 1}", {}},
    {"AttributeTestIsDropped", "p[lang] {x: 1}", "p {x: 1}", {":0: error: Attribute selectors not implemented"}},
    {"AttributeTestEquals", "p[a=b] {x: 1}", "p {x: 1}", {":0: error: Attribute selectors not implemented"}},
    {"AttributeTestIncludesString",
     "p[ a ~= \"b\" ] {x: 1}",
     "p {x: 1}",
     {":0: error: Attribute selectors not implemented"}},
    {"AttributeTestDashMatch", "p[a|=en] {x: 1}", "p {x: 1}", {":0: error: Attribute selectors not implemented"}},
    {"AttributeTestAlone", "[a] {x: 1}", "* {x: 1}", {":0: error: Attribute selectors not implemented"}},
    {"AttributeTestAfterClass", ".b[a].c {x: 1}", ".b.c {x: 1}", {":0: error: Attribute selectors not implemented"}},
    {"TwoAttributeTests",
     "[a][b] {x: 1}",
     "* {x: 1}",
     {":0: error: Attribute selectors not implemented", ":0: error: Attribute selectors not implemented"}},
    {"AttributeTestOnUniversal", "*[a] {x: 1}", "* {x: 1}", {":0: error: Attribute selectors not implemented"}},
    {"FunctionalPseudoBecomesItsName",
     "a:nth-child(odd) {x: 1}",
     "a:nth-child {x: 1}",
     {":0: error: Function-like pseudo-selectors not implemented"}},
    {"FunctionalPseudoWithoutParameter",
     "a:not() {x: 1}",
     "a:not {x: 1}",
     {":0: error: Function-like pseudo-selectors not implemented"}},
    {"FunctionalPseudoWithBlanks",
     ":not( x ) {x: 1}",
     ":not {x: 1}",
     {":0: error: Function-like pseudo-selectors not implemented"}},
    {"FunctionalPseudoWithNumber",
     "a:nth-child(2) {x: 1} b {y: 2}",
     "b {y: 2}",
     {":0: error: syntax error, unexpected INTEGER, expecting ')'"}},
};

class GrammarSelector : public testing::TestWithParam<ParseCase> {};

TEST_P(GrammarSelector, Row) {
    checkSheet(GetParam(), dumpSheet);
}

INSTANTIATE_TEST_SUITE_P(Rows, GrammarSelector, testing::ValuesIn(selectorRows), nameOfRow);

const ParseCase declarationRows[] = {
    {"OneDeclaration", "a {x: 1}", "a {x: 1}", {}},
    {"TrailingSemicolon", "a {x: 1;}", "a {x: 1}", {}},
    {"TwoDeclarations", "a {x: 1; y: 2}", "a {x: 1; y: 2}", {}},
    {"BlankBeforeColon", "a {x : 1 ; y : 2 ; }", "a {x: 1; y: 2}", {}},
    {"NoBlanks", "a{x:1;y:2;}", "a {x: 1; y: 2}", {}},
    {"Important", "a {x: 1 !important}", "a {x: 1 !important}", {}},
    {"ImportantWithCommentAndCase", "a {x: 1 ! /* c */ IMPORTANT; y: 2}", "a {x: 1 !important; y: 2}", {}},
    {"ImportantWithoutBlank", "a {x:1!important;y:2!important}", "a {x: 1 !important; y: 2 !important}", {}},
    {"SamePropertyTwiceKeepsBoth", "a {x: 1; x: 2}", "a {x: 1; x: 2}", {}},
    {"PropertyKeepsItsCase", "a {Xy: 1}", "a {Xy: 1}", {}},
    {"PropertyWithDashes", "a {-moz-x: 1; border-top: 2}", "a {-moz-x: 1; border-top: 2}", {}},
    {"CommentsBetweenDeclarations", "a { /* l */ x: 1; /* note */ y: 2; /* r */ }", "a {x: 1; y: 2}", {}},
    {"SkippedValueBlanksFold", "a { x: 10Hz 3kHz 1; }", "a {x: 1}", {}},
};

class GrammarDeclaration : public testing::TestWithParam<ParseCase> {};

TEST_P(GrammarDeclaration, Row) {
    checkSheet(GetParam(), dumpSheet);
}

INSTANTIATE_TEST_SUITE_P(Rows, GrammarDeclaration, testing::ValuesIn(declarationRows), nameOfRow);

const ParseCase valueRows[] = {
    {"Integer", "a {x: 12}", "a {x: 12}", {}},
    {"NegativeInteger", "a {x: -5 +7}", "a {x: -5 7}", {}},
    {"Real", "a {x: 12.5 .5 -0.25}", "a {x: 12.5 0.5 -0.25}", {}},
    {"Percentage", "a {x: 50%}", "a {x: 50%}", {}},
    {"Pixels", "a {x: 10px}", "a {x: 10px}", {}},
    {"Ems", "a {x: 1.5em}", "a {x: 1.5em}", {}},
    {"Exs", "a {x: 2ex}", "a {x: 2ex}", {}},
    {"PhysicalUnitsBecomePixels", "a {x: 1in}", "a {x: 40.053px}", {}},
    {"TimeBecomesSeconds", "a {x: 250ms 2s}", "a {x: 0.25 2.0}", {}},
    {"StringValue", "a {x: \"b c\" 'd'}", "a {x: \"b c\" \"d\"}", {}},
    {"UriValueKeepsItsBracket", "a {x: url(x.png)}", "a {x: \"x.png)\"}", {}},
    {"QuotedUriValue", "a {x: url( \"a b.png\" )}", "a {x: \"a b.png\"}", {}},
    {"KeywordValue", "a {x: solid Red}", "a {x: solid Red}", {}},
    {"ExpressionValue", "a {x: calc(50% - 10px)}", "a {x: calc(-10 at 0, -9.5 at 1)}", {}},
    {"HexColourValue", "a {x: #f00 #00ff00}", "a {x: rgba_pma(1 0 0 1) rgba_pma(0 1 0 1)}", {}},
    {"SeparatorsInOrder", "a {x: 1px 2px / 3px, 4px}", "a {x: 1px 2px / 3px, 4px}", {}},
    {"CommaWithBlankBefore", "a {x: 1 , 2}", "a {x: 1, 2}", {}},
    {"SlashWithoutBlanks", "a {x: 12px/14px Arial, b}", "a {x: 12px / 14px Arial, b}", {}},
    {"MinusIsNotASeparator", "a {x: 1 -2}", "a {x: 1 -2}", {}},
};

class GrammarValue : public testing::TestWithParam<ParseCase> {};

TEST_P(GrammarValue, Row) {
    checkSheet(GetParam(), dumpSheet);
}

INSTANTIATE_TEST_SUITE_P(Rows, GrammarValue, testing::ValuesIn(valueRows), nameOfRow);

const ParseCase calcRows[] = {
    {"CalcAdds", "a {x: calc(1px + 2px)}", "a {x: calc(3)}", {}},
    {"CalcSubtracts", "a {x: calc(5 - 2 - 1)}", "a {x: calc(2)}", {}},
    {"CalcMultiplies", "a {x: calc(2px * 3)}", "a {x: calc(6)}", {}},
    {"CalcDivides", "a {x: calc(9px / 2)}", "a {x: calc(4.5)}", {}},
    {"CalcBindsProductsTighter", "a {x: calc(1 + 2 * 3 - 4 / 2)}", "a {x: calc(5)}", {}},
    {"CalcDivisionIsLeftAssociative", "a {x: calc(8 / 2 / 2)}", "a {x: calc(2)}", {}},
    {"CalcBrackets", "a {x: calc((1 + 2) * 3)}", "a {x: calc(9)}", {}},
    {"CalcNested", "a {x: calc(2 * calc(1 + 50%))}", "a {x: calc(2 at 0, 3 at 1)}", {}},
    {"CalcEmAndExAreBareNumbers", "a {x: calc(1em + 2px + 1ex)}", "a {x: calc(4)}", {}},
    {"CalcPercentageProduct", "a {x: calc(50% * 2)}", "a {x: calc(0 at 0, 1 at 1)}", {}},
    {"CalcPercentageOfBrackets", "a {x: calc((100% - 20px) / 2)}", "a {x: calc(-10 at 0, -9.5 at 1)}", {}},
    {"CalcAmongTerms", "a {x: 1 calc(2) / calc(3), b}", "a {x: 1 calc(2) / calc(3), b}", {}},
    {"CalcInnerBlanks", "a {x: calc( 1px + 2px )}", "a {x: calc(3)}", {}},
    {"CalcSignedNumbersDoNotAdd",
     "a {x: calc(1px +2px); y: 1}",
     "a {y: 1}",
     {":0: error: syntax error, unexpected PXS, expecting '+' or ')' or '-'"}},
    {"CalcUpperCase", "a {x: CALC(1 + 1)}", "a {x: calc(2)}", {}},
    {"CalcRealOperands", "a {x: calc(1.5 * 2)}", "a {x: calc(3)}", {}},
};

class GrammarCalc : public testing::TestWithParam<ParseCase> {};

TEST_P(GrammarCalc, Row) {
    checkSheet(GetParam(), dumpSheet);
}

INSTANTIATE_TEST_SUITE_P(Rows, GrammarCalc, testing::ValuesIn(calcRows), nameOfRow);

} // namespace

} // namespace Testing
