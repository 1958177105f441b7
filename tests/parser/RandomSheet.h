#pragma once

#include <random>
#include <string>
#include <vector>

namespace Testing {

/// Makes texts of style sheets, good and bad, from a seed: pieces that are about one token each.
class RandomSheet {
public:
    using Pieces = std::vector<std::string>;

    explicit RandomSheet(unsigned seed) : m_engine(seed) {}

    /// A sheet without a mistake, of all that the grammar knows.
    Pieces wellFormed();
    /// Rule sets as frameworks have them, with units and functions that are not known. Values may be gone for that.
    Pieces ofFramework();
    /// A sheet with some pieces taken out, put in, exchanged or doubled, or with its end cut off.
    Pieces damaged() { return damage(wellFormed()); }
    /// The same of a framework's.
    Pieces damagedOfFramework() { return damage(ofFramework()); }
    /// Pieces in any order.
    Pieces arbitrary();
    /// A list of selectors, with tests that the parser reports and drops.
    Pieces selectorList();
    /// One value of a declaration.
    Pieces value();

    /// Writes pieces one after the other, with blanks, line ends, comments or nothing between them.
    std::string join(const Pieces& pieces);
    /// Writes them with a blank between most of them.
    std::string joinPlainly(const Pieces& pieces);

private:
    int number(int count);
    bool chance(int percent);
    const char* anyPiece();
    template <int count>
    const char* oneOf(const char* const (&choices)[count]);

    Pieces damage(Pieces out);
    void statement(Pieces& out);
    void plainRuleSet(Pieces& out);
    void plainDeclaration(Pieces& out);
    void plainValue(Pieces& out);
    void ruleSet(Pieces& out);
    void media(Pieces& out);
    void mediaList(Pieces& out);
    void page(Pieces& out);
    void import(Pieces& out);
    void selectors(Pieces& out);
    void compound(Pieces& out);
    void declarations(Pieces& out);
    void expression(Pieces& out, int depth);
    void term(Pieces& out, int depth);
    void sum(Pieces& out, int depth);
    void unit(Pieces& out, int depth);

    std::mt19937 m_engine;
};

} // namespace Testing
