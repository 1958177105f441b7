#pragma once

#include <QByteArray>
#include <QtGlobal>

#include <cstdio>
#include <cstring>
#include <vector>

namespace Brisko {

union SemanticValue;

/// Thrown by the generated scanner where it cannot go on, and caught by RawScanner.
struct ScannerFailure {
    const char* message;
};

/// Cuts CSS text into tokens by the rules of Scanner.l, and counts its lines. For one text; TokenFilter refines what
/// comes out.
class RawScanner {
public:
    /// Scans bytes, whose lines count from 0. The token @p startToken comes before the text.
    RawScanner(int startToken, const QByteArray& bytes);
    /// Scans the rest of an open file, whose lines count from 1. The file stays the caller's and is used until the end.
    RawScanner(int startToken, std::FILE* file);
    ~RawScanner();
    RawScanner(const RawScanner&) = delete;
    RawScanner& operator=(const RawScanner&) = delete;

    /// Reads the next token; 0 at the end of the text and from then on. Fills @p value for numbers only.
    int next(SemanticValue* value);

    /// Text of the token read last; the next one overwrites it.
    const char* text() const;
    int length() const;
    /// The line that the next token begins on, blanks before it not counted.
    int line() const { return m_line; }

    // Called by the generated scanner.
    int read(char* buffer, int size);
    void matched(char* text, int length);
    /// The token of a character that no other rule takes: its code; a NUL byte is no end of the text.
    static int characterToken(char character);
    void reportOpenComment();
    void reportBadURI();

private:
    explicit RawScanner(int startToken);
    int readInput(char* buffer, int size);
    void maskZeros(char* buffer, int size);
    void restoreZeros(char* text, int length);

    void* m_scanner = nullptr;
    int m_startToken;
    int m_line = 0;
    bool m_ended = false;
    std::FILE* m_file = nullptr;
    QByteArray m_bytes;
    int m_nextByte = 0;
    qint64 m_readOffset = 0;
    qint64 m_tokenEnd = 0;
    std::vector<qint64> m_zeros; // offsets of the NUL bytes that were read
    std::size_t m_nextZero = 0;  // the first of them that was in no token yet
};

inline void RawScanner::matched(char* text, int length) {
    m_tokenEnd += length;
    if (!m_zeros.empty())
        restoreZeros(text, length);
    if (length == 1) {
        m_line += *text == '\n';
        return;
    }
    const char* const end = text + length;
    for (const char* from = text; (from = static_cast<const char*>(std::memchr(from, '\n', end - from))); ++from)
        ++m_line;
}

} // namespace Brisko
