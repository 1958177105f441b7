#pragma once

#include "Brisko/Export.h"
#include "parser/LineCounter.h"
#include "parser/PlainScanner.h"

#include <QByteArray>

#include <string>
#include <utility>

namespace Brisko {

/// Thrown by the generated scanner where it cannot go on, and caught by RawScanner.
struct ScannerFailure {
    const char* message;
};

/// Cuts CSS text into tokens by the rules of Scanner.l. For one text; TokenFilter refines what comes out.
///
/// Exported for the tests of the grammar only; not installed.
class BRISKO_EXPORT RawScanner {
public:
    /// Scans a copy of some bytes, whose lines count from 0. The token @p startToken comes before the text.
    RawScanner(int startToken, const QByteArray& bytes);
    /// Scans the content of a file, whose lines count from 1; at most RegularFile::longest bytes.
    RawScanner(int startToken, std::string&& text);
    ~RawScanner();
    RawScanner(const RawScanner&) = delete;
    RawScanner& operator=(const RawScanner&) = delete;

    /// Reads the next token; 0 at the end of the text and from then on. Fills @p value for numbers only.
    int next(SemanticValue* value) {
        if (m_startToken != 0)
            return std::exchange(m_startToken, 0);
        int token = 0;
        do {
            m_begin = m_end;
            token = m_readsPlainTokens ? PlainScanner::next(m_end, value) : 0;
        } while (token == PlainScanner::skipped);
        return token ? token : nextByRules(value);
    }

    /// Leaves all tokens to the rules from now on.
    void readByRulesOnly() { m_readsPlainTokens = false; }

    /// Text of the token read last, valid as long as the scanner.
    const char* text() const { return m_begin; }
    /// The end of that text, where the next token begins or what is skipped before it.
    const char* place() const { return m_end; }
    bool isEnd(const char* place) const { return place == textEnd(); }
    /// Goes on at a place in the text.
    void moveTo(const char* place) { m_begin = m_end = place; }
    /// The line of a place; never one before the place asked for last.
    int lineAt(const char* place) { return m_lines.lineAt(place); }

    // Called by the generated scanner.
    /// The token of a character that no other rule takes: its code; a NUL byte is no end of the text.
    int characterToken(const char* at) const;
    void reportOpenComment();
    void reportBadURI();

private:
    RawScanner(int startToken, std::string text, int firstLine);
    bool startRules();
    int nextByRules(SemanticValue* value);
    const char* textEnd() const { return m_text.data() + m_text.size(); }

    int m_startToken;
    bool m_readsPlainTokens = true;
    bool m_ended = false;
    const std::string m_text;
    const char* m_begin;
    const char* m_end;
    LineCounter m_lines;
    std::string m_buffer; // what the generated scanner works on; empty as long as it is not needed
    void* m_scanner = nullptr;
};

} // namespace Brisko
