#include "inputs/FrameworkSheet.h"
#include "inputs/SheetGenerator.h"
#include "inputs/TreeGenerator.h"
#include "scene/Scene.h"
#include "scene/Sheets.h"

#include <gtest/gtest.h>

#include <QSet>
#include <QTemporaryFile>

namespace {

using namespace Bench;

/// Places, types, ids and classes of a tree as text.
QStringList linesOf(const TreeShape& tree) {
    QStringList lines;
    for (const NodeShape& node : tree)
        lines += QString("%1 %2 #%3 .%4").arg(node.parent).arg(QString(node.type), node.id, node.classes);
    return lines;
}

TEST(Inputs, SheetsHaveAsManyRulesAsAskedFor) {
    constexpr std::size_t rulesForChanges = 3;
    for (const int rules : {1, 10, 300})
        EXPECT_EQ(parse(generateSheet(rules))->rules().size(), std::size_t(rules) + rulesForChanges);
}

TEST(Inputs, SheetsAreTheSameEveryTime) {
    EXPECT_EQ(generateSheet(50), generateSheet(50));
    EXPECT_EQ(generateFrameworkSheet(50), generateFrameworkSheet(50));
    EXPECT_NE(generateSheet(50), generateSheet(51));
}

TEST(Inputs, FrameworkSheetsHaveListsOfSelectors) {
    // Every selector of a list is a rule of its own.
    EXPECT_GT(parse(generateFrameworkSheet(100))->rules().size(), 105u);
}

TEST(Inputs, FirstChildHasAHundredthOfTheTree) {
    const TreeShape tree = generateTree(recipeFor(1000, 100));
    ASSERT_EQ(tree.size(), 1000u);
    std::vector<int> depths = {0};
    std::size_t below = 0;
    for (std::size_t i = 1; i < tree.size(); ++i) {
        ASSERT_LT(tree[i].parent, int(i));
        depths.push_back(depths[std::size_t(tree[i].parent)] + 1);
        below += i > 1 && tree[i].parent > 0 && below == i - 2; // without a gap after the first child
    }
    EXPECT_EQ(below, 9u);
    EXPECT_LE(*std::max_element(depths.begin(), depths.end()), 10);
}

TEST(Inputs, TreesAreReadAsTheyWereWritten) {
    const TreeShape tree = generateTree(recipeFor(200, 100));
    QTemporaryFile file;
    ASSERT_TRUE(file.open());
    file.write(treeText(tree));
    file.close();
    EXPECT_EQ(linesOf(readTree(file.fileName())), linesOf(tree));
}

TEST(Inputs, DamagedTreesAreNotRead) {
    QTemporaryFile file;
    ASSERT_TRUE(file.open());
    file.write("-1 a - c1\n1 a - c1\n");
    file.close();
    EXPECT_TRUE(readTree(file.fileName()).empty());
    EXPECT_TRUE(readTree("/no/such/file").empty());
}

TEST(Inputs, FewSetsOfClassesRepeat) {
    TreeRecipe recipe = recipeFor(500, 100);
    recipe.classSets = 7;
    recipe.ids = 0;
    QSet<QString> sets;
    for (const NodeShape& node : generateTree(recipe)) {
        sets += node.classes;
        EXPECT_EQ(node.id, QString());
    }
    EXPECT_EQ(sets.size(), 7);
}

TEST(Scene, HundredthIsTheNodeNearestToOneInAHundred) {
    // A root with a chain of four and 295 single children: three of 300 are wanted.
    TreeShape shape = {{-1, "a", {}, {}}, {0, "a", {}, {}}, {1, "a", {}, {}}, {2, "a", {}, {}}, {3, "a", {}, {}}};
    while (shape.size() < 300)
        shape.push_back({0, "a", {}, {}});
    Scene scene(shape);
    EXPECT_EQ(&scene.hundredth(), scene.nodes()[2]);
    EXPECT_EQ(&scene.leaf(), scene.nodes().back());
    EXPECT_EQ(&scene.root(), scene.nodes().front());
}

} // namespace
