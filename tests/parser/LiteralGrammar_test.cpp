#include "LiteralGrammar.h"
#include "RandomSheet.h"

#include "Gorvel/Trace.h"
#include "parser/ParserAccess.h"
#include "parser/ParserDriver.h"

#include <gtest/gtest.h>

#include <string>

namespace Testing {

using namespace Brisko;
using Gorvel::Trace;

namespace {

constexpr unsigned seed = 20240611;
constexpr int textCount = 4000;
constexpr auto origin = SimpleSelector::AuthorOrigin;

// Collects all messages while it lives, the debug messages of the rule assembly among them: they give away when which
// action ran.
class Recorder {
public:
    Recorder() {
        m_previous = Trace::setSink([this](Trace::Level level, const QByteArray& message) {
            m_text += std::to_string(int(level)) + ' ' + message.toStdString() + '\n';
        });
        Trace::setDebugEnabled(true);
    }
    ~Recorder() {
        Trace::setDebugEnabled(false);
        Trace::setSink(m_previous);
    }
    void add(const std::string& text) { m_text += text; }
    const std::string& text() const { return m_text; }

private:
    Trace::Sink m_previous;
    std::string m_text;
};

std::string describe(const Selector& selector) {
    std::string text;
    for (const SimpleSelector* compound = selector.front().get(); compound; compound = compound->next()) {
        text += std::to_string(int(compound->combinator())) + '/' + std::to_string(int(compound->origin())) + '/' +
                compound->toString().toStdString() + ' ';
    }
    return text;
}

std::string describe(const StyleSheet& sheet) {
    std::string text;
    for (const Rule& rule : sheet.rules()) {
        text += describe(rule.selector()) + "{\n";
        for (const Declaration& declaration : rule.declarations()) {
            text += "  " + std::to_string(declaration.id()) + ' ' + sheet.source(declaration.id()).toStdString() + ' ' +
                    declaration.property().toStdString() + ": " + declaration.value().stringify().toStdString() +
                    (declaration.important() ? " !important\n" : "\n");
        }
    }
    return text;
}

// Everything that can be seen of a parse: messages and actions in their order, the result and the sheet.
std::string parse(const std::string& text, ParserDriver::Grammar grammar) {
    Recorder recorder;
    CSSParser parser;
    if (grammar)
        ParserAccess::driver(parser).setGrammar(grammar);
    StyleSheet sheet;
    const bool result = parser.parseString(sheet, QByteArray::fromStdString(text), nullptr, origin);
    recorder.add("result " + std::to_string(result) + '\n' + describe(sheet));
    return recorder.text();
}

std::string joined(const std::string& separator, const std::string& piece, int count) {
    std::string text;
    for (int i = 0; i < count; ++i)
        text += (i > 0 ? separator : "") + piece;
    return text;
}

using Pieces = RandomSheet::Pieces;

void compareForms(RandomSheet& random, Pieces (RandomSheet::*make)(),
                  std::string (RandomSheet::*join)(const Pieces&) = &RandomSheet::join) {
    for (int i = 0; i < textCount; ++i) {
        const std::string text = (random.*join)((random.*make)());
        ASSERT_EQ(parse(text, nullptr), parse(text, literalparse)) << "seed " << seed << ", text " << i << ":\n"
                                                                   << text;
    }
}

} // namespace

TEST(LiteralGrammar, WellFormedSheetsAreReadAlike) {
    RandomSheet random(seed);
    compareForms(random, &RandomSheet::wellFormed);
}

TEST(LiteralGrammar, WellFormedSheetsHaveNoSyntaxErrors) {
    RandomSheet random(seed);
    for (int i = 0; i < textCount; ++i) {
        const std::string text = random.join(random.wellFormed());
        ASSERT_EQ(parse(text, nullptr).find("syntax error"), std::string::npos) << "seed " << seed << ":\n" << text;
    }
}

TEST(LiteralGrammar, DamagedSheetsAreReadAlike) {
    RandomSheet random(seed + 1);
    compareForms(random, &RandomSheet::damaged);
}

TEST(LiteralGrammar, SheetsOfFrameworksAreReadAlike) {
    RandomSheet random(seed + 3);
    compareForms(random, &RandomSheet::ofFramework, &RandomSheet::joinPlainly);
}

TEST(LiteralGrammar, DamagedSheetsOfFrameworksAreReadAlike) {
    RandomSheet random(seed + 4);
    compareForms(random, &RandomSheet::damagedOfFramework, &RandomSheet::joinPlainly);
}

TEST(LiteralGrammar, ArbitraryTokensAreReadAlike) {
    RandomSheet random(seed + 2);
    compareForms(random, &RandomSheet::arbitrary);
}

TEST(LiteralGrammar, IsAnotherGrammar) {
    const std::string text = joined("\n", "a { x: 1 }", 6000);
    EXPECT_NE(parse(text, nullptr).find("result 1\n"), std::string::npos);
    const std::string literal = parse(text, literalparse);
    EXPECT_NE(literal.find("error: memory exhausted"), std::string::npos);
    EXPECT_NE(literal.find("result 0\n"), std::string::npos);
}

} // namespace Testing
