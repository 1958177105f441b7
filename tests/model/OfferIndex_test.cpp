#include "model/OfferIndex.h"

#include "Brisko/StyleSheet.h"

#include <gtest/gtest.h>

#include <iterator>

namespace Brisko {
namespace {

using Declarations = Rule::Declarations;

Declarations declarationsOf(const QList<QByteArray>& properties) {
    Declarations declarations;
    for (const QByteArray& property : properties)
        declarations.emplace_back(property, Ondex::StyleValue(1), declarations.size() % 2 == 1);
    return declarations;
}

const Selector any = Selector::universalSelector(SimpleSelector::AuthorOrigin);

TEST(OfferIndex, GivesTheDeclarationsOfARuleInOrder) {
    const std::vector<Rule> rules{Rule(any, declarationsOf({"a", "b"})), Rule(any, declarationsOf({"b", "c", "b"}))};
    const OfferIndex index(rules);
    for (const Rule& rule : rules) {
        const OfferRange offers = index.of(rule.declarations());
        ASSERT_EQ(std::size_t(std::distance(offers.begin(), offers.end())), rule.declarations().size());
        const Declaration* declaration = rule.declarations().data();
        for (const Offer& offer : offers) {
            EXPECT_EQ(offer.declaration, declaration);
            EXPECT_EQ(offer.id, declaration->id());
            EXPECT_EQ(bool(offer.isImportant), declaration->important());
            ++declaration;
        }
    }
}

TEST(OfferIndex, EqualPropertiesHaveOneNumberAcrossRules) {
    const std::vector<Rule> rules{Rule(any, declarationsOf({"a", "b"})), Rule(any, declarationsOf({"b", "c", "b"}))};
    const OfferIndex index(rules);
    EXPECT_EQ(index.propertyCount(), 3);
    const Offer* first = index.of(rules[0].declarations()).first;
    const Offer* second = index.of(rules[1].declarations()).first;
    EXPECT_EQ(first[0].property, 0u);
    EXPECT_EQ(first[1].property, 1u);
    EXPECT_EQ(second[0].property, 1u);
    EXPECT_EQ(second[1].property, 2u);
    EXPECT_EQ(second[2].property, 1u);
}

TEST(OfferIndex, RulesThatShareDeclarationsShareOffers) {
    const auto shared = std::make_shared<const Declarations>(declarationsOf({"a", "b"}));
    const Rule between(any, declarationsOf({"c"}));
    const std::vector<Rule> rules{Rule(any, shared), Rule(any, shared), between, Rule(any, shared)};
    const OfferIndex index(rules);
    const OfferRange offers = index.of(*shared);
    EXPECT_EQ(offers.last - offers.first, 2);
    EXPECT_EQ(index.propertyCount(), 3);
    for (const Rule& rule : {rules[0], rules[1], rules[3]})
        EXPECT_EQ(index.of(rule.declarations()).first, offers.first);
}

TEST(OfferIndex, FindsDeclarationsByNumbersThatGrow) {
    StyleSheet sheet;
    Declaration dropped("x", Ondex::StyleValue(1), false);
    for (int i = 0; i < 3; ++i) {
        Declarations declarations = declarationsOf({"a", "b"});
        for (Declaration& declaration : declarations)
            sheet.setId(declaration, "here");
        if (i == 1)
            sheet.setId(dropped, "here");
        sheet.declare(any, declarations);
    }
    const OfferIndex index(sheet.rules());
    for (const Rule& rule : sheet.rules()) {
        for (const Declaration& declaration : rule.declarations())
            EXPECT_EQ(index.find(declaration.id())->declaration, &declaration);
    }
    EXPECT_EQ(index.find(dropped.id()), nullptr);
    EXPECT_EQ(index.find(-1), nullptr);
    EXPECT_EQ(index.find(7), nullptr);
    EXPECT_EQ(OfferIndex({}).find(0), nullptr);
}

TEST(OfferIndex, FindsNothingByNumbersThatMayRepeat) {
    StyleSheet sheet;
    Declarations declarations = declarationsOf({"a"});
    sheet.setId(declarations[0], "here");
    const std::vector<Rule> rules{Rule(any, declarations), Rule(any, declarations)};
    EXPECT_EQ(OfferIndex(rules).find(declarations[0].id()), nullptr);
}

TEST(OfferIndex, DeclarationsOfNoRuleHaveNoOffers) {
    const std::vector<Rule> rules{Rule(any, declarationsOf({"a"}))};
    const OfferIndex index(rules);
    const Declarations equalOnes = rules[0].declarations();
    EXPECT_EQ(index.of(equalOnes).first, nullptr);
    EXPECT_EQ(index.of(equalOnes).begin(), index.of(equalOnes).end());
    EXPECT_EQ(OfferIndex({}).propertyCount(), 0);
}

} // namespace
} // namespace Brisko
