#include "SelectorLint.h"

#include "DialectWords.h"

#include <algorithm>

namespace Command {

namespace {

class SelectorLint {
public:
    SelectorLint(const std::vector<SheetToken>& tokens, FindingList& findings)
        : m_tokens(tokens), m_findings(findings) {}

    void run() {
        while (m_place < m_tokens.size())
            check(m_tokens[m_place++]);
    }

private:
    void check(const SheetToken& token) {
        if (token.is('+') || token.is('~'))
            m_findings.add("sibling-selector", token.line,
                           "'" + token.text +
                               "' is no combinator here, and what stands on its left does not count: give the "
                               "neighbour a class instead");
        else if (token.is('['))
            checkAttribute(token);
        else if (token.is(':'))
            checkPseudo();
        else
            lintName(token, m_findings);
    }

    void checkAttribute(const SheetToken& bracket) {
        m_findings.add("attribute-selector", bracket.line,
                       "attributes are not compared, the rule applies without the test: use a class or a "
                       "pseudo-class instead");
        skipTo(']');
    }

    /// Behind a colon.
    void checkPseudo() {
        if (m_place == m_tokens.size())
            return;
        const SheetToken& token = m_tokens[m_place++];
        if (token.is(':')) {
            const bool isNamed = m_place < m_tokens.size() && m_tokens[m_place].kind == SheetToken::Name;
            addPseudoElement(token.line, "::" + (isNamed ? m_tokens[m_place++].text : QByteArray()));
        } else if (token.kind == SheetToken::Function) {
            m_findings.add("functional-pseudo-class", token.line,
                           "':" + token.text + "()' loses its parameter and waits for a state called '" + token.text +
                               "': give the nodes that are meant a class instead");
            skipTo(')');
        } else if (DialectWords::isPseudoElement(token.text.toLower())) {
            addPseudoElement(token.line, ":" + token.text);
        } else if (DialectWords::isStructural(token.text.toLower())) {
            m_findings.add("structural-pseudo-class", token.line,
                           "':" + token.text +
                               "' is a state that the program has to switch on: give the nodes that are meant a class "
                               "instead");
        } else {
            lintName(token, m_findings);
        }
    }

    void addPseudoElement(int line, const QByteArray& name) {
        m_findings.add("pseudo-element", line, "'" + name + "' is no part of a node: add a node to the scene instead");
    }

    /// Behind the bracket that closes the one before.
    void skipTo(char bracket) {
        while (m_place < m_tokens.size() && !m_tokens[m_place].is(bracket))
            ++m_place;
        m_place = std::min(m_place + 1, m_tokens.size());
    }

    const std::vector<SheetToken>& m_tokens;
    FindingList& m_findings;
    std::size_t m_place = 0;
};

bool isAscii(const QByteArray& text) {
    return std::all_of(text.begin(), text.end(), [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

} // namespace

void lintSelectors(const std::vector<SheetToken>& tokens, FindingList& findings) {
    SelectorLint(tokens, findings).run();
}

void lintName(const SheetToken& name, FindingList& findings) {
    if (name.kind == SheetToken::Custom || name.kind == SheetToken::Character)
        return;
    const bool isText = name.kind == SheetToken::Text;
    if (!isText && name.text.contains('\\'))
        findings.add("escaped-name", name.line,
                     "'" + name.text + "' keeps its backslash: use a name that needs no escape");
    if (!isAscii(name.text) && name.kind != SheetToken::Url)
        findings.add("non-ascii-text", name.line,
                     isText ? "bytes of " + name.text + " are read one by one, as Latin-1: write escapes such as \\e9"
                            : "bytes of '" + name.text + "' are read one by one, as Latin-1: use a name in ASCII");
}

} // namespace Command
