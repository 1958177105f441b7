#pragma once

#include "parser/NumberText.h"
#include "parser/SemanticValue.h"
#include "parser/Tokens.h"
#include "parser/UnitCode.h"

#include <array>

namespace Brisko {

/// Reads the tokens that most sheets consist of without the tables of Scanner.l: blanks, names, numbers, simple strings
/// and punctuation, in ASCII and without escapes. Whatever could be anything else is left to the rules, so that both
/// always agree; numbers of unknown units are skipped as the rules do.
///
/// The text must end with a NUL byte, which is never part of a plain token.
class PlainScanner {
public:
    static constexpr int skipped = -1; ///< no token: a number of an unknown unit

    /// Reads the token at @p at and moves behind it. Fills @p value for numbers only.
    /// @return  0 where the rules have to be asked; @p at stays where it is
    static int next(const char*& at, SemanticValue* value) {
        switch (traits[index(*at)].start) {
        case Start::Blank:
            return readBlanks(at);
        case Start::Name:
            return readName(at, at + 1);
        case Start::Itself:
            return *at++;
        case Start::Comma:
            ++at;
            return COMMA;
        case Start::Dot:
            return is(at[1], digit) ? readNumber(at, value) : int(*at++);
        case Start::Digit:
            return readNumber(at, value);
        case Start::Sign:
            return readSign(at, value);
        case Start::Slash:
            return at[1] == '*' ? 0 : int(*at++);
        case Start::Hash:
            return readHash(at);
        case Start::Quote:
            return readString(at);
        case Start::Mark:
            return readImportant(at);
        case Start::ByRules:
            break;
        }
        return 0;
    }

private:
    // What a token that begins with a byte can be.
    enum class Start : unsigned char {
        ByRules,
        Blank,
        Name,
        Itself,
        Comma,
        Dot,
        Digit,
        Sign,
        Slash,
        Hash,
        Quote,
        Mark
    };

    // What a byte can be inside of a token.
    enum Part : unsigned char {
        blank = 1,
        digit = 2,
        namePart = 4,    // goes on a name or a unit
        unsure = 8,      // may go on a name, by the rules of escapes and other alphabets
        stringBreak = 16 // ends a string, or makes it one for the rules
    };

    struct Traits {
        Start start = Start::ByRules;
        unsigned char parts = 0;
    };

    static constexpr std::array<Traits, 256> makeTraits() {
        std::array<Traits, 256> made{};
        const auto set = [&made](const char* bytes, Start start, unsigned char parts) {
            for (; *bytes; ++bytes)
                made[index(*bytes)] = {start, parts};
        };
        set("abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ_", Start::Name, namePart);
        set("0123456789", Start::Digit, digit | namePart);
        set(" \t", Start::Blank, blank);
        set("\r\n\f", Start::Blank, blank | stringBreak);
        set("{};:>*=[]()", Start::Itself, 0);
        set("-", Start::Sign, namePart);
        set("+", Start::Sign, 0);
        set(",", Start::Comma, 0);
        set(".", Start::Dot, 0);
        set("/", Start::Slash, 0);
        set("#", Start::Hash, 0);
        set("\"'", Start::Quote, 0);
        set("!", Start::Mark, 0);
        set("\\", Start::ByRules, unsure | stringBreak);
        made[0] = {Start::ByRules, stringBreak};
        for (std::size_t byte = 0x80; byte < made.size(); ++byte)
            made[byte] = {Start::ByRules, unsure};
        return made;
    }

    static constexpr std::size_t index(char byte) { return static_cast<unsigned char>(byte); }
    static bool is(char byte, int parts) { return (traits[index(byte)].parts & parts) != 0; }
    static bool isLetter(char byte, char lowerCase) { return (byte | 0x20) == lowerCase; }

    static int readBlanks(const char*& at) {
        do
            ++at;
        while (is(*at, blank));
        if (*at != ',')
            return WHITESPACE;
        ++at;
        return COMMA;
    }

