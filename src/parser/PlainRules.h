#pragma once

#include "Brisko/Selector.h"
#include "Ondex/StyleValue.h"
#include "parser/TokenFilter.h"

#include <optional>
#include <vector>

namespace Brisko {

class ParserDriver;

/// The way past the tables of the grammar for what most sheets consist of: rule sets and declarations of plain tokens
/// without a mistake, but for those that every framework has: values that are gone with their unknown unit, and unknown
/// functions. It calls what the actions of the grammar would, in the same order, and leaves the grammar in the state in
/// which it found it; so it is for the places only where the grammar reads lists. What turns out not to be plain is
/// left to the grammar as if nobody had looked at it.
class PlainRules {
public:
    /// Whether finished rule sets count at once.
    enum class Commit { EachRuleSet, Later };

    PlainRules(ParserDriver& driver, TokenFilter& tokens) : m_driver(driver), m_tokens(tokens) {}

    // Each reads as many as there are. The lookahead is the token that the grammar has read already, if any; the result
    // says whether that is to be dropped, since it was read again.
    bool readRuleSets(std::optional<int> lookahead, Commit commit);
    bool readDeclarations(std::optional<int> lookahead);

private:
    using Preview = TokenFilter::Preview;
    using Compound = std::shared_ptr<SimpleSelector>;

    // Functions do not nest here, so that nothing is recursive.
    enum class Functions { Allowed, Excluded };

    struct Declared {
        TokenText property;
        Ondex::StyleValue* value;          // null where it is missing
        std::optional<TokenText> function; // the unknown one that the value is to be given to
        bool isImportant;
        Preview end; // when the grammar would know that it is finished
    };

    template <typename Read>
    bool readList(std::optional<int> lookahead, Read readOne);

    bool readRuleSet(Preview& preview, Commit commit);
    bool readSelectors(Preview& ahead);
    Selector* readSelector(Preview& ahead);
    bool readCompounds(Preview& ahead);
    Compound* readCompound(Preview& ahead, SemanticValue& content);
    bool readSimple(Preview& ahead, SemanticValue& content, Compound* compound);
    bool readBlock(Preview& ahead);
    bool passBlanks(Preview& ahead) const;
    bool isRecovered(const Preview& ahead) const;
    void forget();

    bool readDeclaration(Preview& ahead);
    bool readValue(Preview& ahead, const TokenText& property, SemanticValue& content);
    bool readMissingValue(Preview& ahead, const TokenText& property);
    bool readFunctionFirst(Preview& ahead, const TokenText& property, SemanticValue& content);
    bool readUnknownFunction(Preview& ahead, const TokenText& property, const TokenText& name);
    void declareAll();
    void declare(const Declared& declared);
    Ondex::StyleValue* readExpr(Preview& ahead, SemanticValue& content, Functions functions);
    Ondex::StyleValue* readTerm(Preview& ahead, const SemanticValue& content, Functions functions);
    Ondex::StyleValue* readColour(Preview& ahead, const TokenText& name);

    ParserDriver& m_driver;
    TokenFilter& m_tokens;
    std::vector<Compound*> m_compounds;                    // of the selector that is being read, left to right
    std::vector<SimpleSelector::Combinator> m_combinators; // between them
    std::vector<Selector*> m_selectors;
    std::vector<Declared> m_declared;
    std::optional<Preview> m_recovery; // of the last mistake: the token with which the grammar goes on has been read
};

} // namespace Brisko
