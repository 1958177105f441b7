#include "parser/TokenFilter.h"

#include "Gorvel/Trace.h"
#include "parser/SemanticValue.h"
#include "parser/StringEscapes.h"
#include "parser/Tokens.h"

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

int TokenFilter::lex(SemanticValue* value) {
    const int token = nextVisible(value, m_previous);
    m_previous = token == BAD_STRING ? skipBadStrings(value) : refine(token, value);
    return m_previous;
}

int TokenFilter::nextRaw(SemanticValue* value) {
    m_currentLine = m_scanner->line();
    return m_scanner->next(value);
}

// Skipped text leaves the blanks on both of its sides; a run of them counts as one.
int TokenFilter::nextVisible(SemanticValue* value, int previous) {
    int token = nextRaw(value);
    while (token == WHITESPACE && previous == WHITESPACE)
        token = nextRaw(value);
    return token;
}

int TokenFilter::skipBadStrings(SemanticValue* value) {
    for (;;) {
        const QString text = latin1(1, 0);
        const int token = nextVisible(value, WHITESPACE);
        if (token == TokenEnd) {
            Trace::error("CSSParser::lex # EOF in the string");
            value->text = new QString(text);
            return STRING;
        }
        Trace::error("CSSParser::lex # Bad string '%s'", text.toUtf8().constData());
        m_exprError = true;
        if (token != BAD_STRING)
            return refine(token, value);
    }
}

int TokenFilter::refine(int token, SemanticValue* value) const {
    switch (token) {
    case INCHES:
        value->number *= m_dpi;
        return PXS;
    case ANGLE:
        value->number = positiveAngle(value->number);
        return REAL;
    case HASH:
        value->text = new QString(latin1(1, 0));
        return HASH;
    case IDENT:
        value->text = new QString(latin1(0, 0));
        return IDENT;
    case STRING:
        value->text = new QString(latin1(1, 1));
        decodeEscapes(*value->text);
        return STRING;
    case URI_STR:
        value->text = new QString(quotedUri());
        return URI;
    case URI:
        value->text = new QString(plainUri());
        return URI;
    case FUNCTION:
        value->text = new QString(QString::fromUtf8(m_scanner->text(), m_scanner->length() - 1));
        return FUNCTION;
    default:
        return token;
    }
}

QString TokenFilter::latin1(int skipFirst, int skipLast) const {
    return QString::fromLatin1(m_scanner->text() + skipFirst, m_scanner->length() - skipFirst - skipLast);
}

// What stands between the quotes of url( "..." ).
QString TokenFilter::quotedUri() const {
    const char* begin = m_scanner->text() + uriStart;
    const char* end = m_scanner->text() + m_scanner->length() - 1;
    while (isBlank(*begin))
        ++begin;
    while (isBlank(end[-1]))
        --end;
    return QString::fromUtf8(begin + 1, int(end - begin) - 2);
}

// Everything behind the blanks of url( ... ), the bracket at the end included: readers of URIs count on it.
QString TokenFilter::plainUri() const {
    const char* begin = m_scanner->text() + uriStart;
    const char* const end = m_scanner->text() + m_scanner->length();
    while (isBlank(*begin))
        ++begin;
    return QString::fromUtf8(begin, int(end - begin));
}

} // namespace Brisko
