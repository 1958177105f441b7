#pragma once

#include "parser/RawScanner.h"

#include <QString>

#include <optional>

namespace Brisko {

union SemanticValue;

/// Refines the raw tokens of a text into what the grammar reads: lengths become pixels, angles plain numbers between 0
/// and 2 pi, names and texts strings without their marks. Runs of blanks come as one token, and strings that are cut
/// off are reported and left out.
class TokenFilter {
public:
    /// Starts on a text with the token @p startToken before it.
    /// @param source  a QByteArray or a FILE*, see RawScanner
    /// @param dpi     pixels of an inch
    template <typename Source>
    void start(int startToken, const Source& source, float dpi) {
        m_scanner.emplace(startToken, source);
        m_dpi = dpi;
        m_previous = 0;
        m_exprError = false;
    }
    /// Lets go of the text.
    void stop() { m_scanner.reset(); }

    /// Reads the next token and fills @p value; a text in it is the caller's. 0 at the end.
    int lex(SemanticValue* value);

    /// The line that the scanner stood on when it was last asked for a token.
    int currentLine() const { return m_currentLine; }

    /// Whether a string that was cut off has been left out since the flag was cleared.
    bool exprError() const { return m_exprError; }
    void setExprError(bool error) { m_exprError = error; }

private:
    int nextRaw(SemanticValue* value);
    int nextVisible(SemanticValue* value, int previous);
    int skipBadStrings(SemanticValue* value);
    int refine(int token, SemanticValue* value) const;
    QString latin1(int skipFirst, int skipLast) const;
    QString quotedUri() const;
    QString plainUri() const;

    std::optional<RawScanner> m_scanner;
    float m_dpi = 0;
    int m_currentLine = 1;
    int m_previous = 0;
    bool m_exprError = false;
};

} // namespace Brisko
