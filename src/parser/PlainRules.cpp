#include "parser/PlainRules.h"

#include "parser/ColourFunctions.h"
#include "parser/ParserDriver.h"

namespace Brisko {

using Ondex::Attribute;
using Ondex::StyleValue;

namespace {

// A chain of compounds takes the grammar's stack, which has an end. Longer ones are left to it, so that it can run out.
constexpr std::size_t mostCompounds = 100;

} // namespace

bool PlainRules::readRuleSets(std::optional<int> lookahead, Commit commit) {
    return readList(lookahead, [this, commit](Preview& preview) { return readRuleSet(preview, commit); });
}

bool PlainRules::readDeclarations(std::optional<int> lookahead) {
    return readList(lookahead, [this](Preview& preview) {
        Preview ahead = preview;
        const bool isPlain =
            readDeclaration(ahead) && m_declared.back().value && ahead.token() == ';' && passBlanks(ahead);
        if (!isPlain) {
            forget();
            return false;
        }
        declareAll();
        m_tokens.goTo(ahead);
        preview = ahead;
        return true;
    });
}

template <typename Read>
bool PlainRules::readList(std::optional<int> lookahead, Read readOne) {
    if (lookahead && !m_tokens.isLastAdjacent())
        return false;
    Preview preview = lookahead ? m_tokens.previewOfLast() : m_tokens.preview();
    bool isAnyRead = false;
    while (readOne(preview))
        isAnyRead = true;
    return lookahead && isAnyRead;
}

// Rule sets

bool PlainRules::readRuleSet(Preview& preview, Commit commit) {
    Preview ahead = preview;
    m_recovery.reset();
    const bool isPlain = readSelectors(ahead) && readBlock(ahead) && passBlanks(ahead) && isRecovered(ahead);
    if (!isPlain) {
        forget();
        return false;
    }
    for (Selector* selector : m_selectors)
        m_driver.add(selector);
    m_selectors.clear();
    declareAll();
    m_tokens.goTo(ahead);
    m_driver.parseRule();
    if (commit == Commit::EachRuleSet)
        m_driver.commit();
    preview = ahead;
    return true;
}

void PlainRules::forget() {
    for (Selector* selector : m_selectors)
        m_driver.release(selector);
    for (const Declared& declared : m_declared)
        m_driver.release(declared.value);
    m_selectors.clear();
    m_declared.clear();
}

// Selectors, up to the bracket behind them.
bool PlainRules::readSelectors(Preview& ahead) {
    while (Selector* selector = readSelector(ahead)) {
        m_selectors.push_back(selector);
        if (ahead.token() != COMMA)
            return ahead.token() == '{';
        ahead.skipBlanks();
    }
    return false;
}

// A selector and the token behind it.
Selector* PlainRules::readSelector(Preview& ahead) {
    m_compounds.clear();
    m_combinators.clear();
    if (!readCompounds(ahead)) {
        for (Compound* compound : m_compounds)
            m_driver.release(compound);
        return nullptr;
    }
    m_combinators.push_back(SimpleSelector::None);
    Selector* selector = m_driver.selector();
    for (std::size_t i = m_compounds.size(); i-- > 0;)
        selector = m_driver.chain(m_compounds[i], m_combinators[i], selector);
    return selector;
}

bool PlainRules::readCompounds(Preview& ahead) {
    SemanticValue content;
    ahead.next(&content);
    while (Compound* compound = readCompound(ahead, content)) {
        m_compounds.push_back(compound);
        const bool isBlankBehind = ahead.token() == WHITESPACE;
        if (isBlankBehind)
            ahead.next(&content);
        if (ahead.token() == '{' || ahead.token() == COMMA)
            return true;
        if (m_compounds.size() == mostCompounds)
            return false;
        const bool isChild = ahead.token() == '>';
        if (!isChild && !isBlankBehind)
            return false;
        if (isChild)
            ahead.nextVisible(&content);
        m_combinators.push_back(isChild ? SimpleSelector::Child : SimpleSelector::Descendant);
    }
    return false;
}

// A compound whose first token has been read, and the token behind it.
PlainRules::Compound* PlainRules::readCompound(Preview& ahead, SemanticValue& content) {
    Compound* const compound = m_driver.compound();
    bool isEmpty = ahead.token() != IDENT && ahead.token() != '*';
    if (ahead.token() == IDENT)
        m_driver.withType(compound, content.text);
    if (!isEmpty)
        ahead.next(&content);
    while (readSimple(ahead, content, compound))
        isEmpty = false;
    if (!isEmpty && ahead.token() != 0)
        return compound;
    m_driver.release(compound);
    return nullptr;
}

// An id, class or pseudo-class. Where it is none, the token is left as it is, or made that of no plain token.
bool PlainRules::readSimple(Preview& ahead, SemanticValue& content, Compound* compound) {
    const int token = ahead.token();
    const bool isMarked = token == '.' || token == ':';
    if (!isMarked && token != HASH)
        return false;
    const bool isPlain = isMarked ? ahead.next(&content) == IDENT : (*compound)->cssId().isEmpty();
    if (!isPlain) {
        ahead.giveUp();
        return false;
    }
    if (token == '.')
        m_driver.withClass(compound, content.text);
    else if (token == ':')
        m_driver.withPseudoClass(compound, content.text);
    else
        m_driver.withId(compound, content.text);
    ahead.next(&content);
    return true;
}

// Declarations up to the bracket behind them, which is read too.
bool PlainRules::readBlock(Preview& ahead) {
    ahead.skipBlanks();
    while (!ahead.nextIs('}')) {
        if (!readDeclaration(ahead))
            return false;
        if (ahead.token() == '}')
            return true;
        if (ahead.token() != ';' || !passBlanks(ahead))
            return false;
    }
    return true;
}

// Blanks, if any. Without, the grammar reads the next token before it goes on; that token must not have anything to
// report, nor be blanks behind text that is skipped.
bool PlainRules::passBlanks(Preview& ahead) const {
    Preview behind = ahead;
    SemanticValue none;
    if (behind.next(&none) == WHITESPACE)
        ahead = behind;
    return behind.token() != 0 || m_tokens.isAtEnd(ahead);
}

// Whether the grammar would have left the last mistake behind: it takes three tokens before it reports the next.
bool PlainRules::isRecovered(const Preview& ahead) const {
    if (!m_recovery)
        return true;
    Preview behind = *m_recovery;
    SemanticValue none;
    return behind.next(&none) != 0 && behind.next(&none) != 0 && !behind.isBeyond(ahead);
}

// Declarations

void PlainRules::declareAll() {
    for (const Declared& declared : m_declared)
        declare(declared);
    m_declared.clear();
}

void PlainRules::declare(const Declared& declared) {
    m_tokens.goTo(declared.end);
    m_driver.setExprError(false);
    if (!declared.value) {
        m_driver.error(declared.end.token() == ';' ? "syntax error, unexpected ';'"
                                                   : "syntax error, unexpected IMPORTANT_SYM");
        return;
    }
    StyleValue* const value = declared.function ? m_driver.call(*declared.function, declared.value) : declared.value;
    m_driver.declare(declared.property, value, declared.isImportant);
}

// A declaration and the token behind it.
bool PlainRules::readDeclaration(Preview& ahead) {
    SemanticValue property;
    SemanticValue content;
    if (ahead.next(&property) != IDENT || ahead.nextVisible(&content) != ':')
        return false;
    const int token = ahead.nextVisible(&content);
    if (token == ';' || token == IMPORTANT_SYM)
        return readMissingValue(ahead, property.text);
    const bool isRead =
        token == FUNCTION ? readFunctionFirst(ahead, property.text, content) : readValue(ahead, property.text, content);
    if (isRead && ahead.token() == IMPORTANT_SYM) {
        Declared& declared = m_declared.back();
        declared.isImportant = true;
        ahead.next(&content);
        declared.end = ahead;
        if (ahead.token() == WHITESPACE)
            ahead.next(&content);
    }
    return isRead;
}

// A value whose first token has been read, and the token behind it.
bool PlainRules::readValue(Preview& ahead, const TokenText& property, SemanticValue& content) {
    StyleValue* const value = readExpr(ahead, content, Functions::Allowed);
    if (value)
        m_declared.push_back({property, value, std::nullopt, false, ahead});
    return value;
}

// No value, where the semicolon or the mark of importance behind it has been read. The grammar drops that mark and the
// blanks behind it, and goes on with the semicolon.
bool PlainRules::readMissingValue(Preview& ahead, const TokenText& property) {
    m_declared.push_back({property, nullptr, std::nullopt, false, ahead});
    SemanticValue none;
    if (ahead.token() == IMPORTANT_SYM && ahead.nextVisible(&none) != ';')
        return false;
    m_recovery = ahead;
    return true;
}

// A value that begins with a function or is an unknown one, and the token behind it.
bool PlainRules::readFunctionFirst(Preview& ahead, const TokenText& property, SemanticValue& content) {
    const Preview arguments = ahead;
    const TokenText name = content.text;
    if (readValue(ahead, property, content))
        return true;
    if (ParserDriver::knowsFunction(name))
        return false;
    ahead = arguments;
    return readUnknownFunction(ahead, property, name);
}

// The arguments of a function that is the whole value, up to the token behind it.
bool PlainRules::readUnknownFunction(Preview& ahead, const TokenText& property, const TokenText& name) {
    SemanticValue content;
    ahead.nextVisible(&content);
    StyleValue* const arguments = readExpr(ahead, content, Functions::Excluded);
    if (!arguments)
        return false;
    const int token = ahead.token() == ')' ? ahead.nextVisible(&content) : 0;
    m_declared.push_back({property, arguments, name, false, ahead});
    return token == ';' || token == '}' || token == IMPORTANT_SYM;
}

// Terms, the first of which has been read, and the token behind them.
StyleValue* PlainRules::readExpr(Preview& ahead, SemanticValue& content, Functions functions) {
    StyleValue* list = nullptr;
    StyleValue::Separator separator = StyleValue::SEPARATOR_WHITE_SPACE;
    while (StyleValue* term = readTerm(ahead, content, functions)) {
        list = list ? m_driver.append(list, separator, term) : term;
        switch (ahead.nextVisible(&content)) {
        case ';':
        case '}':
        case ')':
        case IMPORTANT_SYM:
            return list;
        case '/':
            separator = StyleValue::SEPARATOR_SLASH;
            ahead.nextVisible(&content);
            break;
        case COMMA:
            separator = StyleValue::SEPARATOR_COMMA;
            ahead.nextVisible(&content);
            break;
        default:
            separator = StyleValue::SEPARATOR_WHITE_SPACE;
            break;
        }
    }
    m_driver.release(list);
    return nullptr;
}

StyleValue* PlainRules::readTerm(Preview& ahead, const SemanticValue& content, Functions functions) {
    switch (ahead.token()) {
    case INTEGER:
        return m_driver.value(int(content.integer));
    case REAL:
        return m_driver.value(float(content.number), Attribute::VU_UNKNOWN);
    case PERCENTAGE:
        return m_driver.value(float(content.number), Attribute::VU_PERCENTAGE);
    case PXS:
        return m_driver.value(float(content.number), Attribute::VU_PXS);
    case EMS:
        return m_driver.value(float(content.number), Attribute::VU_EMS);
    case STRING:
        return m_driver.textValue(content.text);
    case IDENT:
        return m_driver.keywordValue(content.text);
    case HASH:
        return m_driver.colorValue(content.text);
    case FUNCTION:
        return functions == Functions::Allowed ? readColour(ahead, content.text) : nullptr;
    default:
        return nullptr;
    }
}

// The arguments of a function and what it makes of them, as far as that is a colour.
StyleValue* PlainRules::readColour(Preview& ahead, const TokenText& name) {
    SemanticValue content;
    ahead.nextVisible(&content);
    StyleValue* const arguments = readExpr(ahead, content, Functions::Excluded);
    if (!arguments)
        return nullptr;
    const std::optional<StyleValue> colour =
        ahead.token() == ')' ? colourFunction(name.toString().toLower(), *arguments) : std::nullopt;
    if (!colour) {
        m_driver.release(arguments);
        return nullptr;
    }
    *arguments = *colour;
    return arguments;
}

} // namespace Brisko
