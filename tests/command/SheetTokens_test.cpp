#include "brisko/SheetTokens.h"

#include <gtest/gtest.h>

#include <vector>

namespace {

using Command::SheetToken;
using Command::SheetTokens;

/// Kind and text of each token, with the unit behind a number and the line where it changes: "name a|blank  |..."
std::string dump(const std::string& text) {
    static constexpr const char* kinds[] = {"end",  "blank", "name", "custom", "function", "at",
                                            "hash", "text",  "url",  "number", "char"};
    SheetTokens tokens(text);
    std::string result;
    int line = 1;
    for (SheetToken token = tokens.next(); token.kind != SheetToken::End; token = tokens.next()) {
        if (token.kind == SheetToken::Blank)
            continue;
        result += result.empty() ? "" : "|";
        result += token.line == line ? "" : std::to_string(token.line) + " ";
        line = token.line;
        result += std::string(kinds[token.kind]) + " " + token.text.toStdString();
        if (!token.unit.isEmpty())
            result += " in " + token.unit.toStdString();
    }
    return result;
}

struct TokenCase {
    const char* name;
    const char* text;
    const char* tokens;
};

class SheetTokensOf : public testing::TestWithParam<TokenCase> {};

TEST_P(SheetTokensOf, AreAsWritten) {
    EXPECT_EQ(dump(GetParam().text), GetParam().tokens);
}

INSTANTIATE_TEST_SUITE_P(
    Cases, SheetTokensOf,
    testing::Values(TokenCase{"Rule", "a{x:1}", "name a|char {|name x|char :|number 1|char }"},
                    TokenCase{"UnknownUnits", "10REM -1.5vw 1e3 50% .5",
                              "number 10REM in rem|number -1.5vw in vw|number 1e3 in e3|"
                              "number 50% in %|number .5"},
                    TokenCase{"PointWithoutDigits", "1.", "number 1|char ."},
                    TokenCase{"CustomNames", "--a: var(--b)", "custom --a|char :|function var|custom --b|char )"},
                    TokenCase{"EndOfMarkupComment", "-->", "char -|char -|char >"},
                    TokenCase{"HyphenAtTheStart", "-x - y", "name -x|char -|name y"},
                    TokenCase{"Escapes", ".w-1\\/2", "char .|name w-1\\/2"},
                    TokenCase{"Marks", "@media #a1 # @ 1", "at media|hash #a1|char #|char @|number 1"},
                    TokenCase{"Texts", "\"a;b\" 'c\\'d'", "text \"a;b\"|text 'c\\'d'"},
                    TokenCase{"OpenTextEndsWithItsLine", "'a\nb", "text 'a|2 name b"},
                    TokenCase{"TextEndsInBackslash", "'a\\", "text 'a\\"},
                    TokenCase{"Urls", "url(a;b.png) URL( 'c)d' )", "url url(a;b.png)|url URL( 'c)d' )"},
                    TokenCase{"CommentsAreLeftOut", "a/* 1rem\n */b/* open", "name a|2 name b"},
                    TokenCase{"LinesAreCounted", "a\n\nb\r\nc", "name a|3 name b|4 name c"},
                    TokenCase{"ByteOrderMark",
                              "\xef\xbb\xbf"
                              "a",
                              "name a"},
                    TokenCase{"Nothing", "", ""}),
    [](const auto& tested) { return tested.param.name; });

TEST(SheetTokens, ZeroBytesAreCharacters) {
    EXPECT_EQ(dump(std::string("a\0b", 3)), std::string("name a|char \0|name b", 20));
}

} // namespace
