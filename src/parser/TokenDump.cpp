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
        dump.text = *std::unique_ptr<QString>(value.text);
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

} // namespace

std::vector<TokenDump> dumpTokens(CSSParser& parser, const QByteArray& bytes) {
    ParserDriver& driver = ParserAccess::driver(parser);
    driver.startTokens(CSS_PARSER, bytes);
    SemanticValue value{};
    TokenLocation location{};
    driver.lex(&value, &location);
    std::vector<TokenDump> tokens;
    while (const int token = driver.lex(&value, &location))
        tokens.push_back(describe(token, value, driver.currentLine()));
    driver.stopTokens();
    return tokens;
}

} // namespace Brisko
