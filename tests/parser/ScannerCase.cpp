#include "parser/ScannerCase.h"

#include "parser/TokenDump.h"

#include <cstdio>

namespace Testing {

namespace {

enum class Carries { Nothing, Integer, Float, Text };

struct TokenName {
    const char* name;
    Carries carries;
};

constexpr int firstNamedToken = 258;

const TokenName tokenNames[] = {
    {"AT_RULE", Carries::Nothing},
    {"BAD_STRING", Carries::Nothing},
    {"PERCENTAGE", Carries::Float},
    {"EMS", Carries::Float},
    {"EXS", Carries::Float},
    {"PXS", Carries::Float},
    {"INCHES", Carries::Float},
    {"REAL", Carries::Float},
    {"ANGLE", Carries::Float},
    {"INTEGER", Carries::Integer},
    {"HASH", Carries::Text},
    {"IDENT", Carries::Text},
    {"STRING", Carries::Text},
    {"URI_STR", Carries::Text},
    {"URI", Carries::Text},
    {"FUNCTION", Carries::Text},
    {"WHITESPACE", Carries::Nothing},
    {"CDO", Carries::Nothing},
    {"CDC", Carries::Nothing},
    {"INCLUDES", Carries::Nothing},
    {"DASHMATCH", Carries::Nothing},
    {"MEDIA_SYM", Carries::Nothing},
    {"IMPORT_SYM", Carries::Nothing},
    {"PAGE_SYM", Carries::Nothing},
    {"CHARSET_SYM", Carries::Nothing},
    {"IMPORTANT_SYM", Carries::Nothing},
    {"COMMA", Carries::Nothing},
    {"CALC", Carries::Nothing},
    {"CSS_PARSER", Carries::Nothing},
    {"SELECTOR_PARSER", Carries::Nothing},
    {"EXPR_PARSER", Carries::Nothing},
};

const TokenName* namedToken(int token) {
    const int index = token - firstNamedToken;
    return index >= 0 && index < int(std::size(tokenNames)) ? &tokenNames[index] : nullptr;
}

std::string nameOf(int token) {
    if (const TokenName* named = namedToken(token))
        return named->name;
    if (token > 0x20 && token < 0x7f)
        return std::string("'") + char(token) + "'";
    return "#" + std::to_string(token);
}

std::string contentOf(const Brisko::TokenDump& dump) {
    const TokenName* named = namedToken(dump.token);
    char number[64];
    switch (named ? named->carries : Carries::Nothing) {
    case Carries::Integer:
        return "(" + std::to_string(long(dump.number)) + ")";
    case Carries::Float:
        std::snprintf(number, sizeof number, "(%.7g)", dump.number);
        return number;
    case Carries::Text:
        return "(" + dump.text.toStdString() + ")";
    case Carries::Nothing:
        break;
    }
    return std::string();
}

} // namespace

std::string tokensOf(Brisko::CSSParser& parser, const QByteArray& text) {
    std::string line;
    for (const Brisko::TokenDump& dump : Brisko::dumpTokens(parser, text))
        line += (line.empty() ? "" : " ") + nameOf(dump.token) + contentOf(dump);
    return line;
}

std::string tokensOf(const QByteArray& text) {
    Brisko::CSSParser parser;
    return tokensOf(parser, text);
}

std::string tokenLinesOf(const QByteArray& text) {
    Brisko::CSSParser parser;
    std::string line;
    for (const Brisko::TokenDump& dump : Brisko::dumpTokens(parser, text))
        line += (line.empty() ? "" : " ") + nameOf(dump.token) + "@" + std::to_string(dump.line);
    return line;
}

void checkTokens(const ScannerCase& row) {
    TraceGuard trace;
    EXPECT_EQ(tokensOf(row.text), row.tokens) << row.text.constData();
    EXPECT_EQ(trace.takeErrors(), row.errors) << row.text.constData();
}

} // namespace Testing
