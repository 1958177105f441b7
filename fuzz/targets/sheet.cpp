#include "LiteralGrammar.h"
#include "fuzz/support/Import.h"
#include "fuzz/support/Target.h"
#include "fuzz/support/TextMutator.h"
#include "parser/ParseRecord.h"
#include "parser/RandomSheet.h"

#include "Brisko/CSSParser.h"

#include <gtest/gtest.h>

// Any bytes as a sheet: what comes out is well formed, and is what the grammar says in its literal form, without the
// short cuts for plain rules.

using Brisko::CSSParser;
using Brisko::Rule;
using Brisko::SimpleSelector;
using Brisko::StyleSheet;

namespace {

void expectWellFormed(const Rule& rule, const StyleSheet& sheet) {
    ASSERT_GT(rule.selector().size(), 0);
    ASSERT_FALSE(rule.declarations().empty());
    int count = 0;
    for (const SimpleSelector* compound = rule.selector().front().get(); compound; compound = compound->next()) {
        EXPECT_EQ(compound->origin(), SimpleSelector::HighestOrigin);
        ++count;
    }
    EXPECT_EQ(count, rule.selector().size());
    int previous = -1;
    for (const Brisko::Declaration& declaration : rule.declarations()) {
        EXPECT_GT(declaration.id(), previous) << "declarations are numbered in their order";
        EXPECT_FALSE(sheet.source(declaration.id()).isEmpty());
        EXPECT_FALSE(declaration.property().isEmpty());
        EXPECT_FALSE(declaration.value().isEmpty());
        previous = declaration.id();
    }
}

void expectLikeLiteralGrammar(const std::string& text) {
    const std::string literal = Testing::recordParse(text, literalparse, Fuzz::isImportAllowed);
    // It keeps a list on the stack where the library needs one entry.
    if (literal.find("memory exhausted") != std::string::npos)
        return;
    EXPECT_EQ(Testing::recordParse(text, nullptr, Fuzz::isImportAllowed), literal);
}

} // namespace

namespace Fuzz {

std::string sampleText(unsigned seed) {
    Testing::RandomSheet random(seed);
    return random.join(seed % 4 == 0 ? random.arbitrary() : seed % 4 == 1 ? random.damaged() : random.wellFormed());
}

void checkInput(const QByteArray& bytes) {
    StyleSheet sheet;
    CSSParser parser;
    parser.setImportFilter(isImportAllowed);
    parser.parseString(sheet, bytes, nullptr, SimpleSelector::HighestOrigin);
    for (const Rule& rule : sheet.rules())
        expectWellFormed(rule, sheet);
    const StyleSheet copy(sheet);
    EXPECT_TRUE(copy == sheet);
    expectLikeLiteralGrammar(bytes.toStdString());
}

} // namespace Fuzz
