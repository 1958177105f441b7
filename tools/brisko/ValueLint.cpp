#include "ValueLint.h"

#include "DialectWords.h"
#include "SelectorLint.h"

#include <algorithm>

namespace Command {

namespace {

bool isHexColor(const QByteArray& hash) {
    const int digits = hash.size() - 1;
    const bool isLength = digits == 3 || digits == 4 || digits == 6 || digits == 8;
    return isLength && std::all_of(hash.begin() + 1, hash.end(), [](char c) {
               return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'f') || (c >= 'A' && c <= 'F');
           });
}

bool isAngle(const QByteArray& unit) {
    return unit == "deg" || unit == "rad" || unit == "grad";
}

bool isHueFunction(const QByteArray& name) {
    return name == "hsl" || name == "hsla" || name == "hsv" || name == "hsva";
}

class ValueLint {
public:
    ValueLint(const std::vector<SheetToken>& tokens, FindingList& findings) : m_tokens(tokens), m_findings(findings) {}

    void run() {
        const auto colon =
            std::find_if(m_tokens.begin(), m_tokens.end(), [](const SheetToken& token) { return token.is(':'); });
        const SheetToken& property = m_tokens.front();
        if (property.kind == SheetToken::Custom) {
            m_findings.add("custom-property", property.line,
                           "'" + property.text + "' is no property: write its value where it is used");
            return;
        }
        if (colon == m_tokens.end())
            return;
        checkWord(colon + 1);
        for (auto token = colon + 1; token != m_tokens.end(); ++token)
            check(*token);
    }

private:
    using Place = std::vector<SheetToken>::const_iterator;

    /// A value that is one word, with or without its importance.
    void checkWord(Place token) {
        const SheetToken* word = nullptr;
        for (; token != m_tokens.end() && !token->is('!'); ++token) {
            if (token->kind == SheetToken::Blank)
                continue;
            if (word)
                return;
            word = &*token;
        }
        if (word && word->kind == SheetToken::Name && DialectWords::isGlobalKeyword(word->text.toLower()))
            m_findings.add("global-keyword", word->line,
                           "'" + word->text +
                               "' is a word like others, no property is inherited or reset by it: name the nodes or "
                               "the value");
    }

    void check(const SheetToken& token) {
        switch (token.kind) {
        case SheetToken::Number:
            return checkNumber(token);
        case SheetToken::Function:
            return enterFunction(token);
        case SheetToken::Hash:
            return checkColor(token);
        case SheetToken::Text:
        case SheetToken::Name:
            return lintName(token, m_findings);
        case SheetToken::Character:
            return checkBracket(token);
        default:
            return;
        }
    }

    void checkNumber(const SheetToken& number) {
        if (!DialectWords::isUnit(number.unit))
            m_findings.add("unknown-unit", number.line,
                           "'" + number.text +
                               "' is left out, its unit is not known: " + DialectWords::insteadOfUnit(number.unit));
        else if (function() == "calc" && (number.unit == "em" || number.unit == "ex"))
            m_findings.add("calc-font-unit", number.line,
                           "'" + number.text + "' counts as that many pixels inside of calc(): write px");
        else if (isHueFunction(function()) && isAngle(number.unit))
            m_findings.add("hue-unit", number.line,
                           "'" + number.text + "' becomes radians before " + function() +
                               "() sees it: write the degrees without a unit");
    }

    void enterFunction(const SheetToken& function) {
        const QByteArray name = function.text.toLower();
        if (name == "var")
            m_findings.add("custom-property", function.line,
                           "there are no custom properties, 'var()' drops the declaration: write the value itself");
        else if (!DialectWords::isFunction(name))
            m_findings.add("unknown-function", function.line,
                           "'" + function.text + "()' drops the declaration: " + DialectWords::insteadOfFunction(name));
        m_functions.push_back(name);
    }

    void checkColor(const SheetToken& hash) {
        if (!isHexColor(hash.text))
            m_findings.add("hex-color", hash.line,
                           "'" + hash.text + "' is no colour: write 3, 4, 6 or 8 hexadecimal digits");
    }

    void checkBracket(const SheetToken& token) {
        if (token.is('('))
            m_functions.push_back(function());
        else if (token.is(')') && !m_functions.empty())
            m_functions.pop_back();
    }

    /// The one whose arguments these are; plain brackets count as part of it.
    QByteArray function() const { return m_functions.empty() ? QByteArray() : m_functions.back(); }

    const std::vector<SheetToken>& m_tokens;
    FindingList& m_findings;
    std::vector<QByteArray> m_functions; // whose brackets are open
};

} // namespace

void lintDeclaration(const std::vector<SheetToken>& tokens, FindingList& findings) {
    ValueLint(tokens, findings).run();
}

} // namespace Command