    // A name whose first byte that may be a digit is at @p rest.
    static int readName(const char*& at, const char* rest) {
        while (is(*rest, namePart))
            ++rest;
        if (is(*rest, unsure) || (*rest == '(' && opensByRules(at, rest)))
            return 0;
        const int token = *rest == '(' ? FUNCTION : IDENT;
        at = token == FUNCTION ? rest + 1 : rest;
        return token;
    }

    // "url(" and "calc(" are no functions.
    static bool opensByRules(const char* name, const char* end) {
        return skipWord(name, "url") == end || skipWord(name, "calc") == end;
    }

    static int readImportant(const char*& at) {
        const char* const end = skipWord(at + 1, "important");
        if (!end)
            return 0;
        at = end;
        return IMPORTANT_SYM;
    }

    // The end of a word in either case; null where there is another one. No word is skipped beyond the end of the text.
    static const char* skipWord(const char* at, const char* word) {
        for (; *word; ++at, ++word) {
            if (!isLetter(*at, *word))
                return nullptr;
        }
        return at;
    }

    static int readSign(const char*& at, SemanticValue* value) {
        const char next = at[1];
        if (is(next, digit) || (next == '.' && is(at[2], digit)))
            return readNumber(at, value);
        if (*at == '+')
            return *at++;
        return traits[index(next)].start == Start::Name ? readName(at, at + 2) : 0;
    }

    static int readNumber(const char*& at, SemanticValue* value) {
        const char* end = *at == '.' ? at : at + 1;
        while (is(*end, digit))
            ++end;
        const bool isReal = *end == '.';
        if (isReal && !is(end[1], digit))
            return 0;
        if (isReal) {
            do
                ++end;
            while (is(*end, digit));
        }
        if (*end == '%' || is(*end, namePart | unsure))
            return readUnit(at, end, value);
        if (isReal)
            value->number = double(float(readReal(at, end)));
        else
            value->integer = readInteger(at, end);
        at = end;
        return isReal ? REAL : INTEGER;
    }

    // A number with the sign or the unit at @p unit. An unknown unit takes its number with it.
    static int readUnit(const char*& at, const char* unit, SemanticValue* value) {
        if (*unit == '%')
            return finishNumber(PERCENTAGE, 100.0, at, unit, unit + 1, value);
        if (isLetter(unit[0], 'p') && isLetter(unit[1], 'x') && !is(unit[2], namePart | unsure))
            return finishNumber(PXS, 1.0, at, unit, unit + 2, value);
        const char* end = *unit == '-' ? unit + 1 : unit;
        if (traits[index(*end)].start != Start::Name)
            return 0;
        do
            ++end;
        while (is(*end, namePart));
        if (is(*end, unsure))
            return 0;
        switch (unitCode(unit, end)) {
        case unitCode("em"):
            return finishNumber(EMS, 1.0, at, unit, end, value);
        case unitCode("ex"):
            return finishNumber(EXS, 1.0, at, unit, end, value);
        case unitCode("s"):
            return finishNumber(REAL, 1.0, at, unit, end, value);
        case unitCode("ms"):
            return finishNumber(REAL, 1000.0, at, unit, end, value);
        case unitCode("cm"):
        case unitCode("mm"):
        case unitCode("in"):
        case unitCode("pt"):
        case unitCode("pc"):
        case unitCode("deg"):
        case unitCode("rad"):
        case unitCode("grad"):
            return 0;
        default:
            at = end;
            return skipped;
        }
    }

    static int finishNumber(int token, double divisor, const char*& at, const char* unit, const char* end,
                            SemanticValue* value) {
        value->number = double(float(readReal(at, unit) / divisor));
        at = end;
        return token;
    }

    static int readHash(const char*& at) {
        const char* end = at + 1;
        while (is(*end, namePart))
            ++end;
        if (end == at + 1 || is(*end, unsure))
            return 0;
        at = end;
        return HASH;
    }

    static int readString(const char*& at) {
        const char* end = at + 1;
        while (*end != *at && !is(*end, stringBreak))
            ++end;
        if (*end != *at)
            return 0;
        at = end + 1;
        return STRING;
    }

    static const std::array<Traits, 256> traits;
};

inline constexpr std::array<PlainScanner::Traits, 256> PlainScanner::traits = PlainScanner::makeTraits();

} // namespace Brisko
