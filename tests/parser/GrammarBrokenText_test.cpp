#include "parser/SheetCase.h"

namespace Testing {

namespace {

const ParseCase brokenRows[] = {
    {"BadStringDropsItsDeclaration",
     "a {x: \"b\n; y: 2}",
     "a {y: 2}",
     {"CSSParser::lex # Bad string 'b'", ":1: error: syntax error, unexpected ';'"}},
    {"BadStringAfterAValueDropsItToo",
     "a {x: 1 \"b\n; y: 2; z: 3}",
     "a {y: 2; z: 3}",
     {"CSSParser::lex # Bad string 'b'"}},
    {"BadStringOutsideAValueIsForgotten", "\"b\n a {x: 1}", "a {x: 1}", {"CSSParser::lex # Bad string 'b'"}},
    {"BadStringInASelector", "a \"b\n {x: 1}", "a {x: 1}", {"CSSParser::lex # Bad string 'b'"}},
    {"StringCutByTheEnd",
     "a {x: \"b",
     "a {x: \"b\"}",
     {"CSSParser::lex # EOF in the string", ":0: error: syntax error, unexpected end of file, expecting '}'",
      "CSS Parse Error: On line 0"}},
    {"TwoBadStrings",
     "a {x: \"b\n\"c\n; y: 2}",
     "a {y: 2}",
     {"CSSParser::lex # Bad string 'b'", "CSSParser::lex # Bad string 'c'", ":2: error: syntax error, unexpected ';'"}},
    {"TwoBadStringsThenAValue",
     "a {x: \"b\n'c\n d; y: 2}",
     "a {y: 2}",
     {"CSSParser::lex # Bad string 'b'", "CSSParser::lex # Bad string 'c'"}},
    {"UnclosedComment", "a {x: 1} /* b {y: 2}", "a {x: 1}", {"CSS parser: unclosed comment at EOF"}},
    {"UnclosedCommentInARule",
     "a {x: 1; /* b {y: 2}",
     "a {x: 1}",
     {"CSS parser: unclosed comment at EOF", ":0: error: syntax error, unexpected end of file, expecting IDENT or '}'",
      "CSS Parse Error: On line 0"}},
    {"BadUri",
     "a {x: url(a b); y: 2}",
     "a {x: b; y: 2}",
     {"CSS parser: bad URI", ":0: error: syntax error, unexpected ')', expecting '}'"}},
    {"BadUriAtTheEnd",
     "a {x: url(",
     "",
     {"CSS parser: bad URI", ":0: error: syntax error, unexpected end of file", "CSS Parse Error: On line 0"}},
    {"BadUriAmongTerms",
     "a {x: 1 url( 2; y: 2}",
     "a {x: 1 y}",
     {"CSS parser: bad URI", ":0: error: syntax error, unexpected ':', expecting '}'", "CSS Parse Error: On line 0"}},
    {"HashOnlyIsInvalid", "a {x: #; y: 2}", "a {y: 2}", {":0: error: syntax error, unexpected invalid token"}},
};

class BrokenText : public testing::TestWithParam<ParseCase> {};

TEST_P(BrokenText, Row) {
    checkSheet(GetParam(), dumpSheet);
}

INSTANTIATE_TEST_SUITE_P(Rows, BrokenText, testing::ValuesIn(brokenRows), nameOfRow);

} // namespace

} // namespace Testing
