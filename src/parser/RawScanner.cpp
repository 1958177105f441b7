#include "parser/RawScanner.h"

#include "Gorvel/Trace.h"
#include "Scanner.h"

#include <cstring>

// The generated scanner, as Scanner.l declares it.
int scannerlex(Brisko::SemanticValue* value, yyscan_t scanner);
void scannermoveto(char* place, yyscan_t scanner);

namespace Brisko {

using Gorvel::Trace;

namespace {

constexpr char byteOrderMark[] = "\xef\xbb\xbf";
constexpr int byteOrderMarkSize = sizeof byteOrderMark - 1;

// What the generated scanner wants to find behind the text.
constexpr std::size_t endMarkSize = 2;

// What a NUL byte is to the rules: a byte that they do not name.
constexpr char zeroMask = '\x01';

} // namespace

RawScanner::RawScanner(int startToken, std::string text, int firstLine)
    : m_startToken(startToken), m_text(std::move(text)), m_begin(m_text.data()), m_end(m_begin),
      m_lines(m_begin, firstLine) {
    if (m_text.compare(0, byteOrderMarkSize, byteOrderMark) == 0)
        m_end += byteOrderMarkSize;
}

RawScanner::RawScanner(int startToken, const QByteArray& bytes)
    : RawScanner(startToken, std::string(bytes.constData(), std::size_t(bytes.size())), 0) {}

RawScanner::RawScanner(int startToken, std::string&& text) : RawScanner(startToken, std::move(text), 1) {}

RawScanner::~RawScanner() {
    if (m_scanner)
        scannerlex_destroy(m_scanner);
}

// The generated scanner writes into its text, and goes over a token again for every NUL byte in it, which takes the
// square of the time. So it gets a copy in which they are masked.
bool RawScanner::startRules() {
    m_buffer.reserve(m_text.size() + endMarkSize);
    m_buffer = m_text;
    char* const end = m_buffer.data() + m_buffer.size();
    for (char* at = m_buffer.data(); (at = static_cast<char*>(std::memchr(at, '\0', std::size_t(end - at))));)
        *at = zeroMask;
    m_buffer.append(endMarkSize, '\0');
    if (scannerlex_init_extra(this, &m_scanner) != 0)
        return false;
    scanner_scan_buffer(m_buffer.data(), m_buffer.size(), m_scanner);
    return true;
}

int RawScanner::nextByRules(SemanticValue* value) {
    int token = 0;
    m_ended = m_ended || m_end == textEnd();
    if (m_ended)
        return 0;
    try {
        if (m_scanner || startRules()) {
            scannermoveto(m_buffer.data() + (m_end - m_text.data()), m_scanner);
            token = scannerlex(value, m_scanner);
        }
    } catch (const ScannerFailure& failure) {
        Trace::error("CSS parser: %s", failure.message);
    }
    m_ended = token == 0;
    m_begin = m_ended ? textEnd() : m_text.data() + (scannerget_text(m_scanner) - m_buffer.data());
    m_end = m_ended ? textEnd() : m_begin + scannerget_leng(m_scanner);
    return token;
}

int RawScanner::characterToken(const char* at) const {
    const char character = m_text[std::size_t(at - m_buffer.data())];
    return character == '\0' ? int(TokenInvalid) : int(static_cast<unsigned char>(character));
}

void RawScanner::reportOpenComment() {
    Trace::error("CSS parser: unclosed comment at EOF");
}

void RawScanner::reportBadURI() {
    Trace::error("CSS parser: bad URI");
}

} // namespace Brisko
