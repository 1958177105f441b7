#include "styling/TwinScene.h"
#include "support/SheetDump.h"

#include <gtest/gtest.h>

namespace Testing {
namespace {

using Brisko::StyleSheet;

constexpr unsigned seed = 77001;

const NamePlan fewNames;
const NamePlan manyNames{"abcdefg", "ijkl", "stuvwxyz", "hf"};

/// Styles a tree with its twin and compares them.
void compareFresh(const TreeNode& tree, const NamePlan& names, const std::shared_ptr<StyleSheet>& sheet) {
    TwinScene scene(tree, names);
    scene.setSheet(sheet);
    scene.expectSameJournals();
    scene.expectSameNodes();
    if (testing::Test::HasFailure())
        ADD_FAILURE() << scene.text() << dumpSheet(*sheet);
}

std::shared_ptr<StyleSheet> randomSheetOf(Dice& dice, const SheetPlan& plan, int irregularPercent) {
    const auto parsed = randomParsedSheet(dice, plan);
    return dice.chance(irregularPercent) ? randomIrregularSheet(dice, *parsed) : parsed;
}

TEST(PlainCascade, SmallScenesAgree) {
    for (unsigned run = 0; run < 2000; ++run) {
        Dice dice(seed + run);
        const SheetPlan plan{fewNames, 8, 4};
        const auto sheet = randomSheetOf(dice, plan, 25);
        compareFresh(*randomTree(dice, 7), fewNames, sheet);
        ASSERT_FALSE(HasFailure()) << "seed " << seed + run;
    }
}

/// Below one another up to 30 deep: lists of lists that are made one list on the way.
TEST(PlainCascade, DeepScenesAgree) {
    for (unsigned run = 0; run < 60; ++run) {
        Dice dice(seed + run);
        const SheetPlan plan{fewNames, 25, 5};
        const auto sheet = randomSheetOf(dice, plan, 25);
        compareFresh(*randomTree(dice, 40, fewNames, 95), fewNames, sheet);
        ASSERT_FALSE(HasFailure()) << "seed " << seed + run;
    }
}

TEST(PlainCascade, WideScenesOfManyRulesAgree) {
    for (unsigned run = 0; run < 15; ++run) {
        Dice dice(seed + run);
        const SheetPlan plan{dice.chance(50) ? manyNames : fewNames, 150, 4};
        const auto sheet = randomSheetOf(dice, plan, 25);
        compareFresh(*randomTree(dice, 60, plan.names, 20), plan.names, sheet);
        ASSERT_FALSE(HasFailure()) << "seed " << seed + run;
    }
}

/// What a run of changes does beside changing the scene.
struct RunPlan {
    SheetPlan sheet;
    int treeSize;
    int depthPercent;
    int irregularPercent;
    int oddPercent; ///< of styles made by hand, late rules and suppressed nodes, after which a fresh scene is no
                    ///< measure any more
};

void changeAndCompare(unsigned number, const RunPlan& plan, int changes) {
    Dice dice(number);
    auto sheet = randomSheetOf(dice, plan.sheet, plan.irregularPercent);
    TwinScene scene(*randomTree(dice, plan.treeSize, plan.sheet.names, plan.depthPercent), plan.sheet.names);
    scene.setSheet(sheet);
    // A look at the states makes lists that are otherwise never made: it must not matter whether there was one.
    const bool looksAtOnce = dice.chance(50);
    std::string history;
    for (int i = 0; i < changes; ++i) {
        if (dice.chance(plan.oddPercent)) {
            const auto other = randomSheetOf(dice, plan.sheet, 25);
            const int way = dice.roll(10);
            history += way < 6   ? scene.setOddStyle(dice, other)
                       : way < 8 ? scene.declareMore(*other)
                                 : scene.toggleSuppressed(dice);
        } else if (dice.chance(5)) {
            sheet = randomSheetOf(dice, plan.sheet, plan.irregularPercent);
            scene.setSheet(sheet);
            history += "sheet";
        } else {
            history += scene.change(dice);
        }
        history += "\n";
        scene.expectSameJournals();
        if (looksAtOnce || i == changes - 1)
            scene.expectSameNodes();
        if (plan.oddPercent == 0 && (looksAtOnce || i == changes - 1))
            scene.expectLikeAFreshScene();
        ASSERT_FALSE(testing::Test::HasFailure()) << "seed " << number << ", after\n"
                                                  << history << scene.text() << dumpSheet(*sheet);
    }
}

TEST(PlainCascade, ChangedScenesAgree) {
    const RunPlan plan{{fewNames, 12, 4}, 10, 50, 20, 0};
    for (unsigned run = 0; run < 120 && !HasFailure(); ++run)
        changeAndCompare(seed + run, plan, 15);
}

TEST(PlainCascade, DeepChangedScenesAgree) {
    const RunPlan plan{{fewNames, 20, 5}, 35, 95, 20, 0};
    for (unsigned run = 0; run < 12 && !HasFailure(); ++run)
        changeAndCompare(seed + run, plan, 12);
}

/// Where nobody has to be asked for parts, what the last pass has found is used again.
TEST(PlainCascade, ChangedScenesOfWholeValuesAgree) {
    for (const NamePlan& names : {fewNames, manyNames}) {
        const RunPlan plan{{names, 25, 3, true}, 12, 60, 10, 0};
        for (unsigned run = 0; run < 60 && !HasFailure(); ++run)
            changeAndCompare(seed + run, plan, 25);
    }
}

TEST(PlainCascade, DeepChangedScenesOfWholeValuesAgree) {
    const RunPlan plan{{manyNames, 40, 3, true}, 40, 95, 10, 0};
    for (unsigned run = 0; run < 20 && !HasFailure(); ++run)
        changeAndCompare(seed + run, plan, 20);
}

TEST(PlainCascade, ScenesOfWholeValuesWithStylesMadeByHandAgree) {
    const RunPlan plan{{manyNames, 20, 3, true}, 10, 60, 20, 25};
    for (unsigned run = 0; run < 150 && !HasFailure(); ++run)
        changeAndCompare(seed + run, plan, 25);
}

TEST(PlainCascade, ScenesWithStylesMadeByHandAgree) {
    const RunPlan plan{{fewNames, 10, 4}, 10, 60, 25, 35};
    for (unsigned run = 0; run < 150 && !HasFailure(); ++run)
        changeAndCompare(seed + run, plan, 15);
}

} // namespace
} // namespace Testing
