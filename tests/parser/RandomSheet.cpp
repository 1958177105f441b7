#include "RandomSheet.h"

#include <algorithm>
#include <iterator>

namespace Testing {

namespace {

constexpr int statementLimit = 8;
constexpr int damageLimit = 5;
constexpr int arbitraryLimit = 60;
constexpr int deepest = 3;

const char* const names[] = {"a", "b", "panel", "x", "y", "color", "red", "all", "screen", "print", "n\\41 m"};
const char* const values[] = {"1",    "-2",    "0.5", "50%", "3px",  "2em", "1ex", "2cm",        "90deg", "250ms",
                              "1.5S", "\"t\"", "'u'", "red", "#f00", "#1",  "1in", "url(\"a\")", "url(b)"};
const char* const functions[] = {"rgb(", "rgba(", "hsl(", "vec2(", "f("};
const char* const unknownFunctions[] = {"translateX(", "scale(", "f("};
const char* const lostValues[] = {"1rem", ".5REM", "-2vh", "1e3", "1-rem", "5hz", "2khz", "1fr_2"};
const char* const numbers[] = {"1", "0.5", "3px", "2em", "1ex", "50%"};
const char* const media[] = {"screen", "print", "all"};

// All tokens, and texts that make none or a broken one.
const char* const pieces[] = {
    "a",    "b",    "screen", "print",   "x",       "#i",      ".",          ".c",     ":",       "::",
    ";",    ";",    "{",      "{",       "}",       "}",       "(",          ")",      "[",       "]",
    "=",    "~=",   "|=",     "+",       ">",       "*",       "/",          "-",      ",",       "@",
    "@ x",  "@foo", "@media", "@media",  "@page",   "@import", "@charset ",  "<!--",   "-->",     "!important",
    "!",    "1",    "-2",     "0.5",     "50%",     "3px",     "2em",        "1ex",    "1in",     "90deg",
    "5vw",  "10hz", "\"s\"",  "'s'",     "\"cut\n", "'cut\n",  "url(\"a\")", "url(b)", "url(c d", "calc(",
    "rgb(", "f(",   "not(",   "/* c */", "\n",      "\"",      "'",          "%",      "~",       "\x01",
};

} // namespace

int RandomSheet::number(int count) {
    return int(m_engine() % unsigned(count));
}

bool RandomSheet::chance(int percent) {
    return number(100) < percent;
}

template <int count>
const char* RandomSheet::oneOf(const char* const (&choices)[count]) {
    return choices[number(count)];
}

const char* RandomSheet::anyPiece() {
    return oneOf(pieces);
}

RandomSheet::Pieces RandomSheet::wellFormed() {
    Pieces out;
    if (chance(10))
        out.push_back(chance(50) ? "@charset \"utf-8\";" : "@charset \"latin1\";");
    for (int i = number(statementLimit); i >= 0; --i)
        statement(out);
    return out;
}

RandomSheet::Pieces RandomSheet::ofFramework() {
    Pieces out;
    for (int i = number(statementLimit); i >= 0; --i) {
        if (chance(5))
            statement(out);
        else
            plainRuleSet(out);
    }
    return out;
}

RandomSheet::Pieces RandomSheet::damage(Pieces out) {
    for (int i = number(damageLimit); i >= 0 && !out.empty(); --i) {
        const auto at = out.begin() + number(int(out.size()));
        switch (number(5)) {
        case 0:
            out.erase(at);
            break;
        case 1:
            out.insert(at, anyPiece());
            break;
        case 2:
            *at = anyPiece();
            break;
        case 3:
            std::swap(*at, out[std::size_t(number(int(out.size())))]);
            break;
        default:
            if (chance(20))
                out.erase(at, out.end());
            else
                out.insert(at, std::string(*at));
        }
    }
    return out;
}

RandomSheet::Pieces RandomSheet::arbitrary() {
    Pieces out;
    for (int i = number(arbitraryLimit); i >= 0; --i)
        out.push_back(anyPiece());
    return out;
}

RandomSheet::Pieces RandomSheet::selectorList() {
    Pieces out;
    selectors(out);
    return out;
}

RandomSheet::Pieces RandomSheet::value() {
    Pieces out;
    expression(out, 0);
    return out;
}

std::string RandomSheet::join(const Pieces& all) {
    static const char* const gaps[] = {"", "", "", " ", " ", "\n", "\n", " /* c */ ", "/**/"};
    std::string text;
    for (const std::string& piece : all)
        text += piece + oneOf(gaps);
    return text;
}

std::string RandomSheet::joinPlainly(const Pieces& all) {
    static const char* const gaps[] = {"", "", " ", " ", "\n", "\n  "};
    std::string text;
    for (const std::string& piece : all)
        text += piece + (chance(2) ? "/* c */" : oneOf(gaps));
    return text;
}

void RandomSheet::statement(Pieces& out) {
    switch (number(12)) {
    case 0:
        media(out);
        break;
    case 1:
        page(out);
        break;
    case 2:
        import(out);
        break;
    case 3:
        out.push_back(chance(50) ? "<!--" : "-->");
        break;
    default:
        ruleSet(out);
    }
}

void RandomSheet::plainRuleSet(Pieces& out) {
    static const char* const compounds[] = {"a", ".c", "#i", "b.c:hover", "*", ".c.D"};
    static const char* const joints[] = {",", " ", " > ", ">"};
    out.push_back(oneOf(compounds));
    for (int i = number(3); i > 0; --i)
        out.insert(out.end(), {oneOf(joints), oneOf(compounds)});
    out.push_back("{");
    for (int i = number(5); i > 0; --i) {
        plainDeclaration(out);
        if (i > 1 || chance(70))
            out.push_back(";");
    }
    out.push_back("}");
}

void RandomSheet::plainDeclaration(Pieces& out) {
    out.insert(out.end(), {oneOf(names), ":"});
    if (chance(20)) {
        out.push_back(chance(70) ? oneOf(unknownFunctions) : oneOf(functions));
        plainValue(out);
        out.push_back(")");
    } else {
        plainValue(out);
    }
    if (chance(10))
        out.push_back(" !important");
}

void RandomSheet::plainValue(Pieces& out) {
    static const char* const separators[] = {" ", " ", " ", "/", ", "};
    for (int i = number(3); i >= 0; --i) {
        out.push_back(chance(40) ? oneOf(lostValues) : oneOf(values));
        if (i > 0)
            out.push_back(oneOf(separators));
    }
}

void RandomSheet::ruleSet(Pieces& out) {
    selectors(out);
    out.push_back("{");
    declarations(out);
    out.push_back("}");
}

void RandomSheet::media(Pieces& out) {
    out.push_back("@media ");
    mediaList(out);
    out.push_back("{");
    for (int i = number(3); i > 0; --i)
        ruleSet(out);
    out.push_back("}");
}

void RandomSheet::mediaList(Pieces& out) {
    out.push_back(oneOf(Testing::media));
    for (int i = number(2); i > 0; --i)
        out.insert(out.end(), {",", oneOf(Testing::media)});
}

void RandomSheet::page(Pieces& out) {
    out.push_back("@page ");
    if (chance(50))
        out.push_back(":first");
    out.push_back("{");
    declarations(out);
    out.push_back("}");
}

void RandomSheet::import(Pieces& out) {
    out.push_back("@import ");
    out.push_back(chance(70) ? "\"/no/such/sheet.css\"" : "url(\"/no/such/sheet.css\")");
    if (chance(50))
        mediaList(out);
    out.push_back(";");
}

void RandomSheet::selectors(Pieces& out) {
    compound(out);
    for (int i = number(4); i > 0; --i) {
        static const char* const joints[] = {",", " ", " > ", " + ", ">"};
        out.push_back(oneOf(joints));
        compound(out);
    }
}

void RandomSheet::compound(Pieces& out) {
    static const char* const tests[] = {"#i", "#j", ".c", ".D", ":hover", ":not(x)", "[a]", "[a=b]", "[ a ~= \"b\" ]"};
    std::string text = chance(60) ? oneOf(names) : chance(50) ? "*" : oneOf(tests);
    for (int i = number(3); i > 0; --i)
        text += oneOf(tests);
    out.push_back(text);
}

void RandomSheet::declarations(Pieces& out) {
    const int count = number(5);
    for (int i = 0; i < count; ++i) {
        out.push_back(oneOf(names));
        out.push_back(":");
        expression(out, 0);
        if (chance(15))
            out.push_back(" !important");
        if (i + 1 < count || chance(50))
            out.push_back(";");
    }
}

void RandomSheet::expression(Pieces& out, int depth) {
    term(out, depth);
    for (int i = number(4); i > 0; --i) {
        static const char* const separators[] = {" ", " ", "/", ", "};
        out.push_back(oneOf(separators));
        term(out, depth);
    }
}

void RandomSheet::term(Pieces& out, int depth) {
    const int kind = depth < deepest ? number(10) : 0;
    if (kind == 8) {
        out.push_back(oneOf(functions));
        expression(out, depth + 1);
        out.push_back(")");
    } else if (kind == 9) {
        out.push_back("calc(");
        sum(out, depth + 1);
        out.push_back(")");
    } else {
        out.push_back(oneOf(values));
    }
}

void RandomSheet::sum(Pieces& out, int depth) {
    unit(out, depth);
    for (int i = number(3); i > 0; --i) {
        static const char* const operators[] = {" + ", " - ", " * "};
        out.push_back(oneOf(operators));
        unit(out, depth);
    }
    if (chance(20))
        out.push_back(" / 2");
}

void RandomSheet::unit(Pieces& out, int depth) {
    if (depth >= deepest || chance(70)) {
        out.push_back(oneOf(numbers));
        return;
    }
    out.push_back(chance(50) ? "(" : "calc(");
    sum(out, depth + 1);
    out.push_back(")");
}

} // namespace Testing
