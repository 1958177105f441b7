#pragma once

#include <QByteArray>

#include <string>

namespace Command {

/// A token of a sheet as its author sees it: what the library's scanner skips, unknown units say, is there too.
struct SheetToken {
    enum Kind {
        End,
        Blank,
        Name,     ///< an identifier
        Custom,   ///< one that begins with two hyphens
        Function, ///< an identifier and its bracket
        AtWord,   ///< "@" and an identifier
        Hash,     ///< "#" and what follows
        Text,     ///< with its quotes
        Url,      ///< to its bracket
        Number,   ///< with its unit
        Character
    };

    Kind kind;
    QByteArray text; ///< as written; of a function without the bracket, of an at-word without the "@"
    QByteArray unit; ///< of a number: lower-cased, "%" for percent
    int line;        ///< from 1

    bool is(char character) const { return kind == Character && text.at(0) == character; }
};

/// Cuts a sheet into tokens (CSS 2.1 section 4.1.1), with the line of each. Comments are left out.
class SheetTokens {
public:
    /// @param text  must outlive the tokens
    explicit SheetTokens(const std::string& text);

    SheetToken next();

private:
    SheetToken token(SheetToken::Kind kind, std::size_t begin, int line) const;
    char at(std::size_t place) const { return place < m_text.size() ? m_text[place] : '\0'; }
    bool startsName(std::size_t place) const;
    std::size_t nameEnd(std::size_t place) const;
    std::size_t numberEnd(std::size_t place) const;
    bool skipComment();
    void advanceTo(std::size_t place);

    SheetToken readText();
    SheetToken readNumber(std::size_t end);
    SheetToken readName();
    SheetToken readUrl(std::size_t begin, int line);

    const std::string& m_text;
    std::size_t m_place = 0;
    int m_line = 1;
};

} // namespace Command
