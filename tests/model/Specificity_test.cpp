#include "model/Specificity.h"

#include <gtest/gtest.h>

namespace Brisko {
namespace {

using namespace Specificity;

TEST(Specificity, EveryFeatureCountsInItsField) {
    SimpleSelector selector(SimpleSelector::Origin(3), "button", "ok");
    selector.addClass("a");
    selector.addClass("b");
    selector.addPseudoClass("hover");
    EXPECT_EQ(plus(0, selector), 0x03010301);
}

TEST(Specificity, UniversalCompoundHasItsOriginOnly) {
    EXPECT_EQ(plus(0, SimpleSelector(SimpleSelector::HighestOrigin, "", "")), 0x07000000);
    EXPECT_EQ(plus(0, SimpleSelector(SimpleSelector::LowestOrigin, "", "")), 0);
}

TEST(Specificity, CountsOfAChainAddUpAndTheLastOriginHolds) {
    const SimpleSelector left(SimpleSelector::HighestOrigin, "a", "i");
    const SimpleSelector right(SimpleSelector::AuthorOrigin, "b", "");
    EXPECT_EQ(plus(plus(0, left), right), 0x01010002);
}

TEST(Specificity, OriginReplacesOnlyItsOwnBits) {
    EXPECT_EQ(withOrigin(0x07123456, SimpleSelector::Origin(2)), 0x02123456);
    EXPECT_EQ(withOrigin(0x78000001, SimpleSelector::Origin(1)), 0x79000001);
}

TEST(Specificity, FullFieldStaysFull) {
    int specificity = 0;
    for (int i = 0; i < 300; ++i)
        specificity = plus(specificity, Classes, 1);
    EXPECT_EQ(specificity, 0xFF00);
    EXPECT_EQ(plus(0xFE, Types, 5), 0xFF);
    EXPECT_EQ(plus(0, Ids, 1000), 0xFF0000);
}

TEST(Specificity, OneIdIsStrongerThanAllClasses) {
    EXPECT_GT(plus(0, Ids, 1), plus(0, Classes, 1000));
    EXPECT_GT(plus(0, Classes, 1), plus(0, Types, 1000));
    EXPECT_GT(withOrigin(0, SimpleSelector::AuthorOrigin), plus(0, Ids, 1000));
}

} // namespace
} // namespace Brisko
