// Prints why the properties of a node have their values, and why a rule does not apply to it.
#include <Brisko/Brisko.h>

#include <cstdio>

namespace {

using Brisko::Explanation;
using Outcome = Explanation::Outcome;

const char* words(Outcome outcome) {
    switch (outcome) {
    case Outcome::Wins:
        return "wins";
    case Outcome::LostByImportance:
        return "lost to an important one";
    case Outcome::LostBySpecificity:
        return "lost to a more specific one";
    case Outcome::LostByOrder:
        return "lost to a later one";
    case Outcome::Refused:
        return "was refused by the attribute";
    case Outcome::OverriddenByProgram:
        return "is covered by a value of the program";
    case Outcome::OverriddenByTransition:
        return "is covered by a running transition";
    case Outcome::NotServed:
        return "has no attribute to set";
    }
    return "";
}

void explain(const Brisko::Styleable& node, const char* property) {
    std::printf("%s\n", property);
    for (const Explanation::Candidate& candidate : Explanation(node).candidates(property)) {
        const QByteArray via = candidate.via.isEmpty() ? "" : " through " + candidate.via;
        std::printf("  %s { %s }%s at %s %s\n", candidate.selectorText().constData(),
                    qPrintable(candidate.value.stringify()), via.constData(), qPrintable(candidate.source),
                    words(candidate.outcome));
    }
}

void explainMismatch(const Brisko::Styleable& node, const char* selector) {
    const auto mismatch = Brisko::whyNot(node, Brisko::CSSParser::parseSelectors(selector).first());
    if (!mismatch)
        return;
    std::printf("%s does not match: %s finds no node\n", selector, mismatch->text.constData());
    for (const Brisko::Mismatch::Attempt& attempt : mismatch->attempts) {
        for (const Brisko::Mismatch::Unmet& unmet : attempt.unmet)
            std::printf("  %s lacks '%s'\n", qPrintable(attempt.node->simpleSelector(true)), unmet.name.constData());
    }
}

} // namespace

int main() {
    auto sheet = std::make_shared<Brisko::StyleSheet>();
    Brisko::CSSParser().parseSheet(*sheet, "theme.css", nullptr, Brisko::SimpleSelector::AuthorOrigin);

    Brisko::Styleable panel("panel");
    auto* button = new Brisko::CSSBoxModel;
    button->setCSSType("button");
    button->setCSSId("ok");
    panel.addAttribute(button); // the panel deletes it
    panel.setStyle(Brisko::Style(sheet));

    explain(*button, "width");
    explain(*button, "padding-top");
    explainMismatch(*button, "panel.wide > button:hover");
    button->setPseudoClass("hover", true);
    explain(*button, "width");
    explainMismatch(*button, "panel.wide > button:hover");
    return 0;
}
