#include "parser/ScannerCase.h"

namespace Testing {

namespace {

class ScannerText : public testing::TestWithParam<ScannerCase> {};

TEST_P(ScannerText, Tokens) {
    checkTokens(GetParam());
}

const ScannerCase stringRows[] = {
    {"DoubleQuotes", "\"a b\"", "STRING(a b)", {}},
    {"SingleQuotes", "'a b'", "STRING(a b)", {}},
    {"Empty", "''\"\"", "STRING() STRING()", {}},
    {"OtherQuoteInside", "\"it's\" 'a\"b'", "STRING(it's) WHITESPACE STRING(a\"b)", {}},
    {"BytesAreLatin1", "'caf\xe9'", "STRING(caf\xc3\xa9)", {}},
    {"Utf8IsBytes", "'\xc3\xa9'", "STRING(\xc3\x83\xc2\xa9)", {}},
    {"CommentInside", "'/* a */'", "STRING(/* a */)", {}},
    {"TabInside", "'a\tb'", "STRING(a\tb)", {}},
    {"StringsSideBySide", "'a''b'", "STRING(a) STRING(b)", {}},
    {"HexEscapeTakesTheBlankAfter", "\"caf\\e9 \"", "STRING(caf\xc3\xa9)", {}},
    {"HexEscapesSideBySide", "\"\\41\\42\"", "STRING(AB)", {}},
    {"HexEscapeLowerAndUpperCase", "'\\4a\\4B'", "STRING(JK)", {}},
    {"HexEscapeOfSixDigitsEnds", "'\\0000412'", "STRING(A2)", {}},
    {"HexEscapeOfSixDigitsTakesTheBlankAfter", "'\\000041 2'", "STRING(A2)", {}},
    {"HexEscapeEndsAtANonDigit", "'\\41g'", "STRING(Ag)", {}},
    {"HexEscapeTakesOneBlankOnly", "'\\41  b'", "STRING(A b)", {}},
    {"HexEscapeTakesATab", "'\\41\tb'", "STRING(Ab)", {}},
    {"HexEscapeTakesANewline", "'\\41\nb'", "STRING(Ab)", {}},
    {"HexEscapeTakesCarriageReturnLineFeed", "'\\41\r\nb'", "STRING(Ab)", {}},
    {"HexEscapeTakesAFormFeed", "'\\41\fb'", "STRING(Ab)", {}},
    {"HexEscapeTakesACarriageReturn", "'\\41\rb'", "STRING(Ab)", {}},
    {"HexEscapeAtTheEnd", "'a\\41'", "STRING(aA)", {}},
    {"HexEscapeThenEscape", "'\\41\\62 c'", "STRING(Abc)", {}},
    {"HexEscapeThenPlainEscape", "'\\41\\g'", "STRING(Ag)", {}},
    {"CodeKeepsItsLow16Bits", "'\\10041'", "STRING(A)", {}},
    {"EscapedQuote", "\"a\\\"b\"", "STRING(a\"b)", {}},
    {"EscapedApostrophe", "'a\\'b'", "STRING(a'b)", {}},
    {"EscapedBackslash", "'a\\\\b'", "STRING(a\\b)", {}},
    {"EscapedLetter", "'\\gh'", "STRING(gh)", {}},
    {"EscapedNewlineIsKept", "'a\\\nb'", "STRING(a\nb)", {}},
    {"EscapedCarriageReturnLineFeedIsKept", "'a\\\r\nb'", "STRING(a\r\nb)", {}},
    {"EscapedBlank", "'\\ a'", "STRING( a)", {}},
};
INSTANTIATE_TEST_SUITE_P(Strings, ScannerText, testing::ValuesIn(stringRows), nameOfScannerRow);

TEST(ScannerEscapes, ZeroIsACharacter) {
    TraceGuard trace;
    EXPECT_EQ(tokensOf("'\\0 b'"), std::string("STRING(\0b)", 10));
}

TEST(ScannerEscapes, CodeBeyondLatin1) {
    TraceGuard trace;
    EXPECT_EQ(tokensOf("'\\20AC'"), "STRING(\xe2\x82\xac)");
}

const ScannerCase badStringRows[] = {
    {"CutByANewlineIsDropped", "'a\nb", "IDENT(b)", {"CSSParser::lex # Bad string 'a'"}},
    {"CutByACarriageReturn", "'a\rb", "IDENT(b)", {"CSSParser::lex # Bad string 'a'"}},
    {"CutByAFormFeed", "'a\fb", "IDENT(b)", {"CSSParser::lex # Bad string 'a'"}},
    {"DoubleQuoted", "\"a b\n;", "';'", {"CSSParser::lex # Bad string 'a b'"}},
    {"EmptyOne", "'\nb", "IDENT(b)", {"CSSParser::lex # Bad string ''"}},
    {"CutByTheEndIsAString", "'a b", "STRING(a b)", {"CSSParser::lex # EOF in the string"}},
    {"CutByTheEndIsNotDecoded", "'a\\41 b", "STRING(a\\41 b)", {"CSSParser::lex # EOF in the string"}},
    {"QuoteAtTheEnd", "\"", "STRING()", {"CSSParser::lex # EOF in the string"}},
    {"BlankThenTheEndIsAString", "'a\n ", "STRING(a)", {"CSSParser::lex # EOF in the string"}},
    {"CutByTheEndAfterABackslash", "'a\\", "STRING(a\\)", {"CSSParser::lex # EOF in the string"}},
    {"BlankAfterIsSwallowed", "a 'b\n c", "IDENT(a) WHITESPACE IDENT(c)", {"CSSParser::lex # Bad string 'b'"}},
    {"BlankAfterIsSwallowedWithoutABlankBefore", "a'b\n c", "IDENT(a) IDENT(c)", {"CSSParser::lex # Bad string 'b'"}},
    {"NextTokenIsRewritten", "'a\n 1in", "PXS(40.053)", {"CSSParser::lex # Bad string 'a'"}},
    {"NextTokenIsDecoded", "'a\n '\\41'", "STRING(A)", {"CSSParser::lex # Bad string 'a'"}},
    {"SecondOneCutByTheEndIsAString",
     "'a\n'b",
     "STRING(b)",
     {"CSSParser::lex # Bad string 'a'", "CSSParser::lex # EOF in the string"}},
    {"TwoAreBothReported",
     "'a\n'b\nc",
     "IDENT(c)",
     {"CSSParser::lex # Bad string 'a'", "CSSParser::lex # Bad string 'b'"}},
    {"ThreeAreAllReported",
     "'a\n\"b\n'c\nd",
     "IDENT(d)",
     {"CSSParser::lex # Bad string 'a'", "CSSParser::lex # Bad string 'b'", "CSSParser::lex # Bad string 'c'"}},
    {"EscapedNewlineDoesNotCut", "'a\\\nb\nc", "IDENT(c)", {"CSSParser::lex # Bad string 'a\\\nb'"}},
};
INSTANTIATE_TEST_SUITE_P(BadStrings, ScannerText, testing::ValuesIn(badStringRows), nameOfScannerRow);

const ScannerCase uriRows[] = {
    {"QuotedUri", "url('a.png')", "URI(a.png)", {}},
    {"QuotedUriWithBlanks", "url( \"a b.png\" )", "URI(a b.png)", {}},
    {"QuotedUriWithNewlines", "url(\n'a'\n)", "URI(a)", {}},
    {"QuotedUriUpperCase", "URL('a')", "URI(a)", {}},
    {"QuotedUriIsUtf8", "url('\xc3\xa9')", "URI(\xc3\xa9)", {}},
    {"QuotedUriKeepsEscapes", "url('a\\41 b')", "URI(a\\41 b)", {}},
    {"QuotedUriWithBracket", "url('a)b')", "URI(a)b)", {}},
    {"QuotedUriEmpty", "url('')", "URI()", {}},
    {"PlainUriKeepsItsBracket", "url(x.png)", "URI(x.png))", {}},
    {"PlainUriKeepsTheBlanksBeforeItsBracket", "url( x.png )", "URI(x.png ))", {}},
    {"PlainUriKeepsAllBlanksBeforeItsBracket", "url(x \t\n)", "URI(x \t\n))", {}},
    {"PlainUriUpperCase", "UrL(x)", "URI(x))", {}},
    {"PlainUriEmpty", "url()", "URI())", {}},
    {"PlainUriOfBlanks", "url( )", "URI())", {}},
    {"UriKeepsAByteOrderMark", "url('\xef\xbb\xbf')", "URI(\xef\xbb\xbf)", {}},
    {"PlainUriIsUtf8", "url(\xc3\xa9)", "URI(\xc3\xa9))", {}},
    {"PlainUriWithSymbols", "url(http://a.b/c?d=e&f#g)", "URI(http://a.b/c?d=e&f#g))", {}},
    {"PlainUriWithEscapedBlank", "url(a\\ b)", "URI(a\\ b))", {}},
    {"PlainUriWithEscapedBracket", "url(a\\)b)", "URI(a\\)b))", {}},
    {"PlainUriIsFollowedByOthers", "url(a)url(b)", "URI(a)) URI(b))", {}},
    {"UrlWithBlankIsAnIdentifier", "url (a)", "IDENT(url) WHITESPACE '(' IDENT(a) ')'", {}},
    {"UrlLongerIsAFunction", "urls(a)", "FUNCTION(urls) IDENT(a) ')'", {}},
    {"BadUriAtTheEnd", "url(", "", {"CSS parser: bad URI"}},
    {"BadUriCutByTheEnd", "url(x.png", "", {"CSS parser: bad URI"}},
    {"BadUriUpperCase", "URL(x", "", {"CSS parser: bad URI"}},
    {"BadUriWithBlankInside", "url(a b)", "IDENT(b) ')'", {"CSS parser: bad URI"}},
    {"BadUriWithQuoteInside", "url(a'b')", "STRING(b) ')'", {"CSS parser: bad URI"}},
    {"BadUriAfterItsString", "url('a' b)", "IDENT(b) ')'", {"CSS parser: bad URI"}},
    {"BadUriStringCutByANewline", "url('a\nb)", "WHITESPACE IDENT(b) ')'", {"CSS parser: bad URI"}},
    {"BadUriStringCutByTheEnd", "url(\"a", "", {"CSS parser: bad URI"}},
    {"BadUriTakesTheBlanksAfter", "url(a  ;", "';'", {"CSS parser: bad URI"}},
    {"BadUriBracketInside", "url(a(b)", "'(' IDENT(b) ')'", {"CSS parser: bad URI"}},
    {"BadUriFoldsBlanks", "a url('b\n c", "IDENT(a) WHITESPACE IDENT(c)", {"CSS parser: bad URI"}},
};
INSTANTIATE_TEST_SUITE_P(Uris, ScannerText, testing::ValuesIn(uriRows), nameOfScannerRow);

const ScannerCase byteRows[] = {
    {"ByteOrderMarkIsSkipped",
     "\xef\xbb\xbf"
     "a",
     "IDENT(a)",
     {}},
    {"ByteOrderMarkAlone", "\xef\xbb\xbf", "", {}},
    {"SecondByteOrderMarkIsText", "\xef\xbb\xbf\xef\xbb\xbf", "IDENT(\xc3\xaf\xc2\xbb\xc2\xbf)", {}},
    {"ByteOrderMarkLaterIsText", "a\xef\xbb\xbf", "IDENT(a\xc3\xaf\xc2\xbb\xc2\xbf)", {}},
    {"CutByteOrderMarkIsText", "\xef\xbb", "IDENT(\xc3\xaf\xc2\xbb)", {}},
    {"InvalidUtf8IsAnIdentifier", "\xff\xfe", "IDENT(\xc3\xbf\xc3\xbe)", {}},
    {"NulInAComment", QByteArray("/*\0*/a", 6), "IDENT(a)", {}},
};
INSTANTIATE_TEST_SUITE_P(Bytes, ScannerText, testing::ValuesIn(byteRows), nameOfScannerRow);

struct LineCase {
    const char* name;
    QByteArray text;
    std::string tokens;
};

void PrintTo(const LineCase& row, std::ostream* out) {
    *out << row.name;
}

class ScannerLines : public testing::TestWithParam<LineCase> {};

TEST_P(ScannerLines, LineBeforeTheToken) {
    TraceGuard trace;
    EXPECT_EQ(tokenLinesOf(GetParam().text), GetParam().tokens);
    trace.takeErrors();
}

const LineCase lineRows[] = {
    {"FirstLineIsZero", "a", "IDENT@0"},
    {"NewlineCountsForTheNextToken", "a\nb", "IDENT@0 WHITESPACE@0 IDENT@1"},
    {"SeveralNewlines", "a\n\n\nb", "IDENT@0 WHITESPACE@0 IDENT@3"},
    {"CarriageReturnLineFeedIsOne", "a\r\nb", "IDENT@0 WHITESPACE@0 IDENT@1"},
    {"CarriageReturnIsNone", "a\rb", "IDENT@0 WHITESPACE@0 IDENT@0"},
    {"FormFeedIsNone", "a\fb", "IDENT@0 WHITESPACE@0 IDENT@0"},
    {"CommentLinesCount", "/*\n\n*/a b", "IDENT@0 WHITESPACE@2 IDENT@2"},
    {"FoldedBlankStoresTheLine", "a /*\n*/\nb", "IDENT@0 WHITESPACE@0 IDENT@2"},
    {"StringLinesCount", "'a\\\nb' c", "STRING@0 WHITESPACE@1 IDENT@1"},
    {"BadStringLinesCount", "'a\\\nb\nc", "IDENT@2"},
    {"IdentifierEscapeLinesCount", "\\41\nb c", "IDENT@0 WHITESPACE@1 IDENT@1"},
    {"HashEscapeLinesCount", "#\\41\nb c", "HASH@0 WHITESPACE@1 IDENT@1"},
    {"UriLinesCount", "url(\n'a'\n)b", "URI@0 IDENT@2"},
    {"PlainUriLinesCount", "url(\na\n)b", "URI@0 IDENT@2"},
    {"BadUriLinesCount", "url(a\n\n;b", "';'@0 IDENT@2"},
    {"CommaLinesCount", "a\n,b", "IDENT@0 COMMA@0 IDENT@1"},
    {"ImportantLinesCount", "!\nimportant a", "IMPORTANT_SYM@0 WHITESPACE@1 IDENT@1"},
    {"UnknownUnitLinesCount", "1\\41\nx a b", "WHITESPACE@0 IDENT@1 WHITESPACE@1 IDENT@1"},
    {"FunctionEscapeLinesCount", "\\41\nb( c", "FUNCTION@0 WHITESPACE@1 IDENT@1"},
    {"AtRuleEscapeLinesCount", "@\\41\nb c", "AT_RULE@0 WHITESPACE@1 IDENT@1"},
};

INSTANTIATE_TEST_SUITE_P(Rows, ScannerLines, testing::ValuesIn(lineRows),
                         [](const testing::TestParamInfo<LineCase>& row) { return std::string(row.param.name); });

} // namespace

} // namespace Testing
