#include "RandomSheet.h"

#include "parser/PlainScanner.h"
#include "parser/ScannerCase.h"
#include "parser/TokenDump.h"

#include <gtest/gtest.h>

#include <random>

namespace Testing {

using namespace Brisko;

namespace {

constexpr unsigned seed = 20261121;
constexpr int textCount = 3000;

using Dump = std::vector<TokenDump> (*)(CSSParser& parser, const QByteArray& bytes);

// Everything that can be seen of the tokens of a text, and the errors among them.
std::string describe(const std::string& text, Dump dump) {
    TraceGuard trace;
    CSSParser parser;
    std::string description;
    for (const TokenDump& token : dump(parser, QByteArray::fromStdString(text))) {
        char number[40];
        std::snprintf(number, sizeof number, " %a ", token.number);
        description +=
            std::to_string(token.token) + number + token.text.toStdString() + " @" + std::to_string(token.line) + '\n';
    }
    for (const std::string& message : trace.takeErrors())
        description += message + '\n';
    return description;
}

void checkText(const std::string& text) {
    ASSERT_EQ(describe(text, dumpTokens), describe(text, dumpTokensByRules)) << text;
}

// Bytes of those that mean something to the scanner, now and then any.
std::string randomBytes(std::mt19937& engine) {
    static const std::string common = " \t\n\r\f,.:;{}()[]<>=*+-/#\"'!\\@%0123456789aezpxEM_urlcalcimportant\xc3\xa9";
    std::string text(engine() % 40, ' ');
    for (char& byte : text)
        byte = engine() % 50 == 0 ? char(engine() % 256) : common[engine() % common.size()];
    return text;
}

} // namespace

TEST(PlainScanner, AgreesWithTheRulesOnSheets) {
    RandomSheet random(seed);
    for (int i = 0; i < textCount; ++i) {
        checkText(random.join(random.wellFormed()));
        checkText(random.join(random.damaged()));
        checkText(random.join(random.arbitrary()));
    }
}

TEST(PlainScanner, AgreesWithTheRulesOnBytes) {
    std::mt19937 engine(seed);
    for (int i = 0; i < 10 * textCount; ++i)
        checkText(randomBytes(engine));
}

TEST(PlainScanner, LeavesToTheRulesWhatIsNotPlain) {
    for (const char* text : {"a\\62",   "caf\xc3\xa9", "url(x)", "URL( 'a' )",  "calc(1)",   "-->",      "--x",
                             "1--a",    "1rem\\31",    "1pt",    "1GRAD",       "5px\\31",   "'a\\\nb'", "\"open",
                             "/* c */", "#",           "#\\31",  "! important", "!importan", "~="})
        checkText(text);
}

TEST(PlainScanner, ReadsWhatIsPlain) {
    SemanticValue value;
    for (const char* text : {" \n",  "a-b_1", "-x",    "fn(",     "12", "-1.5", "+.5px",      "7%", "2EM", "1.5S",
                             "20ms", "3ex",   "'a b'", "#c0ffee", ",",  "  ,",  "!IMPORTANT", "{",  ".",   "/"}) {
        const char* at = text;
        EXPECT_GT(PlainScanner::next(at, &value), 0) << text;
        EXPECT_EQ(*at, '\0') << text;
    }
}

TEST(PlainScanner, SkipsNumbersOfUnknownUnits) {
    SemanticValue value;
    for (const char* text : {"1rem", "-.5Vh", "1e3", "+2-rem", "5hz", "3KHZ", "1frxpxgrad"}) {
        const char* at = text;
        EXPECT_EQ(PlainScanner::next(at, &value), PlainScanner::skipped) << text;
        EXPECT_STREQ(at, "") << text;
    }
}

} // namespace Testing
