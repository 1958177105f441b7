#include "brisko/DialectLint.h"

#include <gtest/gtest.h>

namespace {

/// Line and rule of each finding: "1 unknown-unit, 3 hex-color".
std::string found(const std::string& sheet) {
    std::string result;
    for (const Command::Finding& finding : Command::lintDialect("a.css", sheet)) {
        result += result.empty() ? "" : ", ";
        result += std::to_string(finding.line) + " " + finding.rule->id;
    }
    return result;
}

std::string textOf(const std::string& sheet) {
    const std::vector<Command::Finding> findings = Command::lintDialect("a.css", sheet);
    return findings.size() == 1 ? findings[0].text.toStdString() : "findings: " + std::to_string(findings.size());
}

struct DialectCase {
    const char* name;
    const char* sheet;
    const char* found;
};

class DialectLint : public testing::TestWithParam<DialectCase> {};

TEST_P(DialectLint, Finds) {
    EXPECT_EQ(found(GetParam().sheet), GetParam().found);
}

INSTANTIATE_TEST_SUITE_P(
    Selectors, DialectLint,
    testing::Values(DialectCase{"Siblings", "a + b,\nc ~ d { x: 1 }", "1 sibling-selector, 2 sibling-selector"},
                    DialectCase{"Attributes", "a[href='+'],\nb[c~=d] { x: 1 }",
                                "1 attribute-selector, 2 attribute-selector"},
                    DialectCase{"OpenBracket", "a[href { x: 1 }", "1 attribute-selector"},
                    DialectCase{"FunctionalPseudoClasses", "a:not(.b + .c):nth-child(2n+1) { x: 1 }",
                                "1 functional-pseudo-class, 1 functional-pseudo-class"},
                    DialectCase{"StructuralPseudoClasses", "a:first-child { x: 1 }", "1 structural-pseudo-class"},
                    DialectCase{"PseudoElements", "a::before { x: 1 }\nb:after { x: 1 }\nc:: { x: 1 }",
                                "1 pseudo-element, 2 pseudo-element, 3 pseudo-element"},
                    DialectCase{"States", "a:hover:loading { x: 1 }", ""},
                    DialectCase{"Escapes", ".w-1\\/2 { x: 1 }", "1 escaped-name"},
                    DialectCase{"LettersBeyondAscii", ".\xc3\xa9 { x: 1 }", "1 non-ascii-text"},
                    DialectCase{"Plain", "scene > panel .a.b#c, * { x: 1 }", ""}),
    [](const auto& tested) { return tested.param.name; });

INSTANTIATE_TEST_SUITE_P(
    Values, DialectLint,
    testing::Values(
        DialectCase{"UnknownUnits", "a { x: 1rem;\ny: 2vw 3px; z: 1e3 }",
                    "1 unknown-unit, 2 unknown-unit, 2 unknown-unit"},
        DialectCase{"KnownUnits", "a { x: 1px 2% 3em 4ex 5in 6cm 7mm 8pt 9pc 1s 2ms 3deg 4rad 5grad 6 7.5 8PX }", ""},
        DialectCase{"UnitsOfCalc", "a { x: calc(1em + (2ex * 2)); y: 1em }", "1 calc-font-unit, 1 calc-font-unit"},
        DialectCase{"BehindCalc", "a { x: calc(1px) 1em }", ""},
        DialectCase{"Hues", "a { x: hsl(120deg, 1%, 1%); y: hsla(120, 1%, 1%, 1) }", "1 hue-unit"},
        DialectCase{"Colours", "a { x: #12345; y: #ggg; z: #abc #ABCD #abcdef #abcdef12 }", "1 hex-color, 1 hex-color"},
        DialectCase{"CustomProperties", "a { --b: 1rem;\nc: var(--b, 1px) }", "1 custom-property, 2 custom-property"},
        DialectCase{"Functions", "a { x: min(1px, 2px); y: rgb(1, 2, 3) url(a+b.png) calc(1px) }",
                    "1 unknown-function"},
        DialectCase{"GlobalKeywords", "a { x: inherit; y: Initial !important; z: inherit 1px }",
                    "1 global-keyword, 1 global-keyword"},
        DialectCase{"TextBeyondAscii", "a { x: '\xc3\xa9'; y: url(\xc3\xa9.png) }", "1 non-ascii-text"},
        DialectCase{"EscapesInTexts", "a { x: '\\e9' }", ""}, DialectCase{"NoColon", "a { 1rem }", ""}),
    [](const auto& tested) { return tested.param.name; });

INSTANTIATE_TEST_SUITE_P(
    Sheets, DialectLint,
    testing::Values(
        DialectCase{"UnknownAtRules", "@layer a, b;\n@supports (x: 1) { a { x: 1rem } }\nb { x: 1rem }",
                    "1 ignored-at-rule, 2 ignored-at-rule, 2 unknown-unit, 3 unknown-unit"},
        DialectCase{"DeclarationsOfAtRules", "@font-face { x: 1rem }\na + b { x: 1 }",
                    "1 ignored-at-rule, 1 unknown-unit, 2 sibling-selector"},
        DialectCase{"KnownAtRules",
                    "@charset \"UTF-8\";\n@import url(a.css) print, screen;\n@media print, all { a { x: 1 } }", ""},
        DialectCase{"MediaQueries",
                    "@media (min-width: 1px) { a { x: 1 } }\n@media not print { }\n@import 'a' screen and (x);",
                    "1 media-query, 2 media-query, 3 media-query"},
        DialectCase{"RulesInMedia", "@media print { a + b { x: 1rem } } c { x: 1rem }",
                    "1 sibling-selector, 1 unknown-unit, 1 unknown-unit"},
        DialectCase{"NestedRules", "a { x: 1;\n b { y: 1rem } z: 1rem }",
                    "2 nested-rule, 2 unknown-unit, 2 unknown-unit"},
        DialectCase{"AtRuleAmongDeclarations", "a { @apply b; x: 1rem }", "1 ignored-at-rule, 1 unknown-unit"},
        DialectCase{"Comments", "a { x: 1px /* 1rem; */ } /* b + c {} */", ""},
        DialectCase{"BracesTooMany", "} } a { x: 1rem } }", "1 unknown-unit"},
        DialectCase{"OpenEnd", "a { x: 1rem", "1 unknown-unit"}, DialectCase{"Nothing", "", ""}),
    [](const auto& tested) { return tested.param.name; });

TEST(DialectTexts, SayWhatToWriteInstead) {
    EXPECT_EQ(textOf("a + b { x: 1 }"), "'+' is no combinator here, and what stands on its left does not count: give "
                                        "the neighbour a class instead");
    EXPECT_EQ(textOf("a { x: 10rem }"),
              "'10rem' is left out, its unit is not known: write px, or em: there is no root size");
    EXPECT_EQ(textOf("a { x: 10dvh }"),
              "'10dvh' is left out, its unit is not known: write px, or have the program set the property");
    EXPECT_EQ(textOf("a { x: 1e-3 }"),
              "'1e-3' is left out, its unit is not known: write the number without an exponent");
    EXPECT_EQ(textOf("a { x: 1foo }"), "'1foo' is left out, its unit is not known: write px, %, em or ex");
    EXPECT_EQ(textOf("@-webkit-keyframes a { }"), "@-webkit-keyframes is not known: use the property 'transition'");
    EXPECT_EQ(textOf("a { x: var(--b) }"),
              "there are no custom properties, 'var()' drops the declaration: write the value itself");
}

TEST(DialectLintCost, BlocksMayBeNestedDeeply) {
    EXPECT_EQ(Command::lintDialect("a.css", std::string(200000, '{')).size(), 0u);
    EXPECT_EQ(Command::lintDialect("a.css", "a { x: " + std::string(200000, '(') + "1rem").size(), 1u);
}

} // namespace
