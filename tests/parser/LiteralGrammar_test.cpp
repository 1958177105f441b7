#include "LiteralGrammar.h"
#include "ParseRecord.h"
#include "RandomSheet.h"

#include <gtest/gtest.h>

#include <string>

namespace Testing {

namespace {

constexpr unsigned seed = 20240611;
constexpr int textCount = 4000;

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
        ASSERT_EQ(recordParse(text, nullptr), recordParse(text, literalparse))
            << "seed " << seed << ", text " << i << ":\n"
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
        ASSERT_EQ(recordParse(text, nullptr).find("syntax error"), std::string::npos) << "seed " << seed << ":\n"
                                                                                      << text;
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
    EXPECT_NE(recordParse(text, nullptr).find("result 1\n"), std::string::npos);
    const std::string literal = recordParse(text, literalparse);
    EXPECT_NE(literal.find("error: memory exhausted"), std::string::npos);
    EXPECT_NE(literal.find("result 0\n"), std::string::npos);
}

} // namespace Testing
