#include "parser/TokenDump.h"

#include "parser/ParserAccess.h"
#include "parser/ParserDriver.h"
#include "parser/Tokens.h"

namespace Brisko {

namespace {

TokenDump describe(int token, const SemanticValue& value, int line) {
    TokenDump dump{token, 0, QString(), line};
    switch (token) {
    case HASH:
    case IDENT:
    case STRING:
    case URI:
    case FUNCTION:
        dump.text = value.text.toString();
        break;
    case INTEGER:
        dump.number = value.integer;
        break;
    case PERCENTAGE:
    case EMS:
    case EXS:
    case PXS:
    case REAL:
        dump.number = double(value.number);
        break;
    default:
        break;
    }
    return dump;
}

std::vector<TokenDump> readAll(ParserDriver& driver) {
    SemanticValue value{};
    driver.lex(&value);
    std::vector<TokenDump> tokens;
    while (const int token = driver.lex(&value))
        tokens.push_back(describe(token, value, driver.currentLine()));
    driver.stopTokens();
    return tokens;
}

} // namespace

std::vector<TokenDump> dumpTokens(CSSParser& parser, const QByteArray& bytes) {
    ParserDriver& driver = ParserAccess::driver(parser);
    driver.startTokens(CSS_PARSER, bytes);
    return readAll(driver);
}

std::vector<TokenDump> dumpTokensByRules(CSSParser& parser, const QByteArray& bytes) {
    ParserDriver& driver = ParserAccess::driver(parser);
    driver.startTokensByRules(CSS_PARSER, bytes);
    return readAll(driver);
}

} // namespace Brisko
