#include "parser/StringEscapes.h"

#include "parser/HexDigit.h"

namespace Brisko {

namespace {

constexpr int maximumDigits = 6;

// Length of the one white space that may end a numeric escape; CR LF is one.
int whiteSpaceLength(const QChar* at, const QChar* end) {
    if (at == end)
        return 0;
    if (at[0] == '\r' && end - at > 1 && at[1] == '\n')
        return 2;
    return at[0] == '\r' || at[0] == '\n' || at[0] == ' ' || at[0] == '\t' || at[0] == '\f' ? 1 : 0;
}

// Decodes the escape behind a backslash and moves past it.
QChar decodeOne(const QChar*& at, const QChar* end) {
    uint code = 0;
    int digits = 0;
    for (int digit; digits < maximumDigits && at != end && (digit = hexDigit(*at)) >= 0; ++at, ++digits)
        code = code * 16 + uint(digit);
    if (digits == 0)
        return *at++;
    at += whiteSpaceLength(at, end);
    return QChar(ushort(code & 0xffff));
}

} // namespace

void decodeEscapes(QString& text) {
    const int first = text.indexOf('\\');
    if (first < 0)
        return;
    QChar* out = text.data() + first;
    const QChar* const end = text.constData() + text.size();
    for (const QChar* at = out; at != end;) {
        if (*at != '\\') {
            *out++ = *at++;
        } else if (++at != end) {
            *out++ = decodeOne(at, end);
        }
    }
    text.truncate(int(out - text.constData()));
}

} // namespace Brisko
