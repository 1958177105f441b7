#include "parser/TokenFilter.h"

#include "Gorvel/Trace.h"

#include <cmath>

namespace Brisko {

using Gorvel::Trace;

namespace {

constexpr float fullTurn = 6.2831855f;
constexpr int uriStart = 4; // behind "url("

float positiveAngle(float angle) {
    return angle - std::floor(angle / fullTurn) * fullTurn;
}

bool isBlank(char character) {
    return character == ' ' || character == '\t' || character == '\r' || character == '\n' || character == '\f';
}

} // namespace

// Reads the token behind what was skipped, as nextVisible() would. Its text begins at the result.
const char* TokenFilter::Preview::passSkipped(int previous, SemanticValue* value) {
    const char* text = nullptr;
    do {
        text = m_end;
        m_token = PlainScanner::next(m_end, value);
        if (m_token == WHITESPACE && previous == WHITESPACE) {
            m_place = m_end;
            m_token = PlainScanner::skipped;
        }
    } while (m_token == PlainScanner::skipped);
    return text;
}

int TokenFilter::skipBadStrings(SemanticValue* value) {
    for (;;) {
        const TokenText string = TokenText::make(m_scanner->text() + 1, m_scanner->place(), TokenText::Latin1);
        const int token = nextVisible(value, WHITESPACE);
        if (token == TokenEnd) {
            Trace::error("CSSParser::lex # EOF in the string");
            value->text = string;
            return STRING;
        }
        Trace::error("CSSParser::lex # Bad string '%s'", string.toUtf8().constData());
        m_exprError = true;
        if (token != BAD_STRING)
            return refine(token, value);
    }
}

int TokenFilter::refineRare(int token, SemanticValue* value) const {
    switch (token) {
    case INCHES:
        value->number = double(float(value->number) * m_dpi);
        return PXS;
    case ANGLE:
        value->number = double(positiveAngle(float(value->number)));
        return REAL;
    default:
        value->text = token == URI_STR ? quotedUri() : plainUri();
        return URI;
    }
}

// What stands between the quotes of url( "..." ).
TokenText TokenFilter::quotedUri() const {
    const char* begin = m_scanner->text() + uriStart;
    const char* end = m_scanner->place() - 1;
    while (isBlank(*begin))
        ++begin;
    while (isBlank(end[-1]))
        --end;
    return TokenText::make(begin + 1, end - 1, TokenText::Utf8);
}

// Everything behind the blanks of url( ... ), the bracket at the end included: readers of URIs count on it.
TokenText TokenFilter::plainUri() const {
    const char* begin = m_scanner->text() + uriStart;
    const char* const end = m_scanner->place();
    while (isBlank(*begin))
        ++begin;
    return TokenText::make(begin, end, TokenText::Utf8);
}

} // namespace Brisko
