#include "limits/FloorMatcher.h"

#include "inputs/SheetGenerator.h"
#include "scene/Scene.h"
#include "scene/Sheets.h"

#include <gtest/gtest.h>

namespace {

using namespace Bench;

/// What the floor leaves out must not be matching: it finds the declarations that the library finds.
TEST(FloorMatcher, FindsTheWinnersOfTheLibrary) {
    constexpr int rules = 60;
    const auto sheet = parse(generateSheet(rules));
    const TreeShape shape = generateTree(recipeFor(300, rules));
    Scene scene(shape);
    scene.root().setStyle(Brisko::Style(sheet));
    FloorMatcher floor(*sheet);
    floor.setTree(shape);

    int winners = 0;
    EXPECT_GT(floor.match(), 0);
    for (std::size_t i = 0; i < shape.size(); ++i) {
        for (const QByteArray& property : BenchNode::properties) {
            const int winner = floor.winner(int(i), property.toStdString());
            EXPECT_EQ(sheet->source(winner), scene.nodes()[i]->attributeSource(property)) << i << property.data();
            winners += winner >= 0;
        }
    }
    EXPECT_EQ(floor.match(), winners);
}

TEST(FloorMatcher, KnowsNoUnnamedProperty) {
    FloorMatcher floor(*parse("a { color: #fff }"));
    floor.setTree(generateTree(recipeFor(3, 10)));
    floor.match();
    EXPECT_EQ(floor.winner(0, "opacity"), -1);
}

} // namespace
