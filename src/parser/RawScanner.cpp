#include "parser/RawScanner.h"

#include "Gorvel/Trace.h"
#include "Scanner.h"
#include "parser/Tokens.h"

#include <algorithm>
#include <utility>

// The generated scanner, as Scanner.l declares it.
int scannerlex(Brisko::SemanticValue* value, yyscan_t scanner);

namespace Brisko {

using Gorvel::Trace;

namespace {

constexpr char byteOrderMark[] = "\xef\xbb\xbf";
constexpr int byteOrderMarkSize = sizeof byteOrderMark - 1;

// What a NUL byte is to the rules: a byte that they do not name.
constexpr char zeroMask = '\x01';

} // namespace

RawScanner::RawScanner(int startToken) : m_startToken(startToken) {
    if (scannerlex_init_extra(this, &m_scanner) != 0)
        m_ended = true;
}

RawScanner::RawScanner(int startToken, const QByteArray& bytes) : RawScanner(startToken) {
    m_bytes = bytes;
    m_nextByte = bytes.startsWith(byteOrderMark) ? byteOrderMarkSize : 0;
}

RawScanner::RawScanner(int startToken, std::FILE* file) : RawScanner(startToken) {
    m_file = file;
    m_line = 1;
    char start[byteOrderMarkSize];
    const std::size_t size = std::fread(start, 1, byteOrderMarkSize, file);
    if (size < byteOrderMarkSize || std::memcmp(start, byteOrderMark, byteOrderMarkSize) != 0)
        std::rewind(file);
}

RawScanner::~RawScanner() {
    if (m_scanner)
        scannerlex_destroy(m_scanner);
}

int RawScanner::next(SemanticValue* value) {
    if (m_startToken != 0)
        return std::exchange(m_startToken, 0);
    if (m_ended)
        return 0;
    int token = 0;
    try {
        token = scannerlex(value, m_scanner);
    } catch (const ScannerFailure& failure) {
        Trace::error("CSS parser: %s", failure.message);
    }
    m_ended = token == 0;
    return token;
}

const char* RawScanner::text() const {
    return scannerget_text(m_scanner);
}

int RawScanner::length() const {
    return int(scannerget_leng(m_scanner));
}

int RawScanner::read(char* buffer, int size) {
    const int count = readInput(buffer, size);
    maskZeros(buffer, count);
    m_readOffset += count;
    return count;
}

int RawScanner::readInput(char* buffer, int size) {
    if (m_file) {
        const int count = int(std::fread(buffer, 1, std::size_t(size), m_file));
        if (count < size && std::ferror(m_file))
            Trace::error("CSS parser: read failed");
        return count;
    }
    const int count = std::min(size, m_bytes.size() - m_nextByte);
    std::memcpy(buffer, m_bytes.constData() + m_nextByte, std::size_t(count));
    m_nextByte += count;
    return count;
}

// The generated scanner goes over a token again for every NUL byte in it, which takes the square of the time. It never
// sees one: they are masked where they are read, and put back before anybody looks at the token.
void RawScanner::maskZeros(char* buffer, int size) {
    char* const end = buffer + size;
    for (char* zero = buffer; (zero = static_cast<char*>(std::memchr(zero, '\0', std::size_t(end - zero)))); ++zero) {
        m_zeros.push_back(m_readOffset + (zero - buffer));
        *zero = zeroMask;
    }
}

void RawScanner::restoreZeros(char* text, int length) {
    const qint64 begin = m_tokenEnd - length;
    for (; m_nextZero < m_zeros.size() && m_zeros[m_nextZero] < m_tokenEnd; ++m_nextZero)
        text[m_zeros[m_nextZero] - begin] = '\0';
    if (m_nextZero == m_zeros.size()) {
        m_zeros.clear();
        m_nextZero = 0;
    }
}

int RawScanner::characterToken(char character) {
    return character == '\0' ? int(TokenInvalid) : int(static_cast<unsigned char>(character));
}

void RawScanner::reportOpenComment() {
    Trace::error("CSS parser: unclosed comment at EOF");
}

void RawScanner::reportBadURI() {
    Trace::error("CSS parser: bad URI");
}

} // namespace Brisko
