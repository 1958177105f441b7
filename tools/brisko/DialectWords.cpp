#include "DialectWords.h"

#include <algorithm>
#include <iterator>

namespace Command::DialectWords {

namespace {

struct Instead {
    const char* word;
    const char* text;
};

constexpr Instead atRules[] = {
    {"page", "leave page rules out, their declarations join the next rule"},
    {"font-face", "install the font, or have the program load it, and name its family"},
    {"keyframes", "use the property 'transition'"},
    {"supports", "write the rules as they are"},
    {"layer", "rank whole sheets by their origin: --origin or CSSParser::parseSheet()"},
    {"container", "give the nodes a class when their size changes"},
    {"property", "write the value itself"},
    {"scope", "begin the selectors with the node that they are for"},
    {"namespace", "types are names without a namespace"},
    {"viewport", "set the size of the root"},
};

constexpr const char* declarationAtRules[] = {"page", "font-face", "viewport", "property", "counter-style"};

constexpr const char* units[] = {"",   "%",  "px", "em", "ex",  "in",  "cm",  "mm",
                                 "pt", "pc", "s",  "ms", "deg", "rad", "grad"};

constexpr Instead unitTable[] = {
    {"rem", "write px, or em: there is no root size"},
    {"ch", "write em or ex"},
    {"cap", "write em or ex"},
    {"ic", "write em or ex"},
    {"lh", "write em or ex"},
    {"rlh", "write em or ex"},
    {"fr", "nothing lays nodes out: set the sizes"},
    {"turn", "write deg or rad"},
    {"q", "write mm or cm"},
    {"hz", "nothing takes a frequency"},
    {"khz", "nothing takes a frequency"},
};

constexpr Instead functionTable[] = {
    {"min", "write calc(), or the value itself"},
    {"max", "write calc(), or the value itself"},
    {"clamp", "write calc(), or the value itself"},
    {"attr", "have the program set the property"},
    {"env", "have the program set the property"},
    {"counter", "have the program set the property"},
    {"counters", "have the program set the property"},
    {"linear-gradient", "name an image by url()"},
    {"radial-gradient", "name an image by url()"},
    {"conic-gradient", "name an image by url()"},
    {"repeating-linear-gradient", "name an image by url()"},
    {"repeating-radial-gradient", "name an image by url()"},
    {"image-set", "name an image by url()"},
    {"cubic-bezier", "transitions run evenly: leave it out"},
    {"steps", "transitions run evenly: leave it out"},
};

constexpr const char* functions[] = {"rgb",  "rgba",  "hsl",   "hsla", "hsv",   "hsva",  "rgba_pma", "calc",  "url",
                                     "vec2", "vec2i", "vec2f", "vec3", "vec3i", "vec3f", "vec4",     "vec4i", "vec4f"};

constexpr const char* pseudoElements[] = {"before", "after", "first-line", "first-letter", "selection", "placeholder"};

constexpr const char* structural[] = {"root",       "empty",         "first-child",  "last-child",
                                      "only-child", "first-of-type", "last-of-type", "only-of-type"};

constexpr const char* globalKeywords[] = {"inherit", "initial", "unset", "revert", "revert-layer"};

template <std::size_t Size>
bool contains(const char* const (&words)[Size], const QByteArray& word) {
    return std::any_of(std::begin(words), std::end(words), [&word](const char* each) { return word == each; });
}

template <std::size_t Size>
const char* find(const Instead (&table)[Size], const QByteArray& word, const char* otherwise) {
    for (const Instead& row : table) {
        if (word == row.word)
            return row.text;
    }
    return otherwise;
}

bool isExponent(const QByteArray& unit) {
    return unit.startsWith('e') && unit.size() > 1 &&
           std::all_of(unit.begin() + (unit[1] == '-' ? 2 : 1), unit.end(),
                       [](char c) { return c >= '0' && c <= '9'; });
}

bool isOfViewport(const QByteArray& unit) {
    return unit.contains("vw") || unit.contains("vh") || unit.contains("vmin") || unit.contains("vmax");
}

} // namespace

bool hasDeclarations(const QByteArray& atRule) {
    return contains(declarationAtRules, atRule.toLower());
}

QByteArray insteadOfAtRule(const QByteArray& atRule) {
    const bool isKeyframes = atRule.endsWith("keyframes"); // with any prefix of a vendor
    return find(atRules, isKeyframes ? QByteArray("keyframes") : atRule,
                "leave it out, what stands in its block may be read as rules");
}

bool isUnit(const QByteArray& unit) {
    return contains(units, unit);
}

QByteArray insteadOfUnit(const QByteArray& unit) {
    if (isExponent(unit))
        return "write the number without an exponent";
    if (isOfViewport(unit))
        return "write px, or have the program set the property";
    return find(unitTable, unit, "write px, %, em or ex");
}

bool isFunction(const QByteArray& function) {
    return contains(functions, function);
}

QByteArray insteadOfFunction(const QByteArray& function) {
    return find(functionTable, function, "write the value itself");
}

bool isPseudoElement(const QByteArray& name) {
    return contains(pseudoElements, name);
}

bool isStructural(const QByteArray& pseudoClass) {
    return contains(structural, pseudoClass);
}

bool isGlobalKeyword(const QByteArray& word) {
    return contains(globalKeywords, word);
}

} // namespace Command::DialectWords
