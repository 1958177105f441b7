#include "parser/ScannerCase.h"

namespace Testing {

namespace {

class ScannerRule : public testing::TestWithParam<ScannerCase> {};

TEST_P(ScannerRule, Tokens) {
    checkTokens(GetParam());
}

const ScannerCase blankRows[] = {
    {"Nothing", "", "", {}},
    {"Blank", " ", "WHITESPACE", {}},
    {"AllKindsOfBlanksAreOneToken", " \t\r\n\f ", "WHITESPACE", {}},
    {"VerticalTabIsNoBlank", "\v", "#11", {}},
    {"CommentIsSkipped", "/* a */", "", {}},
    {"ShortestComment", "/**/", "", {}},
    {"CommentOfStars", "/****/", "", {}},
    {"CommentWithSlashes", "/* / // */", "", {}},
    {"CommentEndsAtTheFirstEnd", "/* a */ b */", "WHITESPACE IDENT(b) WHITESPACE '*' '/'", {}},
    {"CommentDoesNotNest", "/*/**/a", "IDENT(a)", {}},
    {"CommentSplitsIdentifiers", "a/**/b", "IDENT(a) IDENT(b)", {}},
    {"BlanksAroundACommentFold", "a /* b */ c", "IDENT(a) WHITESPACE IDENT(c)", {}},
    {"BlanksAroundManyCommentsFold", "a /**/ /**/\n/**/ c", "IDENT(a) WHITESPACE IDENT(c)", {}},
    {"BlankOnOneSideOfAComment", "a/**/ c", "IDENT(a) WHITESPACE IDENT(c)", {}},
    {"SlashAlone", "/", "'/'", {}},
    {"StarAlone", "*", "'*'", {}},
    {"UnclosedComment", "a /* b", "IDENT(a) WHITESPACE", {"CSS parser: unclosed comment at EOF"}},
    {"UnclosedCommentTakesTheRest", "/* a { b: 1 }\n c", "", {"CSS parser: unclosed comment at EOF"}},
    {"UnclosedCommentAtItsStart", "/*", "", {"CSS parser: unclosed comment at EOF"}},
    {"UnclosedCommentOfOneStarMore", "/**", "", {"CSS parser: unclosed comment at EOF"}},
    {"CommentOpenedAndLeftBeforeItsSlash", "/*/", "", {"CSS parser: unclosed comment at EOF"}},
};
INSTANTIATE_TEST_SUITE_P(Blanks, ScannerRule, testing::ValuesIn(blankRows), nameOfScannerRow);

const ScannerCase symbolRows[] = {
    {"Cdo", "<!--", "CDO", {}},
    {"CdoCutShort", "<!-", "'<' '!' '-'", {}},
    {"CdoBeforeAWord", "<!--a", "CDO IDENT(a)", {}},
    {"Cdc", "-->", "CDC", {}},
    {"CdcCutShort", "--", "'-' '-'", {}},
    {"CdcBelongsToTheIdentifierBefore", "a-->", "IDENT(a--) '>'", {}},
    {"CdcAfterADash", "--->", "'-' CDC", {}},
    {"Includes", "~=", "INCLUDES", {}},
    {"TildeAlone", "~ =", "'~' WHITESPACE '='", {}},
    {"DashMatch", "|=", "DASHMATCH", {}},
    {"BarAlone", "|", "'|'", {}},
    {"BarTwice", "||=", "'|' DASHMATCH", {}},
    {"EqualsAlone", "=", "'='", {}},
    {"CharactersOfTheGrammar",
     ";@{}:+>*.[]=)(/-",
     "';' '@' '{' '}' ':' '+' '>' '*' '.' '[' ']' '=' ')' '(' '/' '-'",
     {}},
    {"OtherCharactersAreTheirCodes", "$%&<?^`|~!", "'$' '%' '&' '<' '?' '^' '`' '|' '~' '!'", {}},
    {"ControlCharacters", "\x01\x7f", "#1 #127", {}},
    {"BackslashBeforeANewline", "\\\n", "'\\' WHITESPACE", {}},
    {"BackslashAtTheEnd", "\\", "'\\'", {}},
    {"Comma", ",", "COMMA", {}},
    {"CommaTakesBlanksBefore", "a , b", "IDENT(a) COMMA WHITESPACE IDENT(b)", {}},
    {"CommaTakesAllKindsOfBlanksBefore", "a \t\r\n\f,b", "IDENT(a) COMMA IDENT(b)", {}},
    {"CommaAfterAComment", "a /**/ , b", "IDENT(a) WHITESPACE COMMA WHITESPACE IDENT(b)", {}},
    {"CommasInARow", ",,", "COMMA COMMA", {}},
};
INSTANTIATE_TEST_SUITE_P(Symbols, ScannerRule, testing::ValuesIn(symbolRows), nameOfScannerRow);

const ScannerCase wordRows[] = {
    {"Identifier", "abc", "IDENT(abc)", {}},
    {"IdentifierKeepsItsCase", "aBc", "IDENT(aBc)", {}},
    {"IdentifierUpperCase", "ABC", "IDENT(ABC)", {}},
    {"IdentifierWithDigitsAndDashes", "a-1_b", "IDENT(a-1_b)", {}},
    {"IdentifierStartsWithUnderscore", "_a", "IDENT(_a)", {}},
    {"IdentifierStartsWithADash", "-a", "IDENT(-a)", {}},
    {"IdentifierHasOneDashInFront", "--a", "'-' IDENT(-a)", {}},
    {"IdentifierNotFromADigit", "-1a", "", {}},
    {"IdentifierNonAsciiIsLatin1", "\x80\xa0\xff", "IDENT(\xc2\x80\xc2\xa0\xc3\xbf)", {}},
    {"IdentifierUtf8IsBytes", "caf\xc3\xa9", "IDENT(caf\xc3\x83\xc2\xa9)", {}},
    {"IdentifierEscapeIsKept", "a\\20 b", "IDENT(a\\20 b)", {}},
    {"IdentifierEscapeOfACharacter", "\\{a", "IDENT(\\{a)", {}},
    {"IdentifierEscapeOfSixDigits", "\\0000411", "IDENT(\\0000411)", {}},
    {"IdentifierEscapeTakesCarriageReturnLineFeed", "\\41\r\nb", "IDENT(\\41\r\nb)", {}},
    {"IdentifierEscapeTakesOneBlankOnly", "\\41  b", "IDENT(\\41 ) WHITESPACE IDENT(b)", {}},
    {"Hash", "#abc", "HASH(abc)", {}},
    {"HashOfDigits", "#123", "HASH(123)", {}},
    {"HashOfDashes", "#-", "HASH(-)", {}},
    {"HashKeepsItsCase", "#aBc", "HASH(aBc)", {}},
    {"HashNonAsciiIsLatin1", "#\xe9", "HASH(\xc3\xa9)", {}},
    {"HashKeepsEscapes", "#\\31 x", "HASH(\\31 x)", {}},
    {"HashAlone", "#", "'#'", {}},
    {"HashBeforeABlank", "# a", "'#' WHITESPACE IDENT(a)", {}},
    {"Function", "rgb(", "FUNCTION(rgb)", {}},
    {"FunctionKeepsItsCase", "RgB(", "FUNCTION(RgB)", {}},
    {"FunctionIsUtf8", "caf\xc3\xa9(", "FUNCTION(caf\xc3\xa9)", {}},
    {"FunctionWithBlankIsNone", "rgb (", "IDENT(rgb) WHITESPACE '('", {}},
    {"FunctionOfTwoBrackets", "a((", "FUNCTION(a) '('", {}},
    {"Calc", "calc(", "CALC", {}},
    {"CalcUpperCase", "CALC(", "CALC", {}},
    {"CalcMixedCase", "cAlC(1", "CALC INTEGER(1)", {}},
    {"CalcWithBlankIsAnIdentifier", "calc (", "IDENT(calc) WHITESPACE '('", {}},
    {"CalcLongerIsAFunction", "calcs(", "FUNCTION(calcs)", {}},
    {"CalcWithDashIsAFunction", "-calc(", "FUNCTION(-calc)", {}},
    {"Import", "@import", "IMPORT_SYM", {}},
    {"ImportUpperCase", "@IMPORT", "IMPORT_SYM", {}},
    {"ImportLongerIsAnAtRule", "@imports", "AT_RULE", {}},
    {"Page", "@page", "PAGE_SYM", {}},
    {"PageUpperCase", "@Page", "PAGE_SYM", {}},
    {"PageLongerIsAnAtRule", "@page-x", "AT_RULE", {}},
    {"Media", "@media", "MEDIA_SYM", {}},
    {"MediaUpperCase", "@MEDIA", "MEDIA_SYM", {}},
    {"MediaLongerIsAnAtRule", "@media1", "AT_RULE", {}},
    {"Charset", "@charset ", "CHARSET_SYM", {}},
    {"CharsetUpperCase", "@CHARSET ", "CHARSET_SYM", {}},
    {"CharsetWithoutBlankIsAnAtRule", "@charset", "AT_RULE", {}},
    {"CharsetBeforeATabIsAnAtRule", "@charset\t", "AT_RULE WHITESPACE", {}},
    {"CharsetTakesOneBlank", "@charset  'a'", "CHARSET_SYM WHITESPACE STRING(a)", {}},
    {"AtRule", "@foo", "AT_RULE", {}},
    {"AtRuleWithDash", "@-moz-document", "AT_RULE", {}},
    {"AtBeforeADigit", "@1", "'@' INTEGER(1)", {}},
    {"AtBeforeAComment", "@/**/a", "'@' IDENT(a)", {}},
    {"Important", "!important", "IMPORTANT_SYM", {}},
    {"ImportantUpperCase", "!IMPORTANT", "IMPORTANT_SYM", {}},
    {"ImportantWithBlanks", "! \n important", "IMPORTANT_SYM", {}},
    {"ImportantWithComments", "! /* c */ IMPORTANT", "IMPORTANT_SYM", {}},
    {"ImportantWithManyComments", "!/**//**/ /**/important", "IMPORTANT_SYM", {}},
    {"ImportantLongerLeavesTheRest", "!importants", "IMPORTANT_SYM IDENT(s)", {}},
    {"ImportantCutShort", "!importan", "'!' IDENT(importan)", {}},
    {"ImportantWithOpenComment", "!/* important", "'!'", {"CSS parser: unclosed comment at EOF"}},
};
INSTANTIATE_TEST_SUITE_P(Words, ScannerRule, testing::ValuesIn(wordRows), nameOfScannerRow);

const ScannerCase numberRows[] = {
    {"Integer", "12", "INTEGER(12)", {}},
    {"IntegerNegative", "-5", "INTEGER(-5)", {}},
    {"IntegerWithPlus", "+7", "INTEGER(7)", {}},
    {"IntegerLeadingZeros", "007", "INTEGER(7)", {}},
    {"IntegerLargest", "2147483647", "INTEGER(2147483647)", {}},
    {"IntegerSaturates", "2147483648", "INTEGER(2147483647)", {}},
    {"IntegerSaturatesBelow", "-99999999999999999999", "INTEGER(-2147483648)", {}},
    {"IntegerSmallest", "-2147483648", "INTEGER(-2147483648)", {}},
    {"IntegerThenDot", "1.", "INTEGER(1) '.'", {}},
    {"IntegerThenSign", "1-2", "INTEGER(1) INTEGER(-2)", {}},
    {"SignTwice", "--1", "'-' INTEGER(-1)", {}},
    {"SignAlone", "+", "'+'", {}},
    {"SignBeforeABlank", "- 1", "'-' WHITESPACE INTEGER(1)", {}},
    {"Real", "12.5", "REAL(12.5)", {}},
    {"RealWithoutIntegerPart", ".5", "REAL(0.5)", {}},
    {"RealWithSign", "+.5", "REAL(0.5)", {}},
    {"RealNegative", "-1.25", "REAL(-1.25)", {}},
    {"RealTwoDots", "1.2.3", "REAL(1.2) REAL(0.3)", {}},
    {"RealIsNarrowed", "0.1", "REAL(0.1)", {}},
    {"Em", "1em", "EMS(1)", {}},
    {"EmUpperCase", "1.5EM", "EMS(1.5)", {}},
    {"EmLongerIsUnknown", "1ems", "", {}},
    {"Ex", "2ex", "EXS(2)", {}},
    {"ExUpperCase", "-2Ex", "EXS(-2)", {}},
    {"Px", "10px", "PXS(10)", {}},
    {"PxUpperCase", "10PX", "PXS(10)", {}},
    {"PxWithSign", "+10.5px", "PXS(10.5)", {}},
    {"PxWithBlankIsTwo", "10 px", "INTEGER(10) WHITESPACE IDENT(px)", {}},
    {"PxLongerIsUnknown", "10pxx", "", {}},
    {"PxThenSymbol", "10px/2", "PXS(10) '/' INTEGER(2)", {}},
    {"Inch", "1in", "PXS(40.053)", {}},
    {"InchUpperCase", "2IN", "PXS(80.106)", {}},
    {"Centimetre", "2.54cm", "PXS(40.053)", {}},
    {"CentimetreUpperCase", "2.54CM", "PXS(40.053)", {}},
    {"Millimetre", "25.4mm", "PXS(40.053)", {}},
    {"MillimetreUpperCase", "25.4Mm", "PXS(40.053)", {}},
    {"Point", "72pt", "PXS(40.053)", {}},
    {"PointUpperCase", "72PT", "PXS(40.053)", {}},
    {"Pica", "6pc", "PXS(40.053)", {}},
    {"PicaUpperCase", "6Pc", "PXS(40.053)", {}},
    {"Degrees", "90deg", "REAL(1.570796)", {}},
    {"DegreesUpperCase", "90DEG", "REAL(1.570796)", {}},
    {"DegreesNegativeBecomePositive", "-90deg", "REAL(4.712389)", {}},
    {"DegreesOfAFullTurn", "360deg", "REAL(0)", {}},
    {"DegreesBeyondATurn", "450deg", "REAL(1.570796)", {}},
    {"Radians", "1.5rad", "REAL(1.5)", {}},
    {"RadiansUpperCase", "1.5RAD", "REAL(1.5)", {}},
    {"RadiansNegativeBecomePositive", "-1rad", "REAL(5.283185)", {}},
    {"Gradians", "100grad", "REAL(1.570796)", {}},
    {"GradiansUpperCase", "100Grad", "REAL(1.570796)", {}},
    {"Milliseconds", "250ms", "REAL(0.25)", {}},
    {"MillisecondsUpperCase", "250MS", "REAL(0.25)", {}},
    {"Seconds", "2s", "REAL(2)", {}},
    {"SecondsUpperCase", "1.5S", "REAL(1.5)", {}},
    {"HertzVanishes", "10Hz", "", {}},
    {"HertzLowerCaseVanishes", "10hz", "", {}},
    {"KilohertzVanishes", "3kHz", "", {}},
    {"KilohertzUpperCaseVanishes", "3KHZ", "", {}},
    {"UnknownUnitVanishes", "5vw", "", {}},
    {"UnknownUnitWithDashVanishes", "5-x", "", {}},
    {"ExponentVanishes", "1e3", "", {}},
    {"ExponentWithSignLeavesItsNumber", "1e+3", "INTEGER(3)", {}},
    {"ExponentWithDashVanishesWhole", "1.5e-3", "", {}},
    {"EscapedUnitVanishes", "1\\70x", "", {}},
    {"BlanksAroundAVanishedNumberFold", "a 5vw b", "IDENT(a) WHITESPACE IDENT(b)", {}},
    {"BlanksAroundVanishedNumbersFold", "a 5vw 10Hz 3kHz 1e3 b", "IDENT(a) WHITESPACE IDENT(b)", {}},
    {"Percentage", "50%", "PERCENTAGE(0.5)", {}},
    {"PercentageNegative", "-12.5%", "PERCENTAGE(-0.125)", {}},
    {"PercentageWithBlankIsTwo", "50 %", "INTEGER(50) WHITESPACE '%'", {}},
    {"DimensionThenBracketKeepsTheBracket", "1x(", "'('", {}},
};
INSTANTIATE_TEST_SUITE_P(Numbers, ScannerRule, testing::ValuesIn(numberRows), nameOfScannerRow);

TEST(ScannerResolution, OwnResolutionScalesPhysicalLengths) {
    TraceGuard trace;
    Brisko::CSSParser parser;
    parser.setDpi(96.f);
    EXPECT_EQ(tokensOf(parser, "1in 2.54cm 25.4mm 72pt 6pc"),
              "PXS(96) WHITESPACE PXS(96) WHITESPACE PXS(96) WHITESPACE PXS(96) WHITESPACE PXS(96)");
}

TEST(ScannerResolution, PixelsAndFontUnitsStayAsTheyAre) {
    TraceGuard trace;
    Brisko::CSSParser parser;
    parser.setDpi(96.f);
    EXPECT_EQ(tokensOf(parser, "1px 1em 1ex"), "PXS(1) WHITESPACE EMS(1) WHITESPACE EXS(1)");
}

TEST(ScannerResolution, NegativeResolutionMeansTheDefault) {
    TraceGuard trace;
    Brisko::CSSParser parser;
    parser.setDpi(-96.f);
    EXPECT_EQ(tokensOf(parser, "1in"), "PXS(40.053)");
}

TEST(ScannerResolution, ChangedDefaultIsUsedByParsersWithoutTheirOwn) {
    TraceGuard trace;
    const float before = Brisko::CSSParser::defaultDpi();
    Brisko::CSSParser::setDefaultDpi(72.f);
    Brisko::CSSParser parser;
    EXPECT_EQ(tokensOf(parser, "1in 1pt"), "PXS(72) WHITESPACE PXS(1)");
    Brisko::CSSParser::setDefaultDpi(before);
    EXPECT_EQ(tokensOf(parser, "1in"), "PXS(40.053)");
}

} // namespace

} // namespace Testing
