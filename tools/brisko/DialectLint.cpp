#include "DialectLint.h"

#include "DialectWords.h"
#include "SelectorLint.h"
#include "SheetTokens.h"
#include "ValueLint.h"

namespace Command {

namespace {

/// Goes through a sheet statement by statement. Nothing recurses, however deep blocks are nested.
class DialectLint {
public:
    DialectLint(const QByteArray& file, const std::string& text) : m_findings(file), m_tokens(text) {}

    std::vector<Finding> run() {
        for (bool isEnd = false; !isEnd;) {
            const SheetToken end = readStatement();
            isEnd = end.kind == SheetToken::End;
            checkStatement(end);
            if (end.is('{'))
                m_blocks.push_back(blockBehindStatement());
            else if (end.is('}') && !m_blocks.empty())
                m_blocks.pop_back();
        }
        return m_findings.take();
    }

private:
    enum class Block { Rules, Declarations };

    /// Reads up to the next of ";", "{" and "}", without blanks at the start. @return what ended the statement
    SheetToken readStatement() {
        m_statement.clear();
        for (;;) {
            SheetToken token = m_tokens.next();
            if (token.kind == SheetToken::End || token.is(';') || token.is('{') || token.is('}'))
                return token;
            if (!m_statement.empty() || token.kind != SheetToken::Blank)
                m_statement.push_back(std::move(token));
        }
    }

    bool isAtRule() const { return !m_statement.empty() && m_statement.front().kind == SheetToken::AtWord; }
    bool isInDeclarations() const { return !m_blocks.empty() && m_blocks.back() == Block::Declarations; }

    Block blockBehindStatement() const {
        return isAtRule() && !DialectWords::hasDeclarations(m_statement.front().text) ? Block::Rules
                                                                                      : Block::Declarations;
    }

    void checkStatement(const SheetToken& end) {
        if (m_statement.empty())
            return;
        if (isAtRule()) {
            checkAtRule();
        } else if (!end.is('{')) {
            if (isInDeclarations())
                lintDeclaration(m_statement, m_findings);
        } else {
            if (isInDeclarations())
                m_findings.add("nested-rule", m_statement.front().line,
                               "rules do not nest: write the whole selector in a rule of its own");
            lintSelectors(m_statement, m_findings);
        }
    }

    void checkAtRule() {
        const SheetToken& word = m_statement.front();
        const QByteArray name = word.text.toLower();
        if (name == "media" || name == "import")
            checkMedia(name);
        else if (name != "charset")
            m_findings.add("ignored-at-rule", word.line,
                           "@" + word.text + " is not known: " + DialectWords::insteadOfAtRule(name));
    }

    /// A medium is a name: everything but names, commas and what is imported is a condition.
    void checkMedia(const QByteArray& name) {
        bool isFirst = true;
        bool isBehindName = false;
        for (const SheetToken& token : m_statement) {
            const bool isName = token.kind == SheetToken::Name;
            const bool isImported = token.kind == SheetToken::Text || token.kind == SheetToken::Url;
            const bool isPlain =
                isName || token.kind == SheetToken::Blank || token.is(',') || (name == "import" && isImported);
            if ((!isPlain && !isFirst) || (isName && isBehindName)) {
                m_findings.add("media-query", token.line,
                               "a medium is a name, without conditions: give it one and choose it by --media or "
                               "CSSParser::setMedia()");
                return;
            }
            isFirst = false;
            isBehindName = isName || (isBehindName && token.kind == SheetToken::Blank);
        }
    }

    FindingList m_findings;
    SheetTokens m_tokens;
    std::vector<SheetToken> m_statement;
    std::vector<Block> m_blocks; // that are open
};

} // namespace

std::vector<Finding> lintDialect(const QByteArray& file, const std::string& text) {
    return DialectLint(file, text).run();
}

} // namespace Command
