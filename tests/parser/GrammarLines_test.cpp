#include "parser/SheetCase.h"

namespace Testing {

namespace {

const ParseCase lineRows[] = {
    {"LineOfAnError",
     "a {\n x: 1;\n y: ];\n z: 2\n}\n",
     "a {x: 1 @:1 #0; z: 2 @:4 #1}",
     {":2: error: syntax error, unexpected ']'"}},
    {"LineOfAnErrorAtSheetLevel", "\n\n] a {x: 1}\n", "a {x: 1 @:2 #0}", {":2: error: syntax error, unexpected ']'"}},
    {"LineOfADeclarationIsThatOfItsLookAhead", "a {\n x: 1\n ;\n y: 2\n\n}", "a {x: 1 @:2 #0; y: 2 @:5 #1}", {}},
    {"LineAfterACommentInAValue", "a { x: 1 /* \n\n */ ; y:\n 2; }", "a {x: 1 @:2 #0; y: 2 @:3 #1}", {}},
    {"LineOfPage", "a {x: 1}\n@page\n{\n x: 1 }", "a {x: 1 @:0 #0}", {":2: error: @page rules are ignored"}},
    {"LineOfAttributeTest", "\na[b\n]\n{x: 1}", "a {x: 1 @:3 #0}", {":2: error: Attribute selectors not implemented"}},
    {"LineOfFunctionalPseudo",
     "a:b(\nc\n)\n{x: 1}",
     "a:b {x: 1 @:3 #0}",
     {":2: error: Function-like pseudo-selectors not implemented"}},
    {"LineOfBrokenExpression",
     "a {x: 1\n foo(1)\n, 2\n; y: 2}",
     "a {y: 2 @:3 #0}",
     {"Unknown / unimplemented CSS function foo", ":1: error: Broken expression",
      ":2: error: Broken comma-separated expression"}},
    {"LineOfEndOfFile",
     "a {x: 1;\n\n",
     "a {x: 1 @:0 #0}",
     {":2: error: syntax error, unexpected end of file, expecting IDENT or '}'", "CSS Parse Error: On line 2"}},
    {"DroppedMediaStillNumbersDeclarations", "@media print {a {x: 1; y: 2}} b {z: 3}", "b {z: 3 @:0 #2}", {}},
    {"NumbersRunThroughAllRuleSets",
     "a {x: 1; y: 2}\nb, c {z: 3}",
     "a {x: 1 @:0 #0; y: 2 @:0 #1} b {z: 3 @:1 #2} c {z: 3 @:1 #2}",
     {}},
    {"RefusedDeclarationsTakeNoNumber",
     "a {x: foo; y: ]; z: 2}",
     "a {x: foo @:0 #0; z: 2 @:0 #1}",
     {":0: error: syntax error, unexpected ']'"}},
    {"DeclarationsOfAPageKeepTheirSources",
     "@page {\nx: 1\n}\na {y: 2}",
     "a {x: 1 @:2 #0; y: 2 @:3 #1}",
     {":0: error: @page rules are ignored"}},
    {"SemicolonIsTheLookAhead", "a {x: 1 2\n;}", "a {x: 1 2 @:1 #0}", {}},
    {"ImportantMovesTheLookAhead", "a {x: 1 !important\n;}", "a {x: 1 !important @:0 #0}", {}},
    {"LoneCarriageReturnIsNoLine", "a {\r\fx: 1}", "a {x: 1 @:0 #0}", {}},
    {"CarriageReturnLineFeedCountsOnce", "a {\r\nx: 1}", "a {x: 1 @:1 #0}", {}},
    {"LinesInUrisCount", "a {x: url(\n\nb); y: 2}", "a {x: \"b)\" @:2 #0; y: 2 @:2 #1}", {}},
    {"LinesBeforeCommasCount", "a\n,b {x: 1}", "a {x: 1 @:1 #0} b {x: 1 @:1 #0}", {}},
    {"LinesInImportantCount", "a {x: 1 !\n\nimportant; y: 2}", "a {x: 1 !important @:2 #0; y: 2 @:2 #1}", {}},
    {"DumpHasEverything", "a.b>c{x:1px 2px/3px!important}", "a.b > c {x: 1px 2px / 3px !important @:0 #0}", {}},
};

class GrammarLines : public testing::TestWithParam<ParseCase> {};

TEST_P(GrammarLines, Row) {
    checkSheet(GetParam(), dumpSheetWithSources);
}

INSTANTIATE_TEST_SUITE_P(Rows, GrammarLines, testing::ValuesIn(lineRows), nameOfRow);

} // namespace

} // namespace Testing
