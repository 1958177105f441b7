#include "styling/RandomChange.h"
#include "styling/SlowMatcher.h"
#include "support/SheetDump.h"

#include <gtest/gtest.h>

namespace Testing {
namespace {

constexpr unsigned seed = 20210901;
constexpr int pairs = 10000;
constexpr int changedScenes = 150;
constexpr int changesOfAScene = 12;

TEST(RandomMatching, ForwardMatchingAgreesWithMatchingFromRightToLeft) {
    TraceGuard trace;
    int values = 0;
    for (unsigned pair = 0; pair < pairs; ++pair) {
        Dice dice(seed + pair);
        const std::unique_ptr<TreeNode> tree = randomTree(dice, 6);
        const auto sheet = randomSheet(dice, 6);
        const std::unique_ptr<TestNode> scene = buildScene(*tree);
        scene->setStyle(Brisko::Style(sheet));
        values += compareWithSlowMatcher(*tree, *scene, *sheet);
        ASSERT_FALSE(HasFailure()) << "seed " << seed + pair << "\n" << tree->text() << dumpSheet(*sheet);
    }
    EXPECT_GT(values, pairs) << "too few rules match for the comparison to mean much";
}

TEST(RandomMatching, ChangedSceneEqualsAFreshOne) {
    TraceGuard trace;
    const ChangePlan plan;
    for (unsigned run = 0; run < changedScenes; ++run) {
        Dice dice(seed + run);
        const std::unique_ptr<TreeNode> tree = randomTree(dice, 8);
        const Brisko::Style style(randomSheet(dice, 8));
        const std::unique_ptr<TestNode> scene = buildScene(*tree);
        scene->setStyle(style);
        std::string history;
        for (int i = 0; i < changesOfAScene; ++i) {
            history += RandomChange(dice, plan, *tree, *scene).make() + "\n";
            const std::unique_ptr<TestNode> fresh = buildScene(*tree);
            fresh->setStyle(style);
            expectSameStyles(*scene, *fresh);
            ASSERT_FALSE(HasFailure()) << "seed " << seed + run << ", after\n"
                                       << history << tree->text() << dumpSheet(*style.styleSheet());
        }
    }
}

} // namespace
} // namespace Testing
