#include "Brisko/Selector.h"

#include <QDebug>

#include <gtest/gtest.h>

#include <ostream>
#include <utility>

namespace Testing {

namespace {

using Brisko::Selector;
using Brisko::SimpleSelector;

constexpr SimpleSelector::Origin author = SimpleSelector::Origin(1);

/// One compound by type, with the combinator that joins it to the one on its right.
struct Part {
    const char* type;
    SimpleSelector::Combinator combinator;
};

/// Builds a selector from its parts, the subject first.
Selector chain(std::initializer_list<Part> parts) {
    Selector selector;
    for (const Part& part : parts)
        selector.prepend(new SimpleSelector(author, part.type, QString()), part.combinator);
    return selector;
}

TEST(Selector, NewOneHasNoCompounds) {
    EXPECT_EQ(Selector().size(), 0);
}

TEST(Selector, PrependBuildsFromRightToLeft) {
    const Selector selector =
        chain({{"c", SimpleSelector::None}, {"b", SimpleSelector::Descendant}, {"a", SimpleSelector::Child}});
    ASSERT_EQ(selector.size(), 3);
    const SimpleSelector* a = selector.front().get();
    const SimpleSelector* b = a->next();
    ASSERT_NE(b, nullptr);
    const SimpleSelector* c = b->next();
    ASSERT_NE(c, nullptr);
    EXPECT_EQ(c->next(), nullptr);
    EXPECT_EQ(a->cssType(), QByteArray("a"));
    EXPECT_EQ(b->cssType(), QByteArray("b"));
    EXPECT_EQ(c->cssType(), QByteArray("c"));
    EXPECT_EQ(a->combinator(), SimpleSelector::None);
    EXPECT_EQ(b->combinator(), SimpleSelector::Child);
    EXPECT_EQ(c->combinator(), SimpleSelector::Descendant);
}

TEST(Selector, PrependRebuildsTheTextOfTheNewCompoundOnly) {
    const Selector selector = chain({{"b", SimpleSelector::None}, {"a", SimpleSelector::Child}});
    EXPECT_EQ(selector.front()->toString(), QByteArray("a"));
    EXPECT_EQ(selector.front()->next()->toString(), QByteArray("b"));
}

TEST(Selector, PrependResetsTheCombinatorOfTheNewCompound) {
    Selector selector;
    auto* compound = new SimpleSelector(author, "a", QString());
    compound->setCombinator(SimpleSelector::Child);
    selector.prepend(compound, SimpleSelector::Descendant);
    EXPECT_EQ(selector.front()->combinator(), SimpleSelector::None);
    EXPECT_EQ(selector.front()->next(), nullptr);
    EXPECT_EQ(selector.front()->toString(), QByteArray("a"));
}

TEST(Selector, DetachCutsTheLink) {
    const Selector selector = chain({{"b", SimpleSelector::None}, {"a", SimpleSelector::Child}});
    selector.front()->detach();
    EXPECT_EQ(selector.front()->next(), nullptr);
    EXPECT_EQ(selector.size(), 2);
}

TEST(Selector, CopiesShareTheirCompounds) {
    const Selector first = chain({{"b", SimpleSelector::None}, {"a", SimpleSelector::Child}});
    const Selector second = first;
    second.front()->addClass("x");
    EXPECT_TRUE(first.front()->cssClasses().contains("x"));
    EXPECT_EQ(first.front().get(), second.front().get());
    Selector third;
    third = first;
    EXPECT_EQ(third.front().get(), first.front().get());
}

TEST(Selector, CompoundsLiveAsLongAsTheLastCopy) {
    Selector copy;
    {
        const Selector first = chain({{"b", SimpleSelector::None}, {"a", SimpleSelector::Child}});
        copy = first;
    }
    EXPECT_EQ(copy.front()->next()->cssType(), QByteArray("b"));
}

TEST(Selector, PrependToACopyLeavesTheSourceItsLength) {
    const Selector first = chain({{"b", SimpleSelector::None}});
    Selector second = first;
    second.prepend(new SimpleSelector(author, "a", QString()), SimpleSelector::Child);
    EXPECT_EQ(first.size(), 1);
    EXPECT_EQ(second.size(), 2);
    EXPECT_EQ(first.front()->combinator(), SimpleSelector::Child);
}

TEST(Selector, MoveLeavesTheSourceEmpty) {
    Selector first = chain({{"b", SimpleSelector::None}, {"a", SimpleSelector::Child}});
    Selector second = std::move(first);
    EXPECT_EQ(first.size(), 0); // NOLINT(bugprone-use-after-move): that it is empty is the promise
    EXPECT_EQ(second.size(), 2);
    Selector third = chain({{"c", SimpleSelector::None}});
    third = std::move(second);
    EXPECT_EQ(second.size(), 0); // NOLINT(bugprone-use-after-move)
    EXPECT_EQ(third.size(), 2);
    EXPECT_EQ(third.front()->next()->cssType(), QByteArray("b"));
}

TEST(Selector, UniversalIsOneEmptyCompound) {
    const Selector selector = Selector::universalSelector(SimpleSelector::Origin(4));
    ASSERT_EQ(selector.size(), 1);
    EXPECT_TRUE(selector.front()->isEmpty());
    EXPECT_TRUE(selector.front()->toString().isEmpty());
    EXPECT_TRUE(selector.front()->cssType().isEmpty());
    EXPECT_TRUE(selector.front()->cssId().isEmpty());
    EXPECT_EQ(unsigned(selector.front()->origin()), 4u);
    EXPECT_EQ(selector.front()->combinator(), SimpleSelector::None);
}

TEST(Selector, TextHasTheCombinators) {
    const Selector selector =
        chain({{"c", SimpleSelector::None}, {"b", SimpleSelector::Child}, {"", SimpleSelector::Descendant}});
    EXPECT_EQ(selector.toString(), QByteArray("* b > c"));
    EXPECT_EQ(Selector::universalSelector(author).toString(), QByteArray("*"));
    EXPECT_EQ(Selector().toString(), QByteArray());
}

/// Two selectors, the second of which is less, equal or greater.
struct OrderCase {
    const char* name;
    Selector left;
    Selector right;
    int order;
};

void PrintTo(const OrderCase& row, std::ostream* out) {
    *out << row.name;
}

class SelectorOrder : public testing::TestWithParam<OrderCase> {};

TEST_P(SelectorOrder, LessAndEqual) {
    const OrderCase& row = GetParam();
    EXPECT_EQ(row.left < row.right, row.order < 0);
    EXPECT_EQ(row.right<row.left, row.order> 0);
    EXPECT_EQ(row.left == row.right, row.order == 0);
    EXPECT_EQ(row.right == row.left, row.order == 0);
}

Selector withOrigin(unsigned origin) {
    Selector selector;
    selector.prepend(new SimpleSelector(SimpleSelector::Origin(origin), "a", QString()), SimpleSelector::None);
    return selector;
}

Selector withoutText() {
    Selector selector = Selector::universalSelector(author);
    selector.front()->setType("z");
    return selector;
}

constexpr auto none = SimpleSelector::None;
constexpr auto child = SimpleSelector::Child;
constexpr auto descendant = SimpleSelector::Descendant;

std::vector<OrderCase> orderRows() {
    return {
        {"BothEmpty", Selector(), Selector(), 0},
        {"EmptyIsLess", Selector(), chain({{"a", none}}), -1},
        {"SameType", chain({{"a", none}}), chain({{"a", none}}), 0},
        {"TypesByBytes", chain({{"a", none}}), chain({{"b", none}}), -1},
        {"UpperCaseIsLess", chain({{"B", none}}), chain({{"a", none}}), -1},
        {"PrefixIsLess", chain({{"a", none}}), chain({{"ab", none}}), -1},
        {"FewerCompoundsAreLess", chain({{"z", none}}), chain({{"a", none}, {"a", child}}), -1},
        {"CombinatorsDoNotCount", chain({{"b", none}, {"a", child}}), chain({{"b", none}, {"a", descendant}}), 0},
        {"SubjectDecidesFirst", chain({{"a", none}, {"z", child}}), chain({{"b", none}, {"a", child}}), -1},
        {"NextOneDecidesAfterTheSubject", chain({{"a", none}, {"b", child}}), chain({{"a", none}, {"c", child}}), -1},
        {"OriginDoesNotCount", withOrigin(1), withOrigin(7), 0},
        {"CachedTextsAreCompared", withoutText(), Selector::universalSelector(author), 0},
        {"GreaterType", chain({{"b", none}}), chain({{"a", none}}), 1},
    };
}

INSTANTIATE_TEST_SUITE_P(Rows, SelectorOrder, testing::ValuesIn(orderRows()),
                         [](const testing::TestParamInfo<OrderCase>& row) { return std::string(row.param.name); });

TEST(Selector, IsPrintedAsItIsWritten) {
    const Selector selector =
        chain({{"c", SimpleSelector::None}, {"b", SimpleSelector::Descendant}, {"a", SimpleSelector::Child}});
    QString printed;
    QDebug(&printed) << selector << Selector();
    EXPECT_EQ(printed.trimmed().toStdString(), "Selector(a > b c) Selector()");
}

} // namespace

} // namespace Testing
