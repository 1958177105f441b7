#pragma once

#include "parser/RawScanner.h"

#include <optional>
#include <utility>

namespace Brisko {

/// Refines the raw tokens of a text into what the grammar reads: lengths become pixels, angles plain numbers between 0
/// and 2 pi, names and texts lose their marks. Runs of blanks come as one token, and strings that are cut off are
/// reported and left out.
///
/// Exported for the tests of the grammar only; not installed.
class BRISKO_EXPORT TokenFilter {
public:
    /// Starts on a text with the token @p startToken before it.
    /// @param source  a QByteArray or the std::string of a file, see RawScanner
    /// @param dpi     pixels of an inch
    template <typename Source>
    void start(int startToken, Source&& source, float dpi) {
        m_scanner.emplace(startToken, std::forward<Source>(source));
        m_place = m_scanner->place();
        m_dpi = dpi;
        m_previous = 0;
        m_exprError = false;
    }
    /// Leaves all tokens of the text to the rules; see RawScanner.
    void readByRulesOnly() { m_scanner->readByRulesOnly(); }
    /// Lets go of the text.
    void stop() {
        m_currentLine = currentLine();
        m_scanner.reset();
    }

    /// Reads the next token and fills @p value; a text in it lasts until stop(). 0 at the end.
    int lex(SemanticValue* value) {
        const int token = nextVisible(value, m_previous);
        m_previous = token == BAD_STRING ? skipBadStrings(value) : refine(token, value);
        return m_previous;
    }

    /// Reads on as long as the tokens are plain, see PlainScanner. It counts for nobody else before goTo().
    class Preview {
    public:
        /// Reads the next token; 0 where that is not plain.
        int next(SemanticValue* value) {
            const int previous = m_token;
            m_place = m_end;
            m_token = PlainScanner::next(m_end, value);
            const char* text = m_place;
            if (m_token == PlainScanner::skipped)
                text = passSkipped(previous, value);
            setText(m_token, text, m_end, value);
            return m_token;
        }
        /// The same behind any blanks.
        int nextVisible(SemanticValue* value) { return next(value) == WHITESPACE ? next(value) : m_token; }
        /// Reads the next token where it is that character of punctuation.
        bool nextIs(char character) {
            if (*m_end != character)
                return false;
            m_place = m_end++;
            m_token = character;
            return true;
        }
        /// The token read last.
        int token() const { return m_token; }
        /// Whether it has read what another has not.
        bool isBeyond(const Preview& other) const { return m_end > other.m_end; }
        /// Takes the token read last for one that is not plain.
        void giveUp() { m_token = 0; }
        void skipBlanks() {
            const Preview before = *this;
            SemanticValue none;
            if (next(&none) != WHITESPACE)
                *this = before;
        }

    private:
        friend class TokenFilter;
        Preview(const char* place, int previous) : m_place(place), m_end(place), m_token(previous) {}
        const char* passSkipped(int previous, SemanticValue* value);

        const char* m_place; // where the token read last was asked for
        const char* m_end;
        int m_token;
    };

    /// A preview of what lex() reads next.
    Preview preview() const { return Preview(m_scanner->place(), m_previous); }
    /// A preview that reads the token read last again. Nothing must have been skipped before that.
    Preview previewOfLast() const { return Preview(m_scanner->text(), 0); }
    /// Whether the token read last begins where the one before ends.
    bool isLastAdjacent() const { return m_scanner->text() == m_place; }
    bool isAtEnd(const Preview& preview) const { return m_scanner->isEnd(preview.m_end); }
    /// Makes the token read last in a preview the one read last.
    void goTo(const Preview& preview) {
        m_place = preview.m_place;
        m_previous = preview.m_token;
        m_scanner->moveTo(preview.m_end);
    }

    /// The line that the scanner stood on when it was last asked for a token.
    int currentLine() { return m_scanner ? m_scanner->lineAt(m_place) : m_currentLine; }

    /// Whether a string that was cut off has been left out since the flag was cleared.
    bool exprError() const { return m_exprError; }
    void setExprError(bool error) { m_exprError = error; }

private:
    int nextRaw(SemanticValue* value) {
        m_place = m_scanner->place();
        return m_scanner->next(value);
    }

    // Skipped text leaves the blanks on both of its sides; a run of them counts as one.
    int nextVisible(SemanticValue* value, int previous) {
        int token = nextRaw(value);
        while (token == WHITESPACE && previous == WHITESPACE)
            token = nextRaw(value);
        return token;
    }

    int refine(int token, SemanticValue* value) const {
        if (setText(token, m_scanner->text(), m_scanner->place(), value))
            return token;
        const bool isRare = token == INCHES || token == ANGLE || token == URI_STR || token == URI;
        return isRare ? refineRare(token, value) : token;
    }

    // Gives a token the text that it carries. False where it carries none, or one that takes more to find.
    static bool setText(int token, const char* begin, const char* end, SemanticValue* value) {
        switch (token) {
        case IDENT:
            value->text = TokenText::make(begin, end, TokenText::Latin1);
            return true;
        case HASH:
            value->text = TokenText::make(begin + 1, end, TokenText::Latin1);
            return true;
        case STRING:
            value->text = TokenText::make(begin + 1, end - 1, TokenText::Escaped);
            return true;
        case FUNCTION:
            value->text = TokenText::make(begin, end - 1, TokenText::Utf8);
            return true;
        default:
            return false;
        }
    }

    int refineRare(int token, SemanticValue* value) const;
    int skipBadStrings(SemanticValue* value);
    TokenText quotedUri() const;
    TokenText plainUri() const;

    std::optional<RawScanner> m_scanner;
    const char* m_place = nullptr;
    float m_dpi = 0;
    int m_currentLine = 1; // while there is no text
    int m_previous = 0;
    bool m_exprError = false;
};

} // namespace Brisko
