#include "LintRules.h"

#include <QHash>

#include <algorithm>
#include <tuple>

namespace Command {

using Gorvel::Trace;

namespace {

/// A part of a parser's message, and the rule of those that have it.
struct MessageRow {
    const char* part;
    const char* rule;
};

// The first that fits counts.
constexpr MessageRow messageTable[] = {
    {"Sibling selectors are not supported", "sibling-selector"},
    {"Attribute selectors not implemented", "attribute-selector"},
    {"Function-like pseudo-selectors not implemented", "functional-pseudo-class"},
    {"unexpected AT_RULE", "ignored-at-rule"},
    {"@page rules are ignored", "ignored-at-rule"},
    {"Ignoring unknown @rule", "ignored-at-rule"},
    {"Unknown / unimplemented CSS function", "unknown-function"},
    {"() is deprecated syntax", "deprecated-function"},
    {"@import", "failed-import"},
    {"Bad string", "bad-string"},
    {"syntax error", "syntax-error"},
    {"CSS Parse Error", "syntax-error"},
};

} // namespace

const std::vector<LintRule>& lintRules() {
    static const std::vector<LintRule> rules = {
        {"sibling-selector", Severity::Note, "A sibling combinator styles every node that its right side matches.",
         "A node knows its parent but not its neighbours. Give the neighbour a class of its own."},
        {"attribute-selector", Severity::Note, "The test of an attribute selector is dropped.",
         "The rule applies to more nodes than were meant. Use a class or a pseudo-class that the program switches."},
        {"functional-pseudo-class", Severity::Note, "A functional pseudo-class loses its parameter.",
         "What is left is a state that the program has to switch on. Give the nodes that are meant a class."},
        {"structural-pseudo-class", Severity::Warning, "A pseudo-class has no meaning of its own.",
         "Every pseudo-class is a state that the program switches on, those for places in the tree too. Give the "
         "nodes that are meant a class."},
        {"pseudo-element", Severity::Warning, "There are no pseudo-elements.",
         "What stands behind the colon is a state that the program has to switch on. Add a node to the scene."},
        {"escaped-name", Severity::Warning, "Escapes in names stay as written.",
         "A node has to have the name with its backslash. Name it so that it needs no escape."},
        {"non-ascii-text", Severity::Warning, "A letter beyond ASCII becomes several.",
         "Texts and names are read byte by byte, as Latin-1. Write an escape such as \\e9 in texts, and names in "
         "ASCII."},
        {"unknown-unit", Severity::Warning, "A number with an unknown unit vanishes.",
         "The units are px, %, em, ex, in, cm, mm, pt, pc, deg, rad, grad, s and ms."},
        {"calc-font-unit", Severity::Warning, "Inside of calc(), em and ex are pixels.",
         "An expression does not know the size of the font. Write pixels, or the length without calc()."},
        {"hue-unit", Severity::Warning, "A hue with a unit is taken for radians.", "Write the degrees without a unit."},
        {"hex-color", Severity::Warning, "A hexadecimal colour has 3, 4, 6 or 8 digits.",
         "Every other number of digits is opaque black."},
        {"custom-property", Severity::Note, "There are no custom properties.",
         "Write the value itself. What many nodes share goes into one rule with a list of selectors."},
        {"unknown-function", Severity::Note, "A function that is not known drops its declaration.",
         "There are rgb(), rgba(), hsl(), hsla(), hsv(), hsva(), calc() and url()."},
        {"deprecated-function", Severity::Warning, "A vector is written as a function.",
         "Write the numbers alone, with blanks between them."},
        {"global-keyword", Severity::Warning, "No word has a meaning for every property.",
         "No property is inherited. Name all the nodes that are meant, or the value itself."},
        {"ignored-at-rule", Severity::Note, "This at-rule is not known.",
         "There are @import, @media and @charset. What stands in the block of another one may be read as rules."},
        {"media-query", Severity::Note, "A medium is a name.",
         "Conditions are not known. Give the medium a name and have the program choose it."},
        {"nested-rule", Severity::Note, "Rules do not nest.", "Write the whole selector in a rule of its own."},
        {"unmatched-rule", Severity::Warning, "No node of the scene matches a selector.",
         "Whatever pseudo-classes are on. The nodes may come later, or the selector names what is not there."},
        {"unserved-property", Severity::Warning, "No node has an attribute for a property.",
         "The declaration reaches nodes, but none of them has such an attribute and nobody makes one."},
        {"refused-value", Severity::Warning, "An attribute does not take a value.",
         "The declaration is the strongest, its value is refused, and no weaker declaration is tried."},
        {"overridden-declaration", Severity::Warning, "A declaration can never win.",
         "On every node that it reaches, whatever pseudo-classes are on, something stronger is there. Remove it, or "
         "make it stronger."},
        {"syntax-error", Severity::Error, "The sheet does not follow the grammar.",
         "Reading goes on at the next place where it can."},
        {"bad-string", Severity::Error, "A text ends with its line.", "Close the quotes."},
        {"failed-import", Severity::Error, "An import could not be read.", "See the message for the reason."},
        {"other-error", Severity::Error, "Something else is wrong.", "See the message."},
        {"other-message", Severity::Warning, "Something else is to be known.", "See the message."},
    };
    return rules;
}

const LintRule& lintRule(const char* id) {
    const std::vector<LintRule>& rules = lintRules();
    const auto found =
        std::find_if(rules.begin(), rules.end(), [id](const LintRule& rule) { return qstrcmp(rule.id, id) == 0; });
    Q_ASSERT(found != rules.end());
    return *found;
}

const LintRule& lintRuleOf(const Message& message) {
    if (message.level != Trace::Level::Debug) {
        for (const MessageRow& row : messageTable) {
            if (message.text.contains(row.part))
                return lintRule(row.rule);
        }
    }
    return lintRule(message.level == Trace::Level::Error ? "other-error" : "other-message");
}

const char* severityName(Severity severity) {
    switch (severity) {
    case Severity::Error:
        return "error";
    case Severity::Warning:
        return "warning";
    default:
        return "note";
    }
}

void sortFindings(std::vector<Finding>& findings, const std::vector<QByteArray>& files) {
    QHash<QByteArray, int> places;
    for (const QByteArray& file : files)
        places.insert(file, places.value(file, places.size()));
    const auto key = [&places](const Finding& finding) {
        return std::make_tuple(places.value(finding.file, places.size()), finding.line, finding.rule, finding.text);
    };
    std::stable_sort(findings.begin(), findings.end(),
                     [&key](const Finding& a, const Finding& b) { return key(a) < key(b); });
    findings.erase(std::unique(findings.begin(), findings.end(),
                               [&key](const Finding& a, const Finding& b) { return key(a) == key(b); }),
                   findings.end());
}

} // namespace Command
